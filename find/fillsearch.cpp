// The two searches: every fill, and one.

#include "find/fill.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/random.h"
#include "find/fillparts.h"
#include "find/solutions.h"

#include <algorithm>
#include <bit>

fillprogress filling;

namespace
{

constexpr uint32_t NONE = UINT32_MAX;

std::vector<uint32_t> taken; // a word's number in its list for each slot

const fillslot &slotat(size_t n)
{
    return fill.slots[n];
}

uint32_t onlyword(const fillslot &slot)
{
    uint32_t i = 0;
    while (!slot.words[i])
        i++;
    return i * SPANBITS + static_cast<uint32_t>(std::countr_zero(slot.words[i]));
}

int32_t decided()
{
    return static_cast<int32_t>(
        std::count_if(fill.slots.begin(), fill.slots.end(),
                      [](const fillslot &slot) { return !slot.list || slot.count == 1; }));
}

void take()
{
    for (size_t n = 0; n < fill.slots.size(); n++) {
        const fillslot &slot = slotat(n);
        taken[n] = slot.list && slot.count == 1 ? onlyword(slot) : NONE;
    }
}

// The slot to try next: of few words for its weight, the first of those that are the
// same. -1 when each has its word.
int32_t nextslot()
{
    int32_t best = -1;
    for (size_t n = 0; n < fill.slots.size(); n++) {
        const fillslot &slot = slotat(n);
        if (!slot.list || slot.count == 1) continue;
        const fillslot &than = slotat(static_cast<size_t>(std::max(best, 0)));
        if (best < 0 || uint64_t{slot.count} * than.weight < uint64_t{than.count} * slot.weight)
            best = static_cast<int32_t>(n);
    }
    return best;
}

std::vector<uint32_t> wordsof(const fillslot &slot)
{
    std::vector<uint32_t> words;
    words.reserve(slot.count);
    for (uint32_t i = 0; i < slot.list->spans; i++)
        for (uint64_t span = slot.words[i]; span; span &= span - 1)
            words.push_back(i * SPANBITS + static_cast<uint32_t>(std::countr_zero(span)));
    return words;
}

bool goon()
{
    filling.tries++;
    return !fill.rules.goon || fill.rules.goon();
}

// False when the search has been ended.
bool every(bool (*found)())
{
    int32_t n = nextslot();
    if (n < 0) {
        take();
        filling.best = filling.slots;
        return found();
    }
    for (uint32_t word : wordsof(slotat(static_cast<size_t>(n)))) {
        if (!goon()) return false;
        fillenter();
        bool on = !fillput(n, word) || every(found);
        fillleave();
        if (!on) return false;
    }
    return true;
}

// Sixteen times the logarithm to base 2, or nearly; the same on every machine.
uint32_t logof(uint32_t n)
{
    auto top = static_cast<uint32_t>(std::bit_width(n));
    if (!top) return 0;
    return top << 4 | (n << (32 - top) >> 27 & 15u);
}

struct scoredword {
    uint32_t score, word;
};

// What a letter at a place of a slot leaves to the slot that crosses it there.
void lettersscore(const fillcell &cell, int32_t across, uint32_t *scores)
{
    const fillslot *cross = across < 0 ? nullptr : &slotat(static_cast<size_t>(across));
    int32_t place = cell.place[cell.slot[1] == across];
    std::fill(scores, scores + FILLLETTERS, 0);
    if (!cross || !cross->list || cross->count == 1) return;
    for (uint64_t left = cell.letters; left; left &= left - 1) {
        int32_t letter = std::countr_zero(left);
        const uint64_t *set = fillset(*cross->list, place, letter);
        uint32_t count = 0;
        for (uint32_t i = 0; i < cross->list->spans; i++)
            count += static_cast<uint32_t>(std::popcount(cross->words[i] & set[i]));
        scores[letter] = logof(count);
    }
}

// The words of a slot, a heap by what they leave to the others, with some chance.
std::vector<scoredword> scored(int32_t n)
{
    constexpr uint32_t CHANCE = 48, LIKED = 96; // in logof's units
    const fillslot &slot = slotat(static_cast<size_t>(n));
    const filllist &list = *slot.list;
    uint32_t scores[WORDLENGTH][FILLLETTERS];
    for (int32_t place = 0; place < slot.length; place++) {
        const fillcell &cell = fill.cells[static_cast<size_t>(slot.cells[place])];
        lettersscore(cell, cell.slot[cell.slot[0] == n], scores[place]);
    }
    std::vector<scoredword> words;
    for (uint32_t word : wordsof(slot)) {
        uint32_t score = static_cast<uint32_t>(randomdraw()) % CHANCE;
        const uint8_t *letters = &list.letters[size_t{word} * static_cast<size_t>(slot.length)];
        for (int32_t place = 0; place < slot.length; place++)
            score += scores[place][letters[place]];
        if (static_cast<int32_t>(list.words[word] >> 24) == fill.rules.liked) score += LIKED;
        words.push_back({score, word});
    }
    return words;
}

bool worse(const scoredword &a, const scoredword &b)
{
    return a.score != b.score ? a.score < b.score : a.word > b.word;
}

enum outcome { NOTHERE, FOUND, SPENT, ENDED };

outcome one(uint64_t *tries)
{
    int32_t had = decided();
    if (had > filling.best) {
        filling.best = had;
        take();
    }
    int32_t n = nextslot();
    if (n < 0) return FOUND; // and taken, since no try before had them all
    std::vector<scoredword> words = scored(n);
    std::make_heap(words.begin(), words.end(), worse);
    for (; !words.empty(); words.pop_back()) {
        std::pop_heap(words.begin(), words.end(), worse);
        if (!goon()) return ENDED;
        if (!*tries) return SPENT;
        --*tries;
        fillenter();
        outcome result = fillput(n, words.back().word) ? one(tries) : NOTHERE;
        fillleave();
        if (result != NOTHERE) return result;
    }
    return NOTHERE;
}

} // namespace

errorblock *fillmake(const fillrules &rules)
{
    fillfree();
    if (!solutions.slotcount) return makeerror(ENTS);
    fill.rules = rules;
    fillslotsmake();
    filllistsmake();
    filling = {solutions.slotcount, -1, 0};
    taken.assign(fill.slots.size(), NONE);
    return nullptr;
}

void fillfree()
{
    fill = {};
    taken = {};
}

fillend fillevery(bool (*found)())
{
    return !fillbegin() || every(found) ? FILLALL : FILLSTOPPED;
}

// Runs of a limited length: each begins with what the ones before have learnt of the
// slots that fail. They grow, so that one will look at all there is.
bool fillone(fillend *end)
{
    constexpr uint64_t FIRSTRUN = 200;
    randomseed(fill.rules.seed);
    *end = FILLALL;
    if (!fillbegin()) return false;
    for (uint64_t limit = FIRSTRUN;; limit += limit / 4) {
        uint64_t tries = limit;
        outcome result = one(&tries);
        if (result == ENDED) *end = FILLSTOPPED;
        if (result != SPENT) return result == FOUND;
    }
}

wordref fillword(int32_t slot)
{
    auto n = static_cast<size_t>(slot);
    return taken[n] == NONE ? NOWORD : slotat(n).list->words[taken[n]];
}

uint8_t fillletter(int32_t slot, int32_t n)
{
    const fillslot &of = slotat(static_cast<size_t>(slot));
    uint32_t word = taken[static_cast<size_t>(slot)];
    if (word == NONE) return 0;
    return fill.letter[of.list->letters[word * static_cast<uint32_t>(of.length) +
                                        static_cast<uint32_t>(n)]];
}

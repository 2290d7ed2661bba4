// What each slot and each cell of a fill may still hold.

#include "base/chars.h"
#include "find/fillparts.h"
#include "find/solutions.h"

#include <algorithm>
#include <bit>
#include <cstring>

fillstate fill;

namespace
{

// What was put aside when a level changed it. Bits of words lie in one stack.
struct slotaside {
    int32_t slot;
    uint32_t count, saved;
    uint64_t judged[WORDLENGTH];
};
struct cellaside {
    int32_t cell;
    uint64_t letters;
};
struct levelmark {
    size_t slots, cells, words;
};

struct {
    std::vector<slotaside> slots;
    std::vector<cellaside> cells;
    std::vector<uint64_t> words;
    std::vector<levelmark> levels;
    std::vector<int32_t> waiting; // slots to be judged
    uint32_t stamp;               // of the level, never given twice
    std::vector<uint32_t> stamps;
} undo;

fillslot *slotat(int32_t n)
{
    return &fill.slots[static_cast<size_t>(n)];
}

fillcell *cellat(int32_t n)
{
    return &fill.cells[static_cast<size_t>(n)];
}

void slotput(int32_t n)
{
    fillslot *slot = slotat(n);
    if (slot->saved == undo.stamp || undo.levels.empty()) return;
    slotaside aside = {n, slot->count, slot->saved, {}};
    std::copy(slot->judged, slot->judged + slot->length, aside.judged);
    undo.slots.push_back(aside);
    undo.words.insert(undo.words.end(), slot->words.begin(), slot->words.end());
    slot->saved = undo.stamp;
}

void wait(int32_t n)
{
    if (n < 0 || slotat(n)->waiting || !slotat(n)->list) return;
    slotat(n)->waiting = true;
    undo.waiting.push_back(n);
}

void recount(fillslot *slot)
{
    slot->count = 0;
    for (uint64_t span : slot->words)
        slot->count += static_cast<uint32_t>(std::popcount(span));
}

// Takes the words away whose letter at a place the cell has no more.
void placefilter(fillslot *slot, int32_t place, uint64_t letters)
{
    const filllist &list = *slot->list;
    for (uint64_t gone = slot->judged[place] & ~letters; gone; gone &= gone - 1) {
        const uint64_t *set = fillset(list, place, std::countr_zero(gone));
        for (uint32_t i = 0; i < list.spans; i++)
            slot->words[i] &= ~set[i];
    }
    slot->judged[place] = letters;
}

// Fewer letters are left than have gone: what these words have is kept.
void placekeep(fillslot *slot, int32_t place, uint64_t letters)
{
    const filllist &list = *slot->list;
    static std::vector<uint64_t> kept;
    kept.assign(list.spans, 0);
    for (uint64_t left = letters; left; left &= left - 1) {
        const uint64_t *set = fillset(list, place, std::countr_zero(left));
        for (uint32_t i = 0; i < list.spans; i++)
            kept[i] |= set[i];
    }
    for (uint32_t i = 0; i < list.spans; i++)
        slot->words[i] &= kept[i];
    slot->judged[place] = letters;
}

bool wordsfilter(int32_t n)
{
    fillslot *slot = slotat(n);
    bool changed = false;
    for (int32_t place = 0; place < slot->length; place++) {
        uint64_t letters = cellat(slot->cells[place])->letters & slot->judged[place];
        if (letters == slot->judged[place]) continue;
        if (!changed) slotput(n);
        changed = true;
        if (std::popcount(letters) < std::popcount(slot->judged[place] & ~letters))
            placekeep(slot, place, letters);
        else
            placefilter(slot, place, letters);
    }
    if (changed) recount(slot);
    return slot->count > 0;
}

// The letters that the slot's words have at each place: of few words one by one, of many
// by a look whether any has the letter.
void lettersof(const fillslot &slot, uint64_t *letters)
{
    const filllist &list = *slot.list;
    constexpr uint32_t FEW = 8; // words a span
    std::fill(letters, letters + slot.length, 0);
    if (slot.count < list.spans * FEW + FEW) {
        for (uint32_t i = 0; i < list.spans; i++)
            for (uint64_t span = slot.words[i]; span; span &= span - 1) {
                uint32_t word = i * SPANBITS + static_cast<uint32_t>(std::countr_zero(span));
                const uint8_t *text =
                    &list.letters[size_t{word} * static_cast<size_t>(slot.length)];
                for (int32_t place = 0; place < slot.length; place++)
                    letters[place] |= uint64_t{1} << text[place];
            }
        return;
    }
    for (int32_t place = 0; place < slot.length; place++)
        for (uint64_t left = slot.judged[place]; left; left &= left - 1) {
            const uint64_t *set = fillset(list, place, std::countr_zero(left));
            for (uint32_t i = 0; i < list.spans; i++)
                if (slot.words[i] & set[i]) {
                    letters[place] |= left & ~(left - 1);
                    break;
                }
        }
}

void cellslower(int32_t n)
{
    fillslot *slot = slotat(n);
    uint64_t letters[WORDLENGTH];
    lettersof(*slot, letters);
    for (int32_t place = 0; place < slot->length; place++) {
        fillcell *cell = cellat(slot->cells[place]);
        slot->judged[place] &= letters[place];
        if ((cell->letters & letters[place]) == cell->letters) continue;
        if (!undo.levels.empty()) undo.cells.push_back({slot->cells[place], cell->letters});
        cell->letters &= letters[place];
        for (int32_t other : cell->slot)
            if (other != n) wait(other);
    }
}

// A slot's only word may stand in no other.
bool wordtaken(int32_t n)
{
    const fillslot &slot = *slotat(n);
    uint32_t i = 0;
    while (!slot.words[i])
        i++;
    uint64_t bit = slot.words[i];
    bool good = true;
    for (int32_t other = 0; other < static_cast<int32_t>(fill.slots.size()); other++) {
        fillslot *from = slotat(other);
        if (other == n || from->list != slot.list || !(from->words[i] & bit)) continue;
        slotput(other);
        from->words[i] &= ~bit;
        if (--from->count) {
            wait(other);
            continue;
        }
        from->weight++;
        good = false;
    }
    return good;
}

bool settle()
{
    bool good = true;
    while (!undo.waiting.empty()) {
        int32_t n = undo.waiting.back();
        undo.waiting.pop_back();
        fillslot *slot = slotat(n);
        slot->waiting = false;
        if (!good) continue;
        good = wordsfilter(n);
        if (!good) {
            slot->weight++;
            continue;
        }
        cellslower(n);
        if (slot->count == 1 && !fill.rules.repeat) good = wordtaken(n);
    }
    return good;
}

int32_t cellof(int32_t x, int32_t y)
{
    for (size_t n = 0; n < fill.cells.size(); n++)
        if (fill.cells[n].x == x && fill.cells[n].y == y) return static_cast<int32_t>(n);
    fill.cells.push_back({x, y, {-1, -1}, {}, 0});
    return static_cast<int32_t>(fill.cells.size()) - 1;
}

uint64_t lettersall()
{
    return fill.letters < FILLLETTERS ? (uint64_t{1} << fill.letters) - 1 : ~uint64_t{0};
}

// What the grid says of a cell: any letter, or one; none for what no word has.
uint64_t lettersgiven(const fillcell &cell)
{
    uint8_t ch = search.letters[cell.x][cell.y];
    if (ch == ' ') return lettersall();
    uint8_t number = fill.number[charupper(ch)];
    return number < FILLLETTERS ? uint64_t{1} << number : 0;
}

bool isfull(const fillslot &slot)
{
    for (int32_t i = 0; i < slot.length; i++) {
        const fillcell &cell = *cellat(slot.cells[i]);
        if (search.letters[cell.x][cell.y] == ' ') return false;
    }
    return true;
}

// The word of a full slot, that it may stand in no other; its own slot asks nothing.
void giventake(int32_t n)
{
    fillslot *slot = slotat(n);
    bool good = wordsfilter(n);
    if (good && !fill.rules.repeat) wordtaken(n);
    slot->list = nullptr;
}

} // namespace

void fillslotsmake()
{
    fill.slots.assign(static_cast<size_t>(solutions.slotcount), {});
    for (int32_t n = 0; n < solutions.slotcount; n++) {
        const slotrec &from = search.slots[n];
        fillslot *slot = slotat(n);
        slot->length = from.length;
        for (int32_t i = 0; i < from.length; i++) {
            bool down = from.direction;
            slot->cells[i] = cellof(from.x + (down ? 0 : i), from.y + (down ? i : 0));
            cellat(slot->cells[i])->slot[down] = n;
            cellat(slot->cells[i])->place[down] = i;
        }
    }
}

bool fillbegin()
{
    undo.slots.clear();
    undo.cells.clear();
    undo.words.clear();
    undo.levels.clear();
    undo.waiting.clear();
    undo.stamp = 0;
    for (fillcell &cell : fill.cells)
        cell.letters = lettersgiven(cell);
    for (fillslot &slot : fill.slots) {
        slot.list = &fill.lists[static_cast<size_t>(slot.length)];
        slot.words.assign(slot.list->spans, 0);
        for (uint32_t word = 0; word < slot.list->count; word++)
            slot.words[word / SPANBITS] |= uint64_t{1} << word % SPANBITS;
        slot.count = slot.list->count;
        std::fill(std::begin(slot.judged), std::end(slot.judged), lettersall());
        slot.weight = 1;
        slot.saved = 0;
        slot.waiting = false;
    }
    for (int32_t n = 0; n < static_cast<int32_t>(fill.slots.size()); n++)
        if (fill.rules.given && isfull(*slotat(n))) giventake(n);
    for (int32_t n = 0; n < static_cast<int32_t>(fill.slots.size()); n++) {
        if (slotat(n)->list && !slotat(n)->count) return false;
        wait(n);
    }
    return settle();
}

void fillenter()
{
    undo.levels.push_back({undo.slots.size(), undo.cells.size(), undo.words.size()});
    undo.stamps.push_back(undo.stamp);
    static uint32_t given;
    undo.stamp = ++given;
}

void fillleave()
{
    levelmark mark = undo.levels.back();
    undo.levels.pop_back();
    undo.stamp = undo.stamps.back();
    undo.stamps.pop_back();
    size_t words = undo.words.size();
    while (undo.slots.size() > mark.slots) {
        const slotaside &aside = undo.slots.back();
        fillslot *slot = slotat(aside.slot);
        words -= slot->words.size();
        std::copy_n(undo.words.begin() + static_cast<std::ptrdiff_t>(words), slot->words.size(),
                    slot->words.begin());
        std::copy(aside.judged, aside.judged + slot->length, slot->judged);
        slot->count = aside.count;
        slot->saved = aside.saved;
        undo.slots.pop_back();
    }
    undo.words.resize(words);
    for (; undo.cells.size() > mark.cells; undo.cells.pop_back())
        cellat(undo.cells.back().cell)->letters = undo.cells.back().letters;
}

bool fillput(int32_t n, uint32_t word)
{
    fillslot *slot = slotat(n);
    slotput(n);
    std::fill(slot->words.begin(), slot->words.end(), 0);
    slot->words[word / SPANBITS] = uint64_t{1} << word % SPANBITS;
    slot->count = 1;
    wait(n);
    return settle();
}

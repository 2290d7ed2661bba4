// Words going in and out of the store, against a model of it that is a sorted
// map. The input is a program: a byte that chooses the letters and how wild the
// words may be, then steps.
//
// Tame words are few enough in letters, and in letters without a code, that the
// format stores each of them; after every step the store must agree with the
// model, and every invariant of dictionary.h must hold, by dictverify. Wild words
// are of any shape up to beyond what the format takes: neighbours that it misreads,
// words that it drops. Those must do no harm, and what comes of them must save and
// load.

#include "dict/dictfile.h"
#include "dict/dictionary.h"
#include "dict/dictverify.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <iterator>
#include <map>

namespace
{

// In the order of the store, letters of one fold beside each other; as its
// header tells, told here anew.
constexpr char LETTERS[] = "aAbBeE\xE9\xC9"
                           "ggiilnosTtzz";
constexpr char SIGNS[] = "'- !1aAeEns";
constexpr char ORDER[] = "'- !1aAbBeE\xE9\xC9gilnosStTz";
constexpr char UPPER[] = "'- !1AABBEE\xC9\xC9GILNOSSTTZ";
constexpr char UNCODED[] = " !"; // two bytes each

constexpr size_t MOSTWORDS = 700; // enough for a handful of index entries
constexpr size_t TAMELENGTH = 30; // two of these share 29 letters at the most

using wordmodel = std::map<std::string, std::string>; // fold key to word

struct session {
    Dictionary dict;
    wordmodel model;
    std::string last; // the word before, whose front the next may take
    const char *letters;
    bool wild;
    bool fast; // no letter that a fast search passes over
};

std::string foldkey(const std::string &word)
{
    std::string key;
    for (char ch : word) {
        char upper = UPPER[std::strchr(ORDER, ch) - ORDER];
        key += static_cast<char>(1 + (std::strchr(UPPER, upper) - UPPER));
    }
    return key;
}

bool tame(const std::string &word)
{
    size_t bytes = 1;
    for (char ch : word)
        bytes += std::strchr(UNCODED, ch) ? 2 : 1;
    return !word.empty() && word.size() <= TAMELENGTH && bytes < WORDSIZE;
}

void checkstore(const session &run)
{
    char fault[128];
    FUZZCHECK(!dictverify(&run.dict, fault, sizeof fault));
    FUZZCHECK(dictcount(&run.dict) == run.model.size());
    dictcursor cursor;
    bool more = dictseek(0, &run.dict, &cursor);
    for (const auto &[key, word] : run.model) {
        FUZZCHECK(more && word == cursor.word);
        more = dictnext(&run.dict, &cursor);
    }
    FUZZCHECK(!more);
}

void checkfind(const session &run, const std::string &word)
{
    auto at = run.model.lower_bound(foldkey(word));
    bool there = at != run.model.end() && at->first == foldkey(word);
    uint32_t differs = there && at->second != word ? FINDCASEDIFFERS : 0;
    dictcursor cursor;
    for (uint32_t option : {fastfind, 0u}) {
        if (option && !run.fast) continue;
        uint32_t flags = option;
        FUZZCHECK(dictfind(word.c_str(), &run.dict, &cursor, &flags) == there);
        if (there) FUZZCHECK((flags & FINDCASEDIFFERS) == differs);
        char text[WORDSIZE];
        if (there && option) dictfound(text);
        if (there && option) FUZZCHECK(at->second == text);
    }
    if (run.model.empty()) return;
    // Not there: at the word below, or at the first.
    if (!there && at != run.model.begin()) --at;
    auto rank = static_cast<uint32_t>(std::distance(run.model.begin(), at));
    FUZZCHECK(at->second == cursor.word);
    FUZZCHECK(cursor.wordn == rank && at->second == dictword(rank, &run.dict));
}

// The front of the word before, and letters behind it.
std::string nextword(session *run, fuzzfeed *feed)
{
    uint8_t shape = fuzzbyte(feed);
    std::string word = run->last.substr(0, shape % 32u);
    size_t most = std::strlen(run->letters);
    for (int n = shape / 32u; n >= 0; n--)
        word += run->letters[fuzzbyte(feed) % most];
    if (!run->wild)
        while (!word.empty() && !tame(word))
            word.pop_back();
    if (word.empty()) word.assign(1, 'a'); // gcc sees a clash in the plain assignment
    run->last = word.substr(0, WORDSIZE);
    return word;
}

void add(session *run, const std::string &word)
{
    if (run->model.size() >= MOSTWORDS) return;
    errorblock *err = dictadd(word.c_str(), &run->dict);
    FUZZCHECK(!err);
    run->model[foldkey(word)] = word;
}

void remove(session *run, const std::string &word)
{
    int removed = dictremove(word.c_str(), &run->dict);
    size_t erased = run->model.erase(foldkey(word));
    if (!run->wild) FUZZCHECK(static_cast<size_t>(removed) == erased);
}

// Words that differ in their last two letters: fills spans quickly, with long
// shared fronts or without.
void addmany(session *run, const std::string &front, uint8_t many)
{
    size_t most = std::strlen(run->letters);
    for (size_t n = 0; n < many; n++) {
        std::string word = front;
        word += run->letters[n / most % most];
        word += run->letters[n % most];
        if (run->wild || tame(word)) add(run, word);
    }
}

// By number: the first, the last, any. From the model when it holds.
void removeat(session *run, uint32_t n, int many)
{
    for (; many > 0 && dictcount(&run->dict); many--)
        remove(run, std::string(dictword(n % dictcount(&run->dict), &run->dict)));
}

void step(session *run, fuzzfeed *feed)
{
    uint8_t kind = fuzzbyte(feed);
    std::string word;
    switch (kind % 6) {
    case 0:
    case 1:
        word = nextword(run, feed);
        add(run, word);
        break;
    case 2:
        word = nextword(run, feed);
        remove(run, word);
        break;
    case 3:
        word = nextword(run, feed);
        addmany(run, word, fuzzbyte(feed));
        break;
    case 4:
        removeat(run, fuzzbyte(feed) * 3u, 1 + kind / 6);
        break;
    case 5: // from the end
        for (int n = kind / 6; n >= 0; n--)
            removeat(run, dictcount(&run->dict) - 1, 1);
        break;
    }
    if (word.empty()) word = run->last + "a";
    if (!run->wild) {
        checkstore(*run);
        checkfind(*run, tame(word) ? word : "a");
    }
}

// What a wild store is still asked for: to be walked and searched safely.
void checkwild(const session &run)
{
    dictcursor cursor;
    uint32_t walked = 0;
    if (dictseek(0, &run.dict, &cursor)) {
        do
            FUZZCHECK(std::memchr(cursor.word, 0, sizeof cursor.word) && ++walked);
        while (dictnext(&run.dict, &cursor));
    }
    FUZZCHECK(walked <= dictcount(&run.dict));
    for (uint32_t option : {0u, FINDHYPHENS, fastfind}) {
        uint32_t flags = option;
        dictfind(run.last.c_str(), &run.dict, &cursor, &flags);
    }
}

std::string block(const flexptr &anchor)
{
    int32_t size;
    flex_size(&anchor, &size);
    return std::string(static_cast<const char *>(anchor), static_cast<size_t>(size));
}

// Every store that editing can make loads as what it was.
void checksave(const session &run)
{
    Dictionary again = {};
    FUZZCHECK(!dictsave(fuzzfolder().c_str(), "edited", &run.dict));
    FUZZCHECK(!dictload(fuzzfolder().c_str(), "edited", &again));
    FUZZCHECK(again.nwords == run.dict.nwords && again.noindex == run.dict.noindex);
    FUZZCHECK(block(again.words) == block(run.dict.words));
    FUZZCHECK(block(again.index) == block(run.dict.index));
    dictfree(&again);
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    session run = {};
    uint8_t manner = fuzzbyte(&feed);
    run.letters = manner & 1 ? SIGNS : LETTERS;
    run.fast = !(manner & 1);
    run.wild = manner & 2;
    FUZZCHECK(!dictempty(&run.dict));
    for (int steps = 0; feed.size && steps < 100; steps++)
        step(&run, &feed);
    if (run.wild) checkwild(run);
    checksave(run);
    dictfree(&run.dict);
}

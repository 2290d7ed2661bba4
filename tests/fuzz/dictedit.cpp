// Words going in and out of the store, against the model of its blocks. The input
// is a program: a byte that chooses the letters and how wild the words may be, then
// steps.
//
// Tame words are few enough in letters, and in letters without a code, that the
// format stores each of them; the store must agree with the model to the byte, and
// every invariant of dictionary.h must hold, by dictverify. Wild words are of any
// shape up to beyond what the format takes: neighbours that it misreads, words that
// it drops. Those must do no harm, and what comes of them must save and load.

#include "base/flex.h"
#include "dict/dictfile.h"
#include "dict/dictionary.h"
#include "dict/dictverify.h"
#include "dict/storecheck.h"
#include "tests/dict/blockmodel.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>

namespace
{

using alphabet = std::vector<std::string>;

// Letters with many neighbours that differ in case; signs, some of which a fast
// search passes over; pieces of real words, whose endings have codes of their own.
const alphabet LETTERS = {"a", "A", "b", "B", "e", "E", "\xE9", "\xC9", "g", "g",
                          "i", "i", "l", "n", "o", "s", "T",    "t",    "z", "z"};
const alphabet SIGNS = {"'", "-", " ", "!", "1", "a", "A", "e", "E", "n", "s"};
const alphabet PIECES = {"ba",  "ter", "ing", "co", "re",  "sta", "le", "nt",    "o",   "si",
                         "Mac", "e",   "ous", "th", "ati", "'on", "-",  "ility", "nce", "s"};

constexpr size_t MOSTWORDS = 1500; // enough for a dozen index entries and more
constexpr size_t TAMELENGTH = 30;  // two of these share 29 letters at the most
constexpr int WATCHED = 100;       // steps after each of which all is looked at

struct session {
    Dictionary dict;
    blockmodel model;
    std::string last; // the word before, whose front the next may take
    const alphabet *letters;
    bool wild;
};

bool tame(const std::string &word)
{
    size_t bytes = 1;
    for (char ch : word)
        bytes += ch == ' ' || ch == '!' ? 2 : 1; // without a code
    return !word.empty() && word.size() <= TAMELENGTH && bytes < WORDSIZE;
}

std::string block(const flexptr &anchor)
{
    int32_t size = 0;
    if (anchor) flex_size(&anchor, &size);
    return std::string(static_cast<const char *>(anchor), static_cast<size_t>(size));
}

void checkstore(const session &run)
{
    char fault[128];
    FUZZCHECK(!dictverify(&run.dict, fault, sizeof fault));
    FUZZCHECK(!storecheck(&run.dict));
    FUZZCHECK(dictcount(&run.dict) == run.model.words.size());
    FUZZCHECK(block(run.dict.words) == modelwords(run.model));
    FUZZCHECK(block(run.dict.index) == modelindex(run.model));
}

// The word's neighbourhood, by every road that leads there.
void checkfind(const session &run, const std::string &word)
{
    bool there;
    size_t n = blockplace(run.model, word, &there);
    if (!there && n) n--; // at the word below, or at the first
    dictcursor cursor;
    for (uint32_t option : {fastfind, 0u}) {
        if (option && run.letters == &SIGNS) continue;
        uint32_t flags = option;
        FUZZCHECK(dictfind(word.c_str(), &run.dict, &cursor, &flags) == there);
        if (!there) continue;
        const std::string &text = run.model.words[n].text;
        char stored[WORDSIZE];
        if (option) dictfound(stored);
        if (option) FUZZCHECK(text == stored);
        FUZZCHECK((flags & FINDCASEDIFFERS) == (text == word ? 0 : FINDCASEDIFFERS));
    }
    if (run.model.words.empty()) return;
    const std::string &text = run.model.words[n].text;
    FUZZCHECK(text == cursor.word && cursor.wordn == n);
    FUZZCHECK(text == dictword(static_cast<uint32_t>(n), &run.dict));
}

// The front of the word before, and letters behind it.
std::string nextword(session *run, fuzzfeed *feed)
{
    uint8_t shape = fuzzbyte(feed);
    std::string word = run->last.substr(0, shape % 32u);
    for (int n = shape / 32u; n >= 0; n--)
        word += (*run->letters)[fuzzbyte(feed) % run->letters->size()];
    if (!run->wild)
        while (!word.empty() && !tame(word))
            word.pop_back();
    if (word.empty()) word.assign(1, 'a'); // gcc sees a clash in the plain assignment
    run->last = word.substr(0, WORDSIZE);
    return word;
}

void add(session *run, const std::string &word)
{
    if (dictcount(&run->dict) >= MOSTWORDS) return;
    FUZZCHECK(!dictadd(word.c_str(), &run->dict));
    if (!run->wild) blockadd(&run->model, word);
}

// Needs no memory, unless the last word goes.
void remove(session *run, const std::string &word)
{
    flexfailafter(!run->wild && dictcount(&run->dict) > 1 ? 0 : -1);
    bool removed = dictremove(word.c_str(), &run->dict);
    flexfailafter(-1);
    if (!run->wild) FUZZCHECK(removed == blockremove(&run->model, word));
}

// Words that differ in their last two letters: fills spans quickly, with long
// shared fronts or without.
void addmany(session *run, const std::string &front, uint8_t many)
{
    size_t most = run->letters->size();
    for (size_t n = 0; n < many; n++) {
        std::string word = front + (*run->letters)[n / most % most] + (*run->letters)[n % most];
        if (run->wild || tame(word)) add(run, word);
    }
}

// By number: the first, the last, any.
void removeat(session *run, uint32_t n, int many)
{
    for (; many > 0 && dictcount(&run->dict); many--)
        remove(run, std::string(dictword(n % dictcount(&run->dict), &run->dict)));
}

void step(session *run, fuzzfeed *feed, bool watched)
{
    uint8_t kind = fuzzbyte(feed);
    std::string word;
    if (kind % 6 < 4) word = nextword(run, feed);
    switch (kind % 6) {
    case 0:
    case 1:
        add(run, word);
        break;
    case 2:
        remove(run, word);
        break;
    case 3:
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
    if (run->wild) return;
    if (word.empty()) word = run->last + "a";
    if (watched) checkstore(*run);
    checkfind(*run, tame(word) ? word : "a");
}

// From the front, the end and the middle, down to nothing.
void empty(session *run)
{
    for (uint32_t n = 0; uint32_t count = dictcount(&run->dict); n++) {
        removeat(run, n % 3 == 0 ? 0 : n % 3 == 1 ? count - 1 : count / 3, 1);
        if (n % 50 == 0) checkstore(*run);
    }
    checkstore(*run);
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
    run.letters = manner & 4 ? &PIECES : manner & 1 ? &SIGNS : &LETTERS;
    run.wild = manner & 2;
    FUZZCHECK(!dictempty(&run.dict));
    for (int steps = 0; feed.size; steps++)
        step(&run, &feed, steps < WATCHED || steps % 20 == 0);
    checksave(run);
    run.wild ? checkwild(run) : empty(&run);
    dictfree(&run.dict);
}

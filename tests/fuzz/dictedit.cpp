// Words going in and out of the store, against a model of it that is a sorted
// map. The input is a program: a byte that chooses the letters and how wild the
// words may be, then steps.
//
// Tame words are few enough in letters, and in letters without a code, that the
// format stores each of them; after every step the store must agree with the
// model, and every invariant of dictionary.h must hold. Wild words are of any
// shape up to beyond what the format takes: neighbours that it misreads, words
// that it drops. Those must do no harm, and what comes of them must save and
// load.

#include "dict/dictfile.h"
#include "dict/dictionary.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>
#include <iterator>
#include <map>
#include <vector>

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

size_t common(const std::string &a, const std::string &b)
{
    size_t n = 0;
    while (n < a.size() && n < b.size() && a[n] == b[n])
        n++;
    return n;
}

// What a record takes from its predecessor, and where it begins.
struct record {
    uint32_t woff;
    uint8_t head;
};

std::vector<record> records(const Dictionary &dict)
{
    std::vector<record> found;
    int32_t size;
    flex_size(&dict.words, &size);
    const auto *bytes = static_cast<const uint8_t *>(dict.words);
    uint32_t at = 0, end = static_cast<uint32_t>(size);
    if (!end) return found;
    FUZZCHECK(end > 2 && bytes[end - 1] == 0 && bytes[end - 2] == 0);
    while (at + 2 < end) {
        FUZZCHECK(bytes[at] < 30 && bytes[at + 1] >= 30);
        found.push_back({at, bytes[at]});
        for (at++; bytes[at] >= 30; at++)
            if (bytes[at] == 30) at++;
    }
    FUZZCHECK(at + 2 == end);
    return found;
}

void checkindex(const Dictionary &dict, const std::vector<record> &found,
                const std::vector<std::string> &words)
{
    int32_t size;
    flex_size(&dict.index, &size);
    FUZZCHECK(static_cast<uint32_t>(size) == dict.noindex * sizeof(dictindex));
    FUZZCHECK((dict.noindex == 0) == words.empty());
    const auto *entries = static_cast<const dictindex *>(dict.index);
    for (uint32_t i = 0; i < dict.noindex; i++) {
        const dictindex &entry = entries[i];
        FUZZCHECK(i ? entry.wordn > entries[i - 1].wordn : entry.wordn == 0);
        FUZZCHECK(entry.wordn < words.size());
        FUZZCHECK(entry.woff == found[entry.wordn].woff);
        FUZZCHECK(found[entry.wordn].head < INDEXLETTERS);
        FUZZCHECK(!std::strncmp(entry.word, words[entry.wordn].c_str(), INDEXLETTERS));
    }
}

void checkstore(const session &run)
{
    std::vector<std::string> words;
    for (const auto &[key, word] : run.model)
        words.push_back(word);
    std::vector<record> found = records(run.dict);
    FUZZCHECK(dictcount(&run.dict) == words.size() && found.size() == words.size());
    for (size_t n = 0; n < words.size(); n++)
        FUZZCHECK(found[n].head == (n ? common(words[n - 1], words[n]) : 0));
    checkindex(run.dict, found, words);

    dictcursor cursor;
    int more = dictseek(0, &run.dict, &cursor);
    for (const std::string &word : words) {
        FUZZCHECK(more && word == cursor.word);
        more = dictnext(&run.dict, &cursor);
    }
    FUZZCHECK(!more);
}

void checkfast(const session &run, const std::string &word)
{
    auto at = run.model.find(foldkey(word));
    uint32_t flags = fastfind;
    char text[WORDSIZE];
    dictcursor unused;
    int found = dictfind(word.c_str(), &run.dict, &unused, &flags);
    FUZZCHECK(found == (at != run.model.end()));
    if (!found) return;
    dictfound(text);
    FUZZCHECK(at->second == text);
    FUZZCHECK((flags & FINDCASEDIFFERS) == (at->second == word ? 0 : FINDCASEDIFFERS));
}

void checkfind(const session &run, const std::string &word)
{
    if (run.fast) checkfast(run, word);
    uint32_t flags = 0;
    dictcursor cursor;
    int found = dictfind(word.c_str(), &run.dict, &cursor, &flags);
    auto at = run.model.lower_bound(foldkey(word));
    FUZZCHECK(found == (at != run.model.end() && at->first == foldkey(word)));
    if (run.model.empty()) return;
    // Not there: at the word below, or at the first.
    if (!found && at != run.model.begin()) --at;
    FUZZCHECK(at->second == cursor.word);
    auto rank = static_cast<uint32_t>(std::distance(run.model.begin(), at));
    FUZZCHECK(cursor.wordn == rank && at->second == dictword(rank, &run.dict));
    if (found) FUZZCHECK((flags & FINDCASEDIFFERS) == (at->second == word ? 0 : FINDCASEDIFFERS));
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

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzzfeed feed = {data, size};
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
    FUZZCHECK(flexblocks() == 0);
    return 0;
}

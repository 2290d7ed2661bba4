// Long random walks of adding and removing, beside the model of the blocks.

#include "dict/storecheck.h"
#include "tests/dict/blockmodel.h"
#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

namespace
{

struct walk {
    wordlist words;
    int steps;
    int turn;   // steps of filling, then of emptying, and so on
    int sample; // steps between looks at the whole store
    Dictionary dict;
    blockmodel model;
    std::mt19937 random;
};

// The word's neighbourhood, by every road that leads there.
void look(const walk &walk, const std::string &word)
{
    bool there;
    size_t n = blockplace(walk.model, word, &there);
    dictcursor cursor;
    uint32_t flags = 0, fastflags = fastfind;
    REQUIRE(dictfind(word.c_str(), &walk.dict, &cursor, &flags) == there);
    REQUIRE(dictfind(word.c_str(), &walk.dict, nullptr, &fastflags) == there);
    if (walk.model.words.empty()) return;
    if (!there && n) n--;
    const std::string &text = walk.model.words[n]->text;
    REQUIRE((cursor.wordn == n && cursor.word == text));
    REQUIRE(dictword(static_cast<uint32_t>(n), &walk.dict) == text);
    if (!there) return;
    char stored[WORDSIZE];
    dictfound(stored);
    REQUIRE(stored == text);
    REQUIRE((flags & FINDCASEDIFFERS) == (text != word));
    REQUIRE((fastflags & FINDCASEDIFFERS) == (text != word));
}

void compare(const walk &walk)
{
    REQUIRE(dictcount(&walk.dict) == walk.model.words.size());
    REQUIRE(blockbytes(walk.dict.words) == modelwords(walk.model));
    REQUIRE(blockbytes(walk.dict.index) == modelindex(walk.model));
}

// Mostly adds while the store is filling, mostly removals while it empties; now
// and then a word in capitals.
void step(walk *walk, bool filling)
{
    auto any = [walk](size_t below) { return walk->random() % below; };
    std::string word = walk->words[any(walk->words.size())];
    if (any(8) == 0)
        for (char &ch : word)
            if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 32);
    if (any(100) < (filling ? 70u : 30u)) {
        REQUIRE_FALSE(dictadd(word.c_str(), &walk->dict));
        blockadd(&walk->model, word);
    } else {
        REQUIRE(dictremove(word.c_str(), &walk->dict) == blockremove(&walk->model, word));
    }
    REQUIRE(dictcount(&walk->dict) == walk->model.words.size());
    if (any(8) == 0) look(*walk, walk->words[any(walk->words.size())]);
}

// From the front, the end and the middle, down to nothing.
void empty(walk *walk)
{
    for (int n = 0; !walk->model.words.empty(); n++) {
        size_t count = walk->model.words.size();
        size_t which = n % 3 == 0 ? 0 : n % 3 == 1 ? count - 1 : count / 3;
        std::string word = walk->model.words[which]->text;
        flexfailafter(count > 1 ? 0 : -1); // needs no memory
        REQUIRE(dictremove(word.c_str(), &walk->dict) == 1);
        flexfailafter(-1);
        blockremove(&walk->model, word);
        if (n % walk->sample == 0) compare(*walk);
    }
    compare(*walk);
}

void randomwalk(walk walk)
{
    REQUIRE_FALSE(dictempty(&walk.dict));
    for (int n = 0; n < walk.steps; n++) {
        step(&walk, n / walk.turn % 2 == 0);
        if (n % walk.sample == 0) compare(walk);
    }
    compare(walk);
    REQUIRE(storefault(walk.dict) == "");
    REQUIRE_FALSE(storecheck(&walk.dict));
    empty(&walk);
    dictfree(&walk.dict);
}

// Words of few letters with long common fronts: records that can't carry an
// entry, spans that can't be split.
wordlist frontwords(const std::string &letters, size_t count)
{
    wordlist words;
    std::mt19937 random(3);
    std::string word;
    while (words.size() < count) {
        word.resize(std::min<size_t>(word.size(), random() % 27));
        for (size_t more = 1 + random() % 3; more; more--)
            word += letters[random() % letters.size()];
        words.push_back(word);
    }
    return words;
}

} // namespace

TEST_CASE("a long walk agrees with the model to the byte")
{
    randomwalk({somewords(12000, 1), 110000, 27500, 1000, {}, {}, std::mt19937(7)});
}

TEST_CASE("walks over words with long common fronts agree to the byte")
{
    for (const char *letters : {"ab", "aab", "eE\xE9s", "'-tion", "01-2"})
        randomwalk({frontwords(letters, 1500), 6000, 2000, 20, {}, {}, std::mt19937(11)});
}

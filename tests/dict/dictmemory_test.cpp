// What short memory leaves of a store.

#include "base/errors.h"
#include "dict/dictfile.h"
#include "dict/storecheck.h"
#include "tests/dict/exercise.h"
#include "tests/dict/teststore.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

namespace
{

wordlist letterpairs(size_t count)
{
    wordlist words;
    for (size_t n = 0; n < count; n++)
        words.push_back({static_cast<char>('a' + n / 26), static_cast<char>('a' + n % 26)});
    return words;
}

errorblock *addwithout(const char *word, Dictionary *dict, int32_t allocations)
{
    flexfailafter(allocations);
    errorblock *err = dictadd(word, dict);
    flexfailafter(-1);
    return err;
}

// Such a store saves, and loads as what it is, but that no file counts more words
// than it has room for, and that records which no entry led to have one then.
void saveandload(const Dictionary &dict)
{
    Dictionary again = {};
    REQUIRE_FALSE(dictsave(scratchfolder().c_str(), "short", &dict));
    REQUIRE_FALSE(dictload(scratchfolder().c_str(), "short", &again));
    CHECK(again.nwords == std::min(dict.nwords, storeroom(&dict)));
    CHECK(blockbytes(again.words) == blockbytes(dict.words));
    if (dict.noindex) CHECK(blockbytes(again.index) == blockbytes(dict.index));
    dictfree(&again);
}

} // namespace

TEST_CASE("an insert without memory leaves the words as they were, and one too many counted")
{
    for (const char *word : {"aaa", "cc", "zz"}) {
        wordlist words = letterpairs(120);
        words.erase(words.begin() + 54); // "cc"
        auto count = static_cast<uint32_t>(words.size());
        teststore s(words);
        std::string block = blockbytes(s.dict.words), index = blockbytes(s.dict.index);
        for (uint32_t n = 1; n <= 3; n++) {
            errorblock *err = addwithout(word, &s.dict, 0);
            REQUIRE(err);
            CHECK(err->code == ERRORMEMORY);
            CHECK(dictcount(&s.dict) == count + n);
            CHECK(blockbytes(s.dict.words) == block);
            CHECK(blockbytes(s.dict.index) == index);
            CHECK(dictword(count, &s.dict) == std::string());
            saveandload(s.dict);
        }
        // With memory the store goes on, three too many counted.
        addwords(&s.dict, {word});
        CHECK(dictcount(&s.dict) == count + 4);
        CHECK(storewords(s.dict).size() == count + 1);
        saveandload(s.dict);
        std::mt19937 random(31);
        exercisereaders(s.dict);
        exerciseedits(&s.dict, &random, 300);
    }
}

TEST_CASE("a first word without memory, at every allocation")
{
    errorblock *err = nullptr;
    int32_t n = 0;
    do {
        teststore s;
        err = addwithout("first", &s.dict, n++);
        CHECK(dictcount(&s.dict) == 1);
        CHECK_FALSE(storecheck(&s.dict));
        exercisereaders(s.dict);
        saveandload(s.dict);
        if (!err) continue;
        CHECK(storewords(s.dict).empty());
        CHECK(dictremove("first", &s.dict) == 0);
        addwords(&s.dict, {"second"});
        CHECK(storewords(s.dict) == wordlist{"second"});
        CHECK(dictremove("second", &s.dict) == 1);
        CHECK(dictcount(&s.dict) == 0);
    } while (err);
    CHECK(n > 2);
}

TEST_CASE("an empty store that counts words has none for any reader")
{
    teststore s;
    for (int n = 0; n < 3; n++)
        CHECK(addwithout("word", &s.dict, 0));
    CHECK(dictcount(&s.dict) == 3);
    dictcursor cursor;
    uint32_t flags = 0;
    CHECK(dictfind("word", &s.dict, &cursor, &flags) == 0);
    CHECK(dictnext(&s.dict, &cursor) == 0);
    CHECK(dictseek(1, &s.dict, &cursor) == 0);
    saveandload(s.dict);
    addwords(&s.dict, {"word"});
    CHECK(storewords(s.dict) == wordlist{"word"});
}

TEST_CASE("a span that can't be split for want of memory is split by a later insert")
{
    teststore s(letterpairs(128));
    REQUIRE(s.dict.noindex == 1);
    CHECK_FALSE(addwithout("zz", &s.dict, 1));
    CHECK(s.dict.noindex == 1);
    CHECK(dictcount(&s.dict) == 129);
    CHECK(storefault(s.dict) == "");
    addwords(&s.dict, {"zzz"});
    CHECK(s.dict.noindex == 2);
    CHECK(storefault(s.dict) == "");
}

TEST_CASE("deleting needs no memory")
{
    wordlist words = somewords(300, 12);
    teststore s(words);
    for (const std::string &word : words) {
        flexfailafter(0);
        CHECK(dictremove(word.c_str(), &s.dict) == 1);
        flexfailafter(-1);
    }
    CHECK(dictcount(&s.dict) == 0);
    addwords(&s.dict, {"again"});
    CHECK(storefault(s.dict) == "");
}

TEST_CASE("an empty store without memory is none")
{
    for (int32_t n = 0; n < 2; n++) {
        Dictionary dict;
        flexfailafter(n);
        CHECK(dictempty(&dict));
        CHECK((dict.words == nullptr && dict.index == nullptr));
        CHECK(dictcount(&dict) == 0);
        addwords(&dict, {"word"}); // it takes words all the same
        CHECK(storewords(dict) == wordlist{"word"});
        dictfree(&dict);
    }
}

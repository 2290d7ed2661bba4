// What short memory leaves of a store.

#include "base/errors.h"
#include "dict/dictfile.h"
#include "dict/storecheck.h"
#include "tests/dict/exercise.h"
#include "tests/dict/storemodel.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

namespace
{

using list = std::vector<std::string>;

list walked(const Dictionary &dict)
{
    list words;
    dictcursor cursor;
    for (int more = dictseek(0, &dict, &cursor); more; more = dictnext(&dict, &cursor))
        words.push_back(cursor.word);
    return words;
}

void fill(Dictionary *dict, const list &words)
{
    REQUIRE_FALSE(dictempty(dict));
    for (const std::string &word : words)
        REQUIRE_FALSE(dictadd(word.c_str(), dict));
}

list letterpairs(size_t count)
{
    list words;
    for (size_t n = 0; n < count; n++)
        words.push_back({static_cast<char>('a' + n / 26), static_cast<char>('a' + n % 26)});
    return words;
}

// Such a store saves, and loads as what it is.
void saveandload(const Dictionary &dict)
{
    Dictionary again = {};
    REQUIRE_FALSE(dictsave(scratchfolder().c_str(), "short", &dict));
    REQUIRE_FALSE(dictload(scratchfolder().c_str(), "short", &again));
    CHECK(again.nwords == dict.nwords);
    CHECK(again.noindex == dict.noindex);
    CHECK(blockbytes(again.words) == blockbytes(dict.words));
    CHECK(blockbytes(again.index) == blockbytes(dict.index));
    dictfree(&again);
}

} // namespace

TEST_CASE("an insert without memory leaves the words as they were, and one too many counted")
{
    for (const std::string &word : {std::string("aaa"), std::string("cc"), std::string("zz")}) {
        Dictionary dict;
        list words = letterpairs(120);
        words.erase(words.begin() + 54); // "cc"
        fill(&dict, words);
        std::string block = blockbytes(dict.words), index = blockbytes(dict.index);
        for (uint32_t n = 1; n <= 3; n++) {
            flexfailafter(0);
            errorblock *err = dictadd(word.c_str(), &dict);
            REQUIRE(err);
            CHECK(err->code == ERRORMEMORY);
            CHECK(dictcount(&dict) == words.size() + n);
            CHECK(blockbytes(dict.words) == block);
            CHECK(blockbytes(dict.index) == index);
            CHECK(walked(dict) == words);
            dictcursor cursor;
            CHECK(dictseek(static_cast<uint32_t>(words.size()), &dict, &cursor) == 0);
            CHECK(dictword(static_cast<uint32_t>(words.size()), &dict) == std::string());
            saveandload(dict);
        }
        // With memory the store goes on, three too many counted.
        REQUIRE_FALSE(dictadd(word.c_str(), &dict));
        CHECK(dictcount(&dict) == words.size() + 4);
        CHECK(walked(dict).size() == words.size() + 1);
        saveandload(dict);
        std::mt19937 random(31);
        exercisereaders(dict);
        exerciseedits(&dict, &random, 300);
        dictfree(&dict);
    }
}

TEST_CASE("a first word without memory, at every allocation")
{
    for (int32_t n = 0;; n++) {
        Dictionary dict;
        fill(&dict, {});
        flexfailafter(n);
        errorblock *err = dictadd("first", &dict);
        flexfailafter(-1);
        CHECK(dictcount(&dict) == 1);
        CHECK_FALSE(storecheck(&dict));
        exercisereaders(dict);
        saveandload(dict);
        if (err) {
            CHECK(walked(dict).empty());
            CHECK(dictremove("first", &dict) == 0);
            REQUIRE_FALSE(dictadd("second", &dict));
            CHECK(walked(dict) == list{"second"});
            CHECK(dictremove("second", &dict) == 1);
            CHECK(dictcount(&dict) == 0);
        }
        dictfree(&dict);
        if (!err) {
            CHECK(n > 1);
            break;
        }
    }
}

TEST_CASE("an empty store that counts words has none for any reader")
{
    Dictionary dict;
    fill(&dict, {});
    for (int n = 0; n < 3; n++) {
        flexfailafter(0);
        CHECK(dictadd("word", &dict));
    }
    CHECK(dictcount(&dict) == 3);
    dictcursor cursor;
    uint32_t flags = 0;
    CHECK(dictfind("word", &dict, &cursor, &flags) == 0);
    CHECK(dictnext(&dict, &cursor) == 0);
    CHECK(dictseek(1, &dict, &cursor) == 0);
    saveandload(dict);
    REQUIRE_FALSE(dictadd("word", &dict));
    CHECK(walked(dict) == list{"word"});
    dictfree(&dict);
}

TEST_CASE("a span that can't be split for want of memory is split by a later insert")
{
    Dictionary dict;
    list words = letterpairs(129);
    fill(&dict, words);
    REQUIRE(dict.noindex == 2);
    REQUIRE(dictremove("by", &dict)); // merges, and one word more is needed
    while (dict.noindex > 1)
        REQUIRE(dictremove(dictword(dictcount(&dict) - 1, &dict), &dict));
    for (uint32_t n = dictcount(&dict); n < 128; n++)
        REQUIRE_FALSE(
            dictadd(("z" + std::string(1 + n % 20, 'a') + std::to_string(n)).c_str(), &dict));
    REQUIRE(dict.noindex == 1);
    flexfailafter(1);
    REQUIRE_FALSE(dictadd("zz", &dict));
    flexfailafter(-1);
    CHECK(dict.noindex == 1);
    CHECK(dictcount(&dict) == 129);
    CHECK(storefault(dict) == "");
    REQUIRE_FALSE(dictadd("zzz", &dict));
    CHECK(dict.noindex == 2);
    CHECK(storefault(dict) == "");
    dictfree(&dict);
}

TEST_CASE("deleting needs no memory")
{
    Dictionary dict;
    list words = somewords(300, 12);
    fill(&dict, words);
    for (const std::string &word : words) {
        flexfailafter(0);
        CHECK(dictremove(word.c_str(), &dict) == 1);
        flexfailafter(-1);
    }
    CHECK(dictcount(&dict) == 0);
    REQUIRE_FALSE(dictadd("again", &dict));
    CHECK(storefault(dict) == "");
    dictfree(&dict);
}

TEST_CASE("an empty store without memory is none")
{
    for (int32_t n = 0; n < 2; n++) {
        Dictionary dict;
        flexfailafter(n);
        CHECK(dictempty(&dict));
        CHECK((dict.words == nullptr && dict.index == nullptr));
        CHECK(dictcount(&dict) == 0);
        // One that was never made takes words all the same.
        REQUIRE_FALSE(dictadd("word", &dict));
        CHECK(walked(dict) == list{"word"});
        dictfree(&dict);
    }
}

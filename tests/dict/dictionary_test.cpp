// Words in and out of a store by its calls; dictwalk_test.cpp has its bytes.

#include "dict/dictionary.h"

#include "tests/dict/teststore.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

TEST_CASE("words that don't fit are dropped in silence")
{
    teststore s({"middle"});
    addwords(&s.dict, {"", std::string(32, 'q'), std::string(100, 'q'), std::string(17, '!')});
    CHECK(storewords(s.dict) == wordlist{"middle"});
    const std::string longest(31, 'q'), shorter(16, '!'),
        leaning(17, '!'); // shared letters make room
    addwords(&s.dict, {longest, shorter, leaning});
    CHECK(storewords(s.dict) == wordlist{shorter, leaning, "middle", longest});
}

// Where a word of many characters without a code leans on the one before it, or
// its codes become more when it has to share more.
TEST_CASE("no edit leaves a word behind that its record can't hold")
{
    std::string lean(16, '!'), leaning(17, '!');
    teststore s({lean, leaning, "a"});
    std::string before = blockbytes(s.dict.words);
    CHECK(dictremove(lean.c_str(), &s.dict) == 0);
    CHECK(blockbytes(s.dict.words) == before);
    CHECK(dictremove(leaning.c_str(), &s.dict) == 1);
    CHECK(dictremove(lean.c_str(), &s.dict) == 1);
    CHECK(storewords(s.dict) == wordlist{"a"});

    // One code for six letters gives way to three: two bytes too many.
    std::string tight = "ogical" + std::string(15, '!');
    teststore t({"a", tight});
    before = blockbytes(t.dict.words);
    CHECK_FALSE(dictadd("o", &t.dict));
    CHECK(blockbytes(t.dict.words) == before);
}

TEST_CASE("a seek goes to any number and leaves the cursor alone for others")
{
    teststore s(somewords(300, 6)), nothing;
    wordlist words = storewords(s.dict);
    auto count = static_cast<uint32_t>(words.size());
    dictcursor cursor = {};
    for (uint32_t n = 0; n < count; n++) {
        REQUIRE(dictseek(n, &s.dict, &cursor) == 1);
        REQUIRE(cursor.wordn == n);
        REQUIRE(cursor.word == words[n]);
    }
    for (uint32_t n : {count, count + 1, 0xFFFFFFu, 0xFFFFFFFFu}) {
        CHECK(dictseek(n, &s.dict, &cursor) == 0);
        CHECK(cursor.wordn == count - 1);
        CHECK(dictword(n, &s.dict) == std::string());
    }
    CHECK(dictseek(0, &nothing.dict, &cursor) == 0);
}

TEST_CASE("a walk ends with an empty word, and stays ended")
{
    teststore s({"a", "b"});
    dictcursor cursor;
    REQUIRE(dictseek(1, &s.dict, &cursor));
    for (int n = 0; n < 3; n++) {
        CHECK(dictnext(&s.dict, &cursor) == 0);
        CHECK(cursor.word == std::string());
        CHECK(cursor.len == 0);
    }
    CHECK(dictdelete(&s.dict, &cursor) == 0);
    CHECK(dictcount(&s.dict) == 2);
}

TEST_CASE("a delete in the middle leaves its traces")
{
    teststore s({"nation", "national", "nations"});
    headless.keeptrace = true;
    CHECK(dictremove("national", &s.dict) == 1);
    headless.keeptrace = false;
    for (const char *line : {"delcurindex=0 nextindex=0\r\n", "wordn=1 WORDN=0 string=national\r\n",
                             "prev=nation next=nations\r\n"})
        CHECK(headless.tracetext.find(line) != std::string::npos);
}

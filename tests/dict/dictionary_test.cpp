#include "dict/dictionary.h"

#include "tests/dict/storemodel.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

using list = std::vector<std::string>;

struct store {
    Dictionary dict = {};
    explicit store(const list &words = {})
    {
        REQUIRE_FALSE(dictempty(&dict));
        for (const std::string &word : words)
            REQUIRE_FALSE(dictadd(word.c_str(), &dict));
    }
    ~store()
    {
        dictfree(&dict);
    }
    list words() const
    {
        list all;
        dictcursor cursor;
        for (int more = dictseek(0, &dict, &cursor); more; more = dictnext(&dict, &cursor))
            all.push_back(cursor.word);
        return all;
    }
};

std::string bytes(std::initializer_list<int> numbers)
{
    std::string text;
    for (int byte : numbers)
        text += static_cast<char>(byte);
    return text;
}

// Words that differ in three letters behind a front.
list threeletters(const std::string &front, size_t count)
{
    list words;
    for (size_t n = 0; n < count; n++)
        words.push_back(front + static_cast<char>('b' + n / 400) +
                        static_cast<char>('b' + n / 20 % 20) + static_cast<char>('b' + n % 20));
    return words;
}

const dictindex *entries(const Dictionary &dict)
{
    return static_cast<const dictindex *>(dict.index);
}

} // namespace

TEST_CASE("the worked example, byte for byte")
{
    store s({"nation", "national", "nations"});
    CHECK(blockbytes(s.dict.words) == bytes({0, 110, 94, 6, 42, 6, 115, 0, 0}));
    CHECK(blockbytes(s.dict.index) == bytes({0, 0, 0, 0, 0, 0, 0, 0}) + "nation" + bytes({0, 0}));
    CHECK(dictcount(&s.dict) == 3);
    CHECK(s.dict.noindex == 1);
    store other({"nations", "nation", "national"});
    CHECK(blockbytes(other.dict.words) == blockbytes(s.dict.words));
}

TEST_CASE("the first word, the last one out, and the first again")
{
    store s;
    CHECK(dictremove("a", &s.dict) == 0);
    for (int n = 0; n < 2; n++) {
        REQUIRE_FALSE(dictadd("ing", &s.dict));
        CHECK(blockbytes(s.dict.words) == bytes({0, 124, 0, 0}));
        CHECK(s.dict.noindex == 1);
        CHECK(dictremove("Ing", &s.dict) == 1);
        CHECK(dictcount(&s.dict) == 0);
        CHECK(s.dict.noindex == 0);
        CHECK(blockbytes(s.dict.words).empty());
        CHECK(blockbytes(s.dict.index).empty());
    }
}

TEST_CASE("a word below all others takes over entry 0")
{
    store s({"nationally", "rest"});
    REQUIRE_FALSE(dictadd("nationalize", &s.dict));
    CHECK(std::string(entries(s.dict)[0].word, 8) == "national");
    REQUIRE_FALSE(dictadd("nat", &s.dict));
    CHECK(s.dict.noindex == 1);
    CHECK(entries(s.dict)[0].woff == 0);
    CHECK(std::string(entries(s.dict)[0].word, 8) == std::string("nat\0\0\0\0\0", 8));
    CHECK(decodestore(s.dict)[1].head == 3);
    CHECK(s.words() == list{"nat", "nationalize", "nationally", "rest"});
    CHECK(storefault(s.dict) == "");
}

TEST_CASE("doubles change nothing, another case takes the place")
{
    store s({"march", "nation", "zoo"});
    std::string before = blockbytes(s.dict.words);
    REQUIRE_FALSE(dictadd("march", &s.dict));
    CHECK(blockbytes(s.dict.words) == before);
    REQUIRE_FALSE(dictadd("March", &s.dict));
    CHECK(s.words() == list{"March", "nation", "zoo"});
    REQUIRE_FALSE(dictadd("ZOO", &s.dict));
    CHECK(s.words() == list{"March", "nation", "ZOO"});
    CHECK(storefault(s.dict) == "");
}

TEST_CASE("words that don't fit are dropped in silence")
{
    store s({"middle"});
    for (const std::string &word :
         {std::string(), std::string(32, 'q'), std::string(100, 'q'), std::string(17, '!')})
        CHECK_FALSE(dictadd(word.c_str(), &s.dict));
    CHECK(s.words() == list{"middle"});
    REQUIRE_FALSE(dictadd(std::string(31, 'q').c_str(), &s.dict));
    REQUIRE_FALSE(dictadd(std::string(16, '!').c_str(), &s.dict));
    CHECK(s.words() == list{std::string(16, '!'), "middle", std::string(31, 'q')});
    // Shared letters make room.
    REQUIRE_FALSE(dictadd(std::string(17, '!').c_str(), &s.dict));
    CHECK(dictcount(&s.dict) == 4);
}

// Where a word of many characters without a code leans on the one before it, or
// its codes become more when it has to share more.
TEST_CASE("no edit leaves a word behind that its record can't hold")
{
    std::string lean(16, '!'), leaning(17, '!');
    store s({lean, leaning, "a"});
    std::string before = blockbytes(s.dict.words);
    CHECK(dictremove(lean.c_str(), &s.dict) == 0);
    CHECK(blockbytes(s.dict.words) == before);
    CHECK(dictremove(leaning.c_str(), &s.dict) == 1);
    CHECK(dictremove(lean.c_str(), &s.dict) == 1);
    CHECK(s.words() == list{"a"});

    // One code for six letters gives way to three: two bytes too many.
    std::string tight = "ogical" + std::string(15, '!');
    store t({"a", tight});
    before = blockbytes(t.dict.words);
    CHECK_FALSE(dictadd("o", &t.dict));
    CHECK(blockbytes(t.dict.words) == before);
    CHECK(t.words() == list{"a", tight});
}

TEST_CASE("a seek goes to any number and leaves the cursor alone for others")
{
    list words = threeletters("", 900);
    store s(words);
    for (uint32_t n = 0; n < 900; n++) {
        dictcursor cursor;
        REQUIRE(dictseek(n, &s.dict, &cursor) == 1);
        REQUIRE(cursor.wordn == n);
        REQUIRE(cursor.word == words[n]);
        REQUIRE(entries(s.dict)[cursor.indexn].wordn <= n);
        REQUIRE(dictword(n, &s.dict) == words[n]);
    }
    dictcursor cursor = {};
    cursor.wordn = 77;
    for (uint32_t n : {900u, 901u, 0xFFFFFFu, 0xFFFFFFFFu}) {
        CHECK(dictseek(n, &s.dict, &cursor) == 0);
        CHECK(cursor.wordn == 77);
        CHECK(dictword(n, &s.dict) == std::string());
    }
    store nothing;
    CHECK(dictseek(0, &nothing.dict, &cursor) == 0);
}

TEST_CASE("a walk ends with an empty word, and stays ended")
{
    store s({"a", "b"});
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

TEST_CASE("words in order make spans of 64 words")
{
    store s(threeletters("", 2000));
    REQUIRE(s.dict.noindex > 20);
    for (uint32_t i = 0; i + 2 < s.dict.noindex; i++)
        CHECK(entries(s.dict)[i + 1].wordn - entries(s.dict)[i].wordn == 64);
    CHECK(storefault(s.dict) == "");
}

TEST_CASE("a run of words with 8 letters in common carries no entry")
{
    list words = threeletters("national", 400);
    store s(words);
    CHECK(s.dict.noindex == 1);
    REQUIRE_FALSE(dictadd("nationalbcx", &s.dict)); // tries again, in vain
    CHECK(s.dict.noindex == 1);
    // One that can carry, in the upper half of the span.
    REQUIRE_FALSE(dictadd("nationb", &s.dict));
    list more = threeletters("nationb", 300);
    for (const std::string &word : more)
        REQUIRE_FALSE(dictadd(word.c_str(), &s.dict));
    CHECK(s.dict.noindex > 1);
    CHECK(storefault(s.dict) == "");
}

// Behind a long run that can carry none, a word has the span's entry; then one
// comes before it that shares more than 8 letters. The last word of all is
// never given an entry: while one settles the store doesn't count the new word.
TEST_CASE("an entry whose word gets a longer prefix moves on, or goes")
{
    for (const list &behind : {list{"zebra"}, list{"zebra", "zoo"}}) {
        list words = threeletters("national", 200);
        words.push_back("zationally");
        words.insert(words.end(), behind.begin(), behind.end());
        store s(words);
        REQUIRE_FALSE(dictadd("nationalaaa", &s.dict)); // the span is split
        REQUIRE(s.dict.noindex == 2);
        REQUIRE(entries(s.dict)[1].wordn == 201);
        REQUIRE_FALSE(dictadd("zationalla", &s.dict));
        CHECK(storefault(s.dict) == "");
        CHECK(entries(s.dict)[1].wordn == 201); // the new word's
        REQUIRE(s.dict.noindex == behind.size() + 1);
        if (behind.size() == 2) CHECK(entries(s.dict)[2].wordn == 203);
    }
}

TEST_CASE("a delete in the middle leaves its traces")
{
    store s({"nation", "national", "nations"});
    headless.keeptrace = true;
    CHECK(dictremove("national", &s.dict) == 1);
    headless.keeptrace = false;
    CHECK(headless.tracetext.find("delcurindex=0 nextindex=0\r\n") != std::string::npos);
    CHECK(headless.tracetext.find("wordn=1 WORDN=0 string=national\r\n") != std::string::npos);
    CHECK(headless.tracetext.find("prev=nation next=nations\r\n") != std::string::npos);
}

#include "dict/dictionary.h"

#include "tests/dict/storemodel.h"

#include <doctest/doctest.h>

#include <cstring>
#include <set>

namespace
{

struct store {
    Dictionary dict = {};
    explicit store(const std::vector<std::string> &words)
    {
        REQUIRE_FALSE(dictempty(&dict));
        for (const std::string &word : words)
            REQUIRE_FALSE(dictadd(word.c_str(), &dict));
    }
    ~store()
    {
        dictfree(&dict);
    }
};

// "number:word" of the cursor, behind + for a find and - for none.
std::string found(const Dictionary &dict, const std::string &word, uint32_t flags = 0)
{
    dictcursor cursor;
    int there = dictfind(word.c_str(), &dict, &cursor, &flags);
    return (there ? "+" : "-") + std::to_string(cursor.wordn) + ":" + cursor.word;
}

// The word that a fast search finds; a "~" behind one in another case.
std::string fast(const Dictionary &dict, const std::string &word, uint32_t option = 0)
{
    uint32_t flags = fastfind | option;
    char text[WORDSIZE];
    if (!dictfind(word.c_str(), &dict, nullptr, &flags)) return "";
    dictfound(text);
    return std::string(text) + (flags & FINDCASEDIFFERS ? "~" : "");
}

} // namespace

TEST_CASE("a find leaves the cursor at the word, or where it would go in behind")
{
    store s({"bat", "cat", "Dog", "dot"});
    CHECK(found(s.dict, "bat") == "+0:bat");
    CHECK(found(s.dict, "dog") == "+2:Dog");
    CHECK(found(s.dict, "DOT") == "+3:dot");
    CHECK(found(s.dict, "ant") == "-0:bat"); // before all
    CHECK(found(s.dict, "bats") == "-0:bat");
    CHECK(found(s.dict, "caz") == "-1:cat");
    CHECK(found(s.dict, "zoo") == "-3:dot");
    CHECK(found(s.dict, "") == "-0:bat");
}

TEST_CASE("nothing is found in an empty store")
{
    store s({});
    dictcursor cursor;
    for (uint32_t option : {0u, FINDHYPHENS, fastfind}) {
        memset(&cursor, 0xAA, sizeof cursor);
        uint32_t flags = option | 0xFFFF;
        CHECK(dictfind("word", &s.dict, &cursor, &flags) == 0);
        CHECK(flags == option);
        CHECK(cursor.word[0] == 0);
        CHECK((cursor.woff | cursor.indexn | cursor.wordn | cursor.len) == 0);
    }
}

TEST_CASE("flags come back as options and the difference of case")
{
    store s({"nation", "zoo"});
    dictcursor cursor;
    uint32_t flags = 0xFFFF;
    CHECK(dictfind("nation", &s.dict, &cursor, &flags) == 1);
    CHECK(flags == 0);
    CHECK(dictfind("natioN", &s.dict, &cursor, &flags) == 1);
    CHECK(flags == CASEABOVE);
    CHECK(dictfind("nationx", &s.dict, &cursor, &flags) == 0);
    CHECK(flags == 0);
    flags = fastfind | 0xFFFF;
    CHECK(dictfind("natioN", &s.dict, nullptr, &flags) == 1);
    CHECK(flags == (fastfind | FINDCASEDIFFERS));
    CHECK(dictfind("nation", &s.dict, nullptr, &flags) == 1);
    CHECK(flags == fastfind);
}

// The index is searched by 8 letters, and not all words that begin with them
// are the sought one.
TEST_CASE("the case of an entry's letters is nobody's")
{
    store s({"Nationalist", "nationally"});
    CHECK(fast(s.dict, "nationally") == "nationally");
    CHECK(fast(s.dict, "nationalist") == "Nationalist~");
}

TEST_CASE("of more than 31 letters the first 31 count, but not in a fast search")
{
    std::string longest(31, 'n');
    store s({"a", longest, "z"});
    CHECK(found(s.dict, longest + "more") == "+1:" + longest);
    CHECK(fast(s.dict, longest + "more").empty());
    CHECK(fast(s.dict, longest + std::string(80, 'n')).empty());
    CHECK(fast(s.dict, longest) == longest);
}

TEST_CASE("fast and plain searches agree about real words and words near to them")
{
    std::vector<std::string> words = somewords(5000, 2);
    store s(words);
    std::set<std::string> keys;
    for (const std::string &word : words)
        keys.insert(modelkey(word));
    for (size_t n = 0; n < words.size(); n += 2) {
        std::string word = words[n];
        for (std::string sought : {word, word + "s", word.substr(1), word.substr(0, 3),
                                   word.substr(0, word.size() / 2) + "q", "Q" + word}) {
            bool there = keys.count(modelkey(sought));
            REQUIRE((found(s.dict, sought)[0] == '+') == there);
            REQUIRE(!fast(s.dict, sought).empty() == there);
        }
    }
}

TEST_CASE("dictfound gives the word as stored, and the record behind it")
{
    store s({"ford", "Ford Prefect", "forded", "fords"});
    char text[WORDSIZE];
    uint32_t flags = fastfind;
    REQUIRE(dictfind("FORDED", &s.dict, nullptr, &flags));
    const uint8_t *behind = dictfound(text);
    CHECK(text == std::string("forded"));
    dictcursor cursor;
    REQUIRE(dictseek(3, &s.dict, &cursor));
    CHECK(behind == static_cast<const uint8_t *>(s.dict.words) + cursor.woff);
    // A word that is not there doesn't leave half of another.
    CHECK(fast(s.dict, "fordes").empty());
    CHECK(fast(s.dict, "fords") == "fords");
}

TEST_CASE("a fast search finds phrases by their letters")
{
    store s({"new", "new age", "new year", "newt", "a la carte", "ice cream", "zed"});
    CHECK(fast(s.dict, "newyear") == "new year");
    CHECK(fast(s.dict, "NEWAGE") == "new age~");
    CHECK(fast(s.dict, "alacarte") == "a la carte");
    CHECK(fast(s.dict, "icecream") == "ice cream");
    CHECK(fast(s.dict, "new year") == "new year");
    CHECK(fast(s.dict, "n e w") == "new");
    CHECK(fast(s.dict, "newt") == "newt");
    CHECK(fast(s.dict, "newyea").empty());
    CHECK(fast(s.dict, "icecreams").empty());
    CHECK(found(s.dict, "newyear")[0] == '-');
}

TEST_CASE("hyphens are passed over where that is asked for")
{
    store s({"co-op", "co-opt", "cod", "re-sit"});
    CHECK(found(s.dict, "coop", FINDHYPHENS) == "+0:co-op");
    CHECK(found(s.dict, "coopt", FINDHYPHENS) == "+1:co-opt");
    CHECK(found(s.dict, "resit", FINDHYPHENS) == "+3:re-sit");
    CHECK(found(s.dict, "coop")[0] == '-');
    CHECK(fast(s.dict, "coop", FINDHYPHENS) == "co-op");
    CHECK(fast(s.dict, "Co-Op", FINDHYPHENS) == "co-op~");
    CHECK(fast(s.dict, "cod", FINDHYPHENS) == "cod");
    CHECK(fast(s.dict, "coop").empty());
}

// Words behind a phrase whose letters alone would stand elsewhere.
TEST_CASE("passing a phrase does not end a search")
{
    store s({"as if", "as is", "asa", "asb", "ask", "asp"});
    for (const char *word : {"asa", "asb", "ask", "asp"})
        CHECK(fast(s.dict, word) == word);
}

// More than 8 letters of which some are passed over: the key of the entry holds
// fewer than 8 that count.
TEST_CASE("a key that is full of spaces or hyphens is read no further than it goes")
{
    std::vector<std::string> words;
    for (char first = 'a'; first <= 'z'; first++)
        for (char last = 'a'; last <= 'z'; last++)
            words.push_back(first + std::string("-b-c d") + last + "e");
    store s(words);
    REQUIRE(s.dict.noindex > 4);
    for (const std::string &word : words) {
        std::string letters = word.substr(0, 5) + word.substr(6);
        CHECK(fast(s.dict, letters) == word);
        letters = word.substr(0, 1) + "bc d" + word.substr(7);
        CHECK(found(s.dict, letters, FINDHYPHENS).substr(0, 1) == "+");
    }
}

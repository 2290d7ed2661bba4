#include "dict/dictionary.h"

#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

#include <cstring>

namespace
{

// "number:word" of the cursor, behind + for a find and - for none.
std::string found(const teststore &s, const std::string &word, uint32_t flags = 0)
{
    dictcursor cursor;
    int there = dictfind(word.c_str(), &s.dict, &cursor, &flags);
    return (there ? "+" : "-") + std::to_string(cursor.wordn) + ":" + cursor.word;
}

// The word that a fast search finds; a "~" behind one in another case.
std::string fast(const teststore &s, const std::string &word, uint32_t option = 0)
{
    uint32_t flags = fastfind | option;
    char text[WORDSIZE];
    if (!dictfind(word.c_str(), &s.dict, nullptr, &flags)) return "";
    dictfound(text);
    return std::string(text) + (flags & FINDCASEDIFFERS ? "~" : "");
}

} // namespace

TEST_CASE("a find leaves the cursor at the word, or where it would go in behind")
{
    teststore s({"bat", "cat", "Dog", "dot"});
    CHECK(found(s, "bat") == "+0:bat");
    CHECK(found(s, "dog") == "+2:Dog");
    CHECK(found(s, "ant") == "-0:bat"); // before all
    CHECK(found(s, "bats") == "-0:bat");
    CHECK(found(s, "caz") == "-1:cat");
    CHECK(found(s, "zoo") == "-3:dot");
    CHECK(found(s, "") == "-0:bat");
}

TEST_CASE("nothing is found in an empty store")
{
    teststore s;
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
    teststore s({"nation", "zoo"});
    const struct {
        const char *word;
        uint32_t flags, after;
    } rows[] = {
        {"nation", 0xFFFF, 0},
        {"natioN", 0, CASEABOVE},
        {"nationx", CASEABOVE, 0},
        {"natioN", fastfind | 0xFFFF, fastfind | FINDCASEDIFFERS},
        {"nation", fastfind | FINDCASEDIFFERS, fastfind},
    };
    for (auto [word, flags, after] : rows) {
        dictcursor cursor;
        dictfind(word, &s.dict, &cursor, &flags);
        CHECK(flags == after);
    }
}

// The index is searched by 8 letters, and not all words that begin with them
// are the sought one.
TEST_CASE("the case of an entry's letters is nobody's")
{
    teststore s({"Nationalist", "nationally"});
    CHECK(fast(s, "nationally") == "nationally");
    CHECK(fast(s, "nationalist") == "Nationalist~");
}

TEST_CASE("of more than 31 letters the first 31 count, but not in a fast search")
{
    std::string longest(31, 'n');
    teststore s({"a", longest, "z"});
    CHECK(found(s, longest + "more") == "+1:" + longest);
    CHECK(fast(s, longest + "more").empty());
    CHECK(fast(s, longest + std::string(80, 'n')).empty());
    CHECK(fast(s, longest) == longest);
}

TEST_CASE("dictfound gives the record behind the word")
{
    teststore s({"ford", "Ford Prefect", "forded", "fords"});
    char text[WORDSIZE];
    uint32_t flags = fastfind;
    REQUIRE(dictfind("FORDED", &s.dict, nullptr, &flags));
    const uint8_t *behind = dictfound(text);
    dictcursor cursor;
    REQUIRE(dictseek(3, &s.dict, &cursor));
    CHECK(behind == static_cast<const uint8_t *>(s.dict.words) + cursor.woff);
    // A word that is not there doesn't leave half of another.
    CHECK(fast(s, "fordes").empty());
    CHECK(fast(s, "fords") == "fords");
}

TEST_CASE("a fast search finds phrases by their letters")
{
    teststore s({"new", "new age", "new year", "newt", "a la carte", "zed"});
    CHECK(fast(s, "newyear") == "new year");
    CHECK(fast(s, "NEWAGE") == "new age~");
    CHECK(fast(s, "alacarte") == "a la carte");
    CHECK(fast(s, "new year") == "new year");
    CHECK(fast(s, "n e w") == "new");
    CHECK(fast(s, "newt") == "newt");
    CHECK(fast(s, "newyea").empty());
    CHECK(fast(s, "alacartes").empty());
    CHECK(found(s, "newyear")[0] == '-');
    // Words behind a phrase whose letters alone would stand elsewhere.
    teststore behind({"as if", "as is", "asa", "asp"});
    CHECK(fast(behind, "asa") == "asa");
    CHECK(fast(behind, "asp") == "asp");
}

TEST_CASE("hyphens are passed over where that is asked for")
{
    teststore s({"co-op", "co-opt", "cod"});
    CHECK(found(s, "coop", FINDHYPHENS) == "+0:co-op");
    CHECK(found(s, "coopt", FINDHYPHENS) == "+1:co-opt");
    CHECK(found(s, "coop")[0] == '-');
    CHECK(fast(s, "Coop", FINDHYPHENS) == "co-op~");
    CHECK(fast(s, "cod", FINDHYPHENS) == "cod");
    CHECK(fast(s, "coop").empty());
}

// More than 8 letters of which some are passed over: the key of the entry holds
// fewer than 8 that count.
TEST_CASE("a key that is full of spaces or hyphens is read no further than it goes")
{
    wordlist words;
    for (char first = 'a'; first <= 'z'; first++)
        for (char last = 'a'; last <= 'z'; last++)
            words.push_back(first + std::string("-b-c d") + last + "e");
    teststore s(words);
    REQUIRE(s.dict.noindex > 4);
    for (const std::string &word : words) {
        CHECK(fast(s, word.substr(0, 5) + word.substr(6)) == word);
        CHECK(found(s, word[0] + ("bc d" + word.substr(7)), FINDHYPHENS)[0] == '+');
    }
}

#include "dict/wordfeed.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace
{

std::vector<std::string> feedall(const std::string &text)
{
    std::vector<std::string> words;
    wordfeed feed = {};
    for (char ch : text)
        if (wordfeedbyte(&feed, static_cast<uint8_t>(ch))) words.push_back(feed.word);
    if (wordfeedbyte(&feed, FEEDEND)) words.push_back(feed.word);
    return words;
}

using list = std::vector<std::string>;

} // namespace

TEST_CASE("words are cut out of any text")
{
    CHECK(feedall("") == list{});
    CHECK(feedall(" \t\r\n\n \r") == list{});
    CHECK(feedall("one\ntwo\r\nthree\tfour") == list{"one", "two", "three", "four"});
    CHECK(feedall("  lead\n\n\n   again  \n") == list{"lead", "again"});
    CHECK(feedall("New York\nDon't\nco-op\n") == list{"Newyork", "Dont", "coop"});
    CHECK(feedall("USA\nmcDONALD") == list{"Usa", "mcdonald"});
}

TEST_CASE("the first byte stands as it is, the others are ASCII letters")
{
    CHECK(feedall("7\n8up\n-x\n") == list{"7", "8up", "-x"});
    CHECK(feedall("\xC9t\xE9\n\xE9") == list{"\xC9t", "\xE9"});
    CHECK(feedall(std::string("a\0b", 3)) == list{"a", "b"});
}

TEST_CASE("a word of 32 letters is lost, and what follows is a word")
{
    std::string longest(31, 'x');
    CHECK(feedall(longest + "\n") == list{longest});
    CHECK(feedall(longest + "x\nnext") == list{"next"});
    CHECK(feedall(std::string(32, 'y') + "abcdefgh\n") == list{"abcdefgh"});
    CHECK(feedall(std::string(32, 'y') + " tail") == list{"tail"});
    CHECK(feedall(longest + "---''99\nz") == list{longest, "z"});
}

#include "dict/collation.h"

#include "base/chars.h"
#include "dict/dictionary.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace
{

int sortkey(char ch)
{
    return collation.sort[static_cast<uint8_t>(ch)];
}

// The sign of the order, and the flags that come back.
struct result {
    int order;
    uint32_t flags;
    bool operator==(const result &) const = default;
};

result compared(const char *a, const char *b, int32_t limit = 31, uint32_t flags = 0)
{
    int order = wordcompare(a, b, limit, &flags);
    return {(order > 0) - (order < 0), flags};
}

} // namespace

TEST_CASE("keys put punctuation before digits before letters, and letters by their base")
{
    const std::string order = std::string("\0\x1F\x7F'-", 5) +
                              "\xAD\x97 \xA0\t!&(*,./:@[`{~+<=>\xA2"
                              "0\xBC"
                              "1\xB9"
                              "2\xB2"
                              "39aA\xE1\xC1\xE0\xC0\xC6"
                              "bBcC\xE7\xC7"
                              "d\xF0"
                              "eE\xE9\xC9\xEB\xCB"
                              "f\x83"
                              "iI\xEE"
                              "lnN\xF1\xD1oO\xBA\xF3\xD8\x9C\x8C"
                              "pqrsS\x9A\x8A\xDF"
                              "tT\xFE\xDE\x99uU\xFC\xDCvwxyY\xFD\xDD\xFF\x9FzZ";
    for (size_t i = 1; i < order.size(); i++)
        CHECK_MESSAGE(sortkey(order[i - 1]) < sortkey(order[i]), "at ", i);
    CHECK(sortkey(0) == 0);
    CHECK(sortkey('Z') == 255);
}

TEST_CASE("the fold key is that of the upper-case form, a place away at most")
{
    for (int ch = 0; ch < 256; ch++) {
        uint8_t upper = charupper(static_cast<uint8_t>(ch));
        CHECK(collation.fold[ch] == collation.sort[upper]);
        CHECK(collation.fold[ch] - collation.sort[ch] == (upper != ch));
    }
}

TEST_CASE("words are in order by their first letter that differs by more than case")
{
    CHECK(compared("nation", "nation") == result{0, 0});
    CHECK(compared("nation", "national") == result{-1, 0});
    CHECK(compared("nations", "national") == result{1, 0});
    CHECK(compared("Zebra", "ant") == result{1, 0});
    CHECK(compared("can't", "cant") == result{-1, 0});
    CHECK(compared("co-op", "co op") == result{-1, 0});
    CHECK(compared("resum\xE9", "resume") == result{1, 0});
    CHECK(compared("resum\xE9", "resumf") == result{-1, 0});
    CHECK(compared("", "a") == result{-1, 0});
    CHECK(compared("", "") == result{0, 0});
}

TEST_CASE("the first difference of case is told when the words are equal")
{
    CHECK(compared("nation", "Nation") == result{0, CASEBELOW});
    CHECK(compared("Nation", "nation") == result{0, CASEABOVE});
    CHECK(compared("nAtion", "naTION") == result{0, CASEABOVE});
    CHECK(compared("\xE9", "\xC9") == result{0, CASEBELOW});
    CHECK(compared("Nation", "nations") == result{-1, 0});
}

TEST_CASE("the limit counts letters")
{
    CHECK(compared("national", "nationhood", 6) == result{0, 0});
    CHECK(compared("national", "nationhood", 7) == result{-1, 0});
    CHECK(compared("Nation", "nation", 0) == result{0, 0});
    std::string longest(31, 'x');
    CHECK(compared((longest + "a").c_str(), (longest + "b").c_str()) == result{0, 0});
}

TEST_CASE("options pass over hyphens or spaces, and come back")
{
    CHECK(compared("ice-cream", "icecream", 31, FINDHYPHENS) == result{0, FINDHYPHENS});
    CHECK(compared("-a-", "a", 31, FINDHYPHENS) == result{0, FINDHYPHENS});
    CHECK(compared("ice cream", "Icecream", 31, fastfind) == result{0, fastfind | CASEBELOW});
    CHECK(compared("ice cream", "icecream", 31, FINDHYPHENS) == result{-1, FINDHYPHENS});
    CHECK(compared("ice-cream", "icecream", 31, fastfind) == result{-1, fastfind});
    uint32_t both = FINDHYPHENS | fastfind;
    CHECK(compared("ice-cream", "icecream", 31, both) == result{0, both});
    CHECK(compared("ice cream", "icecream", 31, both) == result{-1, both});
    // A passed-over letter uses up nothing of the limit.
    CHECK(compared("i-c-e", "ice", 3, FINDHYPHENS) == result{0, FINDHYPHENS});
    CHECK(compared("a", "b", 31, 0xFF00FFFF) == result{-1, 0});
    CHECK(compared("a", "a", 31, 0xFFC0FFFF) == result{0, 0xC00000});
}

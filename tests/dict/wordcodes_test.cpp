#include "dict/wordcodes.h"

#include "tests/dict/blockmodel.h"

#include <doctest/doctest.h>

#include <random>

namespace
{

std::string coded(const std::string &before, const std::string &word)
{
    uint8_t record[RECORDSIZE];
    int32_t length = wordcode(before.c_str(), word.c_str(), record);
    return std::string(reinterpret_cast<const char *>(record), static_cast<size_t>(length));
}

std::string bytes(std::initializer_list<int> list)
{
    std::string text;
    for (int byte : list)
        text += static_cast<char>(byte);
    return text;
}

// What a record expands to behind a word.
std::string decoded(const std::string &before, const std::string &record)
{
    std::string codes = record.substr(1) + std::string(2, 0);
    char word[WORDSIZE] = {};
    auto length = static_cast<uint32_t>(record[0]);
    before.copy(word, length);
    const auto *at = reinterpret_cast<const uint8_t *>(codes.data()), *start = at;
    while (*at >= ESCAPECODE)
        at = codeexpand(at, word, &length);
    CHECK(at - start == static_cast<std::ptrdiff_t>(record.size()) - 1);
    CHECK(codesend(start) == at);
    return std::string(word, length);
}

} // namespace

TEST_CASE("records of the worked example, and the choice of codes")
{
    CHECK(coded("", "nation") == bytes({0, 'n', 94}));
    CHECK(coded("nation", "national") == bytes({6, 42}));
    CHECK(coded("national", "nations") == bytes({6, 's'}));
    // One code for the whole rest comes before any other; of those that stand for
    // a part the first is taken, not the longest.
    CHECK(coded("", "ence") == bytes({0, 149}));
    CHECK(coded("", "ences") == bytes({0, 136, 44, 's'}));
    CHECK(coded("", "NATION") == bytes({0, 'N', 'A', 'T', 'I', 'O', 'N'}));
    CHECK(coded("", "\xE9t\xE9-'9") == bytes({0, 0xE9, 't', 0xE9, '-', 39, '9'}));
    CHECK(coded("", "a b\x1E") == bytes({0, 'a', 30, ' ', 'b', 30, 30}));
    CHECK(coded("nation", "nation") == bytes({6}));
    CHECK(coded("Nation", "nation") == bytes({0, 'n', 94}));
}

TEST_CASE("a record takes 33 bytes at the most")
{
    CHECK(coded("", std::string(31, 'Q')).size() == 32);
    CHECK(coded("", std::string(16, '!')).size() == 33);
    CHECK(coded("", std::string(15, '!') + "ogical").size() == 32);
    CHECK(coded("", std::string(14, '!') + "ogicalxyz").empty());
    CHECK(coded("", std::string(17, '!')).empty());
    CHECK(coded("", std::string(16, '!') + "a").empty());
    CHECK(coded("!", std::string(17, '!')).size() == 33);
}

// Of any characters, mostly those of groups.
TEST_CASE("every word is coded as the ranges say, and reads back")
{
    std::string before;
    std::mt19937 random(9);
    for (int n = 0; n < 4000; n++) {
        std::string word;
        for (size_t more = 1 + random() % 31; more; more--)
            word += random() % 8 ? "abcehilnostuy"[random() % 13]
                                 : static_cast<char>(1 + random() % 255);
        std::string record = coded(before, word);
        REQUIRE(record == modelrecord(before, word));
        if (!record.empty()) REQUIRE(decoded(before, record) == word);
        before = word;
    }
}

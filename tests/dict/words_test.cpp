// Single words: their order, and how they come out of texts.

#include "base/chars.h"
#include "base/platformfault.h"
#include "dict/collation.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "dict/wordfeed.h"
#include "dict/wordimport.h"
#include "tests/dict/teststore.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>

namespace
{

wordlist fed(const std::string &text)
{
    wordlist words;
    wordfeed feed = {};
    for (size_t at = 0; at <= text.size(); at++)
        if (wordfeedbyte(&feed, at < text.size() ? static_cast<uint8_t>(text[at]) : FEEDEND))
            words.push_back(feed.word);
    return words;
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
    auto key = [](char ch) { return collation.sort[static_cast<uint8_t>(ch)]; };
    for (size_t i = 1; i < order.size(); i++)
        CHECK_MESSAGE(key(order[i - 1]) < key(order[i]), "at ", i);
    CHECK((key(0) == 0 && key('Z') == 255));
    for (int ch = 0; ch < 256; ch++) { // the capital stands right behind its letter
        uint8_t upper = charupper(static_cast<uint8_t>(ch));
        CHECK(collation.fold[ch] == collation.sort[upper]);
        CHECK(collation.fold[ch] - collation.sort[ch] == (upper != ch));
    }
}

TEST_CASE("words are in order by their first letter that differs by more than case")
{
    const uint32_t both = FINDHYPHENS | fastfind;
    const std::string longest(31, 'x'), a = longest + "a", b = longest + "b";
    const struct {
        const char *a, *b;
        int32_t limit;
        uint32_t options;
        int order;
        uint32_t flags;
    } rows[] = {
        {"nation", "national", 31, 0, -1, 0},
        {"co-op", "co op", 31, 0, -1, 0},
        {"resum\xE9", "resume", 31, 0, 1, 0},
        {"", "", 31, 0, 0, 0},
        {"nation", "Nation", 31, 0, 0, CASEBELOW},
        {"nAtion", "naTION", 31, 0, 0, CASEABOVE}, // the first difference tells
        {"Nation", "nations", 31, 0, -1, 0},
        {"national", "nationhood", 6, 0, 0, 0},
        {"national", "nationhood", 7, 0, -1, 0},
        {a.c_str(), b.c_str(), 31, 0, 0, 0},
        {"-a-", "a", 31, FINDHYPHENS, 0, FINDHYPHENS},
        {"ice cream", "Icecream", 31, fastfind, 0, fastfind | CASEBELOW},
        {"ice-cream", "icecream", 31, fastfind, -1, fastfind},
        {"ice-cream", "icecream", 31, both, 0, both},
        {"i-c-e", "ice", 3, FINDHYPHENS, 0, FINDHYPHENS}, // passed over, it uses up nothing
        {"a", "a", 31, 0xFFC0FFFF, 0, 0xC00000},
    };
    for (auto [first, second, limit, options, order, after] : rows) {
        uint32_t flags = options;
        int told = wordcompare(first, second, limit, &flags);
        CHECK_MESSAGE((told > 0) - (told < 0) == order, first);
        CHECK(flags == after);
    }
}

TEST_CASE("words are cut out of any text")
{
    const std::string longest(31, 'x'), toolong(32, 'y');
    const struct {
        std::string text;
        wordlist words;
    } rows[] = {
        {" \t\r\n\n \r", {}},
        {"one\ntwo\r\nthree\tfour", {"one", "two", "three", "four"}},
        {"New York\nDon't\nco-op\n", {"Newyork", "Dont", "coop"}},
        {"USA\nmcDONALD", {"Usa", "mcdonald"}},
        {"7\n8up\n-x\n\xC9t\xE9\n\xE9", {"7", "8up", "-x", "\xC9t", "\xE9"}}, // the first stands
        {std::string("a\0b", 3), {"a", "b"}},
        {longest + "\n" + longest + "---''99\nz", {longest, longest, "z"}},
        {toolong + "\nnext", {"next"}}, // lost
        {toolong + "abc\n" + toolong + " tail", {"abc", "tail"}},
    };
    for (const auto &[text, words] : rows)
        CHECK(fed(text) == words);
}

TEST_CASE("words come in from texts, up to a failure, and go out as they are stored")
{
    dictrec *record = &dicts[0];
    ndicts = 1;
    REQUIRE_FALSE(dictempty(&record->dict));
    std::string in = scratch("in.txt"), out = scratch("out.txt");
    CHECK(wordexport(out.c_str(), &record->dict) == nullptr);
    CHECK_FALSE(std::filesystem::exists(out)); // no words, no file
    CHECK(wordimport(out.c_str(), 0) != nullptr);
    const struct {
        std::string text;
        wordlist words;
    } rows[] = {{"\n\n", {}},
                {std::string(32, 'x'), {}},
                {"a\n", {"a"}},
                {"\xC3\xA9tude\n\xD0\x96xy\n", {"a", "\xE9tude", "xy"}}, // UTF-8
                {"\xEF\xBB\xBF"
                 "b\n\xC3", // marked, and broken at the end
                 {"a", "b", "\xE9tude", "xy"}},
                {"\xC3\xA9\nb\xE9\n", {"a", "b", "\xC3", "\xE9tude", "xy"}}}; // not
    for (const auto &[text, words] : rows) {
        putfile(in, text);
        CHECK(wordimport(in.c_str(), 0) == nullptr);
        CHECK((record->changed != 0) == !words.empty());
        wordlist stored = storewords(record->dict);
        CHECK((stored.size() == words.size() && std::ranges::is_permutation(stored, words)));
    }
    addwords(&record->dict, {"Zo\xEB", "co-op", "can't"});
    CHECK(wordexport(out.c_str(), &record->dict) == nullptr);
    CHECK(getfile(out) == "a\r\n\xC3\r\nb\r\ncan't\r\nco-op\r\n\xE9tude\r\nxy\r\nZo\xEB\r\n");

    std::string some; // read once to see what it is, and then it fails
    while (some.size() < 100000)
        some += "word\nWORD\n";
    putfile(in, some + "lost");
    record->changed = 0;
    platformfault.reads = 6;
    CHECK(wordimport(in.c_str(), 0) != nullptr);
    CHECK((record->changed && dictcount(&record->dict) == 9));
}

TEST_CASE("an import that the user ends keeps the words so far, merged or added one by one")
{
    std::string in = scratch("in.txt");
    ndicts = 1;
    for (const char *longest : {"", "abcdefghijklmnopqrstuvwxyzabcd"}) {
        REQUIRE_FALSE(dictempty(&dicts[0].dict));
        dicts[0].changed = 0;
        std::string many = std::string(longest) + "\n";
        for (int n = 0; n < 5000; n++)
            many += {static_cast<char>('a' + n % 26), static_cast<char>('a' + n / 26 % 26),
                     static_cast<char>('a' + n / 676), 'q', '\n'};
        putfile(in, many);
        headless.importend = 1500;
        CHECK_FALSE(wordimport(in.c_str(), 0));
        CHECK((dicts[0].changed && dictcount(&dicts[0].dict) == 2 * IMPORTPOLL));
        dictfree(&dicts[0].dict);
    }
}

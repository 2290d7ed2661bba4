// The lists of words by length, against the words that a walk finds; the hash, against
// the search in the records.

#include "dict/wordtables.h"

#include "base/chars.h"
#include "dict/collation.h"
#include "dict/wordhash.h"
#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

namespace
{

// Rows as texts: the letters, the word's number and the flags.
using rowlist = std::vector<std::string>;

std::string rowtold(const std::string &letters, size_t number, bool stored, bool closed)
{
    return letters + " " + std::to_string(number) + (stored ? "s" : "") + (closed ? "c" : "");
}

rowlist rowsexpected(const Dictionary &dict, size_t length)
{
    rowlist rows;
    wordlist words = storewords(dict);
    for (size_t n = 0; n < words.size(); n++) {
        std::string closed = words[n];
        std::erase(closed, ' ');
        bool space = closed != words[n];
        if (words[n].size() == length)
            rows.push_back(rowtold(words[n], n, true, !space));
        else if (closed.size() == length)
            rows.push_back(rowtold(closed, n, false, true));
    }
    return rows;
}

rowlist rowsof(const lengthlist *list)
{
    rowlist rows;
    for (uint32_t row = 0; row < pagecount(list) * PAGEWORDS; row++) {
        uint32_t number = pagenumbers(list, row / PAGEWORDS)[row % PAGEWORDS];
        if (row >= list->count) {
            CHECK(number == 0); // no word
            continue;
        }
        char text[WORDSIZE];
        rowtext(list, row, text);
        CHECK(pagesets(list, row / PAGEWORDS)[row % PAGEWORDS] == letterset(text, strlen(text)));
        rows.push_back(rowtold(text, number & ROWNUMBER, number & ROWSTORED, number & ROWCLOSED));
    }
    return rows;
}

// All that a search tells, of this word and one that begins with it.
std::string searchtold(const Dictionary &dict, std::string word)
{
    std::string told;
    for (uint32_t options : {0u, fastfind, FINDHYPHENS})
        for (const char *more : {"", "qu"}) {
            dictcursor cursor = {};
            uint32_t flags = options;
            bool there = dictfind((word + more).c_str(), &dict, &cursor, &flags);
            char text[WORDSIZE] = "";
            const uint8_t *records = static_cast<const uint8_t *>(dict.words);
            if (options & fastfind)
                told += there ? std::to_string(dictfound(text) - records) : "";
            else
                for (uint32_t number : {cursor.woff, cursor.indexn, cursor.wordn, cursor.len})
                    told += std::to_string(number) + ' ';
            told += (there ? "+" : "-") + std::to_string(flags) + text + cursor.word + '\n';
        }
    return told;
}

// The first row of the list that doesn't stand below the text, one after another.
uint32_t boundexpected(const lengthlist *list, const std::string &text, bool behind)
{
    auto folded = [](char ch) { return collation.fold[static_cast<uint8_t>(ch)]; };
    uint32_t row = 0;
    for (; row < list->count; row++) {
        char word[WORDSIZE];
        rowtext(list, row, word);
        int order = 0;
        for (size_t i = 0; i < text.size() && !order; i++)
            order = folded(word[i]) - folded(text[i]);
        if (order > 0 || (order == 0 && !behind)) break;
    }
    return row;
}

} // namespace

TEST_CASE("lists of words by length hold those of the store as it is, made when they pay")
{
    wordlist words = somewords(3000, 11);
    for (size_t n = 0; n < words.size(); n += 9)
        words[n].insert(words[n].size() / 2, n % 2 ? " " : "e ");
    teststore s(words);
    Dictionary *dict = &s.dict;
    for (const char *added : {"", "le", "the sta"}) {
        if (*added) addwords(dict, {added});
        uint32_t count = dictcount(dict);
        for (int32_t length : {2, 6, 9, 31}) {
            CHECK((lengthmade(dict, length) == nullptr && !lengthwords(dict, length, count / 2)));
            const lengthlist *list = lengthwords(dict, length, count - count / 2);
            REQUIRE((list && lengthmade(dict, length) == list));
            rowlist rows = rowsexpected(*dict, static_cast<size_t>(length));
            CHECK(rowsof(list) == rows);
            auto mixed = std::count_if(rows.begin(), rows.end(), [](const std::string &row) {
                return row.ends_with("sc") == false;
            });
            CHECK(list->mixed == mixed);
        }
    }
    tablesfree(dict);
    CHECK((tablesbytes(dict) == 0 && !lengthmade(dict, 6)));
}

TEST_CASE("words are found alike from the records and by a hash, which is made when it pays")
{
    for (const char *phrase : {"", "ice cream"}) {
        wordlist words = somewords(4000, 13), asked = {"", "stale ba", std::string(40, 's')};
        for (size_t n = 0; n < 40; n++) // an index entry's letters, over more than one of them
            words.push_back("'re'restat" + words[n]);
        words.insert(words.end(), {std::string(29, 's'), std::string(31, 'x'), "a", "\xE9l\xE9"});
        for (size_t n = 0; n < words.size(); n += 3) {
            asked.insert(asked.end(), {words[n], words[n].substr(1), words[n] + "BA"});
            for (char &ch : words[n])
                if (n % 2) ch = static_cast<char>(charupper(static_cast<uint8_t>(ch)));
        }
        if (*phrase) words.push_back(phrase);
        teststore s(words);
        CHECK((!tablesbytes(&s.dict) && !hashwords(&s.dict, dictcount(&s.dict) / 64)));
        const wordhash *hash = hashwords(&s.dict, 256);
        REQUIRE((hash && hash->spaces == (*phrase != 0)));
        for (const std::string &word : asked) {
            std::string told = searchtold(s.dict, word);
            tablesoff = true;
            CHECK(told == searchtold(s.dict, word));
            tablesoff = false;
        }
        for (std::string word : storewords(s.dict)) {
            uint64_t hashed = 0;
            std::erase(word, ' ');
            for (uint32_t letters = 1; letters <= word.size(); letters++) {
                hashed = hashletter(hashed, word[letters - 1]);
                CHECK((letters < BEGINLETTERS || hashbegins(hash, hashed)));
            }
        }
        addwords(&s.dict, {"quite"});
        CHECK((!hashwords(&s.dict, 1) && hashwords(&s.dict, 4000)));
    }
}

TEST_CASE("rows are found by their first letters in either case")
{
    teststore s(somewords(3000, 12));
    const lengthlist *list = lengthwords(&s.dict, 7, dictcount(&s.dict));
    REQUIRE((list && list->count > 2 * PAGEWORDS && !list->mixed));
    for (const char *text : {"b", "BA", "macs", "Sta", "a", "zz", "'onba", "thtersi", "ingre"})
        for (bool behind : {false, true})
            CHECK(rowbound(list, text, static_cast<int32_t>(strlen(text)), behind) ==
                  boundexpected(list, text, behind));
}

TEST_CASE("a set of letters tells anagrams from words with another count of the same ones")
{
    auto set = [](const char *text) { return letterset(text, strlen(text)); };
    CHECK((set("Stale") == set("least") && set("aab") != set("abb") && set("aab") != set("ab")));
    CHECK((set("aab") & LETTERBITS) == (set("abb") & LETTERBITS));
    CHECK((set("tale") & ~set("stale") & LETTERBITS) == 0);
    CHECK((set("stale") & ~set("tale") & LETTERBITS) != 0);
}

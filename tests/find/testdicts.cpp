#include "tests/find/testdicts.h"

#include "dict/dictset.h"
#include "tests/grid/gridlooks.h"

#include <algorithm>

std::vector<plaindict> plaindicts;

void testdict(const wordlist &words)
{
    dictrec *record = &dicts[ndicts];
    plaindict plain = {.number = ndicts, .words = {}, .lowers = {}, .closed = {}};
    *record = {};
    REQUIRE_FALSE(dictempty(&record->dict));
    for (const std::string &word : words)
        REQUIRE_FALSE(dictadd(word.c_str(), &record->dict));
    record->loaded = 1;
    REQUIRE_FALSE(dictsetadd(ndicts++));
    dictcursor cursor;
    bool more = dictseek(0, &record->dict, &cursor);
    for (; more; more = dictnext(&record->dict, &cursor)) {
        plain.words.push_back(cursor.word);
        plain.lowers.push_back(lower(plain.words.back()));
        plain.closed.push_back(closedup(plain.words.back()));
    }
    plaindicts.push_back(plain);
}

void testdictsfree()
{
    dictsetclear();
    for (uint32_t i = 0; i < ndicts; i++)
        dictunload(i);
    ndicts = 0;
    plaindicts.clear();
}

uint32_t below(std::mt19937 &random, size_t n)
{
    return static_cast<uint32_t>(random() % n);
}

const std::string &oneof(std::mt19937 &random, const wordlist &list)
{
    return list[below(random, list.size())];
}

wordlist madewords(std::mt19937 &random, size_t count)
{
    static const wordlist pieces = {"ba", "ter", "ing", "co", "re",  "sta", "le", "nt", "o",
                                    "si", "mac", "e",   "un", "ous", "th",  "at", "on", "s"};
    wordlist words(count);
    for (std::string &word : words)
        for (uint32_t more = 1 + below(random, 5); more || word.size() < 2; more -= more > 0)
            word += oneof(random, pieces);
    return words;
}

char lower(char ch)
{
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch + 32) : ch;
}

std::string lower(std::string text)
{
    for (char &ch : text)
        ch = lower(ch);
    return text;
}

std::string closedup(std::string text)
{
    std::erase(text, ' ');
    return text;
}

void gridmarked(const std::string &picture)
{
    gridset(picture);
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if ((grid.flags[x][y] & CELLKIND) == CELLOPEN) grid.flags[x][y] |= CELLMARKED;
    markrescan();
}

void searchrun(const errorblock *started)
{
    CHECK_FALSE(started);
    CHECK_FALSE(headlessrun());
    CHECK((headless.begins == headless.ends && headless.busy == 0));
}

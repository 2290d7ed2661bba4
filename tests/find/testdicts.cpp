#include "tests/find/testdicts.h"

#include "base/text.h"
#include "dict/dictset.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>

void testdict(const char *name, const std::vector<std::string> &words)
{
    dictrec *record = &dicts[ndicts];
    *record = {};
    strcopyn(record->name, name, sizeof record->name);
    REQUIRE(dictempty(&record->dict) == nullptr);
    for (const std::string &word : words)
        REQUIRE(dictadd(word.c_str(), &record->dict) == nullptr);
    record->loaded = 1;
    REQUIRE(dictsetadd(ndicts++) == nullptr);
}

void testdictsfree()
{
    dictsetclear();
    for (uint32_t i = 0; i < ndicts; i++)
        dictunload(i);
    ndicts = 0;
}

std::vector<std::string> testdictwords(uint32_t number)
{
    std::vector<std::string> words;
    for (uint32_t i = 0; i < dictcount(&dicts[number].dict); i++)
        words.push_back(dictword(i, &dicts[number].dict));
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
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

void searchrun(const errorblock *started)
{
    CHECK(started == nullptr);
    CHECK(headlessrun() == nullptr);
}

static std::vector<std::string> syllablewords()
{
    MESSAGE("no data folder: words made of syllables stand in for a real list");
    const char *syllables[] = {"ba", "ter", "ing", "co", "re", "sta", "le", "nt", "o", "ski"};
    std::vector<std::string> words;
    for (const char *a : syllables)
        for (const char *b : syllables)
            for (const char *c : syllables)
                words.push_back(std::string(a) + b + c);
    return words;
}

std::vector<std::string> realwords(size_t step)
{
    std::ifstream file(datafile("Puzzle-UK.txt"));
    if (!file) return syllablewords();
    std::vector<std::string> words;
    std::string line;
    if (shaken()) step *= 10;
    for (size_t n = 0; std::getline(file, line); n++)
        if (n % step == 0) words.push_back(line);
    return words;
}

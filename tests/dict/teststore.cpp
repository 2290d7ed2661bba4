#include "tests/dict/teststore.h"

#include "dict/dictverify.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

void addwords(Dictionary *dict, const wordlist &words)
{
    for (const std::string &word : words)
        REQUIRE_FALSE(dictadd(word.c_str(), dict));
}

teststore::teststore(const wordlist &words)
{
    REQUIRE_FALSE(dictempty(&dict));
    addwords(&dict, words);
}

teststore::~teststore()
{
    dictfree(&dict);
}

wordlist storewords(const Dictionary &dict)
{
    wordlist words;
    dictcursor cursor;
    for (int more = dictseek(0, &dict, &cursor); more; more = dictnext(&dict, &cursor))
        words.push_back(cursor.word);
    return words;
}

std::string storefault(const Dictionary &dict)
{
    char text[200];
    return dictverify(&dict, text, sizeof text) ? text : "";
}

std::string blockbytes(const flexptr &anchor)
{
    int32_t size = 0;
    if (anchor) flex_size(&anchor, &size);
    return std::string(static_cast<const char *>(anchor), static_cast<size_t>(size));
}

static wordlist syllablewords()
{
    MESSAGE("no data folder: words made of syllables stand in for a real list");
    const char *syllables[] = {"ba",  "ter", "ing", "co", "re",  "sta", "le",  "nt", "o",
                               "ski", "Mac", "e",   "un", "ous", "th",  "ati", "on", "s"};
    wordlist words;
    for (const char *a : syllables)
        for (const char *b : syllables)
            for (const char *c : syllables)
                for (const char *d : syllables)
                    words.push_back(std::string(a) + b + c + d);
    return words;
}

wordlist somewords(size_t most, uint32_t seed)
{
    wordlist words;
    std::ifstream file(datafile("Puzzle-UK.txt"));
    for (std::string line; std::getline(file, line);) {
        while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
            line.pop_back();
        if (!line.empty() && line.size() < 31) words.push_back(line);
    }
    if (words.empty()) words = syllablewords();
    std::shuffle(words.begin(), words.end(), std::mt19937(seed));
    if (words.size() > most) words.resize(most);
    return words;
}

std::string scratch(const std::string &leaf)
{
    return scratchfolder() + "/" + leaf;
}

std::string fileget(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void fileput(const std::string &path, const std::string &bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

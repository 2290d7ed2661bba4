#include "tests/dict/exercise.h"

#include "dict/dictverify.h"
#include "dict/storecheck.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

namespace
{

constexpr uint32_t OPTIONS[] = {0, FINDHYPHENS, fastfind, fastfind | FINDHYPHENS};

void search(const Dictionary &dict, const std::string &word)
{
    for (uint32_t option : OPTIONS) {
        dictcursor cursor;
        uint32_t flags = option;
        char text[WORDSIZE];
        int found = dictfind(word.c_str(), &dict, &cursor, &flags);
        if (found && (option & fastfind)) {
            dictfound(text);
            REQUIRE(std::memchr(text, 0, sizeof text));
        }
    }
}

std::string someword(const Dictionary &dict, std::mt19937 *random)
{
    std::string word;
    if (dictcount(&dict)) word = dictword((*random)() % dictcount(&dict), &dict);
    switch ((*random)() % 4) {
    case 0:
        return word;
    case 1:
        return word.substr(0, (*random)() % 12) + "ation";
    case 2:
        return word + static_cast<char>('a' + (*random)() % 26);
    default:
        return std::string(1 + (*random)() % 30, static_cast<char>(33 + (*random)() % 200));
    }
}

} // namespace

void exercisereaders(const Dictionary &dict)
{
    dictcursor cursor;
    uint32_t walked = 0;
    for (int more = dictseek(0, &dict, &cursor); more; more = dictnext(&dict, &cursor)) {
        REQUIRE(std::memchr(cursor.word, 0, sizeof cursor.word));
        if (walked++ % 16 == 0) search(dict, cursor.word);
    }
    REQUIRE(walked <= dictcount(&dict));
    for (uint32_t n : {0u, 1u, walked / 2, walked, walked + 1, dictcount(&dict) - 1, 0xFFFFFFu})
        search(dict, dictword(n, &dict));
    char fault[200];
    dictverify(&dict, fault, sizeof fault);
    dictcheck(&dict);
}

void exerciseedits(Dictionary *dict, std::mt19937 *random, int steps)
{
    for (int n = 0; n < steps; n++) {
        std::string word = someword(*dict, random);
        if ((*random)() % 3)
            dictremove(word.c_str(), dict);
        else
            REQUIRE_FALSE(dictadd(word.c_str(), dict));
        REQUIRE_FALSE(storecheck(dict));
    }
}

// tests/find/plainsearch.h - every search told again, as plainly as can be.
//
// These judge the searches: however those come by their results, they must be the
// same in the same order, and the letters the same afterwards. A dictionary is a list
// of words here, looked at from front to back. Words hold ASCII letters; for the
// solver and anagrams, spaces and "!" too.
#pragma once

#include "dict/dictset.h"
#include "tests/find/testdicts.h"

#include <cstdint>

// Crossword solving of the grid as it stands: slots are maximal runs of marked
// cells, cut at bars. The grid is left alone.
struct plainsolution {
    std::vector<std::vector<wordref>> found;
    std::vector<uint8_t> letters; // the whole array, as the search leaves it
};
int32_t plainslots();
plainsolution plainsolve(int32_t limit);

std::vector<wordref> plainanagram(const std::string &text, int32_t limit);

// The suggestions for a word in lower case, from dictionaries without phrases.
wordlist plainguess(const std::string &word);

// The words hidden in the square, by text.
struct plainword {
    std::string text;
    int32_t x, y, dx, dy;
    auto operator<=>(const plainword &) const = default;
};
std::vector<plainword> plainfind();

// Make and New, by recursion and with the same draws: the picture of the square,
// and where the words of the list are.
struct plainsquare {
    std::string picture;
    std::vector<plainword> placed;
};
plainsquare plainmake(const wordlist &words);
plainsquare plainnew();

// tests/find/testdicts.h - what the tests of the searches set up: dictionaries of
// words with no file behind them, and marked grids.
#pragma once

#include "base/errors.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

using wordlist = std::vector<std::string>;

// Adds a dictionary of these words to the set and puts it in use.
void testdict(const wordlist &words);
void testdictsfree(); // all of them

// The dictionaries in use once more, as lists in the order of the store.
struct plaindict {
    uint32_t number;
    wordlist words, lowers, closed; // as stored, in lower case, without spaces
};
extern std::vector<plaindict> plaindicts;

// A number below n, the same on every platform for the same generator state.
uint32_t below(std::mt19937 &random, size_t n);

// Any of a list.
const std::string &oneof(std::mt19937 &random, const wordlist &list);

// Words made of common pieces, a to z, of 2 to 15 letters.
wordlist madewords(std::mt19937 &random, size_t count);

// In lower case, A to Z alone; and without spaces.
char lower(char ch);
std::string lower(std::string text);
std::string closedup(std::string text);

// A grid from a picture, marked all over but for its blocks.
void gridmarked(const std::string &picture);

// Runs the search that a start call, whose result is passed, has begun, and asks
// that it leaves nothing of itself.
void searchrun(const errorblock *started);

// The code of an error, or 0.
inline uint32_t code(const errorblock *err)
{
    return err ? err->code : 0;
}

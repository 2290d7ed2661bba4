// tests/find/testdicts.h - dictionaries of words for the search tests, with no
// file behind them.
#pragma once

#include "base/errors.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Adds a dictionary of these words to the set and puts it in use.
void testdict(const char *name, const std::vector<std::string> &words);

// Frees every dictionary and empties the set.
void testdictsfree();

// The words of a dictionary of the set, read the long way.
std::vector<std::string> testdictwords(uint32_t number);

// Words of the real list, every step-th one; a list made of syllables, with a
// message, where there is no real one.
std::vector<std::string> realwords(size_t step);

// In lower case, A to Z alone.
char lower(char ch);
std::string lower(std::string text);

// The text of a word without its spaces.
std::string closedup(std::string text);

// Runs the search that a start call, whose result is passed, has begun.
void searchrun(const errorblock *started);

// The code of an error, or 0.
inline uint32_t code(const errorblock *err)
{
    return err ? err->code : 0;
}

// A number below n, the same on every platform for the same generator state.
inline uint32_t below(std::mt19937 &random, uint32_t n)
{
    return static_cast<uint32_t>(random() % n);
}

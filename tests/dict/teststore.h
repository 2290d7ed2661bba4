// tests/dict/teststore.h - stores of some words, and looks at them.
#pragma once

#include "dict/dictionary.h"
#include "tests/support/testfiles.h"

#include <random>
#include <string>
#include <vector>

using wordlist = std::vector<std::string>;

// Adds words of which each must be taken without an error.
void addwords(Dictionary *dict, const wordlist &words);

// A store that a test gives up at its end.
struct teststore {
    Dictionary dict = {};
    explicit teststore(const wordlist &words = {});
    ~teststore();
};

// The words as a walk finds them.
wordlist storewords(const Dictionary &dict);

// What dictverify says, or an empty text.
std::string storefault(const Dictionary &dict);

std::string blockbytes(const flexptr &anchor);

// Words made of common pieces, of up to 15 letters, in no order; some are there
// twice.
wordlist somewords(size_t count, uint32_t seed);

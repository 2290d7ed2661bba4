// tests/dict/blockmodel.h - the two blocks of a store told a second time, byte
// for byte.
//
// The word block follows from the words. The index does not: which words carry
// an entry is the outcome of every insert and delete before. This model keeps
// the words in a vector and the entries as word numbers, and applies the rules
// to those; the bytes are made from them on demand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// A word and its place in the order: the same key for words that differ only in
// case.
struct modelword {
    std::string text;
    std::string key;
};

struct blockmodel {
    std::vector<modelword> words;
    std::vector<uint32_t> entries; // word numbers
};

// The number of the word, or of the one that it would stand before.
size_t blockplace(const blockmodel &model, const std::string &word, bool *there);

// As dictadd and dictremove. Words must be ones that any store can hold, of
// apostrophe, hyphen, space, exclamation mark, ASCII digits and letters, and the
// accented e.
void blockadd(blockmodel *model, const std::string &word);
bool blockremove(blockmodel *model, const std::string &word);

std::string modelwords(const blockmodel &model);
std::string modelindex(const blockmodel &model);

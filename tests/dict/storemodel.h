// tests/dict/storemodel.h - the word store told a second time, simply.
//
// A reader of the two blocks that trusts nothing: it decodes every record from
// the first byte, with a table and an order of its own.
#pragma once

#include "dict/dictionary.h"

#include <string>
#include <vector>

// Words by their place in the order: the same key for words that differ only in
// case. For words of apostrophe, hyphen, space, ASCII digits and letters, and
// the accented e.
std::string modelkey(const std::string &word);

// What each of 256 codes stands for; nothing below 31.
const std::vector<std::string> &codetexts();

struct storedword {
    std::string text;
    uint32_t woff;
    uint32_t head;
};

// Every word of a store, as far as its bytes can be read.
std::vector<storedword> decodestore(const Dictionary &dict);

// The first rule that the blocks break, or an empty text. Not for stores in
// which neighbours share 30 letters.
std::string storefault(const Dictionary &dict);

std::string blockbytes(const flexptr &anchor);

// A list of real words, shuffled by seed; of syllables, and said so, when
// there is no data folder.
std::vector<std::string> somewords(size_t most, uint32_t seed);

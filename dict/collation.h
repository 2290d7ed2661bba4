// dict/collation.h - the order of characters in the word stores.
//
// Every character has a sort key of its own, and the fold key of its
// upper-case form: words are told apart by fold keys and put in order by sort
// keys. Punctuation and digits come before all letters, accented letters
// behind their base letter, a lower-case letter directly before its capital.
#pragma once

#include <cstdint>

struct collationkeys {
    uint8_t sort[256]; // 0..255, each once
    uint8_t fold[256];
};
extern const collationkeys collation;

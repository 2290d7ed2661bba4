// dict/wordfeed.h - words out of a text, byte by byte.
//
// The rule of every import: bytes below 33 before a word are passed over; the
// first byte above 32 starts one and stands as it is; behind it ASCII letters
// are lower-cased and kept, other bytes of 32 and above are dropped, and a byte
// below 32 or the end of the text ends the word. A word that comes to 32
// letters is thrown away, and the byte after it may start another.
#pragma once

#include "dict/dictionary.h"

#include <cstdint>

struct wordfeed {
    char word[WORDSIZE]; // the word, once wordfeedbyte has said so
    int32_t length;      // letters so far, 0 between words
};

constexpr int32_t FEEDEND = -1; // in place of a byte: the text is over

// Takes the next byte, 0 to 255, or FEEDEND. 1 when it ended a word, which
// stands in feed->word until the next call.
bool wordfeedbyte(wordfeed *feed, int32_t byte);

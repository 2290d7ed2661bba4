// dict/wordcodes.h - the one-byte codes of letters and letter groups.
//
// A letter of the code page's Latin alphabets, a digit, the apostrophe and the
// hyphen are their own codes. The holes between those hold letter groups that
// are common in words, all lower case. Any other character takes the escape
// code and itself. Bytes below the escape code are no codes: they end a record.
#pragma once

#include "dict/dictionary.h"

#include <cstring>

constexpr uint8_t ESCAPECODE = 30;
constexpr uint32_t GROUPSIZE = 7; // letters of the longest group

// What a code expands to. Eight bytes, so that it is copied in one move.
struct codetext {
    char text[GROUPSIZE];
    uint8_t length;
};

struct codetable {
    codetext texts[256]; // empty for ESCAPECODE and below
    // The codes whose text begins with a character, chained: the groups in
    // ascending code, then the character's own. 0 ends the chain.
    uint8_t first[256];
    uint8_t next[256];
};
extern const codetable wordcodes;

// Appends what the code at codes stands for to text, a word buffer in which
// *length letters stand; letters beyond WORDLENGTH are lost. Returns the place
// behind the code.
//
// No word holds a zero, and the word block ends in two: an escape code never
// takes a zero for its letter, and so no reader of records, whatever it is
// given, gets past the first of the two.
inline const uint8_t *codeexpand(const uint8_t *codes, char *text, uint32_t *length)
{
    uint8_t code = *codes++;
    if (code == ESCAPECODE) {
        if (!*codes) return codes;
        if (*length < WORDLENGTH) text[(*length)++] = static_cast<char>(*codes);
        return codes + 1;
    }
    const codetext *group = &wordcodes.texts[code];
    if (*length <= WORDSIZE - sizeof(codetext)) {
        memcpy(text + *length, group, sizeof(codetext));
        *length += group->length;
        return codes;
    }
    for (uint32_t i = 0; i < group->length && *length < WORDLENGTH; i++)
        text[(*length)++] = group->text[i];
    return codes;
}

// find/slotwords.h - a dictionary's words of one length, ready to be compared.
//
// A search of several slots asks for the same lengths over and over. Each list
// is read from its dictionary once, when it is first asked for, and kept until
// the search ends.
#pragma once

#include "dict/dictionary.h"

#include <cstdint>

struct slotword {
    uint32_t wordn;
    uint8_t length;      // letters of the word
    uint8_t closed;      // the same without its spaces
    char word[WORDSIZE]; // as stored
};

struct slotwordlist {
    const slotword *words; // in store order
    int32_t count;
};

// The words of a dictionary that have this length, with or without their
// spaces. Good until slotwordsfree; empty when memory is short.
slotwordlist slotwords(uint32_t dictn, int32_t length);
void slotwordsfree();

// The first word of a list that is number wordn or comes behind it.
int32_t slotwordfrom(const slotwordlist &list, uint32_t wordn);

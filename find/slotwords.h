// find/slotwords.h - a walk over a dictionary's words of one length.
//
// A search of several slots asks for the same lengths over and over. A walk
// that may be the only one for its length reads the dictionary; from the second
// on, the words are kept until the search ends. What memory is too short to
// keep is read from the dictionary each time.
#pragma once

#include "dict/dictionary.h"

#include <cstdint>

struct slotword {
    uint32_t wordn;
    uint8_t length;      // letters of the word
    uint8_t closed;      // the same without its spaces
    char word[WORDSIZE]; // as stored
};

struct slotwalk {
    const slotword *at, *end; // of the kept words; 0 when they are not kept
    const Dictionary *dict;   // and then, the word to look at next
    dictcursor cursor;
    int32_t length;
    slotword row;
};

// Begins at a word of a dictionary that has words.
void slotwalkstart(uint32_t dictn, int32_t length, const dictcursor &from, slotwalk *walk);

// The next word that has the length with or without its spaces, in store order;
// 0 behind the last. Good until the next call.
const slotword *slotwalknext(slotwalk *walk);

// Frees what was kept. No walk may be under way.
void slotwordsfree();

// dict/wordpile.h - many words, gathered to go into a dictionary together.
//
// They are sorted and merged with what is there, in the time of one walk over
// both. The result is the one of adding them one by one in the order in which
// they came: the same words, of those that differ only in case the newest, and
// the same word block. Where the order would show (a space, a word of 30 letters
// or more, a record that doesn't fit) they are added one by one indeed, and so
// are a few words that go into many.
#pragma once

#include "dict/dictionary.h"

struct errorblock;

struct wordpile {
    flexptr text;  // the words, each with its terminator
    flexptr rows;  // a row for each, 16 bytes
    int32_t bytes; // of text in use
    int32_t count; // words
    bool orderly;  // no word asks for the plain road
};

// An empty pile; what it held is not looked at. Errors: 2.
errorblock *pilestart(wordpile *pile);

// Takes a word of 1 to 31 letters. Errors: 2, with the pile as it was.
errorblock *pileadd(wordpile *pile, const char *word);

// Adds the words to the dictionary and empties the pile. Errors: 2, of a word
// that could not be added; those before it have been. Words that are added one by one
// end early where importpoll (dict/dictwindow.h) says so.
errorblock *pilemerge(wordpile *pile, Dictionary *dict);

void pilefree(wordpile *pile);

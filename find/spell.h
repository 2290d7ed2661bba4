// find/spell.h - spell check: the walk over the grid's words, and suggestions.
//
// Suggestions are a Dictionary of their own: each candidate is added to it,
// which sorts them and drops doubles, and one list view shows either.
#pragma once

#include "dict/dictionary.h"
#include "grid/grid.h"

#include <cstdint>

struct errorblock;

struct spellstate {
    int32_t wordcounter; // the gridword to look at next
    // The word in question. One that is longer than any word of a dictionary is
    // unknown, stands here cut to 31 letters and has no suggestions.
    char checkword[WORDSIZE];
    Dictionary guessstore;
};

// Changed by this module alone.
extern spellstate spell;

// Begins a walk at the grid's first word.
void checkstart();

// Goes on to the next word that no dictionary in use holds: 1 with its text in
// spell.checkword and its suggestions made, 0 at the end. A word with a blank
// cell is passed over.
bool checkwalk();

// Fills spell.guessstore with words like this one; a word of over 31 letters
// has none. Short memory leaves what could be stored.
void guessmake(const char *word);

// Adds the words behind the cursor that share the opening letters of word and
// differ from it by one letter more, one less, one of each, or one replaced.
// The cursor is moved.
void guessscan(const char *word, const Dictionary *dict, dictcursor *cursor);

// Frees the suggestions.
void spellend();

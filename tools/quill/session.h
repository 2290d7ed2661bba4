// tools/quill/session.h - what the commands stand on: dictionaries and a grid.
#pragma once

#include "tools/quill/arguments.h"

struct errorblock;

// Knows the dictionaries of the folder that was asked for, or of the shipped
// one.
errorblock *sessionstart(const arguments &args);

// Opens a grid, with the dictionaries that it names. Error 28 without the file.
errorblock *sessiongrid(const std::string &path);

// The same for what a word square hasn't: error 256 for one.
errorblock *sessioncrossword(const std::string &path);

// Puts the dictionaries in use that --dict names; without it the grid's own
// list stands, and without that the default rule. Errors: one that isn't
// there, one that doesn't load, 528.
errorblock *sessiondicts(const arguments &args);

// Marks the cells that --mark names, but blocks. Error: some are outside the grid.
errorblock *sessionmarks(const arguments &args);

// Adds the words of a text to a Wordsquare's list, unplaced, by the import rule.
errorblock *sessionwords(const std::string &path);

// Frees all of it.
void sessionend();

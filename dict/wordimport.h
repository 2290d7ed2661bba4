// dict/wordimport.h - text files of words, in and out of a dictionary.
//
// In: the rule of wordfeed.h; order and doubles don't matter. Out: a word a
// line as it is stored, in store order, each line ended by CR LF. Import strips
// what export may hold, so a round trip is not exact.
#pragma once

#include "dict/dictionary.h"

// Adds the file's words to a dictionary of the set and marks it changed if
// there were any. Errors: the open's, with nothing changed; a read's or an
// add's, with the words before it added. The user may end it (importpoll of
// dict/dictwindow.h), which keeps the words so far.
errorblock *wordimport(const char *path, uint32_t dictnumber);

// Writes a dictionary's words; without any, no file is made. Errors: the
// open's and the close's.
errorblock *wordexport(const char *path, const Dictionary *dict);

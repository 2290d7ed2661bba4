// dict/wordsource.h - text files of words, as characters of code page 1252.
//
// A file is UTF-8 when it begins with the mark of that, or when all of it is and
// some character of it is above 127; any other is taken as code page 1252. A
// character that the code page lacks is passed over.
#pragma once

#include "base/bfile.h"
#include "base/encoding.h"

struct wordsource {
    bfile file;
    bool utf8;
    utf8decoder decoder;
};

// Opens a file, which is read once to see what it is. Errors: the open's.
errorblock *wordsourceopen(const char *path, wordsource *text);

// The next character, -1 at the end. Errors: the read's.
errorblock *wordsourceget(wordsource *text, int32_t *character);

// Closes it; err is what went wrong before, and the result if it is not 0.
errorblock *wordsourceclose(wordsource *text, errorblock *err);

// base/safesave.h - saving beside the old file.
//
// The new contents are written to a file beside path and take its place only
// when they are whole, so that a full disc or a crash never costs the user what
// was saved before.
#pragma once

#include "base/bfile.h"

struct safesave {
    bfile file;            // write here, between safeopen and safeclose
    char path[PATHSIZE];   // expanded
    char beside[PATHSIZE]; // the name while it grows
};

// Opens for writing. Errors: those of the open; nothing is to be closed then.
errorblock *safeopen(const char *path, int32_t size, safesave *save);

// With no error so far and none from the close, puts the file in place of the
// old one; else removes what was written. Returns the first error.
errorblock *safeclose(safesave *save, errorblock *error);

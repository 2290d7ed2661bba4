// base/safesave.h - saving beside the old file.
//
// The new contents are written to a file beside path and take its place only
// when they are whole, so that a full disc or a crash never costs the user what
// was saved before. The name beside has an extension of its own, so that no
// search for "*.dic" meets one that a crash has left; "x.dic~" would be met by
// its short name on a Windows disc.
//
// A link stays one: the file beside is made beside what it leads to. Where a file
// beside can't be made or can't take the place, the plain road is taken, and the
// contents are written over the old ones when they are whole: no rights in the folder,
// no room for the longer name, a device or a pipe.
#pragma once

#include "base/bfile.h"

struct safesave {
    bfile file;            // write here, between safeopen and safeclose
    char path[PATHSIZE];   // expanded
    char target[PATHSIZE]; // the file that path leads to
    char beside[PATHSIZE]; // the name while it grows; empty on the plain road
};

// Opens for writing, with a buffer of size bytes. A save into a transfer goes
// straight there. Errors: 2, 30 for a path that is too long; nothing is to be closed
// then.
errorblock *safeopen(const char *path, int32_t size, safesave *save);

// With no error so far and none from a write or the close, puts the file in
// place of the old one; else removes what was written. Returns the first
// error; a write that failed is one even if nobody passed it on. Harmless
// after a failed safeopen.
errorblock *safeclose(safesave *save, errorblock *error);

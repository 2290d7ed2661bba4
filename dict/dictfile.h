// dict/dictfile.h - dictionaries on disc.
//
// directory\name.dic is the image of a Dictionary behind a 256-byte header;
// docs/formats.md has every byte. A load is two block reads. The blocks are
// checked once, there, for what walkers rely on to stay inside them.
#pragma once

#include "dict/dictionary.h"

struct bfile;

// Opens directory\name.dic with mode "r" or "w". The directory may be a macro.
errorblock *dopen(const char *directory, const char *name, const char *mode, bfile *file);

// Reads a dictionary. Errors: the open's, which leaves dict as it was; else
// both counts are 0: 3 for a short file, 530 too old, 533 not supported, 283
// for a store that walkers couldn't trust, 2.
errorblock *dictload(const char *directory, const char *name, Dictionary *dict);

// Writes one, beside the old file until it is whole. Errors: the open's and the
// close's.
errorblock *dictsave(const char *directory, const char *name, const Dictionary *dict);

// A frame of five words and a block behind it.
errorblock *blocksave(const flexptr *anchor, bfile *file);
errorblock *blockload(flexptr *anchor, bfile *file);

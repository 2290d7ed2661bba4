// grid/gridfile.h - grid files, extension "qmg"; docs/formats.md has every byte.
//
// Three generations are read; the newest is written. The reader asks nothing of
// the identity text: any file of the right shape is taken.
#pragma once

#include "grid/grid.h"

struct errorblock;

// Writes the document, beside the old file until it is whole. Always 0: a file
// that can't be written is not told of.
errorblock *gridsave(const char *path);

// Reads one. A file that can't be opened leaves the document as it was and is
// no error. Error 283 for a size outside 1..127, with the document as it was.
errorblock *gridload(const char *path);

// gridsave, and the document bears that name and counts as unchanged.
errorblock *gridsaveto(const char *path);

// Error 532 for a document without a name.
errorblock *gridsavecommand();

// The per-user default: "%sDefault\%s.qmg".
errorblock *gridsavedefault();
errorblock *gridloaddefault();

// The handler of an opened or dropped file; applies the kind it names.
errorblock *gridopened(const char *path, int32_t filetype);
int gridaccepts(int32_t filetype);

// The built-in slot of appearance, to and from the document.
void gridsetdefaults();
void gridrememberdefaults();

// The fonts of the two lists, from the slot; the choices change them.
extern fontrecord solfont, dictfont;

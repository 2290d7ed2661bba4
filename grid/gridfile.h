// grid/gridfile.h - grid files, extension "qmg"; docs/formats.md has every byte.
//
// Three generations are read; the newest is written. The reader asks nothing of
// the identity text: any file of the right shape is taken. A legitimate file is
// written back to the byte; values that no command could have set are brought
// into range as they are read, so that nothing behind the reader need doubt
// them.
#pragma once

#include "base/filetypes.h"
#include "grid/appearance.h"
#include "grid/grid.h"

struct errorblock;

// The file type of a document; words come from FILETYPETEXT too.
constexpr int32_t FILETYPEGRID = 259;

// Writes the document, beside the old file until it is whole. The errors are
// those of base/safesave.h; the old file is as it was then.
errorblock *gridwrite(const char *path);

// The same as the commands do it. Always 0: a file that can't be written is not
// told of.
errorblock *gridsave(const char *path);

// Reads one, with the dictionaries it names. A file that can't be opened leaves
// the document as it was and is no error. Error 283 for a header cut short or a
// size outside 1..127, with the document as it was. A file cut short behind the
// header leaves what it doesn't tell as it was. The document's name, its
// changed mark and its kind stay; the kind waits in grid.pendingkind.
errorblock *gridload(const char *path);

// gridsave, and the document bears that name and counts as unchanged.
errorblock *gridsaveto(const char *path);

// Error 532 for a document without a name.
errorblock *gridsavecommand();

// The user's default, of the folder Default (base/userfiles.h). Saving it, as
// silently as gridsave does, makes the document's appearance the built-in one,
// and so does loading it; without one the factory's applies. Errors: those of
// userfilefind, and nothing is done then.
errorblock *gridsavedefault();
errorblock *gridloaddefault();

// The handler of an opened or dropped file: a grid, or with FILETYPETEXT a word
// list. The document bears the file's name, counts as unchanged, and is of the
// kind of the grid file read last. Error 283 as gridload, with no change.
errorblock *gridopened(const char *path, int32_t filetype);

// Whether a window may be handed a file: a grid always, a text as a word list.
bool gridaccepts(int32_t filetype);

// app/filetypes.h - the kinds of file that the program knows.
#pragma once

#include "base/filetypes.h"

#include <cstddef>

// A kind of file, and what each list of a box calls it, 0 where the list lacks it.
// The rows of a box come in the order of the table.
struct filekind {
    filetyperow row;                 // its text is of a box that offers no formats
    const char *savegrid = nullptr;  // Save Grid As
    const char *saveclues = nullptr; // Save Clues As
    const char *opengrid = nullptr;  // Open Grid
};

// In the order in which an extension is looked for: "wmf" always means a plain
// metafile.
constexpr size_t FILEKINDS = 7;
extern const filekind filekinds[FILEKINDS];

// Their rows, for addfiletypes.
extern const filetyperow *const filetypes;

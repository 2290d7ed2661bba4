// app/filetypes.h - the kinds of file that the program knows.
#pragma once

#include "base/filetypes.h"

// Rows in the order in which an extension is looked for: "wmf" always means a
// plain metafile. Linked into the library's chain by loadappresources.
extern const filetyperow filetypes[];

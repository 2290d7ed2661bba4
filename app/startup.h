// app/startup.h - what the application starts, and how it ends.
#pragma once

#include <cstdint>

struct errorblock;

// Links the application's tables into the library: errors, templates, menus,
// file types. The first error ends it.
errorblock *loadappresources(const char *directory);

// The data that is there from start to end: the dictionaries known, an empty
// grid, the choices, the default grid. The first error ends it.
errorblock *initdata();

// Whether the user wants to stay: 1 when the grid or words of dictionaries were
// changed and the answer about either was to stay, or when words that should be
// retained could not be saved, which is shown. MAY POLL: a question runs a loop of
// its own.
bool quitquery();

// Ends the process with status 0. Windows are not closed, nothing is saved.
[[noreturn]] void quittask();

// Of the quit broadcast.
errorblock *quithandler(intptr_t *record, bool *claimed);

// The file types are linked no more, as before loadappresources.
void appresourcesreset();

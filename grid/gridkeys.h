// grid/gridkeys.h - the keys of the grid.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// The key handler of the grid's window and of the main window. Claims every
// character, and of the other keys those that it knows. During a search no key
// changes anything.
errorblock *gridkey(window self, intptr_t data, int32_t icon, int32_t *code);

// Asked of the program: the menu's Save, so that a search stops first.
errorblock *gridsaveasked();

// app/menus.h - the menu bar and its commands.
//
// A command is a row of a table: its identifier, what it does, when it can be
// had, when it is ticked. The menus themselves are resources; the menu of
// dictionaries is made at run time (dict/dictmenu.h).
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// The selection and the preparation of the bar. path: positions from the bar
// down, then the command or -1, then -1.
errorblock *menuselect(const int32_t *path, window w);
errorblock *menuprepare(const int32_t *path, int32_t menu, window w);

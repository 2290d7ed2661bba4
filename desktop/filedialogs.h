// desktop/filedialogs.h - the system's boxes for saving to and loading from
// files. What they offer is worked out in base/savefilter.h and
// base/loadfilter.h. A cancelled box is no error.
#pragma once

#include "base/loadfilter.h"
#include "base/savefilter.h"
#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// path, of size bytes, is what the box starts with and what was chosen. The
// handler gets a copy of it, with its type, and does the save. The loud form
// returns error 24 for a cancel.
errorblock *savefile(char *path, int32_t size, int32_t type, savehandler handler);
errorblock *savefileowner(char *path, int32_t size, int32_t type, savehandler handler,
                          window owner);
errorblock *savefileloud(char *path, int32_t size, int32_t type, savehandler handler, window owner);

// The handler gets the path, the type that its name says, data and 0; without
// one the load handlers of that type are asked.
using loadhandler = errorblock *(*)(const char *path, int32_t type, intptr_t data, intptr_t zero);
errorblock *loadfile(char *path, int32_t unused, const loadgroup *groups, int32_t count,
                     loadhandler handler, intptr_t data, window owner);

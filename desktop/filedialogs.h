// desktop/filedialogs.h - the system's boxes for saving to and loading from
// files. What they offer is worked out in base/savefilter.h and
// base/loadfilter.h; savefilterset before a call gives the next box several
// formats.
//
// A box runs a message loop of its own: timed calls go on, null handlers wait.
#pragma once

#include "base/loadfilter.h"
#include "base/savefilter.h"
#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// path, of size bytes, is what the box starts with; its folder may be missing.
// On OK it becomes what was chosen, with the extension of the type, and the
// handler does the save: it gets a copy of the path, and the type. A file that
// is there already isn't asked about.
//
// A cancel is no error, but for the loud form, which returns error 24. Other
// errors: the handler's, the system's, 30 for a path that doesn't fit.
errorblock *savefile(char *path, int32_t size, int32_t type, savehandler handler);
errorblock *savefileowner(char *path, int32_t size, int32_t type, savehandler handler,
                          window owner);
errorblock *savefileloud(char *path, int32_t size, int32_t type, savehandler handler, window owner);

// Chooses a file that is there. On OK the handler gets the path, the type that
// its name says, data and 0; without a handler the load handlers of that type
// are asked. path is of PATHSIZE bytes. A cancel is no error.
using loadhandler = errorblock *(*)(const char *path, int32_t type, intptr_t data, intptr_t zero);
errorblock *loadfile(char *path, int32_t unused, const loadgroup *groups, int32_t count,
                     loadhandler handler, intptr_t data, window owner);

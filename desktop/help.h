// desktop/help.h - help: the manual, the text of a control, the About box.
//
// What asks the system is in desktop/helpsystem.h, so that tests see what was
// asked for.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Opens the manual; macros of the path are expanded.
errorblock *helpcontents(window w, const char *path);

// Shows the text of a control, -1 for the window itself, next to control, the
// system's handle, 0 for none.
errorblock *helpicon(window w, int32_t icon, window control);

// Shows a text at a place of the screen, OS units.
errorblock *helppopup(window w, const char *text, int32_t x, int32_t y);

// The next press of a button asks for the help of what is under the pointer.
errorblock *helpinteractive(window w);

// A table of texts, from a resource or a file. Errors: as a file's.
errorblock *addhelptable(const char *directory, const char *name);

// The About box: version 220 is shown as 2.20. name 0 is the task's.
errorblock *showabout(window w, int32_t version, const char *date, const char *name);

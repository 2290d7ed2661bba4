// desktop/dialogs.h - whether a window takes input.
#pragma once

#include "desktop/events.h"

struct errorblock;

// A dialog that must be settled first disables its owner while it is open; 0 for
// the owner does nothing.
errorblock *enablewindow(window w, int on);

// The end of such a dialog. Its owner takes input again before it goes: the system
// would make another program's window the active one. Errors: as removewindow.
errorblock *removedialog(window *w, window owner);

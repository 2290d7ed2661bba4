// desktop/dialogs.h - whether a window takes input.
#pragma once

#include "desktop/events.h"

struct errorblock;

// A dialog that must be settled first disables
// its owner while it is open; 0 for the owner does nothing.
errorblock *enablewindow(window w, int on);

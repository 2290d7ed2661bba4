// desktop/dialogs.h - what a dialog needs beside its controls.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Whether a window takes input. A dialog that must be settled first disables
// its owner while it is open; 0 for the owner does nothing.
errorblock *enablewindow(window w, int on);

// The least and the greatest number of a field by its up-down control. A number
// that is typed into the field may lie outside.
errorblock *spinrange(window w, int32_t icon, int32_t low, int32_t high);

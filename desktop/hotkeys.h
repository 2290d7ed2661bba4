// desktop/hotkeys.h - keys that reach the task whatever program they are typed
// to.
#pragma once

#include "desktop/events.h"

// key is a number of keynames.h, and id the task's own, 0 to 0xBFFF, one for each
// hot key of a window. Several handlers may share a hot key: the first takes it,
// the last to go gives it back. The twin takes the same arguments.
// Errors: as addblock; the system's, for one that is taken, which adds nothing.
errorblock *addhotkeyhandler(hotkeyfunction function, window owner, int32_t id, int32_t key);
errorblock *remhotkeyhandler(hotkeyfunction function, window owner, int32_t id, int32_t key);

// For the window messages, with the id of WM_HOTKEY; leaves the line of it in the
// trace.
void hotkeydeliver(window w, int32_t id);

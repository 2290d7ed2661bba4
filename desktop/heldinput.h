// desktop/heldinput.h - long work that polls no events, and is stopped all the same.
//
// Where a command in between would pull something from under the work, the user's
// keys and presses must neither be delivered meanwhile nor wait for its end: they were
// meant for what the screen showed. The work calls heldinput now and then, and once
// behind its end.
#pragma once

#include "desktop/events.h"

#include <cstdint>

// Drops the keys and the presses that have come, and paints what is to be painted.
// Whether Escape or a left press on that control of the window was among them.
bool heldinput(window w, int32_t stop);

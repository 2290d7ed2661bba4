// desktop/win32/helpmessages.h - what the window procedure hands to the help.
//
// Each takes the words of one message of window w and returns whether it was
// used; what it returns false for is the system's. The result of a message that
// was used is 1.
#pragma once

#include "desktop/events.h"

// WM_HELP.
bool helpmessage(window w, intptr_t lparam);

// WM_CONTEXTMENU: wparam is where it was asked for, w or a control of it.
bool helpcontextmenu(window w, intptr_t wparam, intptr_t lparam);

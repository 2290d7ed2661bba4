// desktop/win32/ddemessages.h - what the window procedure and the end of a window
// hand to the conversations.
#pragma once

#include "desktop/events.h"

// Any message of the WM_DDE_ family: true when it was used, with its result; false
// leaves it to the system, as always while the service is off.
bool ddemessage(const systemmessage *message, intptr_t *result);

// Before a window is destroyed: ends its conversations.
void ddewindowgone(window w);

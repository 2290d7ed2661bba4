// desktop/win32/clipboardmessages.h - what the window procedure hands to the
// clipboard.
#pragma once

#include "desktop/events.h"

// WM_RENDERFORMAT, WM_RENDERALLFORMATS, WM_DESTROYCLIPBOARD: whether it was for
// the clipboard's own window, while the service is on.
bool clipboardmessage(const systemmessage *message);

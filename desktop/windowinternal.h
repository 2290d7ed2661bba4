// desktop/windowinternal.h - what windows owe to the window procedure and to
// those that make windows. Inside the library only; scrolling is in scroll.h,
// the records in wdata.h.
#pragma once

#include "desktop/windows.h"

#include <cstdint>

struct errorblock;
struct wdata;

// WM_CREATE: the window's record, with its style and the parent that wdataparent
// holds. Errors: 2.
errorblock *windowcreated(window w);
// WM_DESTROY: its end, for a window that the system takes away with another.
void windowdestroyed(window w);

// The record, or the system's error for a handle that has none.
errorblock *windowdata(window w, wdata **data);

// WM_ERASEBKGND: paints the background in a device context. False for the
// system's own erase.
bool backgrounderase(window w, intptr_t dc);

// WM_GETMINMAXINFO: limits the system's record, at that address, to the extent
// if the window wants that.
void windowmaxsize(window w, intptr_t minmaxinfo);

// What a loss of the input focus does to the wheel: nothing is kept.
void wheelclear(window w);

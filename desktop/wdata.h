// desktop/wdata.h - the library's record of each of its windows. Inside the
// library only.
//
// All records stand in one list, and a window has at most one. It is made when
// the system reports the window's creation and freed just before the window
// goes, so that a handle in the list is always good. The list is short and is
// searched at each call: a handle of any kind may be asked for.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

constexpr uint32_t STYLEVSCROLL = 0x200000, STYLEHSCROLL = 0x100000;

struct wdata {
    uint32_t flags;                 // of windows.h
    uint32_t style;                 // the system's, at creation
    int32_t xscroll, yscroll;       // OS units; where no bar of the system holds them
    int32_t xmin, xmax, ymin, ymax; // the extent, OS units
    int32_t ywheel, ywheeldir, xwheel, xwheeldir;
    uint32_t background;
    int32_t ypage, xpage; // OS units
    window handle;
    window parent; // as it was created; 0 for none
    wdata *next, *previous;
};

// All windows, the newest first. Changed by wdatanew and wdatafree.
extern wdata *wdatas;

// The parent of the window being created, which its creation message doesn't
// tell. Set by who creates it, taken and cleared by windowcreated.
extern window wdataparent;

// A zeroed record for the handle at the head of the list. Errors: 2.
errorblock *wdatanew(window w, wdata **record);
// Unlinks and frees it; running walks go on behind it.
void wdatafree(wdata *record);
// 0 if the handle isn't there.
wdata *wdatafind(window w);

// A line in the trace if the handle isn't there, with the caller's word, and one
// with the number of windows.
void checkhandle(window w, const char *word);

// A walk that calls out enters the variable that holds its next record, and takes
// it out afterwards; a record that is freed moves such variables on. 16 are
// protected at a time: a walk beyond those runs unprotected.
constexpr int WDATAWALKS = 16;
void wdatawatch(wdata **next);
void wdataunwatch(wdata **next);

// Walks the dependants of a window, those created with it as their parent. Each
// is ended by the given call and told by its handler of the type, EVENTPARENTCLOSED
// or EVENTPARENTDELETED. With dropping the records of those that are still there
// afterwards are freed.
void wdatadependants(window parent, int32_t type, void (*ending)(window), bool dropping);

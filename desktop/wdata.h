// desktop/wdata.h - the library's record of each of its windows. Inside the
// library only.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

constexpr uint32_t STYLEVSCROLL = 0x200000, STYLEHSCROLL = 0x100000;

struct wdata {
    uint32_t flags;                 // of windows.h
    uint32_t style;                 // the system's, at creation
    int32_t xscroll, yscroll;       // pixels; where there is no bar to keep them
    int32_t xmin, xmax, ymin, ymax; // the extent, OS units
    int32_t ywheel, ywheeldir, xwheel, xwheeldir;
    uint32_t background;
    int32_t ypage, xpage;
    window handle;
    window parent; // as it was created; 0 for none
    wdata *next, *previous;
};

// All windows, the newest first. Changed by wdatanew and wdatafree.
extern wdata *wdatas;

// The parent of the window being created, for its creation message.
extern window wdataparent;

// A zeroed record for the handle at the head of the list. Errors: 2.
errorblock *wdatanew(window w, wdata **record);
// Unlinks and frees it; running walks go on behind it.
void wdatafree(wdata *record);
// 0 if the handle isn't there.
wdata *wdatafind(window w);

// A line in the trace if the handle isn't there.
void checkhandle(window w, const char *word);

// A walk that calls out enters the variable that holds its next record; a record
// that goes moves such variables on. 16 walks are protected.
void wdatawatch(wdata **next);
void wdataunwatch(wdata **next);

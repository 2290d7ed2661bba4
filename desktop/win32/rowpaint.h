// desktop/win32/rowpaint.h - the rows of combo and list boxes.
#pragma once

#include "desktop/events.h"

#include <windows.h>

constexpr int ROWHEIGHT = 16; // pixels, of the icon that a row may show

// The messages by which a kind of box tells the text of a row.
struct rowtexts {
    UINT length, text;
};

// Answers WM_DRAWITEM and WM_MEASUREITEM for a control. False for another
// control's.
bool rowmessage(const systemmessage *message, int32_t icon, const rowtexts &texts);

// The notification code of a control's WM_COMMAND, or -1.
int32_t rowcommand(const systemmessage *message, int32_t icon);

// Three filters that all have the record as their data.
errorblock *rowfilters(window w, void *record, filterfunction function);
errorblock *rowunfilter(window w, void *record, filterfunction function);

// desktop/win32/rowpaint.h - the rows of combo and list boxes.
#pragma once

#include "desktop/events.h"

#include <windows.h>

constexpr int ROWHEIGHT = 16; // pixels, of the icon that a row may show

// Answers WM_DRAWITEM and WM_MEASUREITEM for a control, whose text of a row is
// got by text, into VALIDATIONSIZE bytes. False for another control's.
using rowtext = void (*)(const DRAWITEMSTRUCT *item, char *buffer);
bool rowmessage(const systemmessage *message, int32_t icon, rowtext text);

// The notification code of a control's WM_COMMAND, or -1.
int32_t rowcommand(const systemmessage *message, int32_t icon);

// Three filters that all have the record as their data.
errorblock *rowfilters(window w, void *record, filterfunction function);
errorblock *rowunfilter(window w, void *record, filterfunction function);

// The text of a string of the control by the system's messages for it.
void rowstring(HWND control, UINT length, UINT get, UINT index, char *buffer);

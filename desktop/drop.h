// desktop/drop.h - a file that was dropped on a window. Inside the library.
#pragma once

#include "desktop/events.h"

#include <cstdint>

// What a folder's file type has more than its name says.
constexpr int32_t DROPFOLDER = 4096;

// Asks the window's drop handler, and if that accepts, loads by its drop load
// handler, and tells its drop done handler unless that failed. Errors of
// handlers are shown.
void filedrop(window w, const char *name, bool folder, mouserecord *mouse);

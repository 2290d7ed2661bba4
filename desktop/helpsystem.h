// desktop/helpsystem.h - what help asks of the system. It is defined in
// win32/helpsystem.cpp and helpplace.cpp; a test puts its own in the place of
// these to see what was asked for.
//
// The system's help is a library of its own, which is loaded when it is first
// wanted: a program runs without it.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Opens a help file, or a topic in it. Errors: 28 for one that isn't there.
errorblock *helpsystemtopic(window w, const char *path);

// A small box with a text, its top middle at a place of the screen in pixels.
// font is "name, points, ,".
errorblock *helpsystempopup(window w, const char *text, int32_t x, int32_t y, const char *font);

// Opens an address with the program that the user has for it.
errorblock *helpsystemopen(window w, const char *address);

// The top left of a window or a control on the screen, OS units.
errorblock *helpsystemplace(window w, int32_t *x, int32_t *y);

// The font of a window, or the system's own for windows that have none.
struct helpfont {
    char name[32];
    int32_t height; // of its characters, pixels
};
void helpsystemfont(window w, helpfont *font);

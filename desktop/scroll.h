// desktop/scroll.h - how a work area lies in a window: positions, limits and
// wheels. Inside the library; what moves the view for others is in windows.h.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// One bar in pixels.
struct scrollbar {
    int32_t minimum, maximum, page, position;
};

// Where the position must be: limited to the range, of which the minimum wins,
// or, centred, so that a smaller range is in the middle of the page.
int32_t scrolllimit(const scrollbar &bar, int32_t position, bool centred);

// A line is a tenth of the page. codes are the system's scroll codes.
int32_t scrollstep(const scrollbar &bar, int32_t code, int32_t thumb);

// One wheel event of delta: how many line steps (negative: back) come of it, and
// what is kept in the remainder. A change of direction drops what was kept.
constexpr int32_t WHEELLINE = 40;
int32_t scrollwheel(int32_t delta, int32_t *remainder, int32_t *direction);

// The bars follow the window's size and extent. In a nested call busy is set.
errorblock *rescroll(window w, int *busy);

// Answers a scroll message of the window: code and thumb are the system's. moved
// says whether the view moved.
errorblock *scrollmessage(window w, bool vertical, int32_t code, int32_t thumb, bool *moved);

// Gives the wheel to the window's own scrolling; false if it has no such bar.
bool scrollwheelwindow(window w, int32_t delta, bool horizontal);

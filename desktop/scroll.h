// desktop/scroll.h - how a work area lies in a window: positions, limits and
// wheels. Inside the library; what moves the view for others is in windows.h.
//
// Positions are kept in OS units: in the system's scroll bar, or in the window's
// record where there is no bar or the work area may be centred, since a bar
// can't hold a position outside its range. The arithmetic is done in pixels, and
// the view always stands at the pixel of the position that is kept.
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

// The system's scroll codes; of a vertical bar back is up.
constexpr int32_t SCROLLLINEBACK = 0, SCROLLLINEON = 1, SCROLLPAGEBACK = 2, SCROLLPAGEON = 3,
                  SCROLLTHUMB = 4, SCROLLTHUMBTRACK = 5, SCROLLFIRST = 6, SCROLLLAST = 7;

// The position that a code asks for, not limited. A line is a tenth of the page;
// thumb is where the thumb codes lead.
int32_t scrollstep(const scrollbar &bar, int32_t code, int32_t thumb);

// One wheel event of delta: how many line steps come of it, of delta's sign, and
// what is kept in the remainder. A change of direction drops what was kept.
constexpr int32_t WHEELLINE = 40;
int32_t scrollwheel(int32_t delta, int32_t *remainder, int32_t *direction);

// The position that is kept for a window of the library, 0 for another; of a
// vertical bar it grows downward.
int32_t scrollposition(window w, bool vertical);

// The bars follow the window's size and extent. A nested call, from a bar that
// comes or goes, sets busy and leaves the work to the outer one.
errorblock *rescroll(window w, bool *busy);

// Answers a scroll message of the window: code and thumb are the system's. moved
// says whether the view moved.
errorblock *scrollmessage(window w, bool vertical, int32_t code, int32_t thumb, bool *moved);

// Gives the wheel to the window's own scrolling, which it does by messages of
// line codes; false if it has no such bar.
bool scrollwheelwindow(window w, int32_t delta, bool horizontal);

// What the user has set the wheels to, for a task that wants it: the library's own
// scrolling goes by WHEELLINE. Read at the start and when a setting changes.
struct wheelsettings {
    uint32_t lines, characters; // to a notch of the wheel
};
extern wheelsettings wheelset;
void wheelsettingsread();

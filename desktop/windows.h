// desktop/windows.h - windows in OS units.
//
// A window is addressed by its system handle. It has a work area, its extent,
// measured in OS units (180 to the inch) with its origin at the top left: x runs
// right from 0, y runs down from 0 into negative numbers. A rectangle of the
// screen shows part of it; screen positions grow upward from the screen's
// bottom. Nobody above this header deals in pixels.
//
// A window comes from a template (templates.h), hidden. openwindow shows and
// places it, closewindow hides it, deletewindow ends it. Painting is in
// redraw.h.
//
// Each call returns an error or zero. A handle that is not the library's leaves
// a line in the trace, and then the system's own error.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Places in the stacking order, for behind; otherwise the window to go behind.
constexpr intptr_t BEHINDTOP = -1;
constexpr intptr_t BEHINDBOTTOM = -2;
constexpr intptr_t BEHINDSAME = -3;
constexpr intptr_t BEHINDTOPMOST = -4;    // always on top
constexpr intptr_t BEHINDNOTTOPMOST = -5; // no longer
constexpr intptr_t BEHINDHIDE = -6;

// wflags, when read; they mean nothing when opening.
constexpr uint32_t STATEREAD = 0x80000000; // always set
constexpr uint32_t STATEOPEN = 0x10000;    // not hidden
constexpr uint32_t STATEMAXIMISED = 0x40000;
constexpr uint32_t STATEOPENING = 0x200000; // inside openwindow
constexpr uint32_t STATEMINIMISED = 0x400000;

// By which a window is opened and read.
struct windowstaterecord {
    window self;
    int32_t x0, y0, x1, y1;   // the visible area on the screen, y0 its lower edge
    int32_t xscroll, yscroll; // the work-area place at its top left; yscroll 0 or negative
    intptr_t behind;
    uint32_t wflags;
};

// The same, and what is added to a place of the work area to give one of the
// screen.
struct windowinforecord {
    windowstaterecord state;
    int32_t xorigin, yorigin; // x0 - xscroll, y1 - yscroll
};

// What an open handler gets: the state, and the system message behind it.
struct openrecord {
    windowstaterecord state;
    intptr_t message, wparam, lparam;
};

// A box in OS units; y0 is the lower edge.
struct osbox {
    int32_t x0, y0, x1, y1;
};

// Pixels of the screen, y down; right and bottom lie just outside.
struct pixelbox {
    int32_t left, top, right, bottom;
};

// What the system tells of a window.
struct windowgeometry {
    pixelbox frame, client;
};

// Flags of a window.
constexpr uint32_t WINDOWPANE = 0x008;         // activation and a click's focus go to the parent
constexpr uint32_t WINDOWFIXED = 0x010;        // the system's Move command is refused
constexpr uint32_t WINDOWNONAVIGATION = 0x020; // no keys that move between controls
constexpr uint32_t WINDOWCHILDRENSTAY = 0x040; // scrolling doesn't move child windows
constexpr uint32_t WINDOWOPENING = 0x080;      // inside openwindow: no open events
constexpr uint32_t WINDOWMAXEXTENT = 0x100;    // never larger than its extent
constexpr uint32_t WINDOWCENTRED = 0x200;      // a smaller work area is centred
constexpr uint32_t WINDOWDDE = 0x400;          // answers DDE requests
constexpr uint32_t WINDOWWIDE = 0x800;         // its messages have 16-bit characters

// Shows and places the window with all of the state. The ex form is for a child:
// the box is the frame itself.
errorblock *openwindow(const windowstaterecord *state);
errorblock *openwindowex(const windowstaterecord *state);

// What must lie on the very pixel is measured and placed in pixels: above 180 dots to
// the inch OS units are larger. openpixels is openwindowex by such a frame; the view
// stays where it is scrolled to.
errorblock *geometryread(window w, windowgeometry *geometry);
errorblock *openpixels(window w, const pixelbox &frame, intptr_t behind = BEHINDSAME);

// A maximised window is as it was before.
void restorewindow(window w);

// openwindow, the frame kept to the work area of its screen: smaller where it must
// be, and moved inside. The state becomes what the window then has.
errorblock *openinside(windowstaterecord *state);

// Reads it; state->self need not be set.
errorblock *windowstate(window w, windowstaterecord *state);
errorblock *windowinfo(window w, windowinforecord *info);

// Hides the window, and tells its dependants.
errorblock *closewindow(window w);
// Tells its dependants, and destroys it.
errorblock *deletewindow(window w);
// Both, for a word that isn't 0, which is set to 0. The close's error wins.
errorblock *removewindow(window *w);

// Marks a rectangle of the work area for painting, or all that is visible.
errorblock *forceredraw(window w, int32_t x0, int32_t y0, int32_t x1, int32_t y1);
errorblock *redrawall(window w);

// The extent, such as 0, -height, width, 0; sets the scroll bars by it.
errorblock *setextent(window w, int32_t xmin, int32_t ymin, int32_t xmax, int32_t ymax);

// The height of a list's rows for an extent, which has a limit: rows behind it are out
// of reach.
constexpr int32_t EXTENTMOST = 0x3FFFFFFF;
constexpr int32_t rowsextent(int32_t rows, int32_t rowheight)
{
    int64_t height = static_cast<int64_t>(rows) * rowheight;
    return height < EXTENTMOST ? static_cast<int32_t>(height) : EXTENTMOST;
}
struct extentrecord {
    window self;
    int32_t xmin, ymin, xmax, ymax;
};
errorblock *getextent(extentrecord *record); // of record->self

// Move the view; positions are limited to the extent. y counts downward from 0.
errorblock *setscrollx(window w, int32_t position);
errorblock *setscrolly(window w, int32_t position);
// The same with work-area places, as in a state: y is 0 or negative.
errorblock *scrollto(window w, int32_t x, int32_t y);

// Whether the system offers the window the files that are dropped on it. Without
// this no drop handler of the window is ever asked.
errorblock *setdrops(window w, bool on);

errorblock *setflags(window w, uint32_t set, uint32_t clear);
errorblock *getflags(window w, uint32_t *flags);

// A colour word, of which the low byte tells how to read it: 0 the system's own
// erase, 1 the rest is the colour with blue on top, 2 to 17 a standard colour,
// 18 to 254 a system colour plus 18, 255 nothing is painted.
constexpr uint32_t BACKGROUNDWHITE = 0xFFFFFF01;
errorblock *setbackground(window w, uint32_t colour);

// The frame on the screen.
errorblock *windowoutline(window w, osbox *box);

// Puts the state's rectangle in the middle of the screen, the nth of a cascade.
void centrestate(windowstaterecord *state, int32_t n);
errorblock *opencentred(window w, int32_t n);

// Brings it to the front and calls back, if callback isn't 0.
errorblock *raisewindow(window w, intptr_t data,
                        errorblock *(*callback)(window, intptr_t, windowstaterecord *));

// Tokens of the text are expanded, to at most 1024 bytes.
errorblock *settitle(window w, const char *text);
errorblock *setactive(window w);

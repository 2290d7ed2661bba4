// tests/desktop/win32/eventwindow.h - a window from a template, on the screen and
// with the focus, whose handlers write down what they are given.
#pragma once

#include "tests/support/driver.h"

#include <string>

// Templates of tests.rc: one with controls, one without, one with both bars, one
// with a control of each kind.
constexpr int32_t EVENTCONTROLS = 100, EVENTPLAIN = 101, EVENTSCROLLS = 102, EVENTICONS = 103;

// Controls of the first.
constexpr int32_t EVENTFIELD = 10, EVENTBUTTON = 11, EVENTDRAWN = 12, EVENTDISABLED = 13,
                  EVENTFIELD2 = 14;

// Controls of the last.
constexpr int32_t ICONFIELD = 30, ICONTICK = 31, ICONBOX = 32, ICONROWS = 33, ICONLIST = 34,
                  ICONARROWS = 35, ICONDIGITS = 36, ICONDRAWN = 37, ICONLABEL = 38, ICONBUTTON = 39;

// What handlers have said since the last call.
void said(const char *format, ...) __attribute__((format(gnu_printf, 1, 2)));
std::string taken();

// The library as it is at start-up, as long as the object stands. At its end no
// window, block, timed call, press or drag may be left.
struct eventlibrary {
    eventlibrary();
    ~eventlibrary();
};

// The window and its handlers of events go with the object.
struct eventwindow {
    eventlibrary library;
    window w;     // 0 once a test has deleted it
    window shown; // the same, for good

    explicit eventwindow(int32_t number);
    ~eventwindow();
};

// The pointer put at a place of the screen, or at an offset from the top left of a
// window's client area.
void moveto(driveplace place);
void pointat(window w, int x, int y);

// Another one, at the left edge of the screen plus an offset, in pixels.
window eventopen(int32_t number, int left, window parent = 0);

// Handlers that tell of all they get, with their data in front.
errorblock *tellclick(window, intptr_t data, mouserecord *mouse);
errorblock *tellmouse(window, intptr_t data, mouserecord *mouse);
errorblock *tellkey(window, intptr_t data, int32_t icon, int32_t *code);

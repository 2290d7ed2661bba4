// tests/desktop/win32/script.h - windows whose handlers write down what they are
// given, and cases as rows: do this, and that is heard of it.
//
// What a row does is words, several of them parted by ';': the verbs are in
// script.cpp, such as "at 200 100; press; by 3 0; release" or "key C_F5". Those
// with a '?' write down a state. Names of handlers are in its other table, such as
// "click" and "key", with a digit behind for their data: what they hear is noted
// under that name.
#pragma once

#include "desktop/windows.h"
#include "tests/support/driver.h"

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>

// Templates of tests.rc: one with controls, one without, one with both bars, one
// with a control of each kind.
constexpr int32_t CONTROLS = 100, PLAIN = 101, SCROLLS = 102, ICONS = 103;

// Controls of the first.
constexpr int32_t FIELD = 10, BUTTON = 11, DRAWN = 12, DISABLED = 13, FIELD2 = 14;

// Controls of the last.
constexpr int32_t ICONFIELD = 30, ICONTICK = 31, ICONBOX = 32, ICONROWS = 33, ICONLIST = 34,
                  ICONARROWS = 35, ICONDIGITS = 36, ICONDRAWN = 37, ICONLABEL = 38, ICONBUTTON = 39;

inline HWND handleof(window w)
{
    return reinterpret_cast<HWND>(w);
}

// What handlers have said since the last call.
void said(const char *format, ...) __attribute__((format(gnu_printf, 1, 2)));
std::string taken();

// The library as it is at start-up, as long as the object stands. At its end the
// windows go that are left, and no block, timed call, press or drag may be.
struct library {
    library();
    ~library();
};

// A hidden window of any style, without a template. Frames of a popup are the
// system's own, without a window manager.
window taskwindow(DWORD style, window parent = 0);

// Opens one with a client area at a place of the screen, in pixels.
void taskopen(window w, int32_t left, int32_t top, int32_t width, int32_t height,
              intptr_t behind = BEHINDSAME);
windowstaterecord taskstate(window w);

// Of a template, 300 by 200 pixels, on the screen and with the focus.
window templatewindow(int32_t number, int left, window parent = 0);

// The client area in pixels of the screen.
RECT taskclient(window w);
HWND taskcontrol(window w, int32_t icon);

// A test that makes one runs twice, on a screen of 96 and on one of 144 dots to the
// inch, by which windows are placed and work areas measured. It has no subcases of
// its own.
struct bothscreens {
    bothscreens();
    ~bothscreens();
};

// What is heard may go on where it ends in '*'.
struct scriptrow {
    const char *acts;
    std::string heard;
    std::function<void()> call = {}; // after the acts, where words have none
};

// The window that rows speak of, and another for them. Handlers go with the object.
struct script {
    library started;
    window w, shown; // w is 0 once it has gone, shown the same for good
    window other = 0;
    driveplace place = {}; // where the pointer was put last

    explicit script(int32_t number = CONTROLS, const char *handlers = "");
    ~script();
    void play(std::initializer_list<scriptrow> rows);
    std::string act(const std::string &acts); // what is heard of them
};

// A handler of clicks that rows add as "calls": what it does.
extern std::function<errorblock *(mouserecord *)> onclick;

// Called with each thing that a handler has written down.
extern std::function<void(const std::string &)> onheard;

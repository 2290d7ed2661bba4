// tests/desktop/win32/drawncontrol.h - a window with one drawn control, and what
// that ought to look like, drawn by the system's own calls.
#pragma once

#include "tests/desktop/win32/eventwindow.h"
#include "tests/support/driver.h"

#include <windows.h>

#include <functional>
#include <string>

constexpr int32_t DRAWN = 20;                      // its number
constexpr int DRAWNWIDTH = 60, DRAWNHEIGHT = 40;   // its size, in pixels
constexpr COLORREF DRAWNBEHIND = RGB(0, 200, 200); // of the window

// The window is there as long as the object; make replaces its control. Controls
// have a font of their own.
struct drawncontrol : eventwindow {
    HFONT font;
    HWND control = nullptr;

    drawncontrol();
    ~drawncontrol();
    void make(const char *string, DWORD style = 0, driveplace at = {20, 30});
    void size(int width, int height);
    drivepicture look();
};

// A picture of that size, in the colour of buttons and then as drawn; the context
// has the font, and draws texts with nothing behind them.
using drawing = std::function<void(HDC)>;
drivepicture drawn(int width, int height, HFONT font, const drawing &draw);

// "" for pictures that are alike, or how and where they differ.
std::string difference(const drivepicture &seen, const drivepicture &expected);

// Parts of drawings. align is the system's.
void drawfill(HDC dc, RECT box, COLORREF colour);
void drawtext(HDC dc, int x, int y, const char *text, COLORREF colour, UINT align = 0);
int textheight(HDC dc);

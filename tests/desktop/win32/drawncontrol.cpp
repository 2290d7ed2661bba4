#include "tests/desktop/win32/drawncontrol.h"

#include "desktop/redraw.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/taskwindows.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <cstring>

drawncontrol::drawncontrol() : eventwindow(EVENTPLAIN)
{
    font = CreateFontA(-13, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0, NONANTIALIASED_QUALITY,
                       0, "Arial");
    REQUIRE(font);
    REQUIRE_FALSE(setbackground(w, static_cast<uint32_t>(DRAWNBEHIND) << 8 | 1));
    drivemove(0, 0);
}

drawncontrol::~drawncontrol()
{
    if (control) DestroyWindow(control);
    DeleteObject(font);
}

void drawncontrol::make(const char *string, DWORD style, driveplace at)
{
    if (control) DestroyWindow(control);
    control = CreateWindowExA(0, "abx", string, WS_CHILD | style, at.x, at.y, DRAWNWIDTH,
                              DRAWNHEIGHT, taskhandle(w), reinterpret_cast<HMENU>(INT_PTR{DRAWN}),
                              GetModuleHandleA(nullptr), nullptr);
    REQUIRE(control);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    ShowWindow(control, SW_SHOW);
    drivepump();
}

void drawncontrol::size(int width, int height)
{
    SetWindowPos(control, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    drivepump();
}

drivepicture drawncontrol::look()
{
    drivepump();
    return drivelook(reinterpret_cast<window>(control));
}

drivepicture drawn(int width, int height, HFONT font, const drawing &draw)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void *bits;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    REQUIRE(bitmap);
    int saved = SaveDC(dc);
    SelectObject(dc, bitmap);
    SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    drawfill(dc, {0, 0, width, height}, GetSysColor(COLOR_BTNFACE));
    draw(dc);
    GdiFlush();
    drivepicture picture = {width, height, {}};
    picture.pixels.resize(static_cast<size_t>(width) * height);
    std::memcpy(picture.pixels.data(), bits, picture.pixels.size() * sizeof(uint32_t));
    for (uint32_t &pixel : picture.pixels)
        pixel &= 0xFFFFFF;
    RestoreDC(dc, saved);
    DeleteDC(dc);
    DeleteObject(bitmap);
    return picture;
}

std::string difference(const drivepicture &seen, const drivepicture &expected)
{
    if (seen.width != expected.width || seen.height != expected.height) return "another size";
    char first[64] = "";
    int count = 0;
    for (int y = 0; y < seen.height; y++)
        for (int x = 0; x < seen.width; x++) {
            if (seen.at(x, y) == expected.at(x, y)) continue;
            if (count++) continue;
            snprintf(first, sizeof first, "%d,%d: %06x, not %06x", x, y,
                     static_cast<unsigned>(seen.at(x, y)),
                     static_cast<unsigned>(expected.at(x, y)));
        }
    return count ? std::to_string(count) + " pixels from " + first : "";
}

void drawfill(HDC dc, RECT box, COLORREF colour)
{
    HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &box, brush);
    DeleteObject(brush);
}

void drawtext(HDC dc, int x, int y, const char *text, COLORREF colour, UINT align)
{
    SetTextColor(dc, colour);
    SetTextAlign(dc, align);
    TextOutA(dc, x, y, text, static_cast<int>(std::strlen(text)));
}

int textheight(HDC dc)
{
    TEXTMETRICA metrics;
    GetTextMetricsA(dc, &metrics);
    return metrics.tmHeight;
}

#include "base/trace.h"

#include <windows.h>

void tracepaint(int y, const char *text, int length)
{
    HDC screen = GetDC(nullptr);
    SelectObject(screen, GetStockObject(SYSTEM_FONT));
    SetTextColor(screen, RGB(0, 0, 0));
    SetBkColor(screen, RGB(255, 255, 255));
    TextOutA(screen, 0, y, text, length);
    ReleaseDC(nullptr, screen);
}

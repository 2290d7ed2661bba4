#include "base/trace.h"

#include <windows.h>

// The console comes into being with the first line and stays.
static HANDLE console()
{
    static HANDLE output = [] {
        FreeConsole();
        AllocConsole();
        return GetStdHandle(STD_OUTPUT_HANDLE);
    }();
    return output;
}

// A trace must not disturb what it watches: what the system last reported is
// still there for whoever asks.
void tracewrite(const char *text, int length)
{
    DWORD reported = GetLastError();
    DWORD written;
    WriteConsoleA(console(), text, static_cast<DWORD>(length), &written, nullptr);
    SetLastError(reported);
}

void tracewritew(const wchar_t *text, int length)
{
    DWORD reported = GetLastError();
    DWORD written;
    WriteConsoleW(console(), text, static_cast<DWORD>(length), &written, nullptr);
    SetLastError(reported);
}

void tracepaint(int y, const char *text, int length)
{
    DWORD reported = GetLastError();
    HDC screen = GetDC(nullptr);
    SelectObject(screen, GetStockObject(SYSTEM_FONT));
    SetTextColor(screen, RGB(0, 0, 0));
    SetBkColor(screen, RGB(255, 255, 255));
    TextOutA(screen, 0, y, text, length);
    ReleaseDC(nullptr, screen);
    SetLastError(reported);
}

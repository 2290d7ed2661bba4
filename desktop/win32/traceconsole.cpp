#include "base/trace.h"

#include <windows.h>

// The console comes into being with the first line and stays. Its code page is
// that of our texts, not that of the system's oldest programs.
static HANDLE console()
{
    static HANDLE output = [] {
        FreeConsole();
        AllocConsole();
        SetConsoleOutputCP(1252);
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

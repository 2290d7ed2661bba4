#include "base/trace.h"

#include <windows.h>

// For whoever wants to read it: it doesn't cover the program or take its keys, and
// has no close box, which would end the program with the work that is in it.
static void consoleaside()
{
    HWND w = GetConsoleWindow();
    if (!w) return;
    ShowWindow(w, SW_SHOWMINNOACTIVE);
    DeleteMenu(GetSystemMenu(w, FALSE), SC_CLOSE, MF_BYCOMMAND);
}

// Ctrl+C, Ctrl+Break and their like would end the program with unsaved work.
static BOOL WINAPI breakignored(DWORD)
{
    return TRUE;
}

// While a text is selected in it, by a mere click, the next line would wait, and the
// program with it.
static void consoleharmless()
{
    SetConsoleCtrlHandler(breakignored, TRUE);
    HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    DWORD mode;
    if (GetConsoleMode(input, &mode))
        SetConsoleMode(input, (mode | ENABLE_EXTENDED_FLAGS) & ~DWORD{ENABLE_QUICK_EDIT_MODE});
}

// The console comes into being with the first line and stays. Its code page is
// that of our texts, not that of the system's oldest programs.
static HANDLE console()
{
    static HANDLE output = [] {
        FreeConsole();
        AllocConsole();
        consoleaside();
        consoleharmless();
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

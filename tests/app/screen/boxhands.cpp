#include "tests/app/screen/boxhands.h"

#include "tests/support/driver.h"

#include <windows.h>

namespace
{

constexpr int QUESTION = 12;

HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

// The main window may have the same title and class, but no such text.
BOOL CALLBACK questionmatch(HWND h, LPARAM found)
{
    DWORD process = 0;
    GetWindowThreadProcessId(h, &process);
    char title[16] = "";
    GetWindowTextA(h, title, sizeof title);
    if (process != GetCurrentProcessId() || !IsWindowVisible(h) || !GetDlgItem(h, QUESTION) ||
        std::string(title) != "Quillmere")
        return TRUE;
    *reinterpret_cast<HWND *>(found) = h;
    return FALSE;
}

window questionfind()
{
    HWND found = nullptr;
    EnumWindows(questionmatch, reinterpret_cast<LPARAM>(&found));
    return reinterpret_cast<window>(found);
}

void answergive(window box, int answer)
{
    if (answer == ANSWERESCAPE)
        drivekey(VK_ESCAPE);
    else
        driveiconclick(box, answer);
}

} // namespace

std::string complaint(const std::function<void()> &work)
{
    std::string text = drivebox(IDOK, work);
    drivepump();
    return text;
}

std::string questionanswer(int answer, const std::function<void()> &work)
{
    std::string text;
    driveaside(work, [&] {
        window box = 0;
        if (!drivewait([&] { return (box = questionfind()) != 0; })) return;
        text = drivetext(box, QUESTION);
        drivefront(box);
        answergive(box, answer);
        if (drivewait([] { return !questionfind(); })) return;
        text += " (not answered)";
        PostMessageA(handle(box), WM_CLOSE, 0, 0);
    });
    drivepump();
    return text;
}

#include "tests/support/driver.h"

#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "tests/support/hands.h"

#include <windows.h>

#include <commdlg.h>

#include <atomic>
#include <thread>

static const DWORD mainthread = GetCurrentThreadId();

static bool onmain()
{
    return GetCurrentThreadId() == mainthread;
}

static HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

uint32_t driveprocess()
{
    return GetCurrentProcessId();
}

// The window's own thread needs time for each input; the other thread gives it
// some.
void drivesettle()
{
    if (onmain())
        drivepump();
    else
        Sleep(30);
}

// Timers that go on for ever, such as a caret's and, under Wine, that of a button
// which the pointer rests on, are no sign of anything left to do.
static bool ticking(UINT message)
{
    constexpr UINT SYSTIMER = 0x118; // which the headers don't name
    return message == WM_TIMER || message == SYSTIMER;
}

static errorblock *nothing(intptr_t)
{
    return nullptr;
}

// A hook may swallow the message that was seen, and the poll would wait for the
// next one.
static void pollseen()
{
    bool hooked = findblock(EVENTHOOK, BLOCKANY, BLOCKANY, BLOCKANY, nullptr) != -1;
    if (hooked) addnullhandler(nothing, 0);
    pollonce();
    if (hooked) remnullhandler(nothing, 0);
}

void drivepump(int quiet)
{
    DWORD last = GetTickCount();
    for (;;) {
        MSG m;
        if (PeekMessageA(&m, nullptr, 0, 0, PM_NOREMOVE)) {
            pollseen();
            if (!ticking(m.message)) {
                last = GetTickCount();
                continue;
            }
        }
        DWORD gone = GetTickCount() - last;
        if (gone >= static_cast<DWORD>(quiet)) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(quiet) - gone, QS_ALLINPUT);
    }
}

bool drivewait(const std::function<bool()> &condition, int milliseconds)
{
    DWORD start = GetTickCount();
    do {
        if (condition()) return true;
        if (onmain())
            drivepump(10);
        else
            Sleep(10);
    } while (GetTickCount() - start < static_cast<DWORD>(milliseconds));
    return condition();
}

void driveaside(const std::function<void()> &work, const std::function<void()> &script)
{
    std::atomic<bool> ended = false;
    std::thread other([&] {
        script();
        ended = true;
    });
    work();
    while (!ended)
        drivepump(10);
    other.join();
}

namespace
{

// Of a box that has just come up: its parts need a moment to be there.
std::string boxtext(HWND box)
{
    for (int tries = 0; tries < 100; tries++) {
        HWND label = GetDlgItem(box, 0xFFFF);
        char text[1024] = "";
        if (label && SendMessageA(label, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text)))
            return text;
        Sleep(10);
    }
    return "";
}

void boxpress(HWND box, int button)
{
    PostMessageA(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
}

// While work runs, hands the box of the system that comes up to script: whether
// one did before work was over.
bool boxaside(const std::function<void()> &work, const std::function<void(HWND)> &script)
{
    std::atomic<bool> worked = false;
    bool found = false;
    auto wait = [&] {
        HWND box = nullptr;
        DWORD start = GetTickCount();
        while (!box && !worked && GetTickCount() - start < 10000) {
            box = handle(drivefind("", "#32770"));
            if (!box) Sleep(10);
        }
        found = box;
        if (!box) return;
        drivefront(reinterpret_cast<window>(box));
        script(box);
    };
    driveaside(
        [&] {
            work();
            worked = true;
        },
        wait);
    return found;
}

} // namespace

std::string drivebox(int button, const std::function<void()> &work)
{
    std::string text;
    boxaside(work, [&](HWND box) {
        text = boxtext(box);
        // A box with OK alone calls its button Cancel.
        boxpress(box, GetDlgItem(box, button) ? button : IDCANCEL);
    });
    return text;
}

bool drivefilebox(const std::string &path, int row, bool ok, const std::function<void()> &work)
{
    return boxaside(work, [&](HWND box) {
        Sleep(100); // its own first messages
        constexpr int types = 0x470, name = 0x480, names = 0x47C;
        HWND typelist = GetDlgItem(box, types);
        if (row && typelist) {
            SendMessageA(typelist, CB_SETCURSEL, static_cast<WPARAM>(row - 1), 0);
            SendMessageA(box, WM_COMMAND, MAKEWPARAM(types, CBN_SELENDOK),
                         reinterpret_cast<LPARAM>(typelist));
            Sleep(50);
        }
        for (int control : {names, name})
            if (HWND edit = GetDlgItem(box, control); edit && !path.empty())
                SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
        boxpress(box, ok ? IDOK : IDCANCEL);
    });
}

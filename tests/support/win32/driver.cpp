#include "tests/support/driver.h"

#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"

#include <windows.h>

#include <commdlg.h>

#include <atomic>
#include <thread>

static const DWORD mainthread = GetCurrentThreadId();

static bool onmain()
{
    return GetCurrentThreadId() == mainthread;
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

static void pausehere(int quiet)
{
    if (onmain())
        drivepump(quiet);
    else
        Sleep(static_cast<DWORD>(quiet) * 3 / 2);
}

// Before any hand moves.
[[maybe_unused]] static const bool chosen = (drivepause = pausehere, true);

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

// While work runs, hands the box of the system that comes up to script: whether one
// did before work was over.
static bool boxaside(const std::function<void()> &work, const std::function<void(window)> &script)
{
    std::atomic<bool> worked = false;
    window box = 0;
    driveaside(
        [&] {
            work();
            worked = true;
        },
        [&] {
            drivewait([&] { return (box = drivefind("", "#32770")) != 0 || worked; }, 10000);
            if (box) script(driveboxwait());
        });
    return box != 0;
}

std::string drivebox(int button, const std::function<void()> &work)
{
    std::string text;
    boxaside(work, [&](window box) {
        text = driveboxtext(box);
        driveboxanswer(box, button);
    });
    return text;
}

bool drivefilebox(const std::string &path, int row, bool ok, const std::function<void()> &work)
{
    return boxaside(work, [&](window box) {
        Sleep(100); // its own first messages
        driveboxfile(box, path, row);
        driveboxanswer(box, ok ? IDOK : IDCANCEL);
    });
}

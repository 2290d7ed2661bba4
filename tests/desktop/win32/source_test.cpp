// The event source over the real message queue of this thread, and what is
// drawn straight on the screen.
#include "desktop/eventsource.h"

#include "base/boxes.h"
#include "base/trace.h"
#include "desktop/blocks.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/timed.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <vector>

namespace
{

struct left {
    int status;
};

void leavethrown(int status)
{
    throw left{status};
}

std::vector<systemmessage> seen;
int fired, quits;

errorblock *see(const systemmessage *message, intptr_t, int *, intptr_t *, int *)
{
    seen.push_back(*message);
    return nullptr;
}

errorblock *fire(intptr_t)
{
    fired++;
    return nullptr;
}

errorblock *quit(intptr_t *, int *)
{
    quits++;
    return nullptr;
}

errorblock *idle(intptr_t)
{
    return nullptr;
}

void start()
{
    seen.clear();
    fired = quits = 0;
    REQUIRE(blockstart() == nullptr);
}

} // namespace

TEST_CASE("messages come whole and in order, looked for or waited for")
{
    start();
    addpollfilter(see, -1, -1, 0);
    PostThreadMessageA(GetCurrentThreadId(), WM_APP, 11, -12);
    PostThreadMessageA(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    pollonce();
    addnullhandler(idle, 0);
    pollonce();
    pollonce(); // there is none, and it comes back
    REQUIRE(seen.size() == 2);
    CHECK(seen[0].window == 0);
    CHECK(seen[0].message == WM_APP);
    CHECK(seen[0].wparam == 11);
    CHECK(seen[0].lparam == -12);
    CHECK(seen[1].message == WM_APP + 1);
}

TEST_CASE("the quit notice ends the process behind its broadcast")
{
    start();
    setleave(leavethrown);
    addbroadcasthandler(quit, BROADCASTQUIT);
    SUBCASE("waited for") {}
    SUBCASE("looked for")
    {
        addnullhandler(idle, 0);
    }
    postquit(5);
    int status = -1;
    try {
        pollonce();
    } catch (const left &l) {
        status = l.status;
    }
    CHECK(status == 0);
    CHECK(quits == 1);
}

TEST_CASE("timed calls wake the wait, once each")
{
    start();
    DWORD start = GetTickCount();
    addtimedcall(fire, 1, 10);
    addtimedcall(fire, 2, 20);
    while (timedcount() > 0)
        pollonce();
    DWORD took = GetTickCount() - start;
    CHECK(fired == 2);
    CHECK(took >= 180); // centiseconds are cut, and so are the system's ticks
    CHECK(took < 5000);

    // No timer is left to wake anyone.
    Sleep(50);
    MSG m;
    CHECK_FALSE(PeekMessageA(&m, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST_CASE("a control's way up to its window, and down to it")
{
    HWND frame =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 100, 50, nullptr, nullptr, nullptr, nullptr);
    HWND edit = CreateWindowA("EDIT", "", WS_CHILD, 0, 0, 90, 20, frame, reinterpret_cast<HMENU>(7),
                              nullptr, nullptr);
    auto w = reinterpret_cast<window>(frame), control = reinterpret_cast<window>(edit);
    CHECK(sourcecontrol(w, 7) == control);
    CHECK(sourceparent(control) == w);
    CHECK(sourceparent(w) == 0);
    DestroyWindow(frame);
}

TEST_CASE("the mouse hook can be had and given back")
{
    CHECK(sourcehook(true) == nullptr);
    CHECK(sourcehook(false) == nullptr);
    CHECK(sourcehook(false) != nullptr); // there is none now
}

TEST_CASE("a trace straight on the screen, black on white")
{
    HDC screen = GetDC(nullptr);
    SelectObject(screen, GetStockObject(SYSTEM_FONT));
    SIZE size;
    GetTextExtentPoint32A(screen, "\xDF 7|", 4, &size);
    PatBlt(screen, 0, 0, 200, 100, DSTINVERT); // whatever was there is another colour
    tracescreen(5, "%c %d|", 0xDF, 7);

    int black = 0, white = 0, others = 0;
    for (int x = 0; x < size.cx; x++)
        for (int y = 50; y < 50 + size.cy; y++) {
            COLORREF c = GetPixel(screen, x, y);
            (c == 0 ? black : c == 0xFFFFFF ? white : others)++;
        }
    CHECK(others == 0);
    CHECK(black > 20);
    CHECK(white > black);
    ReleaseDC(nullptr, screen);
}

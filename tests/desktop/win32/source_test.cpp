// The event source over the real message queue of this thread, and what is drawn
// straight on the screen.
#include "desktop/eventsource.h"

#include "base/boxes.h"
#include "base/trace.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/timed.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

namespace
{

errorblock *see(const systemmessage *m, intptr_t, truth *, intptr_t *, int *)
{
    said("%d %d %d;", static_cast<int>(m->message), static_cast<int>(m->wparam),
         static_cast<int>(m->window + m->lparam));
    return nullptr;
}

errorblock *idle(intptr_t)
{
    return nullptr;
}

} // namespace

TEST_CASE("messages come whole and in order, looked for or waited for; timed calls wake the wait")
{
    library started;
    addpollfilter(see, -1, -1, 0);
    PostThreadMessageA(GetCurrentThreadId(), WM_APP, 11, -12);
    PostThreadMessageA(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    pollonce();
    addnullhandler(idle, 0);
    pollonce();
    pollonce(); // there is none, and it comes back
    CHECK(taken() == "32768 11 -12;32769 0 0;");
    remnullhandler(idle, 0);
    rempollfilter(see, -1, -1, 0);

    DWORD start = GetTickCount();
    addtimedcall(idle, 2, 10);
    while (timedcount() > 0)
        pollonce();
    DWORD took = GetTickCount() - start;
    CHECK((took >= 80 && took < 5000)); // centiseconds are cut, and so are ticks
    MSG m;
    CHECK_FALSE(PeekMessageA(&m, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE)); // no timer is left
}

TEST_CASE("the quit notice ends the process behind its broadcast")
{
    broadcastfunction quit = [](intptr_t *, truth *) -> errorblock * {
        said("quits;");
        return nullptr;
    };
    library started;
    setleave([](int status) { throw status; });
    addbroadcasthandler(quit, BROADCASTQUIT);
    postquit(5);
    int left = -1;
    try {
        pollonce();
    } catch (int status) {
        left = status;
    }
    CHECK((left == 0 && taken() == "quits;"));
    rembroadcasthandler(quit, BROADCASTQUIT);
}

TEST_CASE("a trace straight on the screen, black on white")
{
    HDC screen = GetDC(nullptr);
    PatBlt(screen, 0, 0, 200, 100, DSTINVERT); // whatever was there is another colour
    tracescreen(5, "%c %d|", 0xDF, 7);
    int black = 0, white = 0;
    for (int x = 0; x < 20; x++)
        for (int y = 50; y < 62; y++) {
            black += GetPixel(screen, x, y) == 0;
            white += GetPixel(screen, x, y) == 0xFFFFFF;
        }
    CHECK((black + white == 20 * 12 && black > 20 && white > black));
    ReleaseDC(nullptr, screen);
}

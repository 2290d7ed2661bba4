// The event source over the real message queue of this thread, and what is
// drawn straight on the screen.
#include "desktop/eventsource.h"

#include "base/boxes.h"
#include "base/trace.h"
#include "desktop/blocks.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/subclass.h"
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

errorblock *closebox(intptr_t)
{
    fired++;
    if (HWND box = FindWindowA("#32770", "A box of the test"))
        PostMessageA(box, WM_COMMAND, IDCANCEL, 0);
    else
        addtimedcall(closebox, 0, 5);
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

// What a control is sent, with 1 typed as 2.
errorblock *keysdoubled(const systemmessage *message, intptr_t, int *stop, intptr_t *result)
{
    if (message->message != WM_CHAR || message->wparam != '1') return nullptr;
    auto control = reinterpret_cast<HWND>(message->window);
    CallWindowProcA(reinterpret_cast<WNDPROC>(blockat(0).subtype), control, WM_CHAR, '2', 0);
    *stop = 1;
    *result = 17;
    return nullptr;
}

std::string textof(HWND w)
{
    char text[64];
    GetWindowTextA(w, text, sizeof text);
    return text;
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

TEST_CASE("timed calls go on in a box of the system")
{
    start();
    addtimedcall(closebox, 0, 10);
    int answer = boxshow(0, "Closed by a timed call", "A box of the test", BOXOKCANCEL);
    CHECK(answer == IDCANCEL);
    CHECK(fired > 0);
}

TEST_CASE("a subclassed control, and a control's way up to its window")
{
    start();
    HWND frame =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 100, 50, nullptr, nullptr, nullptr, nullptr);
    HWND edit = CreateWindowA("EDIT", "", WS_CHILD, 0, 0, 90, 20, frame, reinterpret_cast<HMENU>(7),
                              nullptr, nullptr);
    auto w = reinterpret_cast<window>(frame), control = reinterpret_cast<window>(edit);
    CHECK(sourcecontrol(w, 7) == control);
    CHECK(sourceparent(control) == w);
    CHECK(sourceparent(w) == 0);
    LONG_PTR own = GetWindowLongPtrA(edit, GWLP_WNDPROC);

    addsubclasshandler(w, 7, 0, keysdoubled);
    CHECK(GetWindowLongPtrA(edit, GWLP_WNDPROC) != own);
    CHECK(SendMessageA(edit, WM_CHAR, '1', 0) == 17);
    SendMessageA(edit, WM_CHAR, '3', 0);
    CHECK(textof(edit) == "23");
    remsubclasshandler(w, 7, 0, keysdoubled);
    CHECK(GetWindowLongPtrA(edit, GWLP_WNDPROC) == own);
    SendMessageA(edit, WM_CHAR, '1', 0);
    CHECK(textof(edit) == "231");
    DestroyWindow(frame);
}

TEST_CASE("a poll moves the caret of a control by its characters")
{
    start();
    addnullhandler(idle, 0);
    HWND edit =
        CreateWindowA("EDIT", "", WS_POPUP, 0, 0, 90, 20, nullptr, nullptr, nullptr, nullptr);
    PostMessageA(edit, WM_KEYDOWN, 'A', 0x1E0001); // translated into a character
    PostMessageA(edit, WM_CHAR, 'z', 0);
    for (int i = 0; i < 20; i++)
        pollonce();
    CHECK(textof(edit) == "za"); // what was made from the press came last
    DestroyWindow(edit);
}

TEST_CASE("the mouse hook can be had and given back")
{
    CHECK(sourcehook(true) == nullptr);
    CHECK(sourcehook(false) == nullptr);
    CHECK(sourcehook(false) != nullptr); // there is none now
    CHECK(sourceprocess() == GetCurrentProcessId());
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

// Events of windows, of wheels, of drops and of the system, from the message to
// the handler.
#include "desktop/events.h"

#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/timed.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <vector>

namespace
{

int number(intptr_t word)
{
    return static_cast<int>(word);
}

errorblock *tellopen(window, intptr_t data, openrecord *open)
{
    said("%d:%x at %d;", number(data), static_cast<unsigned>(open->message), open->state.yscroll);
    return nullptr;
}

errorblock *tellwheel(window, intptr_t claims, int32_t delta, int32_t, int horizontal, int *claimed)
{
    said("wheel %d %d;", delta, horizontal);
    *claimed = number(claims);
    return nullptr;
}

// A window with a work area of ten times its size, and where its view is.
struct scrollwindow : eventwindow {
    scrollwindow() : eventwindow(EVENTSCROLLS)
    {
        CHECK_FALSE(setextent(w, 0, -4000, 6000, 0));
        drivepump();
        pointat(w, 100, 100);
        taken();
    }
    windowstaterecord state()
    {
        return taskstate(w);
    }
};

} // namespace

TEST_CASE("a window that others move, size or show tells of it, and openwindow doesn't")
{
    eventwindow e(EVENTPLAIN);
    addopenhandler(tellopen, e.w, 1);
    addopenhandler(tellopen, e.w, 2);
    HWND h = taskhandle(e.w);
    taskopen(e.w, 250, 160, 320, 210);
    CHECK(taken() == "");
    SetWindowPos(h, nullptr, 260, 170, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    CHECK(taken() == "1:3 at 0;2:3 at 0;");
    SetWindowPos(h, nullptr, 0, 0, 330, 220, SWP_NOMOVE | SWP_NOZORDER);
    CHECK(taken() == "1:5 at 0;2:5 at 0;");
    ShowWindow(h, SW_HIDE);
    CHECK(taken() == "1:18 at 0;2:18 at 0;");
}

TEST_CASE("the bars move the view and tell where it is")
{
    scrollwindow s;
    addopenhandler(tellopen, s.w, 0);
    HWND h = taskhandle(s.w);
    SendMessageA(h, WM_VSCROLL, SB_PAGEDOWN, 0);
    int32_t page = -s.state().yscroll;
    CHECK(page > 100);
    CHECK(taken() == "0:115 at " + std::to_string(-page) + ";");
    SendMessageA(h, WM_VSCROLL, SB_BOTTOM, 0);
    taken();
    SendMessageA(h, WM_VSCROLL, SB_LINEDOWN, 0); // is there already
    CHECK(taken() == "");
    SendMessageA(h, WM_HSCROLL, SB_PAGEDOWN, 0);
    CHECK(s.state().xscroll > 100);
}

TEST_CASE("the wheel is the handler's first, and then the window's")
{
    scrollwindow s;
    addwheelhandler(tellwheel, s.w, 0);
    addwheelhandler(tellwheel, s.w, 1); // the second is never asked
    drivewheel(-120);
    drivewheel(120, true);
    CHECK(taken() == "wheel -120 0;wheel 120 1;");
    windowstaterecord before = s.state();
    CHECK(before.yscroll < 0);
    CHECK(before.xscroll > 0);
    remwheelhandler(tellwheel, s.w, 0);
    drivewheel(-120);
    drivewheel(120, true);
    CHECK(taken() == "wheel -120 0;wheel 120 1;");
    CHECK(s.state().yscroll == before.yscroll);
    CHECK(s.state().xscroll == before.xscroll);
}

TEST_CASE("a lost focus drops what a wheel has kept")
{
    scrollwindow s;
    drivewheel(-30);
    window other = eventopen(EVENTPLAIN, 700);
    removewindow(&other);
    SetForegroundWindow(taskhandle(s.w));
    drivepump(50);
    drivewheel(-30);
    CHECK(s.state().yscroll == 0);
    drivewheel(-10);
    CHECK(s.state().yscroll < 0);
}

TEST_CASE("a wheel over a window without a bar goes to the one inside that has one")
{
    eventwindow e(EVENTPLAIN);
    window pane = taskwindow(WS_CHILD | WS_VSCROLL, e.w);
    driveplace corner = driveclient(e.w, 20, 20);
    taskopen(pane, corner.x, corner.y, 150, 120, BEHINDTOP);
    setextent(pane, 0, -4000, 0, 0);
    drivepump();
    pointat(e.w, 250, 180);
    drivewheel(-120);
    CHECK(taskstate(pane).yscroll == 0);
    pointat(e.w, 70, 70);
    drivewheel(-120);
    CHECK(taskstate(pane).yscroll < 0);
    removewindow(&pane);

    // What a control doesn't want comes back to a window that was asked already.
    window around = eventopen(EVENTCONTROLS, 300);
    addwheelhandler(tellwheel, around, 0);
    moveto(driveicon(around, EVENTDRAWN));
    taken();
    drivewheel(-120);
    CHECK(taken() == "wheel -120 0;");
    remwheelhandler(tellwheel, around, 0);
    removewindow(&around);
}

TEST_CASE("the close box asks the first handler, and without one hides the window")
{
    closefunction close = [](window, intptr_t data) -> errorblock * {
        said("close %d;", number(data));
        return nullptr;
    };
    eventwindow e(EVENTPLAIN);
    addclosehandler(close, e.w, 1);
    addclosehandler(close, e.w, 2);
    SendMessageA(taskhandle(e.w), WM_CLOSE, 0, 0);
    CHECK(taken() == "close 1;");
    CHECK(IsWindowVisible(taskhandle(e.w)));
    remclosehandler(close, e.w, 2);
    remclosehandler(close, e.w, 1);
    SendMessageA(taskhandle(e.w), WM_CLOSE, 0, 0);
    CHECK_FALSE(IsWindowVisible(taskhandle(e.w)));
    CHECK(IsWindow(taskhandle(e.w)));
}

TEST_CASE("keys of a keyboard's extra row go to the first handler, with all they say")
{
    appcommandfunction command = [](window, intptr_t claims, window source, int32_t what,
                                    int32_t device, int32_t keys, int *claimed) -> errorblock * {
        said("%d %d %d %d;", source != 0, what, device, keys);
        *claimed = number(claims);
        return nullptr;
    };
    eventwindow e(EVENTPLAIN);
    LPARAM said1 = MAKELPARAM(MK_CONTROL, APPCOMMAND_BROWSER_HOME | FAPPCOMMAND_MOUSE);
    auto send = [&] {
        return SendMessageA(taskhandle(e.w), WM_APPCOMMAND,
                            reinterpret_cast<WPARAM>(taskhandle(e.w)), said1);
    };
    addappcommandhandler(command, e.w, 1);
    addappcommandhandler(command, e.w, 0);
    CHECK(send() == 1);
    CHECK(taken() == "1 7 32768 8;");
    remappcommandhandler(command, e.w, 1);
    CHECK(send() == 0);
    CHECK(taken() == "1 7 32768 8;");
}

namespace
{

errorblock *dropask(const char *name, int32_t filetype, mouserecord *mouse, intptr_t data,
                    int *accept)
{
    const char *leaf = strrchr(name, '\\');
    said("%d ask %s %x on %d, buttons %d;", number(data), leaf ? leaf + 1 : name,
         static_cast<unsigned>(filetype), number(mouse->icon), number(mouse->buttons));
    *accept = 1;
    return nullptr;
}

errorblock *dropload(const char *, int32_t filetype, intptr_t data, intptr_t zero)
{
    said("%d load %x %d;", number(data), static_cast<unsigned>(filetype), number(zero));
    return nullptr;
}

} // namespace

TEST_CASE("each dropped file is asked about where it fell, and loaded")
{
    eventwindow e(EVENTCONTROLS);
    adddrophandler(e.w, 1, dropask);
    adddroploadhandler(e.w, 2, dropload);
    auto drop = [&](const std::vector<std::string> &files, driveplace place) {
        drivedrop(e.w, files, place);
        return taken();
    };
    driveplace background = driveclient(e.w, 200, 120);
    CHECK(drop({"C:\\one.txt", "C:\\two.txt"}, background) ==
          "1 ask one.txt ffd on -1, buttons 0;2 load ffd 0;"
          "1 ask two.txt ffd on -1, buttons 0;2 load ffd 0;");
    CHECK(drop({"C:\\one.txt"}, driveicon(e.w, EVENTBUTTON)).find("on 11,") != std::string::npos);
    CHECK(drop({"C:\\windows"}, background).find("ask windows 1") == 2); // a folder
}

namespace
{

errorblock *pass(const systemmessage *message, intptr_t data, int *, intptr_t *, int *)
{
    if (message->message == WM_APP) said("%d;", number(data));
    return nullptr;
}

errorblock *stop(const systemmessage *message, intptr_t data, int *stopped, intptr_t *result,
                 int *kind)
{
    if (message->message != WM_APP) return nullptr;
    said("stop;");
    *stopped = 1;
    *result = data;
    *kind = data != 0;
    return nullptr;
}

} // namespace

TEST_CASE("all filters see a message, and one of them stops it with a result")
{
    eventwindow e(EVENTPLAIN);
    HWND h = taskhandle(e.w);
    addfilter(pass, -1, -1, 2);
    addfilter(pass, WM_APP, e.w, 1);
    CHECK(SendMessageA(h, WM_APP, 0, 0) == 0);
    CHECK(taken() == "1;2;");
    addfilter(stop, WM_APP, e.w, 77);
    CHECK(SendMessageA(h, WM_APP, 0, 0) == 77);
    CHECK(taken() == "1;stop;2;");
    remfilter(stop, WM_APP, e.w, 77);
    remfilter(pass, WM_APP, e.w, 1);
    remfilter(pass, -1, -1, 2);
}

TEST_CASE("what a filter of the poll stops reaches nothing else, and what is sent it never sees")
{
    eventwindow e(EVENTPLAIN);
    HWND h = taskhandle(e.w);
    addfilter(pass, WM_APP, e.w, 1);
    addpollfilter(stop, WM_APP, e.w, 0);
    PostMessageA(h, WM_APP, 0, 0);
    drivepump();
    CHECK(taken() == "stop;");
    SendMessageA(h, WM_APP, 0, 0);
    CHECK(taken() == "1;");
    rempollfilter(stop, WM_APP, e.w, 0);
    PostMessageA(h, WM_APP, 0, 0);
    drivepump();
    CHECK(taken() == "1;");
    remfilter(pass, WM_APP, e.w, 1);
}

TEST_CASE("the mouse hook sees a press before its window does, and can keep it")
{
    static bool keep;
    hookfunction hook = [](window, intptr_t data, window hooked, intptr_t, intptr_t message,
                           int *claimed) -> errorblock * {
        if (message == WM_LBUTTONDOWN) said("%d hook %d;", number(data), hooked != 0);
        *claimed = keep && (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP);
        return nullptr;
    };
    eventwindow e(EVENTPLAIN);
    addclickhandler(tellclick, e.w, 0);
    REQUIRE_FALSE(addhookhandler(hook, e.w, 1));
    REQUIRE_FALSE(addhookhandler(hook, e.w, 2));
    driveplace at = driveclient(e.w, 100, 100);
    keep = false;
    driveclick(at.x, at.y);
    CHECK(taken() == "1 hook 1;2 hook 1;4 on -1;");
    keep = true;
    driveclick(at.x + 30, at.y);
    CHECK(taken() == "1 hook 1;2 hook 1;");
    CHECK_FALSE(remhookhandler(hook, e.w, 2));
    CHECK_FALSE(remhookhandler(hook, e.w, 1));
    driveclick(at.x + 60, at.y);
    CHECK(taken() == "4 on -1;");
}

TEST_CASE("changes of the system are broadcast")
{
    broadcastfunction heard = [](intptr_t *record, int *) -> errorblock * {
        said("%x;", static_cast<unsigned>(record[BROADCASTNUMBER]));
        return nullptr;
    };
    eventwindow e(EVENTPLAIN);
    addbroadcasthandler(heard, BROADCASTSCREEN);
    addbroadcasthandler(heard, BROADCASTFONTS);
    SendMessageA(taskhandle(e.w), WM_FONTCHANGE, 0, 0);
    CHECK(taken() == "88000;");
    SendMessageA(taskhandle(e.w), WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
    CHECK(taken() == "9;");
    rembroadcasthandler(heard, BROADCASTFONTS);
    rembroadcasthandler(heard, BROADCASTSCREEN);
}

namespace
{

errorblock *again(intptr_t data)
{
    said("timed %d;", number(data));
    return data == 1 && timedcount() == 0 ? addtimedcall(again, 2, 1) : nullptr;
}

} // namespace

TEST_CASE("timed calls come from a loop of the system's too, in the order of their times")
{
    eventwindow e(EVENTPLAIN);
    REQUIRE_FALSE(addtimedcall(again, 1, 40));
    REQUIRE_FALSE(addtimedcall(again, 3, 3));
    REQUIRE_FALSE(addtimedcall(again, 3, 4)); // the same, later
    drivebox(IDOK, [] {
        MessageBoxA(nullptr, "text", "box", MB_OK);
        drivewait([] { return timedcount() == 0; }, 1000);
    });
    drivepump(50);
    CHECK(taken() == "timed 3;timed 1;timed 2;");
}

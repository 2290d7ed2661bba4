// Events of windows, of wheels and of time, from the message to the handler.
#include "desktop/handlers.h"
#include "desktop/timed.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

TEST_CASE("a window tells of what others do to it; its close box asks the first handler")
{
    script s(PLAIN, "open1 open2 close1 close2 focus1 focus2");
    s.play({
        {"", "", [&] { taskopen(s.w, 250, 160, 320, 210); }}, // by the program
        // A window manager may tell its own share of it once more.
        {"move 260 170; wait 50", "open1 3 0;open2 3 0;*"},
        {"size 330 220; wait 50", "open1 5 0;open2 5 0;*"},
        {"closebox; ?shown", "close1;1;"},
        {"another; ?front", "focus1 0;focus2 0;0;"},
        {"front; ?front", "focus1 1;focus2 1;1;"},
        {"rem close1; rem close2; closebox; ?shown", "open1 24 0;open2 24 0;*"},
    });
}

// Between the bars are 283 by 183 pixels, which are 531 by 343 units; a line is a tenth
// of that, a notch of the wheel three lines, in whole pixels.
TEST_CASE("bars and wheel move the view, if no handler of the wheel does")
{
    script s(SCROLLS, "wheel1 wheel2");
    REQUIRE_FALSE(setextent(s.w, 0, -4000, 6000, 0));
    s.play({
        {"add open; send vscroll 3; ?view", "open 277 -343;0 -343;"},
        {"send hscroll 3; ?view", "open 276 -343;531 -343;"},
        {"send vscroll 7; send vscroll 1", "open 277 -3656;"}, // is at the end already
        {"send vscroll 6; send hscroll 6; rem open; ?view", "open 277 0;open 276 0;0 0;"},
        {"at 100 100; wheel -120; hwheel 120; ?view", "wheel1 -120 0;wheel1 120 1;158 -101;"},
        {"let 1; wheel -120; hwheel 120; ?view", "wheel1 -120 0;wheel1 120 1;158 -101;"},
        // A lost focus drops what a wheel has kept.
        {"rem wheel1; rem wheel2; wheel -30; another; endother; front", ""},
        {"wheel -30; ?view; wheel -10; ?view", "158 -101;158 -135;"},
    });
}

TEST_CASE("a wheel goes to the window inside that has a bar, and to each window once")
{
    script s;
    window pane = taskwindow(WS_CHILD | WS_VSCROLL, s.w);
    taskopen(pane, 350, 240, 120, 100, BEHINDTOP);
    setextent(pane, 0, -4000, 0, 0);
    s.play({{"at 140 20; wheel -120", "", [&] { CHECK(taskstate(pane).yscroll == 0); }},
            {"at 200 130; wheel -120", "", [&] { CHECK(taskstate(pane).yscroll < 0); }},
            {"add wheel1; on 12; wheel -120", "wheel1 -120 0;"}});
}

TEST_CASE("timed calls come from a loop of the system's too, in the order of their times")
{
    static timedfunction again = [](intptr_t data) -> errorblock * {
        said("%d;", static_cast<int>(data));
        return data == 1 && timedcount() == 0 ? addtimedcall(again, 2, 1) : nullptr;
    };
    script s(PLAIN);
    REQUIRE_FALSE(addtimedcall(again, 1, 40));
    REQUIRE_FALSE(addtimedcall(again, 3, 3));
    REQUIRE_FALSE(addtimedcall(again, 3, 4)); // the same, later
    drivebox(IDOK, [] {
        MessageBoxA(nullptr, "text", "box", MB_OK);
        drivewait([] { return timedcount() == 0; }, 1000);
    });
    drivepump(50);
    CHECK(taken() == "3;1;2;");
}

// Windows of the system itself, placed and ended by the library.
#include "desktop/windows.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/wdata.h"
#include "desktop/windowinternal.h"
#include "desktop/windowplace.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace
{

constexpr DWORD BORDERED = WS_POPUP | WS_CAPTION | WS_THICKFRAME;

// The order of some windows of the screen, the uppermost first, by their place in
// the list given.
std::string order(std::initializer_list<window> windows)
{
    std::string found;
    for (HWND h = GetTopWindow(nullptr); h; h = GetWindow(h, GW_HWNDNEXT)) {
        char name = 'a';
        for (window w : windows) {
            if (taskhandle(w) == h) found += name;
            name++;
        }
    }
    return found;
}

errorblock *openbehind(window w, intptr_t behind)
{
    windowstaterecord state = taskstate(w);
    state.behind = behind;
    return openwindow(&state);
}

bool visible(window w)
{
    return IsWindowVisible(taskhandle(w));
}

void checkclient(window w, int32_t left, int32_t top, int32_t width, int32_t height)
{
    RECT client = taskclient(w);
    CHECK(client.left == left);
    CHECK(client.top == top);
    CHECK(tasksize(w).cx == width);
    CHECK(tasksize(w).cy == height);
}

} // namespace

TEST_CASE("a window opens with its client area where the state says, whatever its frame")
{
    bothscreens screens;
    for (DWORD style : {BORDERED, DWORD{WS_POPUP}, DWORD{WS_POPUP | WS_BORDER}}) {
        window w = taskwindow(style);
        CHECK_FALSE(visible(w));
        taskopen(w, 96, 144, 288, 192);
        CHECK(visible(w));
        checkclient(w, 96, 144, 288, 192);

        // By its state again, nothing moves; and the state says what was asked.
        windowstaterecord state = taskstate(w);
        CHECK(state.self == w);
        CHECK(state.x0 == devtoosx(96));
        CHECK(state.x1 == devtoosx(384));
        CHECK(state.y1 == screentoosy(144));
        CHECK(state.y0 == screentoosy(336));
        RECT before, after;
        GetWindowRect(taskhandle(w), &before);
        REQUIRE_FALSE(openwindow(&state));
        GetWindowRect(taskhandle(w), &after);
        CHECK(EqualRect(&before, &after));
    }
    taskwindowsend();
}

TEST_CASE("a child opens at a place of the screen too, inside its parent")
{
    bothscreens screens;
    window parent = taskwindow(BORDERED);
    taskopen(parent, 100, 120, 400, 300);
    window child = taskwindow(WS_CHILD | WS_BORDER, parent);
    taskopen(child, 130, 160, 200, 100);
    checkclient(child, 130, 160, 200, 100);
    taskopen(parent, 180, 140, 400, 300); // it goes along
    checkclient(child, 210, 180, 200, 100);

    windowstaterecord state = taskstate(child);
    placestate({250, 200, 350, 260}, &state);
    REQUIRE_FALSE(openwindowex(&state)); // by its frame
    RECT frame, wanted = {250, 200, 350, 260};
    GetWindowRect(taskhandle(child), &frame);
    CHECK(EqualRect(&frame, &wanted));
    taskwindowsend();
}

TEST_CASE("behind places a window in the stacking order")
{
    window a = taskwindow(WS_POPUP), b = taskwindow(WS_POPUP), c = taskwindow(WS_POPUP);
    for (window w : {c, b, a})
        REQUIRE_FALSE(openbehind(w, BEHINDTOP));
    auto now = [=] { return order({a, b, c}); };
    CHECK(now() == "abc");
    openbehind(c, BEHINDTOP);
    CHECK(now() == "cab");
    openbehind(c, BEHINDBOTTOM);
    CHECK(now() == "abc");
    openbehind(a, b);
    CHECK(now() == "bac");
    for (intptr_t same : {BEHINDSAME, a}) {
        openbehind(a, same);
        CHECK(now() == "bac");
    }
    openbehind(a, BEHINDTOPMOST);
    CHECK((GetWindowLongA(taskhandle(a), GWL_EXSTYLE) & WS_EX_TOPMOST));
    openbehind(c, BEHINDTOP);
    CHECK(now() == "acb");
    openbehind(a, BEHINDNOTTOPMOST);
    CHECK_FALSE((GetWindowLongA(taskhandle(a), GWL_EXSTYLE) & WS_EX_TOPMOST));

    openbehind(b, taskstate(b).behind); // as it was read
    CHECK(now() == "acb");

    // Behind its own parent is at the bottom.
    window inner = taskwindow(WS_CHILD, a), other = taskwindow(WS_CHILD, a);
    openbehind(inner, BEHINDTOP);
    CHECK(GetTopWindow(taskhandle(a)) == taskhandle(inner));
    CHECK_FALSE(openbehind(inner, a));
    CHECK(GetTopWindow(taskhandle(a)) == taskhandle(other));
    taskwindowsend();
}

TEST_CASE("hiding still places, and a state tells how a window is shown")
{
    bothscreens screens;
    window w = taskwindow(WS_OVERLAPPEDWINDOW);
    CHECK(taskstate(w).wflags == STATEREAD);
    taskopen(w, 96, 96, 192, 192);
    CHECK(taskstate(w).wflags == (STATEREAD | STATEOPEN));
    taskopen(w, 144, 96, 192, 240, BEHINDHIDE);
    CHECK(taskstate(w).wflags == STATEREAD);
    checkclient(w, 144, 96, 192, 240);

    ShowWindow(taskhandle(w), SW_SHOWMAXIMIZED);
    CHECK(taskstate(w).wflags == (STATEREAD | STATEOPEN | STATEMAXIMISED));
    ShowWindow(taskhandle(w), SW_SHOWMINIMIZED);
    CHECK(taskstate(w).wflags == (STATEREAD | STATEOPEN | STATEMINIMISED));
    taskwindowsend();
}

TEST_CASE("a window is centred and raised")
{
    bothscreens screens;
    window w = taskwindow(BORDERED);
    taskopen(w, 0, 0, 320, 240);
    REQUIRE_FALSE(opencentred(w, 0));
    checkclient(w, (modeinfo.widthpx - 320) / 2, (modeinfo.heightpx - 240) / 2, 320, 240);

    window over = taskwindow(WS_POPUP);
    openbehind(over, BEHINDTOP);
    CHECK(order({w, over}) == "ba");
    static window told = 0;
    auto callback = [](window, intptr_t data, windowstaterecord *state) -> errorblock * {
        CHECK(data == 17);
        told = state->self;
        return nullptr;
    };
    REQUIRE_FALSE(raisewindow(w, 17, callback));
    CHECK(order({w, over}) == "ab");
    CHECK(told == w);
    taskwindowsend();
}

TEST_CASE("positions of the work area, of the screen and of the frame agree")
{
    bothscreens screens;
    window w = taskwindow(BORDERED | WS_VSCROLL | WS_HSCROLL);
    taskopen(w, 96, 96, 192, 192);
    REQUIRE_FALSE(setextent(w, 0, -3000, 3000, 0));
    REQUIRE_FALSE(scrollto(w, 60, -90));
    windowinforecord info;
    REQUIRE_FALSE(windowinfo(w, &info));
    CHECK(info.xorigin == info.state.x0 - 60);
    CHECK(info.yorigin == info.state.y1 + 90);

    osbox outline;
    REQUIRE_FALSE(windowoutline(w, &outline));
    RECT frame;
    GetWindowRect(taskhandle(w), &frame);
    CHECK(outline.x0 == devtoosx(frame.left));
    CHECK(outline.y1 == screentoosy(frame.top));
    CHECK(outline.x1 == devtoosx(frame.right));
    CHECK(outline.y0 == screentoosy(frame.bottom));
    taskwindowsend();
}

TEST_CASE("a window with the flag grows to its extent and no further")
{
    bothscreens screens;
    window w = taskwindow(WS_OVERLAPPEDWINDOW | WS_VSCROLL);
    REQUIRE_FALSE(setextent(w, 0, -devtoosy(400), devtoosx(300), 0));
    taskopen(w, 50, 50, 250, 380);
    REQUIRE_FALSE(setflags(w, WINDOWMAXEXTENT, 0));
    uint32_t flags;
    REQUIRE_FALSE(getflags(w, &flags));
    CHECK(flags == WINDOWMAXEXTENT);
    auto grow = [&] {
        SetWindowPos(taskhandle(w), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
        return tasksize(w);
    };
    SIZE grown = grow();
    CHECK(grown.cx == 300);
    CHECK(grown.cy == 400);
    REQUIRE_FALSE(setflags(w, 0, WINDOWMAXEXTENT));
    CHECK(grow().cx > 800);
    taskwindowsend();
}

TEST_CASE("a title has its tokens expanded")
{
    const char catalogue[] = "NAME:a grid\n";
    REQUIRE_FALSE(addtranstext(catalogue, sizeof catalogue - 1));
    window w = taskwindow(BORDERED);
    REQUIRE_FALSE(settitle(w, "Edit {NAME}"));
    CHECK(drivetext(w) == "Edit a grid");
    CHECK(settitle(w, std::string(1024, 'x').c_str()));
    CHECK(drivetext(w) == "Edit a grid");
    taskwindowsend();
}

namespace
{

std::vector<window> ended;

errorblock *removes(window w, intptr_t)
{
    ended.push_back(w);
    return removewindow(&w);
}

} // namespace

TEST_CASE("a closed window is hidden, and what is inside it; a deleted one takes them with it")
{
    REQUIRE_FALSE(blockstart());
    ended.clear();
    window parent = taskwindow(BORDERED), inside = taskwindow(WS_CHILD, parent);
    window innermost = taskwindow(WS_CHILD, inside);
    window owned = taskwindow(BORDERED, parent), ending = taskwindow(BORDERED, parent);
    window all[] = {parent, inside, innermost, owned, ending};
    auto shown = [&] {
        std::string text;
        for (window w : all)
            text += !IsWindow(taskhandle(w)) ? '-' : IsWindowVisible(taskhandle(w)) ? '1' : '0';
        return text;
    };
    for (window w : all)
        taskopen(w, 60, 60, 50, 50);
    addparentclosedhandler(removes, ending, 0);
    addparentdeletedhandler(removes, owned, 0);
    CHECK(shown() == "11111");
    CHECK_FALSE(closewindow(parent));
    CHECK(ended == std::vector<window>{ending});
    CHECK(shown() == "0001-"); // who does nothing about it and isn't inside stays
    taskopen(parent, 50, 50, 300, 200);
    CHECK(shown() == "1111-");
    CHECK_FALSE(deletewindow(parent));
    CHECK(ended == std::vector<window>{ending, owned});
    CHECK(shown() == "-----");
    CHECK(wdatas == nullptr);
}

namespace
{

bool refused(const errorblock *err)
{
    return err && std::string(err->text).find("(1400)") != std::string::npos;
}

} // namespace

TEST_CASE("a handle that is nobody's gives the system's own error")
{
    window bad = 0x12340;
    windowstaterecord state;
    uint32_t flags;
    CHECK(refused(windowstate(bad, &state)));
    CHECK(refused(openwindow(&state)));
    CHECK(refused(closewindow(bad)));
    CHECK(deletewindow(bad)); // the system may call it forbidden
    CHECK(refused(forceredraw(bad, 0, 0, 9, 9)));
    CHECK(refused(setextent(bad, 0, -9, 9, 0)));
    CHECK(refused(getflags(bad, &flags)));
    CHECK(refused(settitle(bad, "x")));
    window w = bad;
    CHECK(refused(removewindow(&w)));
    CHECK(w == 0);
    CHECK_FALSE(removewindow(&w)); // nothing is left to do
}

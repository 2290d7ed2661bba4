// Windows of the system itself, placed and ended by the library.
#include "desktop/windows.h"

#include "base/errors.h"
#include "desktop/handlers.h"
#include "desktop/templates.h"
#include "desktop/wdata.h"
#include "desktop/windowplace.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

namespace
{

constexpr DWORD BORDERED = WS_POPUP | WS_CAPTION | WS_THICKFRAME;

// The order of windows of the screen, the uppermost first, by their place in the list.
std::string order(std::initializer_list<window> windows)
{
    std::string found;
    for (HWND h = GetTopWindow(nullptr); h; h = GetWindow(h, GW_HWNDNEXT))
        for (const window *w = windows.begin(); w != windows.end(); w++)
            if (handleof(*w) == h) found += static_cast<char>('a' + (w - windows.begin()));
    return found;
}

errorblock *openbehind(window w, intptr_t behind)
{
    windowstaterecord state = taskstate(w);
    state.behind = behind;
    return openwindow(&state);
}

void checkclient(window w, int32_t left, int32_t top, int32_t width, int32_t height)
{
    RECT client = taskclient(w), wanted = {left, top, left + width, top + height};
    CHECK(EqualRect(&client, &wanted));
}

} // namespace

TEST_CASE("a window opens with its client area where the state says, whatever frame and parent")
{
    bothscreens screens;
    library started;
    for (DWORD style : {BORDERED, DWORD{WS_POPUP}}) {
        window w = taskwindow(style);
        taskopen(w, 96, 144, 288, 192);
        checkclient(w, 96, 144, 288, 192);
        windowstaterecord state = taskstate(w); // says what was asked
        CHECK((state.self == w && state.wflags == (STATEREAD | STATEOPEN)));
        CHECK((state.x0 == devtoosx(96) && state.y0 == screentoosy(336)));
        taskopen(w, 144, 96, 192, 240, BEHINDHIDE); // still places
        CHECK(taskstate(w).wflags == STATEREAD);
        checkclient(w, 144, 96, 192, 240);
        REQUIRE_FALSE(opencentred(w, 0));
        checkclient(w, (modeinfo.widthpx - 192) / 2, (modeinfo.heightpx - 240) / 2, 192, 240);
    }
    window parent = taskwindow(BORDERED), child = taskwindow(WS_CHILD | WS_BORDER, parent);
    taskopen(parent, 100, 120, 400, 300);
    taskopen(child, 130, 160, 200, 100); // at a place of the screen too
    checkclient(child, 130, 160, 200, 100);
    taskopen(parent, 180, 140, 400, 300); // it goes along
    checkclient(child, 210, 180, 200, 100);
    windowstaterecord state = taskstate(child);
    placestate({250, 200, 350, 260}, &state);
    REQUIRE_FALSE(openwindowex(&state)); // by its frame
    RECT frame, wanted = {250, 200, 350, 260};
    GetWindowRect(handleof(child), &frame);
    CHECK(EqualRect(&frame, &wanted));
    ShowWindow(handleof(parent), SW_SHOWMAXIMIZED);
    CHECK(taskstate(parent).wflags == (STATEREAD | STATEOPEN | STATEMAXIMISED));
    ShowWindow(handleof(parent), SW_SHOWMINIMIZED);
    CHECK(taskstate(parent).wflags == (STATEREAD | STATEOPEN | STATEMINIMISED));
}

TEST_CASE("behind places a window in the stacking order")
{
    library started;
    window a = taskwindow(WS_POPUP), b = taskwindow(WS_POPUP), c = taskwindow(WS_POPUP);
    const struct {
        window w;
        intptr_t behind;
        const char *order;
        bool topmost; // a is
    } rows[] = {
        {c, BEHINDTOP, "c", false},      {b, BEHINDTOP, "bc", false},
        {a, BEHINDTOP, "abc", false},    {c, BEHINDTOP, "cab", false},
        {c, BEHINDBOTTOM, "abc", false}, {a, b, "bac", false},
        {a, BEHINDSAME, "bac", false},   {a, BEHINDTOPMOST, "abc", true},
        {c, BEHINDTOP, "acb", true},     {a, BEHINDNOTTOPMOST, "acb", false},
    };
    for (const auto &r : rows) {
        INFO(std::string(r.order));
        REQUIRE_FALSE(openbehind(r.w, r.behind));
        CHECK(order({a, b, c}).starts_with(r.order));
        CHECK(((GetWindowLongA(handleof(a), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0) == r.topmost);
    }
    auto callback = [](window, intptr_t data, windowstaterecord *state) -> errorblock * {
        said("%d %d;", static_cast<int>(data), state->self != 0);
        return nullptr;
    };
    REQUIRE_FALSE(raisewindow(b, 17, callback));
    CHECK((order({a, b, c}) == "bac" && taken() == "17 1;"));
}

TEST_CASE("a window is measured, and grows to its extent if it should")
{
    bothscreens screens;
    library started;
    window w = taskwindow(WS_OVERLAPPEDWINDOW | WS_VSCROLL);
    HWND h = handleof(w);
    osbox outline;
    RECT frame;
    taskopen(w, 50, 50, 250, 380);
    REQUIRE_FALSE(setextent(w, 0, -devtoosy(400), devtoosx(300), 0));
    REQUIRE_FALSE(windowoutline(w, &outline));
    GetWindowRect(h, &frame);
    CHECK((outline.x0 == devtoosx(frame.left) && outline.y1 == screentoosy(frame.top)));
    CHECK((outline.x1 == devtoosx(frame.right) && outline.y0 == screentoosy(frame.bottom)));
    for (bool held : {true, false}) {
        REQUIRE_FALSE(setflags(w, held ? WINDOWMAXEXTENT : 0, WINDOWMAXEXTENT));
        SetWindowPos(h, nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
        RECT client = taskclient(w);
        CHECK((client.right - client.left == 300 && client.bottom - client.top == 400) == held);
    }
}

TEST_CASE("a closed window is hidden, and what is inside it; a deleted one takes them with it")
{
    static parentfunction removes = [](window w, intptr_t data) -> errorblock * {
        said("%d;", static_cast<int>(data));
        return removewindow(&w);
    };
    library started;
    window parent = taskwindow(BORDERED), inside = taskwindow(WS_CHILD, parent);
    window innermost = taskwindow(WS_CHILD, inside);
    window owned = taskwindow(BORDERED, parent), ending = taskwindow(BORDERED, parent);
    auto shown = [&] {
        for (window w : {parent, inside, innermost, owned, ending})
            said("%c", !IsWindow(handleof(w)) ? '-' : IsWindowVisible(handleof(w)) ? '1' : '0');
        return taken();
    };
    for (window w : {parent, inside, innermost, owned, ending})
        taskopen(w, 60, 60, 50, 50);
    addparentclosedhandler(removes, ending, 4);
    addparentdeletedhandler(removes, owned, 3);
    CHECK(shown() == "11111");
    CHECK_FALSE(closewindow(parent));
    CHECK(shown() == "4;0001-"); // who does nothing about it and isn't inside stays
    taskopen(parent, 50, 50, 300, 200);
    CHECK(shown() == "1111-");
    CHECK_FALSE(deletewindow(parent));
    CHECK(shown() == "3;-----");
    CHECK(wdatas == nullptr);
    remparentclosedhandler(removes, ending, 4);
    remparentdeletedhandler(removes, owned, 3);

    // All templates of the program, by numbers of their own.
    templatelink every;
    REQUIRE_FALSE(addtemplates(nullptr, "", nullptr, &every));
    int32_t number = templatenumber("EventPlain");
    window plain = 0;
    CHECK(number > TEMPLATEUNNAMED);
    CHECK_FALSE(createchild(number, &plain, 0));
    CHECK((GetWindowLongA(handleof(plain), GWL_EXSTYLE) & WS_EX_ACCEPTFILES));
    remtemplates(&every);
    CHECK(templatenumber("EventPlain") == PLAIN);

    // A handle that is nobody's gives the system's own error.
    auto refused = [](const errorblock *err) {
        return err && std::string(err->text).find("(1400)") != std::string::npos;
    };
    window bad = 0x12340, removed = bad;
    windowstaterecord state = {};
    CHECK((refused(windowstate(bad, &state)) && refused(openwindow(&state))));
    CHECK((refused(closewindow(bad)) && refused(settitle(bad, "x"))));
    CHECK((refused(removewindow(&removed)) && removed == 0));
}

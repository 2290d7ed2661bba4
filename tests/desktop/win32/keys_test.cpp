// Keys typed on a real keyboard, and how the focus moves with them.
#include "desktop/keys.h"

#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/menus.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

namespace
{

struct keywindow : eventwindow {
    explicit keywindow(int32_t number = EVENTPLAIN) : eventwindow(number)
    {
        CHECK_FALSE(addkeyhandler(tellkey, w, 0));
        CHECK_FALSE(focuswindow(w));
        drivepump();
        taken();
    }
};

errorblock *claim(window, intptr_t wanted, int32_t, int32_t *code)
{
    said("claim %x;", static_cast<unsigned>(*code));
    if (*code == wanted) *code = KEYCLAIMED;
    return nullptr;
}

int focusicon()
{
    window w;
    int32_t icon;
    CHECK_FALSE(getcaretpair(&w, &icon));
    return icon;
}

} // namespace

TEST_CASE("a letter is a press and then its character, once each")
{
    for (int32_t number : {EVENTPLAIN, EVENTCONTROLS})
        for (uint32_t flags : {0U, WINDOWNONAVIGATION}) {
            CAPTURE(number);
            CAPTURE(flags);
            keywindow k(number);
            setflags(k.w, flags, 0);
            drivetype("A");
            CHECK(taken() == "5000010 in -1;5000041 in -1;41 in -1;");
            drivekey(VK_F5, DRIVECTRL);
            CHECK(taken() == "6000011 in -1;6000074 in -1;");
            drivekey(VK_DOWN);
            CHECK(taken() == "4000028 in -1;");
        }
    keywindow plain;
    drivekey('Q', DRIVEALT);
    CHECK(taken().find("c000051 in -1;") != std::string::npos);
}

TEST_CASE("a handler that claims a key is the last to hear of it")
{
    keywindow k;
    CHECK_FALSE(remkeyhandler(tellkey, k.w, 0));
    addkeyhandler(tellkey, k.w, 1);
    addkeyhandler(claim, k.w, KEYPRESS | 'A');
    addkeyhandler(tellkey, k.w, 0);
    drivetype("a"); // its character is not made
    CHECK(taken() == "1:4000041 in -1;claim 4000041;");
    drivetype("b");
    CHECK(taken() == "1:4000042 in -1;claim 4000042;4000042 in -1;1:62 in -1;claim 62;62 in -1;");
}

TEST_CASE("Tab moves between the controls, unless it is claimed")
{
    keywindow k(EVENTCONTROLS);
    for (int icon : {EVENTFIELD, EVENTBUTTON, EVENTFIELD2, EVENTFIELD}) {
        drivekey(VK_TAB);
        CHECK(focusicon() == icon);
    }
    drivekey(VK_TAB, DRIVESHIFT);
    CHECK(focusicon() == EVENTFIELD2);
    focuswindow(k.w);
    addkeyhandler(claim, k.w, KEYPRESS | VK_TAB);
    drivekey(VK_TAB);
    CHECK(focusicon() == -1);
    remkeyhandler(claim, k.w, KEYPRESS | VK_TAB);
    setflags(k.w, WINDOWNONAVIGATION, 0);
    taken();
    drivekey(VK_TAB);
    CHECK(taken() == "4000009 in -1;9 in -1;");
    CHECK(focusicon() == -1);
}

TEST_CASE("a window with a menu bar gets Tab itself")
{
    keywindow k;
    HMENU bar = CreateMenu();
    AppendMenuA(bar, MF_STRING, 1, "Entry");
    SetMenu(taskhandle(k.w), bar);
    drivekey(VK_TAB);
    CHECK(taken() == "4000009 in -1;9 in -1;");
    SetMenu(taskhandle(k.w), nullptr);
    DestroyMenu(bar);
}

TEST_CASE("Return and Escape in a field come as keys, with the field")
{
    keywindow k(EVENTCONTROLS);
    setcaret(k.w, EVENTFIELD, 0, 0, 0, 0);
    drivetype("xy");
    CHECK(drivetext(k.w, EVENTFIELD) == "xy");
    CHECK(taken() == ""); // the field's own
    drivekey(VK_RETURN);
    CHECK(taken() == "d in 10;");
    drivekey(VK_ESCAPE);
    CHECK(taken() == "1b in 10;");
}

TEST_CASE("fields tell of the caret and of every change, once")
{
    textchangefunction changed = [](window, int32_t icon, intptr_t data) -> errorblock * {
        said("%d change %d;", static_cast<int>(data), static_cast<int>(icon));
        return nullptr;
    };
    textfocusfunction caret = [](window, int32_t icon, int gained, intptr_t) -> errorblock * {
        said("%s %d;", gained ? "got" : "lost", static_cast<int>(icon));
        return nullptr;
    };
    keywindow k(EVENTCONTROLS);
    addtextchangehandler(changed, k.w, 1);
    addtextchangehandler(changed, k.w, 2);
    addtextfocushandler(caret, k.w, 0);
    setcaret(k.w, EVENTFIELD, 0, 0, 0, 0);
    CHECK(taken() == "got 10;");
    drivetype("q");
    CHECK(taken() == "1 change 10;2 change 10;");
    drivekey(VK_TAB);
    CHECK(taken() == "lost 10;");
    drivekey(VK_TAB);
    CHECK(taken() == "got 14;");
    seticontext(k.w, EVENTFIELD, "set");
    CHECK(taken() == "1 change 10;2 change 10;");
}

TEST_CASE("the window itself can have the focus, and keeps it over a change of windows")
{
    keywindow k(EVENTCONTROLS);
    CHECK(GetFocus() == taskhandle(k.w));
    window other = eventopen(EVENTPLAIN, 600);
    CHECK(GetFocus() == taskhandle(other));
    SetForegroundWindow(taskhandle(k.w));
    drivepump(50);
    CHECK(GetFocus() == taskhandle(k.w));

    // And so does a field.
    setcaret(k.w, EVENTFIELD2, 0, 0, 0, 0);
    SetForegroundWindow(taskhandle(other));
    drivepump(50);
    SetForegroundWindow(taskhandle(k.w));
    drivepump(50);
    CHECK(focusicon() == EVENTFIELD2);
    removewindow(&other);
}

TEST_CASE("focus and activation are told as they come and go")
{
    focusfunction focus = [](window, intptr_t data, int gained) -> errorblock * {
        said("%dfocus %d;", static_cast<int>(data), gained);
        return nullptr;
    };
    activatefunction active = [](window, intptr_t, intptr_t, int32_t how) -> errorblock * {
        said("active %d;", how != 0);
        return nullptr;
    };
    eventwindow e(EVENTPLAIN);
    addfocushandler(focus, e.w, 1);
    addfocushandler(focus, e.w, 2);
    addactivatehandler(active, e.w, 0);
    window other = eventopen(EVENTPLAIN, 600);
    CHECK(taken() == "active 0;1focus 0;2focus 0;");
    SetForegroundWindow(taskhandle(e.w));
    drivepump(50);
    CHECK(taken() == "active 1;1focus 1;2focus 1;");
    removewindow(&other);
}

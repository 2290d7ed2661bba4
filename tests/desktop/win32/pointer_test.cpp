// The pointer: what it looks like, and what it is over.
#include "base/errors.h"
#include "desktop/mouse.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/partner.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <string>

namespace
{

HCURSOR ofsystem(LPCSTR name)
{
    return LoadCursorA(nullptr, name);
}

HCURSOR ofprogram(LPCSTR name)
{
    return LoadCursorA(GetModuleHandleA(nullptr), name);
}

mouserecord pointernow()
{
    mouserecord mouse;
    REQUIRE_FALSE(getpointer(&mouse));
    return mouse;
}

HWND childmade(HWND parent, int icon, int left, int top, int width, int height)
{
    HWND made =
        CreateWindowA("STATIC", "", WS_CHILD | WS_VISIBLE | SS_NOTIFY, left, top, width, height,
                      parent, reinterpret_cast<HMENU>(INT_PTR{icon}), nullptr, nullptr);
    REQUIRE(made);
    return made;
}

} // namespace

TEST_CASE("the shapes of the pointer by kind")
{
    struct {
        int32_t kind;
        const char *name;
        HCURSOR cursor;
    } rows[] = {
        {POINTERARROW, nullptr, ofsystem(IDC_ARROW)},
        {POINTERBUSY, nullptr, ofsystem(IDC_APPSTARTING)},
        {POINTERCROSS, nullptr, ofsystem(IDC_CROSS)},
        {POINTERHELP, nullptr, ofsystem(IDC_HELP)},
        {POINTERTEXT, nullptr, ofsystem(IDC_IBEAM)},
        {POINTERICON, nullptr, ofsystem(IDC_ICON)},
        {POINTERNOENTRY, nullptr, ofsystem(IDC_NO)},
        {POINTERPROGRAM, "hand", ofprogram("hand")},
        {POINTERMODULE, "splith", ofprogram("splith")},
        {POINTERNONE, nullptr, nullptr},
    };
    HCURSOR before = ofsystem(IDC_SIZEALL);
    for (const auto &row : rows) {
        CAPTURE(row.kind);
        SetCursor(before);
        CHECK_FALSE(setpointer(row.kind, 0, row.name));
        CHECK(GetCursor() == row.cursor);
    }
    auto program = reinterpret_cast<intptr_t>(GetModuleHandleA(nullptr));
    CHECK_FALSE(setpointer(POINTERMODULE, program, "hand"));
    CHECK(GetCursor() == ofprogram("hand"));
    SetCursor(before);
    CHECK_FALSE(setpointer(POINTERSAME, 0, nullptr));
    CHECK(GetCursor() == before);

    // A name that isn't there leaves it as it is.
    auto system = reinterpret_cast<intptr_t>(GetModuleHandleA("kernel32"));
    const errorblock *errors[] = {setpointer(POINTERPROGRAM, 0, "none"),
                                  setpointer(POINTERMODULE, 0, "none"),
                                  setpointer(POINTERMODULE, system, "hand")};
    for (const errorblock *err : errors) {
        REQUIRE(err);
        CHECK(std::string(err->text).find("(LoadCursor)") != std::string::npos);
    }
    CHECK(GetCursor() == before);
    SetCursor(ofsystem(IDC_ARROW));
}

TEST_CASE("the pointer's record tells the buttons, the left before the right")
{
    eventwindow e(EVENTPLAIN);
    pointat(e.w, 100, 100);
    CHECK(pointernow().buttons == 0);
    drivepress(DRIVERIGHT);
    CHECK(pointernow().buttons == BUTTONRIGHT);
    drivepress(DRIVELEFT);
    CHECK(pointernow().buttons == BUTTONLEFT);
    driverelease(DRIVERIGHT);
    CHECK(pointernow().buttons == BUTTONLEFT);
    driverelease(DRIVELEFT);
    CHECK(pointernow().buttons == 0);
}

TEST_CASE("the pointer's record tells the library's window, and the innermost control in it")
{
    bothscreens screens;
    eventwindow e(EVENTPLAIN);
    HWND outer = childmade(taskhandle(e.w), 50, 20, 20, 200, 100);
    HWND inner = childmade(outer, 51, 30, 30, 100, 50);
    childmade(inner, 52, 10, 10, 20, 20);
    HWND hidden = childmade(inner, 53, 40, 10, 40, 20);
    ShowWindow(hidden, SW_HIDE);
    window pane = taskwindow(WS_CHILD | WS_VISIBLE, e.w);
    taskopen(pane, 440, 170, 50, 80);
    childmade(taskhandle(pane), 60, 5, 5, 20, 20);
    struct {
        int x, y;
        window w;
        int32_t icon;
    } rows[] = {
        {10, 10, e.w, -1},   {25, 25, e.w, 50},   {55, 55, e.w, 51},
        {65, 65, e.w, 52},   {95, 65, e.w, 51}, // the hidden one is not there
        {245, 25, pane, 60}, {280, 90, pane, -1},
    };
    for (const auto &row : rows) {
        CAPTURE(row.x);
        CAPTURE(row.y);
        driveplace at = driveclient(e.w, row.x, row.y);
        moveto(at);
        mouserecord mouse = pointernow();
        CHECK(mouse.window == row.w);
        CHECK(mouse.icon == row.icon);
        CHECK(mouse.x == devtoosx(at.x));
        CHECK(mouse.y == devtoosy(modeinfo.heightpx - at.y));
    }
    CHECK_FALSE(removewindow(&pane));
}

TEST_CASE("a window of another program, or of none of the library's, is told as it is")
{
    eventwindow e(EVENTPLAIN);
    partnerprogram partner;
    CHECK(partner.ask("show 258 190") == "ok");
    drivemove(650, 440);
    auto other = reinterpret_cast<window>(FindWindowA("desktoppartner", nullptr));
    drivewait([&] { return pointernow().window == other; }); // it comes up by itself
    mouserecord mouse = pointernow();
    CHECK(mouse.window == other);
    CHECK(mouse.icon == -1);

    HWND plain = CreateWindowExA(WS_EX_TOPMOST, "STATIC", "", WS_POPUP | WS_VISIBLE, 50, 500, 100,
                                 80, nullptr, nullptr, nullptr, nullptr);
    HWND child = childmade(plain, 5, 10, 10, 50, 50);
    drivemove(70, 520);
    mouse = pointernow();
    CHECK(mouse.window == reinterpret_cast<window>(child));
    CHECK(mouse.icon == -1);
    DestroyWindow(plain);
}

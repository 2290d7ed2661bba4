// Operations on the controls of a window, whatever their kind.
#include "desktop/icons.h"

#include "base/errors.h"
#include "base/messages.h"
#include "desktop/handlers.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <commctrl.h>

#include <initializer_list>

namespace
{

constexpr int32_t MISSING = 77;

bool selected(window w, int32_t icon)
{
    int on = -1;
    CHECK_FALSE(iconselected(w, icon, &on));
    return on;
}

bool shaded(window w, int32_t icon)
{
    return !IsWindowEnabled(taskcontrol(w, icon));
}

bool waits(window w, int32_t icon)
{
    return GetUpdateRect(taskcontrol(w, icon), nullptr, FALSE);
}

std::string caretnow()
{
    caretrecord caret;
    CHECK_FALSE(getcaret(&caret));
    window w;
    int32_t icon;
    CHECK_FALSE(getcaretpair(&w, &icon));
    CHECK(w == caret.self);
    CHECK(icon == caret.icon);
    return std::to_string(caret.icon) + " " + std::to_string(caret.start) + " " +
           std::to_string(caret.end);
}

} // namespace

TEST_CASE("a number that the window hasn't gives the system's error")
{
    eventwindow e(EVENTICONS);
    window w = e.w;
    char buffer[8] = "before", *text;
    int on;
    int32_t low, high;
    intptr_t behind;
    osbox box;
    iconstaterecord state;
    errorblock *(*const calls[])(window, int32_t) = {
        shadeicon, unshadeicon, redrawicon, caretatend, focusicon, deleteicon, seticondefault};
    auto missing = [](const errorblock *err) {
        return err && std::string(err->text).find("(GetDlgItem)") != std::string::npos;
    };
    for (auto call : calls)
        CHECK(missing(call(w, MISSING)));
    CHECK(missing(seticonselected(w, MISSING, 1)));
    CHECK(missing(iconselected(w, MISSING, &on)));
    CHECK(on == 0);
    CHECK(missing(seticonshaded(w, MISSING, 1)));
    CHECK(missing(seticonstate(w, MISSING, ICONSHADED, 0)));
    CHECK(missing(geticonstate(w, MISSING, &state)));
    CHECK(missing(iconbox(w, MISSING, &box)));
    CHECK(missing(geticontext(w, MISSING, &text)));
    CHECK(std::string(text) == "");
    CHECK(missing(copyicontext(w, MISSING, buffer, sizeof buffer)));
    CHECK(std::string(buffer) == "");
    CHECK(missing(seticontext(w, MISSING, "x")));
    CHECK(missing(seticontextifchanged(w, MISSING, "x")));
    CHECK(missing(seticontextf(w, MISSING, "%d", 1)));
    CHECK(missing(setcaret(w, MISSING, 0, 0, 0, 0)));
    CHECK(missing(setcolours(w, MISSING, 2, 3)));
    CHECK(missing(settoken(w, MISSING, 's', "x")));
    CHECK(missing(seticonlimit(w, MISSING, 3)));
    CHECK(missing(seticonrange(w, MISSING, 1, 3)));
    CHECK(missing(iconrange(w, MISSING, &low, &high)));
    CHECK(missing(iconbehind(w, MISSING, &behind)));
}

TEST_CASE("texts of all kinds of controls")
{
    eventwindow e(EVENTICONS);
    for (int32_t icon : {ICONFIELD, ICONTICK, ICONBOX, ICONDRAWN, ICONLABEL, ICONBUTTON}) {
        CAPTURE(icon);
        for (const char *text : {"Words", "", "C:\\a\\", "\xE9t\xE9 && more"}) {
            CHECK_FALSE(seticontext(e.w, icon, text));
            char *got, buffer[4];
            CHECK_FALSE(geticontext(e.w, icon, &got));
            CHECK(std::string(got) == text);
            CHECK_FALSE(copyicontext(e.w, icon, buffer, sizeof buffer));
            CHECK(std::string(buffer) == std::string(text).substr(0, 3));
        }
    }
    // Of a text too long for the buffer there is the beginning.
    std::string longtext(3000, 'w');
    char *got;
    CHECK_FALSE(seticontext(e.w, ICONFIELD, longtext.c_str()));
    CHECK_FALSE(geticontext(e.w, ICONFIELD, &got));
    CHECK(std::string(got) == longtext.substr(0, ICONTEXTSIZE - 1));
}

TEST_CASE("a text is set only if it is another, and formatted with its tokens")
{
    const char catalogue[] = "NAME:a grid\n";
    REQUIRE_FALSE(addtranstext(catalogue, sizeof catalogue - 1));
    eventwindow e(EVENTICONS);
    CHECK_FALSE(seticontext(e.w, ICONFIELD, "Words"));
    SendMessageA(taskcontrol(e.w, ICONFIELD), EM_SETSEL, 2, 3);
    CHECK_FALSE(seticontextifchanged(e.w, ICONFIELD, "Words"));
    DWORD start, end;
    SendMessageA(taskcontrol(e.w, ICONFIELD), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    CHECK(start == 2); // a set text would have lost it
    CHECK(end == 3);
    CHECK_FALSE(seticontextifchanged(e.w, ICONFIELD, "words"));
    CHECK(drivetext(e.w, ICONFIELD) == "words");

    CHECK_FALSE(seticontextf(e.w, ICONFIELD, "%d of {NAME}%s", 12, "!"));
    CHECK(drivetext(e.w, ICONFIELD) == "12 of a grid!");
    std::string fits(ICONTEXTSIZE - 1, 'w'), over(ICONTEXTSIZE, 'w');
    CHECK_FALSE(seticontextf(e.w, ICONFIELD, "%s", fits.c_str()));
    CHECK(drivetext(e.w, ICONFIELD) == fits);
    CHECK_FALSE(seticontext(e.w, ICONFIELD, "left"));
    const errorblock *err = seticontextf(e.w, ICONFIELD, "%s", over.c_str());
    REQUIRE(err);
    CHECK(err->code == 30);
    CHECK(drivetext(e.w, ICONFIELD) == "left");
    endtrans();
}

TEST_CASE("the state of a control is old without clear, turned by eor")
{
    eventwindow e(EVENTICONS);
    for (int32_t icon : {ICONTICK, ICONDRAWN}) {
        for (uint32_t all = 0; all < 64; all++) {
            uint32_t old = all & 3, eor = all >> 2 & 3, clear = all >> 4,
                     now = (old & ~clear) ^ eor;
            CAPTURE(icon);
            CAPTURE(all);
            CHECK_FALSE(seticonselected(e.w, icon, old & 1));
            CHECK_FALSE(seticonshaded(e.w, icon, old & 2));
            drivepump(1);
            CHECK_FALSE(seticonstate(e.w, icon, eor * ICONSELECTED, clear * ICONSELECTED));
            CHECK(selected(e.w, icon) == ((now & 1) != 0));
            CHECK(shaded(e.w, icon) == ((now & 2) != 0));
            CHECK(waits(e.w, icon));
        }
        CHECK_FALSE(shadeicon(e.w, icon));
        CHECK(shaded(e.w, icon));
        CHECK_FALSE(unshadeicon(e.w, icon));
        CHECK_FALSE(shaded(e.w, icon));
        drivepump();
        CHECK_FALSE(waits(e.w, icon));
        CHECK_FALSE(redrawicon(e.w, icon));
        CHECK(waits(e.w, icon));
    }
    // What can't be ticked can be shaded.
    CHECK_FALSE(seticonstate(e.w, ICONFIELD, ICONSHADED | ICONSELECTED, 0));
    CHECK(shaded(e.w, ICONFIELD));
    CHECK_FALSE(selected(e.w, ICONFIELD));
}

TEST_CASE("the box of a control is where it is in the work area")
{
    bothscreens screens;
    eventlibrary library;
    window w = taskwindow(WS_POPUP);
    taskopen(w, 200, 150, 300, 200);
    REQUIRE_FALSE(setextent(w, 0, -3000, 3000, 0));
    HWND control =
        CreateWindowExA(0, "abx", "\\sA\\\\B", WS_CHILD | WS_VISIBLE, 12, 24, 60, 36, taskhandle(w),
                        reinterpret_cast<HMENU>(INT_PTR{7}), GetModuleHandleA(nullptr), nullptr);
    REQUIRE(control);
    for (int32_t scroll : {0, 60, 333}) {
        CAPTURE(scroll);
        REQUIRE_FALSE(scrollto(w, scroll, -2 * scroll)); // the control goes along
        osbox box;
        iconstaterecord state;
        CHECK_FALSE(iconbox(w, 7, &box));
        CHECK_FALSE(geticonstate(w, 7, &state));
        // Less than a pixel out, by the pixel that the view stands at.
        int32_t pixel = devtoosx(1);
        CHECK(abs(box.x0 - devtoosx(12)) <= pixel);
        CHECK(abs(box.x1 - devtoosx(72)) <= pixel);
        CHECK(abs(box.y1 + devtoosy(24)) <= pixel);
        CHECK(abs(box.y0 + devtoosy(60)) <= pixel);
        for (auto edge : {&osbox::x0, &osbox::y0, &osbox::x1, &osbox::y1})
            CHECK(state.box.*edge == box.*edge);
        CHECK(state.flags == 0);
        CHECK(std::string(state.text) == "A\\B");
        CHECK(std::string(state.classname) == "abx");
    }
    DestroyWindow(control);
    CHECK_FALSE(removewindow(&w));
}

TEST_CASE("the caret is put into text that can be edited, and told from any control")
{
    eventwindow e(EVENTICONS);
    for (int32_t icon : {ICONFIELD, ICONBOX, ICONDIGITS}) {
        CAPTURE(icon);
        std::string name = std::to_string(icon);
        CHECK_FALSE(seticontext(e.w, icon, "12345"));
        CHECK_FALSE(setcaret(e.w, icon, 99, -99, 4, 2));
        CHECK(caretnow() == name + " 2 2");
        CHECK_FALSE(caretatend(e.w, icon)); // which has the focus already
        CHECK(caretnow() == name + " 5 5");
        CHECK_FALSE(setcaret(e.w, icon, 0, 0, 0, 0));
        drivekey(VK_RIGHT, DRIVESHIFT);
        drivekey(VK_RIGHT, DRIVESHIFT);
        CHECK(caretnow() == name + " 0 2");
    }
    for (int32_t icon : {ICONTICK, ICONROWS, ICONLIST, ICONDRAWN, ICONBUTTON}) {
        CAPTURE(icon);
        CHECK_FALSE(setcaret(e.w, icon, 0, 0, 0, 3));
        CHECK(GetFocus() == taskcontrol(e.w, icon));
        CHECK(caretnow().find(std::to_string(icon) + " ") == 0);
    }
    CHECK(caretnow() == "39 -1 -1");
    CHECK_FALSE(setcaret(e.w, -1, 0, 0, 0, 3));
    CHECK(GetFocus() == taskhandle(e.w));
    CHECK(caretnow() == "-1 -1 -1");
    CHECK_FALSE(focusicon(e.w, ICONFIELD));
    CHECK(GetFocus() == taskcontrol(e.w, ICONFIELD));
    CHECK_FALSE(caretatend(e.w, -1));
    CHECK(GetFocus() == taskhandle(e.w));

    // A window inside another is told by itself.
    window inner = taskwindow(WS_CHILD | WS_VISIBLE, e.w);
    CHECK_FALSE(focuswindow(inner));
    caretrecord caret;
    CHECK_FALSE(getcaret(&caret));
    CHECK(caret.self == inner);
    SetFocus(nullptr);
    CHECK_FALSE(getcaret(&caret));
    CHECK(caret.self == -1);
    CHECK(caret.icon == -1);
    CHECK(focuswindow(0x12340));
    CHECK_FALSE(removewindow(&inner));
}

TEST_CASE("the focus goes on and back among the controls, and what is edited is selected")
{
    eventwindow e(EVENTICONS);
    CHECK_FALSE(seticontext(e.w, ICONFIELD, "12345"));
    auto next = [&](int32_t from, int back) {
        CHECK_FALSE(focusnext(e.w, drivecontrol(e.w, from), back));
        return caretnow();
    };
    CHECK(next(ICONTICK, 1) == "30 0 5");
    CHECK(next(ICONFIELD, 0) == "31 -1 -1");
    CHECK(next(ICONTICK, 0) == "32 0 0");
    CHECK_FALSE(shadeicon(e.w, ICONTICK)); // passed over
    CHECK(next(ICONFIELD, 0).find("32 ") == 0);
    CHECK(next(ICONFIELD, 1).find("39 ") == 0); // round from the first to the last
}

TEST_CASE("limits and ranges of fields")
{
    eventwindow e(EVENTICONS);
    CHECK_FALSE(seticonlimit(e.w, ICONFIELD, 3));
    CHECK_FALSE(seticonlimit(e.w, ICONBOX, 2));
    for (int32_t icon : {ICONFIELD, ICONBOX}) {
        CHECK_FALSE(setcaret(e.w, icon, 0, 0, 0, 0));
        drivetype("abcde");
        CHECK(drivetext(e.w, icon) == (icon == ICONFIELD ? "abc" : "ab"));
        CHECK_FALSE(seticontext(e.w, icon, "as long as you like"));
        CHECK(drivetext(e.w, icon) == "as long as you like");
    }

    CHECK_FALSE(seticonrange(e.w, ICONARROWS, -2, 70000));
    int32_t low, high;
    CHECK_FALSE(iconrange(e.w, ICONARROWS, &low, &high));
    CHECK(low == -2);
    CHECK(high == 70000);
    HWND arrows = taskcontrol(e.w, ICONARROWS);
    CHECK(reinterpret_cast<HWND>(SendMessageA(arrows, UDM_GETBUDDY, 0, 0)) ==
          taskcontrol(e.w, ICONDIGITS));
    // From what stands in the field, and no further than the range.
    struct {
        const char *before;
        bool up;
        const char *after;
    } steps[] = {{"5", true, "6"}, {"-2", false, "-2"}, {"70000", true, "70000"}};
    RECT box;
    GetWindowRect(arrows, &box);
    for (const auto &step : steps) {
        CHECK_FALSE(seticontext(e.w, ICONDIGITS, step.before));
        driveclick((box.left + box.right) / 2, step.up ? box.top + 3 : box.bottom - 4);
        drivewait([] { return false; }, 60);
        CHECK(drivetext(e.w, ICONDIGITS) == step.after);
    }
}

TEST_CASE("the default button is the one that Return presses")
{
    eventwindow e(EVENTICONS);
    CHECK_FALSE(addclickhandler(tellclick, e.w, 0));
    CHECK_FALSE(focusicon(e.w, ICONFIELD));
    CHECK_FALSE(seticondefault(e.w, ICONBUTTON));
    drivekey(VK_RETURN);
    CHECK(taken() == "4 on 39;");
}

TEST_CASE("a control can be deleted, and its neighbours keep their order")
{
    eventwindow e(EVENTICONS);
    intptr_t behind;
    CHECK_FALSE(iconbehind(e.w, ICONFIELD, &behind));
    CHECK(behind == BEHINDTOP);
    CHECK_FALSE(iconbehind(e.w, ICONBOX, &behind));
    CHECK(behind == drivecontrol(e.w, ICONTICK));
    CHECK_FALSE(deleteicon(e.w, ICONTICK));
    CHECK(drivecontrol(e.w, ICONTICK) == 0);
    CHECK(deleteicon(e.w, ICONTICK));
    CHECK_FALSE(iconbehind(e.w, ICONBOX, &behind));
    CHECK(behind == drivecontrol(e.w, ICONFIELD));
}

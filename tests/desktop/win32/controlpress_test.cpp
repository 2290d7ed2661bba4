// Drawn controls under a real pointer: what they report, and how they look then.
#include "desktop/handlers.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "desktop/press.h"
#include "desktop/validation.h"
#include "desktop/win32/abx.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/drawncontrol.h"
#include "tests/desktop/win32/taskwindows.h"

#include <doctest/doctest.h>

namespace
{

errorblock *tellbuttons(window, intptr_t, mouserecord *mouse)
{
    CHECK(mouse->icon == DRAWN);
    said("%d ", static_cast<int>(mouse->buttons));
    return nullptr;
}

struct presscontrol : drawncontrol {
    int made = 0;

    presscontrol()
    {
        CHECK_FALSE(addclickhandler(tellbuttons, w, 0));
    }

    // Each somewhere else than the one before, whose presses would make double
    // clicks of its own.
    void anew(const char *string)
    {
        make(string, 0, {made++ % 2 ? 200 : 20, 30});
        toinside(0);
    }
    void toinside(int right)
    {
        driveplace at = driveicon(w, DRAWN);
        drivemove(at.x + right, at.y);
    }
    void tooutside()
    {
        pointat(w, 130, 150);
    }
    void act(char action);
    std::string acts(const char *actions);
};

// p and r press and release the left button, P and R the right one; m moves on the
// control, b goes back to its middle, o goes off it.
void presscontrol::act(char action)
{
    if (action == 'p') drivepress();
    if (action == 'P') drivepress(DRIVERIGHT);
    if (action == 'r') driverelease();
    if (action == 'R') driverelease(DRIVERIGHT);
    if (action == 'm') toinside(made++ % 2 ? 10 : 15);
    if (action == 'b') toinside(0);
    if (action == 'o') tooutside();
}

// Each action, and the buttons that came of it.
std::string presscontrol::acts(const char *actions)
{
    taken();
    for (; *actions; actions++) {
        said("%c", *actions);
        act(*actions);
    }
    return taken();
}

} // namespace

TEST_CASE("what is reported, and when, by the letters of K")
{
    struct {
        const char *codes, *actions, *told;
    } rows[] =
        {
            {"K1", "pobr", "p4 obr"},
            {"K1", "PR", "P1 R"},
            {"KR1", "pobr", "pobr4 "},
            {"KR1", "PR", "PR1 "},
            {"KR1", "por", "por"},
            {"K12", "prpr", "p4 rp1024 r"},
            {"K1R2", "PRPR", "P1 RPR256 "},
            {"K1", "prpr", "p4 rpr"}, // the second press is a double click
            {"KD", "por", "po64 r"},
            {"KD", "PmmR", "Pm16 mR"},
            {"KDR1", "pmr", "pm64 r4 "},
            {"E2", "prpmr", "prpmr"},
        };
    presscontrol c;
    for (const auto &row : rows) {
        INFO(std::string(row.codes));
        c.anew((std::string("\\") + row.codes).c_str());
        CHECK(c.acts(row.actions) == row.told);
        CHECK((press.word & (PRESSLEFT | PRESSRIGHT | PRESSLOOKS)) == 0);
        CHECK(GetCapture() == nullptr);
    }
}

TEST_CASE("a held button repeats after a pause, while the pointer is over the control")
{
    presscontrol c;
    c.anew("\\KA");
    DWORD start = GetTickCount();
    CHECK(c.acts("p") == "p4 ");
    std::string told;
    REQUIRE(drivewait([&] { return (told += taken()) != ""; }, 3000));
    CHECK(GetTickCount() - start >= 450);
    REQUIRE(drivewait([&] { return (told += taken()).size() >= 6; }, 3000));
    CHECK(told.substr(0, 6) == "4 4 4 ");
    c.act('o');
    taken();
    drivewait([] { return false; }, 300);
    CHECK(taken() == "");
    c.act('b');
    CHECK(drivewait([&] { return taken() != ""; }, 3000));
    c.act('r');
    taken();
    drivewait([] { return false; }, 300);
    CHECK(taken() == "");
}

TEST_CASE("a control looks pressed while it is, and the pointer is over it")
{
    presscontrol c;
    for (const char *string : {"\\OP\\E3\\O!P\\E2\\KR1", "\\OP\\E3\\O!P\\E2"}) {
        c.anew(string);
        auto looks = [&](UINT kind) {
            drivepicture expected = drawn(DRAWNWIDTH, DRAWNHEIGHT, c.font, [&](HDC dc) {
                RECT box = {0, 0, DRAWNWIDTH, DRAWNHEIGHT};
                DrawEdge(dc, &box, kind, BF_RECT);
            });
            return difference(c.look(), expected);
        };
        CHECK(looks(EDGE_RAISED) == "");
        for (const char *action : {"pd", "ou", "bd", "ru", "bu", "Pd", "Ru"}) {
            INFO(std::string(action));
            c.act(action[0]);
            CHECK(looks(action[1] == 'd' ? EDGE_SUNKEN : EDGE_RAISED) == "");
        }
        // Who takes the capture ends it, and its release is nothing.
        c.act('b');
        c.act('p');
        taken();
        ReleaseCapture();
        CHECK(looks(EDGE_RAISED) == "");
        CHECK(c.acts("r") == "r");
    }
}

TEST_CASE("movements over a control are told with its number")
{
    presscontrol c;
    c.anew("\\KR1");
    taken();
    CHECK_FALSE(addmousehandler(tellmouse, c.w, 3));
    CHECK(c.acts("m") == "m3move on 20;");
    CHECK(c.acts("pm").find("m3move on 20;") != std::string::npos);
    // Wherever the pointer is while the button is held.
    CHECK(c.acts("o") == "o3move on 20;");
    c.act('r');
}

TEST_CASE("a handler may delete the control that it hears of")
{
    presscontrol c;
    clickfunction removes = [](window self, intptr_t, mouserecord *mouse) -> errorblock * {
        said("%d ", static_cast<int>(mouse->buttons));
        return deleteicon(self, DRAWN);
    };
    CHECK_FALSE(remclickhandler(tellbuttons, c.w, 0));
    CHECK_FALSE(addclickhandler(removes, c.w, 0));
    struct {
        const char *string, *actions, *told;
    } rows[] = {
        {"\\K1AD", "p", "p4 "},      {"\\KR1R2", "pr", "pr4 "},      {"\\KD", "pm", "pm64 "},
        {"\\K2", "prp", "prp1024 "}, {"\\KR2", "prpr", "prpr1024 "},
    };
    for (const auto &row : rows) {
        INFO(std::string(row.string));
        c.anew(row.string);
        CHECK(c.acts(row.actions) == row.told);
        CHECK(drivecontrol(c.w, DRAWN) == 0);
        c.control = nullptr;
        CHECK(GetCapture() == nullptr);
        driverelease();
        c.tooutside();
        taken();
    }
}

TEST_CASE("the system's own ways to press a button do nothing, and Return takes it for one")
{
    presscontrol c;
    c.anew("\\K12R12A");
    SendMessageA(c.control, BM_CLICK, 0, 0);
    drivepump();
    CHECK(taken() == "");
    CHECK(SendMessageA(c.control, WM_GETDLGCODE, 0, 0) == DLGC_DEFPUSHBUTTON);
}

TEST_CASE("a press in a pane gives the focus back to the window around it")
{
    eventwindow e(EVENTPLAIN);
    for (bool pane : {true, false}) {
        window inner = taskwindow(WS_CHILD | WS_VISIBLE, e.w);
        HWND control = CreateWindowExA(0, "abx", "\\K1", WS_CHILD | WS_VISIBLE, 10, 10, 50, 20,
                                       taskhandle(inner), reinterpret_cast<HMENU>(INT_PTR{DRAWN}),
                                       GetModuleHandleA(nullptr), nullptr);
        REQUIRE_FALSE(setflags(inner, pane ? WINDOWPANE : 0, 0));
        SetFocus(taskhandle(inner));
        CHECK_FALSE(addclickhandler(tellclick, inner, 0));
        driveiconclick(inner, DRAWN);
        CHECK(taken() == "4 on 20;");
        CHECK(GetFocus() == taskhandle(pane ? e.w : inner));
        CHECK_FALSE(remclickhandler(tellclick, inner, 0));
        DestroyWindow(control);
        CHECK_FALSE(removewindow(&inner));
    }
}

TEST_CASE("the token P is the cursor over a control")
{
    HCURSOR hand = LoadCursorA(GetModuleHandleA(nullptr), "hand"),
            arrow = LoadCursorA(nullptr, IDC_ARROW);
    REQUIRE(hand);
    struct {
        const char *string;
        HCURSOR cursor;
    } rows[] = {
        {"\\sAg\\Pihand", hand},
        {"\\Phand", arrow},
        {"\\P", arrow},
        {"\\Pinone", arrow},
    };
    presscontrol c;
    for (const auto &row : rows) {
        INFO(std::string(row.string));
        c.tooutside();
        CHECK(GetCursor() == arrow);
        c.anew(row.string);
        CHECK(GetCursor() == row.cursor);
    }
    c.anew("\\Pihand");
    hourglasson();
    c.act('m');
    CHECK(GetCursor() == LoadCursorA(nullptr, IDC_WAIT));
    hourglassoff();
    c.act('m');
    CHECK(GetCursor() == hand);
    c.tooutside();
}

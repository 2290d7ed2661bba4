// The looks of drawn controls, pixel by pixel.
#include "base/files.h"
#include "base/messages.h"
#include "desktop/icons.h"
#include "desktop/validation.h"
#include "desktop/win32/abx.h"
#include "graphics/modeinfo.h"
#include "graphics/sprites.h"
#include "tests/desktop/win32/drawncontrol.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/graphics/spritemade.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <initializer_list>
#include <vector>

namespace
{

constexpr COLORREF RED = RGB(255, 0, 0), GREEN = RGB(0, 255, 0), BLUE = RGB(0, 0, 255);
constexpr RECT WHOLE = {0, 0, DRAWNWIDTH, DRAWNHEIGHT};
constexpr int MIDDLEX = DRAWNWIDTH / 2, MIDDLEY = DRAWNHEIGHT / 2;

COLORREF ink()
{
    return GetSysColor(COLOR_MENUTEXT);
}

// One string and what comes of it.
struct lookrow {
    const char *string;
    drawing draw;
};

void check(drawncontrol *c, const lookrow &row)
{
    INFO(std::string(row.string));
    CHECK(difference(c->look(), drawn(DRAWNWIDTH, DRAWNHEIGHT, c->font, row.draw)) == "");
}

void checkrows(drawncontrol *c, const std::vector<lookrow> &rows, DWORD style = 0)
{
    for (const lookrow &row : rows) {
        c->make(row.string, style);
        check(c, row);
    }
}

// Nothing waits to be painted.
bool painted(const drawncontrol &c)
{
    return !GetUpdateRect(c.control, nullptr, FALSE);
}

// Drawings. INMIDDLE is the y of a text in the middle of the height.
constexpr int INMIDDLE = -1;

void nothing(HDC) {}

drawing text(int x, int y, const char *what, COLORREF colour = ink(), UINT align = 0)
{
    return [=](HDC dc) {
        int top = y == INMIDDLE ? (DRAWNHEIGHT - textheight(dc)) / 2 : y;
        drawtext(dc, x, top, what, colour, align);
    };
}

// What is drawn with a colour behind its texts.
drawing behind(COLORREF colour, const drawing &draw)
{
    return [=](HDC dc) {
        SetBkMode(dc, OPAQUE);
        SetBkColor(dc, colour);
        draw(dc);
        SetBkMode(dc, TRANSPARENT);
    };
}

drawing filled(COLORREF colour)
{
    return [=](HDC dc) { drawfill(dc, WHOLE, colour); };
}

drawing edge(UINT kind)
{
    return [=](HDC dc) {
        RECT box = WHOLE;
        DrawEdge(dc, &box, kind, BF_RECT);
    };
}

// A line around the control, which what is drawn later stays inside.
drawing framed(COLORREF colour)
{
    return [=](HDC dc) {
        HBRUSH brush = CreateSolidBrush(colour);
        FrameRect(dc, &WHOLE, brush);
        DeleteObject(brush);
        IntersectClipRect(dc, 1, 1, DRAWNWIDTH - 1, DRAWNHEIGHT - 1);
    };
}

void focus(HDC dc)
{
    SelectClipRgn(dc, nullptr);
    DrawFocusRect(dc, &WHOLE);
}

drawing all(std::initializer_list<drawing> drawings)
{
    return [list = std::vector<drawing>(drawings)](HDC dc) {
        for (const drawing &draw : list)
            draw(dc);
    };
}

} // namespace

TEST_CASE("text stands by its anchors")
{
    drawncontrol c;
    constexpr UINT BOTTOM = TA_BOTTOM, RIGHT = TA_RIGHT, CENTRE = TA_CENTER;
    checkrows(&c,
              {{"\\sAg", text(0, 0, "Ag")},
               {"\\C\\sAg", text(MIDDLEX, 0, "Ag", ink(), CENTRE)},
               {"\\R\\B\\sAg", text(DRAWNWIDTH, DRAWNHEIGHT, "Ag", ink(), RIGHT | BOTTOM)},
               {"\\V\\C\\sAg", text(MIDDLEX, INMIDDLE, "Ag", ink(), CENTRE)},
               {"\\R\\B\\L\\T\\sAg", text(0, 0, "Ag")}, // the last one counts
               {"\\t-0x3\\t0x10\\sAg", text(13, 0, "Ag")},
               {"\\C\\t5\\B\\sAg", text(MIDDLEX + 5, DRAWNHEIGHT, "Ag", ink(), CENTRE | BOTTOM)},
               {"\\R\\t-7\\sAg", text(DRAWNWIDTH - 7, 0, "Ag", ink(), RIGHT)},
               {"\\t7\\L\\sAg", text(0, 0, "Ag")}});
}

TEST_CASE("texts are drawn one over the other, and cut at the control's edges")
{
    drawncontrol c;
    drawing first = text(0, 0, "Ag"), second = text(3, 0, "i");
    COLORREF face = GetSysColor(COLOR_BTNFACE);
    checkrows(&c, {{"Ag", first}, // behind no token
                   {"\\sa\\\\g", text(0, 0, "a\\g")},
                   {"\\sAg\\t3\\si", all({first, behind(face, second)})},
                   {"\\k-1\\sAg\\t3\\si", all({first, second})},
                   {"\\sA long text that can't fit", text(0, 0, "A long text that can't fit")},
                   {"\\E4\\k0xFF000001\\t50\\sMore", // where the edge left off
                    all({framed(ink()), behind(BLUE, text(51, 1, "More"))})},
                   {"\\zAg\\Z\\s", nothing}});
}

TEST_CASE("an edge takes its width from what follows")
{
    drawncontrol c;
    drawing atend = text(DRAWNWIDTH - 1, DRAWNHEIGHT - 1, "Ag", ink(), TA_RIGHT | TA_BOTTOM);
    auto two = [](HDC dc) {
        RECT box = WHOLE;
        DrawEdge(dc, &box, EDGE_RAISED, BF_RECT | BF_ADJUST);
        DrawEdge(dc, &box, EDGE_SUNKEN, BF_RECT);
    };
    checkrows(&c, {{"\\E0", edge(EDGE_BUMP)},
                   {"\\E1", edge(EDGE_ETCHED)},
                   {"\\E2", edge(EDGE_RAISED)},
                   {"\\E3", edge(EDGE_SUNKEN)},
                   {"\\E4", framed(ink())},
                   {"\\E5\\E-1\\sAg", text(0, 0, "Ag")},
                   {"\\g0x0000FF01\\E4", framed(RED)},
                   {"\\E2\\E3\\sAg", all({two, text(4, 4, "Ag")})},
                   {"\\R\\B\\E4\\sAg", all({framed(ink()), atend})}, // held inside
                   {"\\E4\\R\\B\\sAg", all({framed(ink()), atend})},
                   {"\\O0\\E2\\O1\\sAg", text(0, 0, "Ag")}});
}

TEST_CASE("colours of texts, and what is behind them")
{
    drawncontrol c;
    auto coloured = [](COLORREF colour) { return text(0, 0, "Ag", colour); };
    checkrows(&c, {{"\\g0\\sAg", nothing},
                   {"\\g2\\sAg", coloured(modeinfo.desktopcolours[0] >> 8)},
                   {"\\g31\\sAg", coloured(GetSysColor(COLOR_HIGHLIGHT))},
                   {"\\O0\\g0xFF000001\\O1\\sAg", coloured(BLUE)}, // whatever the condition
                   {"\\k0x00FF0001\\k-1\\sAg", coloured(ink())},
                   {"\\k0x00FF0001\\g0xFF01\\C\\V\\sAg",
                    behind(GREEN, text(MIDDLEX, INMIDDLE, "Ag", RED, TA_CENTER))}});
}

TEST_CASE("the background is filled before anything is drawn")
{
    drawncontrol c;
    checkrows(&c, {{"\\k0x00FF0001\\F", filled(GREEN)},
                   {"\\k3\\F", filled(modeinfo.desktopcolours[1] >> 8)},
                   {"\\k31\\F", filled(GetSysColor(COLOR_HIGHLIGHT))},
                   {"\\F", nothing},                  // the colour of buttons
                   {"\\k0\\F", nothing},              // by the system
                   {"\\k-1\\F", filled(DRAWNBEHIND)}, // by nobody
                   {"\\O0\\k0x00FF0001\\O1\\F", nothing},
                   {"\\k0x00FF0001\\O0\\F", filled(GREEN)},
                   {"\\k0x00FF0001\\F\\k-1\\F", filled(GREEN)},
                   {"\\k0x00FF0001\\F\\k-1\\E3\\sAg",
                    all({filled(GREEN), edge(EDGE_SUNKEN), text(2, 2, "Ag")})}});
}

TEST_CASE("underlining holds for the texts behind it")
{
    drawncontrol c;
    drawing plain = text(0, 0, "Ag");
    auto underlined = [&](HDC dc) {
        LOGFONTA description;
        HGDIOBJ own = GetCurrentObject(dc, OBJ_FONT);
        GetObjectA(own, sizeof description, &description);
        description.lfUnderline = TRUE;
        HFONT line = CreateFontIndirectA(&description);
        SelectObject(dc, line);
        plain(dc);
        SelectObject(dc, own);
        DeleteObject(line);
    };
    checkrows(&c, {{"\\u-2\\sAg", underlined}, {"\\sAg\\u1", plain}, {"\\u1\\u0\\sAg", plain}});

    // A control that was given none has the system's, which underlines too.
    HFONT system = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    for (const lookrow &row : {lookrow{"\\sAg", plain}, {"\\u1\\sAg", underlined}}) {
        c.make(row.string);
        SendMessageA(c.control, WM_SETFONT, 0, TRUE);
        CHECK(difference(c.look(), drawn(DRAWNWIDTH, DRAWNHEIGHT, system, row.draw)) == "");
    }
}

TEST_CASE("conditions follow the state, and what changes it paints at once")
{
    struct {
        const char *condition;
        bool shown, focus, selected, disabled;
    } rows[] = {
        {"F", false, false, true, true},    {"F", true, true, false, false},
        {"S", false, true, false, false},   {"S", true, false, true, false},
        {"G", false, true, true, false},    {"G", true, false, false, true},
        {"S-!F", true, false, true, false}, {"S-!F", false, true, true, false},
    };
    drawncontrol c;
    for (const auto &row : rows) {
        // Without a colour for text, and with one's own greying, only fills show.
        std::string string = std::string("\\OG\\O") + row.condition + "\\E4\\O0";
        c.make(string.c_str());
        if (row.focus) CHECK_FALSE(focusicon(c.w, DRAWN));
        CHECK_FALSE(seticonselected(c.w, DRAWN, row.selected));
        CHECK_FALSE(seticonshaded(c.w, DRAWN, row.disabled));
        CHECK(painted(c));
        check(&c, {row.condition,
                   all({row.shown ? framed(ink()) : nothing, row.focus ? focus : nothing})});
        CHECK_FALSE(focuswindow(c.w));
    }
}

TEST_CASE("the focus is shown around everything")
{
    drawncontrol c;
    c.make("\\E2\\sAg");
    drawing look = all({edge(EDGE_RAISED), text(2, 2, "Ag")});
    CHECK_FALSE(focusicon(c.w, DRAWN));
    check(&c, {"with it", all({look, focus})});
    CHECK_FALSE(focuswindow(c.w));
    check(&c, {"without", look});
}

TEST_CASE("what is disabled is grey, unless its string sees to that")
{
    drawncontrol c;
    drawing light = text(1, 1, "Ag", GetSysColor(COLOR_3DHILIGHT));
    drawing dark = text(0, 0, "Ag", GetSysColor(COLOR_GRAYTEXT));
    checkrows(&c,
              {{"\\g0xFF000001\\sAg", all({light, dark})},
               {"\\k0x00FF0001\\sAg", all({behind(GREEN, light), dark})},
               {"\\OG\\g0xFF000001\\sAg", text(0, 0, "Ag", BLUE)},
               {"\\O!G\\sno\\O1\\sAg", text(0, 0, "Ag")}},
              WS_DISABLED);
    c.make("\\sAg");
    CHECK_FALSE(shadeicon(c.w, DRAWN));
    check(&c, {"disabled", all({light, dark})});
}

TEST_CASE("tokens of a text are looked up when it is drawn")
{
    const char before[] = "NAME:Ag\nWORD:{NAME}g\n", after[] = "NAME:Bo\n";
    drawncontrol c;
    REQUIRE_FALSE(addtranstext(before, sizeof before - 1));
    checkrows(&c, {{"\\s{WORD}i", text(0, 0, "Aggi")}});
    CHECK_FALSE(seticontext(c.w, DRAWN, "{NAME}"));
    CHECK(drivetext(c.w, DRAWN) == "{NAME}");
    check(&c, {"set", text(0, 0, "Ag")});
    endtrans();
    REQUIRE_FALSE(addtranstext(after, sizeof after - 1));
    CHECK_FALSE(redrawicon(c.w, DRAWN));
    check(&c, {"changed", text(0, 0, "Bo")});
    endtrans();
}

namespace
{

constexpr int SPRITEWIDTH = 6, SPRITEHEIGHT = 4;

spritemade boxsprite()
{
    spritemade made = spritestriped(4, SPRITEWIDTH, SPRITEHEIGHT, false);
    made.name = "box";
    return made;
}

// A control, and a pool with that one sprite.
struct spritecontrol : drawncontrol {
    spritecontrol()
    {
        std::string folder = scratchfolder();
        std::string file = spritefile({spritebytes(boxsprite())});
        REQUIRE_FALSE(filesave((folder + "\\Test.spr").c_str(), 0, file.data(),
                               static_cast<int32_t>(file.size())));
        REQUIRE_FALSE(initsprites());
        REQUIRE_FALSE(addspritesshared(folder.c_str(), "Test.spr"));
    }
    ~spritecontrol()
    {
        endsprites();
    }
};

void drawsprite(HDC dc, int x, int y, bool greyed = false)
{
    for (int down = 0; down < SPRITEHEIGHT; down++)
        for (int right = 0; right < SPRITEWIDTH; right++) {
            auto rgb = static_cast<uint32_t>(spritecolourat(boxsprite(), right, down, greyed));
            SetPixelV(dc, x + right, y + down, RGB(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255));
        }
}

drawing sprites(std::initializer_list<POINT> places)
{
    return [list = std::vector<POINT>(places)](HDC dc) {
        for (POINT place : list)
            drawsprite(dc, place.x, place.y);
    };
}

// An icon of the program, as the system draws it.
drawing programicon(int x, int y, int size)
{
    return [=](HDC dc) {
        HANDLE loaded =
            LoadImageA(GetModuleHandleA(nullptr), "!Quillmere", IMAGE_ICON, size, size, 0);
        REQUIRE(loaded);
        DrawIconEx(dc, x, y, static_cast<HICON>(loaded), size, size, 0, nullptr, DI_NORMAL);
        DestroyIcon(static_cast<HICON>(loaded));
    };
}

} // namespace

TEST_CASE("sprites stand by their anchors, one behind the other")
{
    spritecontrol c;
    constexpr int LASTX = DRAWNWIDTH - SPRITEWIDTH, LASTY = DRAWNHEIGHT - SPRITEHEIGHT;
    constexpr int MIDX = MIDDLEX - SPRITEWIDTH / 2, MIDY = MIDDLEY - SPRITEHEIGHT / 2;
    checkrows(&c, {{"\\abox", sprites({{0, 0}})},
                   {"\\abox\\t2\\abox", sprites({{0, 0}, {SPRITEWIDTH + 2, 0}})},
                   {"\\C\\V\\abox", sprites({{MIDX, MIDY}})},
                   {"\\V\\C\\abox\\B\\abox", sprites({{MIDX, MIDY}, {MIDX, LASTY}})},
                   {"\\R\\B\\abox\\abox", sprites({{LASTX, LASTY}, {LASTX - SPRITEWIDTH, LASTY}})},
                   {"\\anone\\abox", sprites({{0, 0}})},
                   {"\\O0\\abox\\O1\\abox", sprites({{0, 0}})},
                   {"\\abox\\sAg", all({sprites({{0, 0}}), text(SPRITEWIDTH, 0, "Ag")})}});
    checkrows(
        &c,
        {{"\\abox", [](HDC dc) { drawsprite(dc, 0, 0, true); }}, {"\\OG\\abox", sprites({{0, 0}})}},
        WS_DISABLED);
}

TEST_CASE("icons stand by their anchors too")
{
    drawncontrol c;
    constexpr int LOW = DRAWNHEIGHT - 16;
    checkrows(
        &c, {{"\\i!Quillmere\\sAg", all({programicon(0, 0, 16), text(16, 0, "Ag")})},
             {"\\I!Quillmere\\sAg", all({programicon(0, 0, 32), text(32, 0, "Ag")})},
             {"\\R\\B\\i!Quillmere\\i!Quillmere",
              all({programicon(DRAWNWIDTH - 16, LOW, 16), programicon(DRAWNWIDTH - 32, LOW, 16)})},
             {"\\inone\\Inone\\sAg", text(0, 0, "Ag")}});
}

namespace
{

std::string stringof(HWND control)
{
    char string[VALIDATIONSIZE];
    abxstring(control, string);
    return string;
}

} // namespace

TEST_CASE("the text of a drawn control is its token s, and changes show at once")
{
    drawncontrol c;
    c.make("\\E3\\K1\\sAg\\u0");
    CHECK(drivetext(c.w, DRAWN) == "Ag");
    CHECK_FALSE(seticontext(c.w, DRAWN, "C:\\Bo\\"));
    CHECK(stringof(c.control) == "\\E3\\K1\\sC:\\\\Bo\\\\\\u0");
    CHECK(GetWindowTextLengthA(c.control) == 6);
    char buffer[4];
    CHECK_FALSE(copyicontext(c.w, DRAWN, buffer, sizeof buffer));
    CHECK(std::string(buffer) == "C:\\");
    CHECK(painted(c));
    check(&c, {"set", all({edge(EDGE_SUNKEN), text(2, 2, "C:\\Bo\\")})});

    c.make("\\E3");
    CHECK(drivetext(c.w, DRAWN) == "");
    CHECK_FALSE(seticontext(c.w, DRAWN, "Ag"));
    CHECK(stringof(c.control) == "\\E3\\sAg");

    // As much as fits.
    CHECK_FALSE(seticontext(c.w, DRAWN, std::string(2000, 'i').c_str()));
    CHECK(drivetext(c.w, DRAWN) == std::string(VALIDATIONSIZE - 6, 'i'));
    CHECK(stringof(c.control).substr(0, 6) == "\\E3\\si");
}

TEST_CASE("colours and tokens of a drawn control are replaced")
{
    drawncontrol c;
    c.make("\\g2\\k3\\F\\sAg");
    CHECK_FALSE(setcolours(c.w, DRAWN, 0xFF000001, 0x00FF0001));
    CHECK(stringof(c.control) == "\\g0xff000001\\k0xff0001\\F\\sAg");
    CHECK(painted(c));
    check(&c, {"coloured", all({filled(GREEN), text(0, 0, "Ag", BLUE)})});
    CHECK_FALSE(settoken(c.w, DRAWN, 't', "20"));
    CHECK(stringof(c.control) == "\\g0xff000001\\k0xff0001\\F\\sAg\\t20");
    CHECK_FALSE(settoken(c.w, DRAWN, 's', "a\\b"));
    CHECK(drivetext(c.w, DRAWN) == "a\\b");

    // What nobody erases shows the window, and then the new text alone.
    c.make("\\k-1\\F\\sWide");
    CHECK_FALSE(seticontext(c.w, DRAWN, "i"));
    CHECK(painted(c));
    check(&c, {"through", all({filled(DRAWNBEHIND), text(0, 0, "i")})});
}

TEST_CASE("a control has the size that its looks are drawn for, down to nothing")
{
    drawncontrol c;
    for (SIZE size : {SIZE{5, 30}, SIZE{1, 1}}) {
        c.make("\\E2\\E3\\R\\B\\C\\V\\sAg");
        c.size(size.cx, size.cy);
        drivepicture seen = c.look();
        CHECK(seen.width == size.cx);
        CHECK(painted(c));
    }
    c.make("\\E2");
    c.size(0, 0);
    CHECK_FALSE(redrawicon(c.w, DRAWN));
    c.size(DRAWNWIDTH, DRAWNHEIGHT);
    check(&c, {"large again", edge(EDGE_RAISED)});
}

TEST_CASE("paints leave nothing of the system's behind")
{
    spritecontrol c;
    c.make("\\k3\\F\\E4\\I!Quillmere\\i!Quillmere\\abox\\u1\\g0xFF01\\sAg");
    c.look();
    drivecounts before = drivecountnow();
    for (int i = 0; i < 50; i++)
        abxpaintnow(c.control);
    drivecounts after = drivecountnow();
    CHECK(before.gdiobjects > 0);
    CHECK(after.gdiobjects == before.gdiobjects);
    CHECK(after.userobjects == before.userobjects);
}

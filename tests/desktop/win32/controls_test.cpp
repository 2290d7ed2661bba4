// The looks of drawn controls, pixel by pixel.
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

#include <cstdio>
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

void nothing(HDC) {}

// Nothing waits to be painted.
bool painted(const drawncontrol &c)
{
    return !GetUpdateRect(c.control, nullptr, FALSE);
}

// Text at the left, in the middle of the height.
int middle(HDC dc)
{
    return (DRAWNHEIGHT - textheight(dc)) / 2;
}

void frame(HDC dc, RECT box, COLORREF colour)
{
    HBRUSH brush = CreateSolidBrush(colour);
    FrameRect(dc, &box, brush);
    DeleteObject(brush);
}

drawing edge(UINT kind)
{
    return [kind](HDC dc) {
        RECT box = WHOLE;
        DrawEdge(dc, &box, kind, BF_RECT);
    };
}

drawing text(int x, int y, const char *what)
{
    return [=](HDC dc) { drawtext(dc, x, y, what, ink()); };
}

drawing filled(COLORREF colour)
{
    return [=](HDC dc) { drawfill(dc, WHOLE, colour); };
}

} // namespace

TEST_CASE("text stands by its anchors")
{
    drawncontrol c;
    struct {
        const char *tokens;
        int x, y;
        UINT align;
    } rows[] = {
        {"", 0, 0, 0},
        {"\\C", MIDDLEX, 0, TA_CENTER},
        {"\\R", DRAWNWIDTH, 0, TA_RIGHT},
        {"\\B", 0, DRAWNHEIGHT, TA_BOTTOM},
        {"\\R\\B", DRAWNWIDTH, DRAWNHEIGHT, TA_RIGHT | TA_BOTTOM},
        {"\\C\\B", MIDDLEX, DRAWNHEIGHT, TA_CENTER | TA_BOTTOM},
        {"\\V", 0, -1, 0},
        {"\\V\\C", MIDDLEX, -1, TA_CENTER},
        {"\\R\\V", DRAWNWIDTH, -1, TA_RIGHT},
        {"\\R\\B\\L\\T", 0, 0, 0}, // the last one counts
        {"\\t12", 12, 0, 0},
        {"\\t-0x3\\t0x10", 13, 0, 0},
        {"\\C\\t5\\B", MIDDLEX + 5, DRAWNHEIGHT, TA_CENTER | TA_BOTTOM},
        {"\\R\\t-7", DRAWNWIDTH - 7, 0, TA_RIGHT},
        {"\\t7\\L", 0, 0, 0},
    };
    for (const auto &row : rows) {
        std::string string = row.tokens + std::string("\\sAg");
        checkrows(&c, {{string.c_str(), [&](HDC dc) {
                            int y = row.y == -1 ? middle(dc) : row.y;
                            drawtext(dc, row.x, y, "Ag", ink(), row.align);
                        }}});
    }
}

TEST_CASE("texts are drawn one over the other, and cut at the control's edges")
{
    drawncontrol c;
    checkrows(&c, {{"Ag", text(0, 0, "Ag")}, // behind no token
                   {"\\sa\\\\g", text(0, 0, "a\\g")},
                   {"\\sAg\\t3\\si", // each on its own background
                    [](HDC dc) {
                        drawtext(dc, 0, 0, "Ag", ink());
                        SetBkMode(dc, OPAQUE);
                        SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
                        drawtext(dc, 3, 0, "i", ink());
                    }},
                   {"\\k-1\\sAg\\t3\\si",
                    [](HDC dc) {
                        drawtext(dc, 0, 0, "Ag", ink());
                        drawtext(dc, 3, 0, "i", ink());
                    }},
                   {"\\sA long text that can't fit", text(0, 0, "A long text that can't fit")},
                   {"\\E4\\k0xFF000001\\t50\\sMore",
                    [](HDC dc) {
                        frame(dc, WHOLE, ink());
                        IntersectClipRect(dc, 1, 1, DRAWNWIDTH - 1, DRAWNHEIGHT - 1);
                        SetBkMode(dc, OPAQUE);
                        SetBkColor(dc, BLUE);
                        drawtext(dc, 51, 1, "More", ink()); // where the edge left off
                    }},
                   {"", nothing},
                   {"\\", nothing},
                   {"\\zAg\\Z\\s", nothing}});
}

TEST_CASE("an edge takes its width from what follows")
{
    drawncontrol c;
    checkrows(
        &c, {{"\\E0", edge(EDGE_BUMP)},
             {"\\E1", edge(EDGE_ETCHED)},
             {"\\E2", edge(EDGE_RAISED)},
             {"\\E3", edge(EDGE_SUNKEN)},
             {"\\E0x3", edge(EDGE_SUNKEN)},
             {"\\E4", [](HDC dc) { frame(dc, WHOLE, ink()); }},
             {"\\E5\\E-1\\sAg", text(0, 0, "Ag")},
             {"\\g0x0000FF01\\E4", [](HDC dc) { frame(dc, WHOLE, RED); }},
             {"\\E2\\E3\\sAg",
              [](HDC dc) {
                  RECT box = WHOLE;
                  DrawEdge(dc, &box, EDGE_RAISED, BF_RECT | BF_ADJUST);
                  DrawEdge(dc, &box, EDGE_SUNKEN, BF_RECT);
                  drawtext(dc, 4, 4, "Ag", ink());
              }},
             {"\\R\\B\\E4\\sAg", // both are held inside
              [](HDC dc) {
                  frame(dc, WHOLE, ink());
                  IntersectClipRect(dc, 1, 1, DRAWNWIDTH - 1, DRAWNHEIGHT - 1);
                  drawtext(dc, DRAWNWIDTH - 1, DRAWNHEIGHT - 1, "Ag", ink(), TA_RIGHT | TA_BOTTOM);
              }},
             {"\\E4\\R\\B\\sAg",
              [](HDC dc) {
                  frame(dc, WHOLE, ink());
                  drawtext(dc, DRAWNWIDTH - 1, DRAWNHEIGHT - 1, "Ag", ink(), TA_RIGHT | TA_BOTTOM);
              }},
             {"\\O0\\E2\\sAg", nothing},
             {"\\O0\\E2\\O1\\sAg", text(0, 0, "Ag")}});
}

TEST_CASE("colours of texts, and what is behind them")
{
    drawncontrol c;
    auto coloured = [](COLORREF colour) {
        return [=](HDC dc) { drawtext(dc, 0, 0, "Ag", colour); };
    };
    auto palette = [](int number) { return modeinfo.desktopcolours[number] >> 8; };
    checkrows(&c, {{"\\g0xFF000001\\sAg", coloured(BLUE)},
                   {"\\g255\\sAg", nothing},
                   {"\\g-1\\sAg", nothing},
                   {"\\g0\\sAg", nothing},
                   {"\\g2\\sAg", coloured(palette(0))},
                   {"\\g0x11\\sAg", coloured(palette(15))},
                   {"\\g31\\sAg", coloured(GetSysColor(COLOR_HIGHLIGHT))},
                   {"\\O0\\g0xFF000001\\O1\\sAg", coloured(BLUE)}, // whatever the condition
                   {"\\sAg\\g0xFF000001", coloured(ink())},
                   {"\\k0x00FF0001\\sAg",
                    [](HDC dc) {
                        SetBkMode(dc, OPAQUE);
                        SetBkColor(dc, GREEN);
                        drawtext(dc, 0, 0, "Ag", ink());
                    }},
                   {"\\k0x00FF0001\\k-1\\sAg", coloured(ink())},
                   {"\\k0x00FF0001\\g0xFF01\\C\\V\\sAg", [](HDC dc) {
                        SetBkMode(dc, OPAQUE);
                        SetBkColor(dc, GREEN);
                        drawtext(dc, MIDDLEX, middle(dc), "Ag", RED, TA_CENTER);
                    }}});
}

TEST_CASE("the background is filled before anything is drawn")
{
    drawncontrol c;
    auto palette = [](int number) { return modeinfo.desktopcolours[number] >> 8; };
    checkrows(&c, {{"\\k0x00FF0001\\F", filled(GREEN)},
                   {"\\k0x00FF0001\\F\\k0x0000FF01", filled(GREEN)},
                   {"\\k3\\F", filled(palette(1))},
                   {"\\k31\\F", filled(GetSysColor(COLOR_HIGHLIGHT))},
                   {"\\F", nothing},                  // the colour of buttons
                   {"\\k0\\F", nothing},              // by the system
                   {"\\k-1\\F", filled(DRAWNBEHIND)}, // by nobody
                   {"\\k-1", nothing},
                   {"\\O0\\k0x00FF0001\\O1\\F", nothing},
                   {"\\O0\\k0x00FF0001\\F", nothing},
                   {"\\k0x00FF0001\\O0\\F", filled(GREEN)},
                   {"\\k0x00FF0001\\F\\k-1\\F", filled(GREEN)},
                   {"\\k0x00FF0001\\F\\k-1\\E3\\sAg", [](HDC dc) {
                        drawfill(dc, WHOLE, GREEN);
                        edge(EDGE_SUNKEN)(dc);
                        drawtext(dc, 2, 2, "Ag", ink());
                    }}});
}

TEST_CASE("underlining holds for the texts behind it")
{
    drawncontrol c;
    auto underlined = [](HDC dc) {
        LOGFONTA description;
        HGDIOBJ own = GetCurrentObject(dc, OBJ_FONT);
        GetObjectA(own, sizeof description, &description);
        description.lfUnderline = TRUE;
        HFONT line = CreateFontIndirectA(&description);
        SelectObject(dc, line);
        drawtext(dc, 0, 0, "Ag", ink());
        SelectObject(dc, own);
        DeleteObject(line);
    };
    checkrows(&c, {{"\\u1\\sAg", underlined},
                   {"\\u-2\\sAg", underlined},
                   {"\\u1\\u1\\sAg", underlined},
                   {"\\sAg\\u1", text(0, 0, "Ag")},
                   {"\\u1\\u0\\sAg", text(0, 0, "Ag")},
                   {"\\u0\\sAg", text(0, 0, "Ag")}});

    // A control that was given none has the system's, which underlines too.
    HFONT system = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    for (const char *string : {"\\sAg", "\\u1\\sAg"}) {
        c.make(string);
        SendMessageA(c.control, WM_SETFONT, 0, TRUE);
        drawing draw = text(0, 0, "Ag");
        if (string[1] == 'u') draw = underlined;
        CHECK(difference(c.look(), drawn(DRAWNWIDTH, DRAWNHEIGHT, system, draw)) == "");
    }
}

TEST_CASE("conditions follow the state, and what changes it paints at once")
{
    struct {
        const char *condition;
        bool shown, focus, selected, disabled;
    } rows[] = {
        {"F", false, false, false, false},  {"F", true, true, false, false},
        {"S", false, true, false, false},   {"S", true, false, true, false},
        {"G", false, false, true, false},   {"G", true, false, false, true},
        {"M", false, true, true, false},    {"!P+0", true, false, false, false},
        {"S-!F", true, false, true, false}, {"S-!F", false, true, true, false},
    };
    drawncontrol c;
    for (const auto &row : rows) {
        INFO(std::string(row.condition));
        // Without a colour for text, and with one's own greying, only fills show.
        std::string string = std::string("\\OG\\O") + row.condition + "\\E4\\O0";
        c.make(string.c_str());
        if (row.focus) CHECK_FALSE(focusicon(c.w, DRAWN));
        CHECK_FALSE(seticonselected(c.w, DRAWN, row.selected));
        CHECK_FALSE(seticonshaded(c.w, DRAWN, row.disabled));
        CHECK(painted(c));
        drivepicture expected = drawn(DRAWNWIDTH, DRAWNHEIGHT, c.font, [&](HDC dc) {
            if (row.shown) frame(dc, WHOLE, ink());
            RECT whole = WHOLE;
            if (row.focus) DrawFocusRect(dc, &whole);
        });
        CHECK(difference(c.look(), expected) == "");
        CHECK_FALSE(focuswindow(c.w));
    }
}

TEST_CASE("the focus is shown around everything")
{
    drawncontrol c;
    c.make("\\E2\\E4\\sAg");
    drivepicture without = c.look();
    CHECK_FALSE(focusicon(c.w, DRAWN));
    CHECK(difference(c.look(), drawn(DRAWNWIDTH, DRAWNHEIGHT, c.font, [](HDC dc) {
                         RECT box = WHOLE, whole = WHOLE;
                         DrawEdge(dc, &box, EDGE_RAISED, BF_RECT | BF_ADJUST);
                         frame(dc, box, ink());
                         drawtext(dc, 3, 3, "Ag", ink());
                         DrawFocusRect(dc, &whole);
                     })) == "");
    CHECK_FALSE(focuswindow(c.w));
    CHECK(difference(c.look(), without) == "");
}

TEST_CASE("what is disabled is grey, unless its string sees to that")
{
    drawncontrol c;
    auto grey = [](HDC dc) {
        drawtext(dc, 1, 1, "Ag", GetSysColor(COLOR_3DHILIGHT));
        drawtext(dc, 0, 0, "Ag", GetSysColor(COLOR_GRAYTEXT));
    };
    checkrows(&c,
              {{"\\sAg", grey},
               {"\\g0xFF000001\\sAg", grey},
               {"\\g-1\\sAg", grey},
               {"\\k0x00FF0001\\sAg",
                [&](HDC dc) {
                    SetBkMode(dc, OPAQUE);
                    SetBkColor(dc, GREEN);
                    drawtext(dc, 1, 1, "Ag", GetSysColor(COLOR_3DHILIGHT));
                    SetBkMode(dc, TRANSPARENT);
                    drawtext(dc, 0, 0, "Ag", GetSysColor(COLOR_GRAYTEXT));
                }},
               {"\\OG\\g0xFF000001\\sAg", [](HDC dc) { drawtext(dc, 0, 0, "Ag", BLUE); }},
               {"\\O!G\\sno\\O1\\sAg", text(0, 0, "Ag")}},
              WS_DISABLED);
    c.make("\\sAg", WS_DISABLED);
    CHECK_FALSE(unshadeicon(c.w, DRAWN));
    check(&c, {"enabled", text(0, 0, "Ag")});
    CHECK_FALSE(shadeicon(c.w, DRAWN));
    check(&c, {"disabled", grey});
}

TEST_CASE("tokens of a text are looked up when it is drawn")
{
    const char before[] = "NAME:Ag\nWORD:{NAME}g\n", after[] = "NAME:Bo\n";
    drawncontrol c;
    REQUIRE_FALSE(addtranstext(before, sizeof before - 1));
    checkrows(&c, {{"\\s{NAME}", text(0, 0, "Ag")}, {"\\s{WORD}i", text(0, 0, "Aggi")}});
    c.make("\\s");
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
        FILE *f = fopen((folder + "\\Test.spr").c_str(), "wb");
        REQUIRE(f);
        fwrite(file.data(), 1, file.size(), f);
        fclose(f);
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
                   {"\\aBOX", sprites({{0, 0}})},
                   {"\\abox\\t2\\abox", sprites({{0, 0}, {SPRITEWIDTH + 2, 0}})},
                   {"\\C\\V\\abox", sprites({{MIDX, MIDY}})},
                   {"\\V\\C\\abox\\B\\abox", sprites({{MIDX, MIDY}, {MIDX, LASTY}})},
                   {"\\R\\B\\abox\\abox", sprites({{LASTX, LASTY}, {LASTX - SPRITEWIDTH, LASTY}})},
                   {"\\E2\\R\\B\\abox",
                    [](HDC dc) {
                        edge(EDGE_RAISED)(dc);
                        drawsprite(dc, LASTX - 2, LASTY - 2);
                    }},
                   {"\\anone\\abox", sprites({{0, 0}})},
                   {"\\O0\\abox\\O1\\abox", sprites({{0, 0}})},
                   {"\\abox\\sAg", [](HDC dc) {
                        drawsprite(dc, 0, 0);
                        drawtext(dc, SPRITEWIDTH, 0, "Ag", ink());
                    }}});
    checkrows(
        &c,
        {{"\\abox", [](HDC dc) { drawsprite(dc, 0, 0, true); }}, {"\\OG\\abox", sprites({{0, 0}})}},
        WS_DISABLED);
}

TEST_CASE("icons stand by their anchors too")
{
    drawncontrol c;
    auto both = [](drawing first, drawing second) {
        return [=](HDC dc) {
            first(dc);
            second(dc);
        };
    };
    checkrows(&c, {{"\\i!Quillmere\\sAg", both(programicon(0, 0, 16), text(16, 0, "Ag"))},
                   {"\\I!Quillmere\\sAg", both(programicon(0, 0, 32), text(32, 0, "Ag"))},
                   {"\\R\\B\\i!Quillmere\\i!Quillmere",
                    both(programicon(DRAWNWIDTH - 16, DRAWNHEIGHT - 16, 16),
                         programicon(DRAWNWIDTH - 32, DRAWNHEIGHT - 16, 16))},
                   {"\\C\\V\\I!Quillmere", programicon(MIDDLEX - 16, MIDDLEY - 16, 32)},
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
    CHECK(drivetext(c.w, DRAWN) == "C:\\Bo\\");
    CHECK(GetWindowTextLengthA(c.control) == 6);
    char buffer[4];
    CHECK_FALSE(copyicontext(c.w, DRAWN, buffer, sizeof buffer));
    CHECK(std::string(buffer) == "C:\\");
    CHECK(painted(c));
    drivepicture now = c.look();
    auto expected = [](HDC dc) {
        edge(EDGE_SUNKEN)(dc);
        drawtext(dc, 2, 2, "C:\\Bo\\", ink());
    };
    CHECK(difference(now, drawn(DRAWNWIDTH, DRAWNHEIGHT, c.font, expected)) == "");

    CHECK_FALSE(seticontext(c.w, DRAWN, ""));
    CHECK(stringof(c.control) == "\\E3\\K1\\s\\u0");
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
    drivepicture now = c.look();
    auto expected = [](HDC dc) {
        drawfill(dc, WHOLE, GREEN);
        drawtext(dc, 0, 0, "Ag", BLUE);
    };
    CHECK(difference(now, drawn(DRAWNWIDTH, DRAWNHEIGHT, c.font, expected)) == "");
    CHECK_FALSE(settoken(c.w, DRAWN, 't', "20"));
    CHECK(stringof(c.control) == "\\g0xff000001\\k0xff0001\\F\\sAg\\t20");
    CHECK_FALSE(settoken(c.w, DRAWN, 's', "a\\b"));
    CHECK(drivetext(c.w, DRAWN) == "a\\b");

    // What nobody erases shows the window, and then the new text alone.
    c.make("\\k-1\\F\\sWide");
    CHECK_FALSE(seticontext(c.w, DRAWN, "i"));
    CHECK(painted(c));
    now = c.look();
    auto through = [](HDC dc) {
        drawfill(dc, WHOLE, DRAWNBEHIND);
        drawtext(dc, 0, 0, "i", ink());
    };
    CHECK(difference(now, drawn(DRAWNWIDTH, DRAWNHEIGHT, c.font, through)) == "");
}

TEST_CASE("a control has the size that its looks are drawn for, down to nothing")
{
    drawncontrol c;
    for (SIZE size : {SIZE{5, 30}, SIZE{3, 3}, SIZE{1, 1}}) {
        c.make("\\E2\\E3\\R\\B\\C\\V\\sAg");
        c.size(size.cx, size.cy);
        drivepicture seen = c.look();
        CHECK(seen.width == size.cx);
        CHECK(painted(c));
    }
    c.size(0, 0);
    CHECK_FALSE(redrawicon(c.w, DRAWN));
    c.size(DRAWNWIDTH, DRAWNHEIGHT);
    settoken(c.w, DRAWN, 's', "");
    check(&c, {"large again", [](HDC dc) {
                   RECT box = WHOLE;
                   DrawEdge(dc, &box, EDGE_RAISED, BF_RECT | BF_ADJUST);
                   DrawEdge(dc, &box, EDGE_SUNKEN, BF_RECT);
               }});
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

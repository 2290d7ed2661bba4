// Drawn controls: what they report under a real pointer, and how they look, pixel
// by pixel against what the system's own calls draw. Rows of combo and list boxes
// are drawn the same way.
#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/messages.h"
#include "desktop/combo.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "desktop/press.h"
#include "desktop/validation.h"
#include "desktop/win32/abx.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "graphics/sprites.h"
#include "tests/desktop/win32/script.h"
#include "tests/graphics/spritemade.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <cstring>
#include <sstream>
#include <vector>

namespace
{

constexpr int32_t LOOKS = 20;          // the control's number
constexpr int WIDTH = 60, HEIGHT = 40; // its size, in pixels
constexpr RECT WHOLE = {0, 0, WIDTH, HEIGHT};
constexpr COLORREF BEHIND = RGB(0, 200, 200); // the window's

// A window with one drawn control, made from its string.
struct drawnscript : script {
    HFONT font = CreateFontA(-13, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0,
                             NONANTIALIASED_QUALITY, 0, "Arial");
    HWND control = nullptr;
    int made = 0;

    explicit drawnscript(const char *handlers = "") : script(PLAIN, handlers)
    {
        REQUIRE_FALSE(setbackground(w, static_cast<uint32_t>(BEHIND) << 8 | 1));
        drivemove(0, 0);
    }
    ~drawnscript()
    {
        if (control) DestroyWindow(control);
        DeleteObject(font);
    }
    void make(const char *string, DWORD style = 0, int left = 20)
    {
        if (control) DestroyWindow(control);
        control = CreateWindowExA(0, "abx", string, WS_CHILD | style, left, 30, WIDTH, HEIGHT,
                                  handleof(w), reinterpret_cast<HMENU>(INT_PTR{LOOKS}),
                                  GetModuleHandleA(nullptr), nullptr);
        REQUIRE(control);
        SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        ShowWindow(control, SW_SHOW);
        drivepump();
    }
    // With the pointer over it, and somewhere else than the one before, whose presses
    // would make double clicks of its own.
    void anew(const char *string)
    {
        make(string, 0, made++ % 2 ? 200 : 20);
        act("on 20");
    }
    std::string letters(const char *actions);
};

// Each letter, and the buttons that came of it: p and r press and release the left
// button, P and R the right one; m moves on the control, b goes back to its middle,
// o goes off it.
std::string drawnscript::letters(const char *actions)
{
    std::string told;
    for (; *actions; actions++) {
        const char *move = made++ % 2 ? "on 20; by 10 0" : "on 20; by 15 0";
        const char *does = *actions == 'p'   ? "press"
                           : *actions == 'r' ? "release"
                           : *actions == 'P' ? "Press"
                           : *actions == 'R' ? "Release"
                           : *actions == 'm' ? move
                           : *actions == 'b' ? "on 20"
                                             : "at 130 150";
        told += *actions + act(does);
    }
    return told;
}

} // namespace

TEST_CASE("what is reported, and when, by the letters of K; and its control may go at once")
{
    const struct {
        const char *string, *actions, *told;
    } rows[] = {
        {"\\K1", "pobr", "p4 obr"},
        {"\\K1", "PR", "P1 R"},
        {"\\KR1", "pobr", "pobr4 "},
        {"\\KR1", "PR", "PR1 "},
        {"\\KR1", "por", "por"},
        {"\\K12", "prpr", "p4 rp1024 r"},
        {"\\K1R2", "PRPR", "P1 RPR256 "},
        {"\\K1", "prpr", "p4 rpr"}, // the second press is a double click
        {"\\KD", "por", "po64 r"},
        {"\\KD", "PmmR", "Pm16 mR"},
        {"\\KDR1", "pmr", "pm64 r4 "},
        {"\\E2", "prpmr", "prpmr"},
    };
    drawnscript d("calls");
    bool removes = false;
    onclick = [&](mouserecord *mouse) -> errorblock * {
        CHECK(mouse->icon == LOOKS);
        said("%d ", static_cast<int>(mouse->buttons));
        return removes ? deleteicon(d.w, LOOKS) : nullptr;
    };
    for (bool goes : {false, true})
        for (const auto &r : rows) {
            INFO(std::string(r.string));
            CAPTURE(goes);
            removes = goes;
            std::string told = r.told, first = told.substr(0, told.find(' ') + 1);
            if (goes && first.empty()) continue;
            d.anew(r.string);
            std::string actions(r.actions, goes ? std::strcspn(r.told, "0123456789") : 9);
            CHECK(d.letters(actions.c_str()) == (goes ? first : told));
            if (goes) d.control = nullptr;
            CHECK((drivecontrol(d.w, LOOKS) == 0) == goes);
            CHECK((press.word & (PRESSLEFT | PRESSRIGHT | PRESSLOOKS)) == 0);
            d.act("release; Release; at 130 150");
            CHECK(GetCapture() == nullptr);
        }
    // The system's own ways to press a button do nothing, and Return takes it for one.
    d.anew("\\K12R12A");
    SendMessageA(d.control, BM_CLICK, 0, 0);
    CHECK(d.act("wait 20") == "");
    CHECK(SendMessageA(d.control, WM_GETDLGCODE, 0, 0) == DLGC_DEFPUSHBUTTON);
}

TEST_CASE("a held button repeats after a pause, while the pointer is over the control")
{
    drawnscript d("click");
    d.anew("\\KA");
    DWORD start = GetTickCount();
    CHECK(d.act("press") == "click 4 20;");
    std::string told;
    REQUIRE(drivewait([&] { return (told += taken()) != ""; }, 3000));
    CHECK(GetTickCount() - start >= 450);
    REQUIRE(drivewait([&] { return (told += taken()).size() >= 20; }, 3000));
    d.act("at 130 150");
    CHECK(d.act("wait 300") == "");
    CHECK(d.act("on 20; wait 300") != "");
    d.act("release");
    CHECK(d.act("wait 300") == "");
}

TEST_CASE("movements over a control are told with its number, wherever the pointer is held")
{
    drawnscript d("mouse3");
    d.anew("\\KR1");
    d.play({{"by 5 0", "mouse3 20;"}, {"press; by 5 0", "*"}, {"at 130 150", "mouse3 20;*"}});
    d.act("release");

    // A press in a pane gives the focus back to the window around it.
    for (bool pane : {true, false}) {
        window inner = taskwindow(WS_CHILD | WS_VISIBLE, d.w);
        CreateWindowExA(0, "abx", "\\K1", WS_CHILD | WS_VISIBLE, 10, 90, 50, 20, handleof(inner),
                        reinterpret_cast<HMENU>(INT_PTR{7}), GetModuleHandleA(nullptr), nullptr);
        REQUIRE_FALSE(setflags(inner, pane ? WINDOWPANE : 0, 0));
        SetFocus(handleof(inner));
        driveiconclick(inner, 7);
        CHECK(GetFocus() == handleof(pane ? d.w : inner));
        CHECK_FALSE(removewindow(&inner));
    }
}

TEST_CASE("the token P is the cursor over a control, unless the program is busy")
{
    const struct {
        const char *string, *cursor;
    } rows[] = {{"\\sAg\\Pihand", "hand;"},
                {"\\Phand", "arrow;"},
                {"\\P", "arrow;"},
                {"\\Pinone", "arrow;"},
                {"\\Pihand", "hand;"}};
    drawnscript d;
    for (const auto &r : rows) {
        INFO(std::string(r.string));
        CHECK(d.act("at 130 150; ?cursor") == "arrow;");
        d.anew(r.string);
        CHECK(d.act("?cursor") == r.cursor);
    }
    hourglasson();
    CHECK(d.act("by 5 0; ?cursor") == "wait;");
    hourglassoff();
    CHECK(d.act("by 5 0; ?cursor; at 130 150") == "hand;");
}

namespace
{

COLORREF colournamed(const std::string &name)
{
    const struct {
        const char *name;
        COLORREF colour;
    } names[] = {{"red", RGB(255, 0, 0)},
                 {"green", RGB(0, 255, 0)},
                 {"blue", RGB(0, 0, 255)},
                 {"window", BEHIND},
                 {"ink", GetSysColor(COLOR_MENUTEXT)},
                 {"face", GetSysColor(COLOR_BTNFACE)},
                 {"paper", GetSysColor(COLOR_WINDOW)},
                 {"chosen", GetSysColor(COLOR_HIGHLIGHT)},
                 {"chosenink", GetSysColor(COLOR_HIGHLIGHTTEXT)},
                 {"grey", GetSysColor(COLOR_GRAYTEXT)},
                 {"light", GetSysColor(COLOR_3DHILIGHT)},
                 {"desktop0", modeinfo.desktopcolours[0] >> 8},
                 {"desktop1", modeinfo.desktopcolours[1] >> 8}};
    for (const auto &n : names)
        if (name == n.name) return n.colour;
    FAIL("no colour ", name);
    return 0;
}

void underline(HDC dc)
{
    LOGFONTA description;
    GetObjectA(GetCurrentObject(dc, OBJ_FONT), sizeof description, &description);
    description.lfUnderline = TRUE;
    SelectObject(dc, CreateFontIndirectA(&description));
}

spritemade boxsprite()
{
    spritemade made = spritestriped(4, 6, 4, false);
    made.name = "box";
    return made;
}

void drawsprite(HDC dc, int left, int top, bool greyed)
{
    for (int y = 0; y < 4; y++)
        for (int x = 0; x < 6; x++) {
            auto rgb = static_cast<uint32_t>(spritecolourat(boxsprite(), x, y, greyed));
            SetPixelV(dc, left + x, top + y, RGB(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255));
        }
}

void drawicon(HDC dc, int x, int y, int size)
{
    auto icon = static_cast<HICON>(
        LoadImageA(GetModuleHandleA(nullptr), "!Quillmere", IMAGE_ICON, size, size, 0));
    REQUIRE(icon);
    DrawIconEx(dc, x, y, icon, size, size, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
}

// The box that the next edge goes around, and the height of the picture.
struct canvas {
    HDC dc;
    RECT box;
    int height;
};

// One word of a drawing and what it is about. A y of -1 is the middle.
void drawword(canvas *c, const std::string &verb, std::istream &in)
{
    int x = 0, y = 0;
    std::string name;
    TEXTMETRICA metrics;
    GetTextMetricsA(c->dc, &metrics);
    HBRUSH brush = nullptr;
    if (verb == "fill" || verb == "frame" || verb == "behind" || verb == "ink" || verb == "align")
        in >> name;
    else
        in >> x >> y >> std::ws;
    if (verb == "fill" || verb == "frame") brush = CreateSolidBrush(colournamed(name));
    if (verb == "fill") FillRect(c->dc, &c->box, brush);
    if (verb == "frame") { // which what is drawn later stays inside
        FrameRect(c->dc, &c->box, brush);
        IntersectClipRect(c->dc, 1, 1, c->box.right - 1, c->box.bottom - 1);
    }
    if (verb == "edge") DrawEdge(c->dc, &c->box, static_cast<UINT>(x), BF_RECT | BF_ADJUST);
    if (verb == "ink") SetTextColor(c->dc, colournamed(name));
    if (verb == "behind") { // texts
        SetBkMode(c->dc, OPAQUE);
        SetBkColor(c->dc, colournamed(name));
    }
    if (verb == "through") SetBkMode(c->dc, TRANSPARENT);
    if (verb == "underline") underline(c->dc);
    if (verb == "align")
        SetTextAlign(c->dc, (name[0] == 'r'   ? TA_RIGHT
                             : name[0] == 'c' ? TA_CENTER
                                              : 0) |
                                (name.ends_with("b") ? TA_BOTTOM : 0));
    if (verb == "text") {
        std::getline(in, name);
        TextOutA(c->dc, x, y == -1 ? (c->height - metrics.tmHeight) / 2 : y, name.c_str(),
                 static_cast<int>(name.size()));
    }
    if (verb == "sprite") drawsprite(c->dc, x, y, false);
    if (verb == "greysprite") drawsprite(c->dc, x, y, true);
    if (verb == "icon") drawicon(c->dc, x, y == -1 ? (c->height - 16) / 2 : y, 16);
    if (verb == "largeicon") drawicon(c->dc, x, y, 32);
    if (verb == "focus") {
        SelectClipRgn(c->dc, nullptr);
        DrawFocusRect(c->dc, &WHOLE);
    }
    DeleteObject(brush);
}

// A picture in the colour of buttons and then as the words say.
drivepicture drawn(int width, int height, HFONT font, const std::string &words)
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void *bits;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    REQUIRE(bitmap);
    SelectObject(dc, bitmap);
    SelectObject(dc, font);
    canvas c = {dc, {0, 0, width, height}, height};
    std::istringstream in("fill face;ink ink;through;" + words);
    for (std::string part, verb; std::getline(in, part, ';');) {
        std::istringstream one(part);
        one >> verb;
        drawword(&c, verb, one);
    }
    GdiFlush();
    auto *pixels = static_cast<const uint32_t *>(bits);
    drivepicture picture = {width, height, {pixels, pixels + width * height}};
    DeleteDC(dc);
    DeleteObject(bitmap);
    return picture;
}

// "" for a part of a picture that is as expected, or how and where it differs.
std::string difference(const drivepicture &seen, const drivepicture &expected, int left = 0,
                       int top = 0)
{
    char first[64] = "";
    int count = 0;
    for (int y = 0; y < expected.height; y++)
        for (int x = 0; x < expected.width; x++) {
            uint32_t is = seen.at(left + x, top + y), should = expected.at(x, y) & 0xFFFFFF;
            if (is != should && !count++)
                snprintf(first, sizeof first, " from %d,%d: %06x, not %06x", x, y, is, should);
        }
    return count ? std::to_string(count) + first : "";
}

// One string and what comes of it.
struct lookrow {
    const char *string;
    std::string words;
};

void check(drawnscript *d, const lookrow &r)
{
    INFO(std::string(r.string));
    CHECK_FALSE(GetUpdateRect(d->control, nullptr, FALSE)); // nothing waits to be painted
    drivepump();
    drivepicture seen = drivelook(reinterpret_cast<window>(d->control));
    CHECK(difference(seen, drawn(WIDTH, HEIGHT, d->font, r.words)) == "");
}

void checkrows(drawnscript *d, const std::vector<lookrow> &rows, DWORD style = 0)
{
    for (const lookrow &r : rows) {
        d->make(r.string, style);
        check(d, r);
    }
}

std::string stringof(HWND control)
{
    char string[VALIDATIONSIZE];
    abxstring(control, string);
    return string;
}

} // namespace

// Edges by the system's numbers: bump 9, etched 6, raised 5, sunken 10.
TEST_CASE("texts, edges, colours and fills by their tokens")
{
    drawnscript d;
    checkrows(&d, {
                      {"\\sAg", "text 0 0 Ag"},
                      {"Ag", "text 0 0 Ag"}, // behind no token
                      {"\\C\\sAg", "align c; text 30 0 Ag"},
                      {"\\R\\B\\sAg", "align rb; text 60 40 Ag"},
                      {"\\V\\C\\sAg", "align c; text 30 -1 Ag"},
                      {"\\R\\B\\L\\T\\sAg", "text 0 0 Ag"}, // the last one counts
                      {"\\t-0x3\\t0x10\\sAg", "text 13 0 Ag"},
                      {"\\C\\t5\\B\\sAg", "align cb; text 35 40 Ag"},
                      {"\\R\\t-7\\sAg", "align r; text 53 0 Ag"},
                      {"\\t7\\L\\sAg", "text 0 0 Ag"},
                      {"\\sa\\\\g", "text 0 0 a\\g"},
                      {"\\sAg\\t3\\si", "text 0 0 Ag; behind face; text 3 0 i"},
                      {"\\k-1\\sAg\\t3\\si", "text 0 0 Ag; text 3 0 i"},
                      {"\\sA long text that can't fit", "text 0 0 A long text that can't fit"},
                      {"\\E4\\k0xFF000001\\t50\\sMore", // where the edge left off
                       "frame ink; behind blue; text 51 1 More"},
                      {"\\zAg\\Z\\s", ""},
                      {"\\E0", "edge 9"},
                      {"\\E1", "edge 6"},
                      {"\\E3", "edge 10"},
                      {"\\E4", "frame ink"},
                      {"\\E5\\E-1\\sAg", "text 0 0 Ag"},
                      {"\\g0x0000FF01\\E4", "frame red"},
                      {"\\E2\\E3\\sAg", "edge 5; edge 10; text 4 4 Ag"},
                      {"\\R\\B\\E4\\sAg", "frame ink; align rb; text 59 39 Ag"}, // held inside
                      {"\\O0\\E2\\O1\\sAg", "text 0 0 Ag"},
                      {"\\g0\\sAg", ""},
                      {"\\g2\\sAg", "ink desktop0; text 0 0 Ag"},
                      {"\\g31\\sAg", "ink chosen; text 0 0 Ag"},
                      {"\\O0\\g0xFF000001\\O1\\sAg", "ink blue; text 0 0 Ag"}, // whatever O says
                      {"\\k0x00FF0001\\k-1\\sAg", "text 0 0 Ag"},
                      {"\\k0x00FF0001\\g0xFF01\\C\\V\\sAg",
                       "behind green; ink red; align c; text 30 -1 Ag"},
                      {"\\k0x00FF0001\\F", "fill green"},
                      {"\\k3\\F", "fill desktop1"},
                      {"\\k31\\F", "fill chosen"},
                      {"\\k0\\F", ""},             // by the system, as without k
                      {"\\k-1\\F", "fill window"}, // by nobody
                      {"\\O0\\k0x00FF0001\\O1\\F", ""},
                      {"\\k0x00FF0001\\F\\k-1\\F\\E3\\sAg", "fill green; edge 10; text 2 2 Ag"},
                      {"\\u-2\\sAg", "underline; text 0 0 Ag"},
                      {"\\sAg\\u1", "text 0 0 Ag"},
                      {"\\u1\\u0\\sAg", "text 0 0 Ag"},
                      {"\\i!Quillmere\\sAg", "icon 0 0; text 16 0 Ag"},
                      {"\\I!Quillmere\\sAg", "largeicon 0 0; text 32 0 Ag"},
                      {"\\R\\B\\i!Quillmere\\i!Quillmere", "icon 44 24; icon 28 24"},
                      {"\\inone\\Inone\\sAg", "text 0 0 Ag"},
                  });
}

TEST_CASE("sprites stand by their anchors, one behind the other, and leave nothing behind")
{
    std::string folder = scratchfolder(), file = spritefile({spritebytes(boxsprite())});
    REQUIRE_FALSE(filesave((folder + "\\Test.spr").c_str(), 0, file.data(),
                           static_cast<int32_t>(file.size())));
    REQUIRE_FALSE(initsprites());
    REQUIRE_FALSE(addspritesshared(folder.c_str(), "Test.spr"));
    drawnscript d;
    checkrows(&d, {{"\\abox\\t2\\abox", "sprite 0 0; sprite 8 0"},
                   {"\\C\\V\\abox", "sprite 27 18"},
                   {"\\V\\C\\abox\\B\\abox", "sprite 27 18; sprite 27 36"},
                   {"\\R\\B\\abox\\abox", "sprite 54 36; sprite 48 36"},
                   {"\\anone\\abox", "sprite 0 0"},
                   {"\\O0\\abox\\O1\\abox\\sAg", "sprite 0 0; text 6 0 Ag"}});
    checkrows(&d, {{"\\abox", "greysprite 0 0"}, {"\\OG\\abox", "sprite 0 0"}}, WS_DISABLED);

    d.make("\\k3\\F\\E4\\I!Quillmere\\i!Quillmere\\abox\\u1\\g0xFF01\\sAg");
    drivecounts before = drivecountnow();
    for (int i = 0; i < 50; i++)
        abxpaintnow(d.control);
    CHECK(before.gdiobjects > 0);
    CHECK(drivecountnow().gdiobjects == before.gdiobjects);
    CHECK(drivecountnow().userobjects == before.userobjects);
    endsprites();
}

TEST_CASE("state, focus and presses change the looks at once")
{
    const struct {
        const char *condition;
        bool shown, focus, selected, disabled;
    } rows[] = {
        {"F", false, false, true, true},    {"F", true, true, false, false},
        {"S", false, true, false, false},   {"S", true, false, true, false},
        {"G", false, true, true, false},    {"G", true, false, false, true},
        {"S-!F", true, false, true, false}, {"S-!F", false, true, true, false},
    };
    drawnscript d;
    for (const auto &r : rows) {
        // Without a colour for text, and with one's own greying, only fills show.
        std::string string = std::string("\\OG\\O") + r.condition + "\\E4\\O0";
        d.make(string.c_str());
        if (r.focus) CHECK_FALSE(focusicon(d.w, LOOKS));
        CHECK_FALSE(seticonselected(d.w, LOOKS, r.selected));
        CHECK_FALSE(seticonshaded(d.w, LOOKS, r.disabled));
        check(&d,
              {r.condition, std::string(r.shown ? "frame ink;" : "") + (r.focus ? "focus" : "")});
        CHECK_FALSE(focuswindow(d.w));
    }
    std::string light = "ink light; text 1 1 Ag;", dark = "ink grey; text 0 0 Ag";
    checkrows(&d,
              {{"\\g0xFF000001\\sAg", light + dark},
               {"\\k0x00FF0001\\sAg", "behind green;" + light + "through;" + dark},
               {"\\OG\\g0xFF000001\\sAg", "ink blue; text 0 0 Ag"}},
              WS_DISABLED);

    // Pressed, while the pointer is over it.
    for (const char *string : {"\\OP\\E3\\O!P\\E2\\KR1", "\\OP\\E3\\O!P\\E2"}) {
        d.anew(string);
        for (const char *action : {"bu", "pd", "ou", "bd", "ru", "bu", "Pd", "Ru", "bu", "pd"}) {
            d.letters(std::string(action, 1).c_str());
            check(&d, {action, action[1] == 'd' ? "edge 10" : "edge 5"});
        }
        // Who takes the capture ends it, and its release is nothing.
        ReleaseCapture();
        check(&d, {"released", "edge 5"});
        CHECK(d.letters("r") == "r");
    }
}

TEST_CASE("the text of a drawn control is its token s; changes of tokens show at once")
{
    const char before[] = "NAME:Ag\nWORD:{NAME}g\n", after[] = "NAME:Bo\n";
    drawnscript d;
    REQUIRE_FALSE(addtranstext(before, sizeof before - 1));
    checkrows(&d, {{"\\s{WORD}i", "text 0 0 Aggi"}});
    CHECK_FALSE(seticontext(d.w, LOOKS, "{NAME}"));
    CHECK(drivetext(d.w, LOOKS) == "{NAME}");
    check(&d, {"set", "text 0 0 Ag"});
    endtrans();
    REQUIRE_FALSE(addtranstext(after, sizeof after - 1));
    CHECK_FALSE(redrawicon(d.w, LOOKS));
    drivepump();
    check(&d, {"changed", "text 0 0 Bo"});
    endtrans();

    d.make("\\E3\\K1\\sAg\\u0");
    CHECK_FALSE(seticontext(d.w, LOOKS, "C:\\Bo\\"));
    CHECK(stringof(d.control) == "\\E3\\K1\\sC:\\\\Bo\\\\\\u0");
    CHECK(GetWindowTextLengthA(d.control) == 6);
    char buffer[4];
    CHECK_FALSE(copyicontext(d.w, LOOKS, buffer, sizeof buffer));
    CHECK(std::string(buffer) == "C:\\");
    check(&d, {"set", "edge 10; text 2 2 C:\\Bo\\"});
    d.make("\\E3");
    CHECK(drivetext(d.w, LOOKS) == "");
    CHECK_FALSE(seticontext(d.w, LOOKS, std::string(2000, 'i').c_str())); // as much as fits
    CHECK(drivetext(d.w, LOOKS) == std::string(VALIDATIONSIZE - 6, 'i'));

    d.make("\\g2\\k3\\F\\sAg");
    CHECK_FALSE(setcolours(d.w, LOOKS, 0xFF000001, 0x00FF0001));
    check(&d, {"coloured", "fill green; ink blue; text 0 0 Ag"});
    CHECK_FALSE(settoken(d.w, LOOKS, 't', "20"));
    CHECK(stringof(d.control) == "\\g0xff000001\\k0xff0001\\F\\sAg\\t20");
    CHECK_FALSE(settoken(d.w, LOOKS, 's', "a\\b"));
    CHECK(drivetext(d.w, LOOKS) == "a\\b");

    // What nobody erases shows the window, and then the new text alone.
    d.make("\\k-1\\F\\sWide");
    CHECK_FALSE(seticontext(d.w, LOOKS, "i"));
    check(&d, {"through", "fill window; text 0 0 i"});
    for (SIZE size : {SIZE{5, 30}, SIZE{1, 1}, SIZE{0, 0}, SIZE{WIDTH, HEIGHT}}) {
        SetWindowPos(d.control, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        drivepump();
    }
    check(&d, {"large again", "fill window; text 0 0 i"});
}

namespace
{

constexpr int ROW = 16;

errorblock *tell(int32_t event, window, intptr_t data, int32_t index, int32_t zero)
{
    said("%d: %d of %d;", event, index, static_cast<int>(data) + zero);
    return nullptr;
}

// Where the system last had the field of a combo box drawn, in the control.
RECT fieldbox;

errorblock *notesfield(const systemmessage *message, intptr_t, truth *, intptr_t *, int *)
{
    auto *item = reinterpret_cast<const DRAWITEMSTRUCT *>(message->lparam);
    if (item->itemState & ODS_COMBOBOXEDIT) fieldbox = item->rcItem;
    return nullptr;
}

struct rowscript : script {
    comborecord *combo = nullptr;
    listrecord *list = nullptr;
    HWND box = taskcontrol(w, ICONROWS), rows = taskcontrol(w, ICONLIST);

    rowscript() : script(ICONS)
    {
        REQUIRE_FALSE(addcombo(w, 5, ICONROWS, &combo, tell));
        REQUIRE_FALSE(addlistbox(w, 6, ICONLIST, &list, tell));
        drivemove(0, 0);
    }
    ~rowscript()
    {
        CHECK_FALSE(remlistbox(list));
        CHECK_FALSE(remcombo(combo));
    }
    void select(int32_t expected)
    {
        int32_t index = -2;
        CHECK_FALSE(comboselected(combo, &index));
        CHECK(index == expected);
    }
};

// How a part of a control differs on the screen from a row drawn there.
std::string partdiffers(HWND control, RECT box, bool chosen, const std::string &words)
{
    drivepump();
    auto font = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
    std::string ground = chosen ? "fill chosen; ink chosenink;" : "fill paper;";
    return difference(drivelook(reinterpret_cast<window>(control)),
                      drawn(box.right - box.left, box.bottom - box.top, font, ground + words),
                      box.left, box.top);
}

} // namespace

TEST_CASE("rows of a list are drawn by their tokens and as they are selected, and tell of it")
{
    const lookrow table[] = {
        {"Plain", "text 0 -1 Plain"},
        {"\\t10\\sAg\\t0x5\\si", "text 10 -1 Ag; text 15 -1 i"},
        {"\\t3\\i!Quillmere\\i!Quillmere\\sAg", "icon 7 -1; icon 31 -1; text 51 -1 Ag"},
        {"\\inone\\sAg", "text 24 -1 Ag"}, // texts of a column stay one below the other
        {"\\sa\\\\b\\E2\\C\\g0xFF01\\O0\\sc", "text 0 -1 a\\b; text 0 -1 c"},
        {"A text longer than the whole row", "text 0 -1 A text longer than the whole row"},
        {"", ""},
    };
    rowscript s;
    RECT client;
    GetClientRect(s.rows, &client);
    for (const auto &r : table) {
        INFO(std::string(r.string));
        CHECK_FALSE(listclear(s.list));
        CHECK_FALSE(listadd(s.list, r.string));
        CHECK_FALSE(listadd(s.list, "below"));
        for (bool chosen : {false, true}) {
            SendMessageA(s.rows, LB_SETCURSEL, chosen ? 0 : static_cast<WPARAM>(-1), 0);
            CHECK(partdiffers(s.rows, {0, 0, client.right, ROW}, chosen, r.words) == "");
            RECT second = {0, ROW, client.right, 2 * ROW};
            CHECK(partdiffers(s.rows, second, false, "text 0 -1 below") == "");
        }
    }
    CHECK_FALSE(listadd(s.list, "third"));
    CHECK(taken() == ""); // by program
    s.play({{"on 34; by 0 -8; click", "2: 1 of 6;"},
            {"by 0 16; double", "2: 2 of 6;1: 2 of 6;"},
            {"key CUp", "2: 1 of 6;"}});
}

TEST_CASE("a combo box tells of a choice, and shows it in its field")
{
    rowscript s;
    for (const char *text : {"one", "\\i!Quillmere\\stwo", "\\t6\\sthree"})
        CHECK_FALSE(comboadd(s.combo, text));
    s.select(-1);
    CHECK_FALSE(comboselect(s.combo, 0));
    s.select(0);
    s.play({{"on 33; click; by 0 55; click", "1: 2 of 5;"}}); // the last row
    s.select(2);

    // With the focus it is shown selected, without it plain.
    CHECK_FALSE(addfilter(notesfield, WM_DRAWITEM, s.w, 0));
    CHECK_FALSE(redrawicon(s.w, ICONROWS));
    drivepump();
    CHECK(partdiffers(s.box, fieldbox, true, "text 6 -1 three") == "");
    CHECK_FALSE(focusicon(s.w, ICONFIELD));
    CHECK_FALSE(comboselect(s.combo, 1));
    drivepump();
    CHECK(partdiffers(s.box, fieldbox, false, "icon 4 -1; text 24 -1 two") == "");
    s.play({{"focus 33; key CDown", "1: 2 of 5;"},
            {"key CUp; key A_CDown; key CUp", "1: 1 of 5;*"},
            {"key Escape", ""}});
    CHECK_FALSE(focusicon(s.w, ICONFIELD));
    CHECK_FALSE(comboclear(s.combo));
    s.select(-1);
    drivepump();
    CHECK(partdiffers(s.box, fieldbox, false, "") == "");
    CHECK_FALSE(remfilter(notesfield, WM_DRAWITEM, s.w, 0));
}

TEST_CASE("a box may be ended by its own callback, may be missing, and memory may be short")
{
    static comborecord *ended;
    script s(ICONS);
    combofunction ends = [](int32_t, window, intptr_t, int32_t, int32_t) -> errorblock * {
        said("ends;");
        return remcombo(ended);
    };
    REQUIRE_FALSE(addcombo(s.w, 0, ICONROWS, &ended, ends));
    for (const char *text : {"one", "two"})
        CHECK_FALSE(comboadd(ended, text));
    s.play({{"focus 33; key CDown", "ends;"}, {"key CDown", ""}}); // it goes on plain

    comborecord *combo = nullptr;
    CHECK(addcombo(s.w, 0, 77, &combo, tell));
    bool failed = true;
    for (int n = 0; failed; n++) {
        flexfailafter(n);
        failed = addcombo(s.w, 0, ICONROWS, &combo, tell);
        flexfailafter(-1);
        CHECK(failed == !combo);
    }
    CHECK_FALSE(remcombo(combo));
}

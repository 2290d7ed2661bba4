// Drawn controls: what they report under a real pointer, and how they look, pixel
// by pixel against what the system's own calls draw. Rows of combo and list boxes
// are drawn the same way.
#include "base/errors.h"
#include "base/files.h"
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
#include <utility>
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
};

} // namespace

// The letters of K one by one are the business of the native tests.
TEST_CASE("a real pointer's presses are reported by the control's letters, and Return is a press")
{
    const struct {
        const char *string, *acts, *told;
    } rows[] = {
        {"\\KR1", "press; at 130 150; on 20; release", "click 4 20;"},
        {"\\KR1", "press; at 130 150; release", ""},
        {"\\K12", "click; click", "click 4 20;click 1024 20;"},
        {"\\K1", "click; click", "click 4 20;"}, // the second press is a double click
        {"\\KDR1", "Press; by 10 0; Release", "click 16 20;click 1 20;"},
        {"\\E2", "click; press; by 10 0; release", ""},
    };
    drawnscript d("click");
    for (const auto &r : rows) {
        INFO(std::string(r.string));
        d.anew(r.string);
        CHECK(d.act(r.acts) == r.told);
        CHECK(GetCapture() == nullptr);
    }
    CHECK(SendMessageA(d.control, WM_GETDLGCODE, 0, 0) == DLGC_DEFPUSHBUTTON);
}

TEST_CASE("a held button repeats after a pause, while the pointer is over the control")
{
    drawnscript d("click");
    d.anew("\\KA");
    DWORD start = GetTickCount();
    CHECK(d.act("press") == "click 4 20;");
    REQUIRE(drivewait([&] { return taken() != ""; }, 3000));
    CHECK(GetTickCount() - start >= 450);
    d.play(
        {{"at 130 150; wait 150", ""}, {"on 20; wait 150", "click*"}, {"release; wait 150", ""}});
}

TEST_CASE("the token P is the cursor over a control, unless the program is busy")
{
    drawnscript d;
    for (const char *string : {"\\Pinone", "\\sAg\\Pihand"}) {
        d.anew(string);
        CHECK(d.act("?cursor") == (string[1] == 's' ? "hand;" : "arrow;"));
    }
    hourglasson();
    CHECK(d.act("by 5 0; ?cursor") == "wait;");
    hourglassoff();
    CHECK(d.act("by 5 0; ?cursor; at 130 150; ?cursor") == "hand;arrow;");
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
                 {"light", GetSysColor(COLOR_3DHILIGHT)}};
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

void drawsprite(HDC dc, int left, int top, int times = 1)
{
    for (int y = 0; y < 4 * times; y++)
        for (int x = 0; x < 6 * times; x++) {
            auto rgb =
                static_cast<uint32_t>(spritecolourat(boxsprite(), x / times, y / times, false));
            SetPixelV(dc, left + x, top + y, RGB(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255));
        }
}

void drawicon(HDC dc, int x, int y)
{
    auto icon = static_cast<HICON>(
        LoadImageA(GetModuleHandleA(nullptr), "!Quillmere", IMAGE_ICON, 16, 16, 0));
    REQUIRE(icon);
    DrawIconEx(dc, x, y, icon, 16, 16, 0, nullptr, DI_NORMAL);
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
    if (verb == "sprite") drawsprite(c->dc, x, y);
    if (verb == "twice") drawsprite(c->dc, x, y, 2);
    if (verb == "icon") drawicon(c->dc, x, y == -1 ? (c->height - 16) / 2 : y);
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
                      {"Ag", "text 0 0 Ag"}, // behind no token
                      {"\\V\\C\\sAg", "align c; text 30 -1 Ag"},
                      {"\\R\\B\\L\\T\\sAg", "text 0 0 Ag"}, // the last one counts
                      {"\\t-0x3\\t0x10\\sAg", "text 13 0 Ag"},
                      {"\\sAg\\t3\\si", "text 0 0 Ag; behind face; text 3 0 i"},
                      {"\\E4\\k0xFF000001\\t50\\sMore", // where the edge left off
                       "frame ink; behind blue; text 51 1 More"},
                      {"\\E1", "edge 6"},
                      {"\\R\\B\\E4\\sAg", "frame ink; align rb; text 59 39 Ag"}, // held inside
                      {"\\O0\\E2\\O1\\sAg", "text 0 0 Ag"},
                      {"\\O0\\g0xFF000001\\O1\\sAg", "ink blue; text 0 0 Ag"}, // whatever O says
                      {"\\k0x00FF0001\\g0xFF01\\C\\V\\sAg",
                       "behind green; ink red; align c; text 30 -1 Ag"},
                      {"\\k0\\F", ""},             // by the system, as without k
                      {"\\k-1\\F", "fill window"}, // by nobody
                      {"\\k0x00FF0001\\F\\k-1\\F\\E3\\sAg", "fill green; edge 10; text 2 2 Ag"},
                      {"\\u-2\\sAg", "underline; text 0 0 Ag"},
                      {"\\i!Quillmere\\sAg", "icon 0 0; text 16 0 Ag"},
                      {"\\R\\B\\i!Quillmere\\i!Quillmere", "icon 44 24; icon 28 24"},
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
                   {"\\V\\C\\abox\\B\\abox", "sprite 27 18; sprite 27 36"},
                   {"\\R\\B\\abox\\abox", "sprite 54 36; sprite 48 36"},
                   {"\\anone\\abox", "sprite 0 0"},
                   {"\\O0\\abox\\O1\\abox\\sAg", "sprite 0 0; text 6 0 Ag"}});
    int32_t dots = std::exchange(modeinfo.xdpi, 192);
    modeinfo.ydpi = 192;
    checkrows(&d, {{"\\C\\V\\abox", "twice 24 16"}, {"\\abox\\t2\\abox", "twice 0 0; twice 14 0"}});
    modeinfo.xdpi = modeinfo.ydpi = dots;
    checkrows(&d, {{"\\OG\\abox", "sprite 0 0"}}, WS_DISABLED); // that greys itself

    d.make("\\k3\\F\\E4\\I!Quillmere\\i!Quillmere\\abox\\u1\\g0xFF01\\sAg");
    drivecounts before = drivecountnow();
    for (int i = 0; i < 20; i++)
        abxpaintnow(d.control);
    CHECK(drivecountnow().gdiobjects == before.gdiobjects);
    endsprites();
}

TEST_CASE("state, focus and presses change the looks at once")
{
    const struct {
        const char *condition;
        bool shown, focus, selected, disabled;
    } rows[] = {
        {"F", false, false, true, true},  {"F", true, true, false, false},
        {"S", false, true, false, false}, {"S", true, false, true, false},
        {"G", false, true, true, false},  {"G", true, false, false, true},
    };
    drawnscript d;
    for (const auto &r : rows) {
        // With one's own greying only fills show.
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
              {{"\\k0x00FF0001\\sAg", "behind green;" + light + "through;" + dark},
               {"\\OG\\g0xFF000001\\sAg", "ink blue; text 0 0 Ag"}},
              WS_DISABLED);

    // Pressed, while the pointer is over it, until someone takes the capture.
    d.anew("\\OP\\E3\\O!P\\E2\\KR1");
    const char *up = "edge 5", *down = "edge 10";
    for (auto [acts, looks] : {std::pair{"on 20", up},
                               {"press", down},
                               {"at 130 150", up},
                               {"on 20", down},
                               {"uncapture", up},
                               {"release", up}}) {
        d.act(acts);
        check(&d, {acts, looks});
    }
}

TEST_CASE("the text of a drawn control is its token s; changes of tokens show at once")
{
    const char catalogue[] = "NAME:Ag\nWORD:{NAME}g\n";
    drawnscript d;
    REQUIRE_FALSE(addtranstext(catalogue, sizeof catalogue - 1));
    checkrows(&d, {{"\\s{WORD}i", "text 0 0 Aggi"}});
    CHECK_FALSE(seticontext(d.w, LOOKS, "{NAME}"));
    CHECK(drivetext(d.w, LOOKS) == "{NAME}");
    check(&d, {"set", "text 0 0 Ag"});
    endtrans();

    d.make("\\E3\\K1\\sAg\\u0");
    CHECK_FALSE(seticontext(d.w, LOOKS, "C:\\Bo\\"));
    CHECK(stringof(d.control) == "\\E3\\K1\\sC:\\\\Bo\\\\\\u0");
    CHECK(GetWindowTextLengthA(d.control) == 6);
    check(&d, {"set", "edge 10; text 2 2 C:\\Bo\\"});

    d.make("\\g2\\k3\\F\\sAg");
    CHECK_FALSE(setcolours(d.w, LOOKS, 0xFF000001, 0x00FF0001));
    check(&d, {"coloured", "fill green; ink blue; text 0 0 Ag"});

    // What nobody erases shows the window, and then the new text alone.
    d.make("\\k-1\\F\\sWide");
    CHECK_FALSE(seticontext(d.w, LOOKS, "i"));
    check(&d, {"through", "fill window; text 0 0 i"});
}

namespace
{

errorblock *tell(int32_t event, window, intptr_t data, int32_t index, int32_t zero)
{
    said("%d: %d of %d;", event, index, static_cast<int>(data) + zero);
    return nullptr;
}

// Where the system last had the field of a combo box drawn, in the control.
RECT fieldbox;

errorblock *notesfield(const systemmessage *message, intptr_t, bool *, intptr_t *, int *)
{
    auto *item = reinterpret_cast<const DRAWITEMSTRUCT *>(message->lparam);
    if (item->itemState & ODS_COMBOBOXEDIT) fieldbox = item->rcItem;
    return nullptr;
}

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

TEST_CASE("a combo box tells of a choice, shows it in its field, and may be ended by its callback")
{
    static comborecord *combo;
    script s(ICONS);
    HWND box = taskcontrol(s.w, ICONROWS);
    auto select = [](int32_t expected) {
        int32_t index = -2;
        CHECK_FALSE(comboselected(combo, &index));
        CHECK(index == expected);
    };
    REQUIRE_FALSE(addcombo(s.w, 5, ICONROWS, &combo, tell));
    for (const char *text : {"one", "\\i!Quillmere\\stwo", "\\t6\\sthree"})
        CHECK_FALSE(comboadd(combo, text));
    CHECK_FALSE(comboselect(combo, 0));
    select(0);
    s.play({{"on 33; click; by 0 55; click", "1: 2 of 5;"}}); // the last row
    select(2);

    // With the focus it is shown selected, without it plain.
    CHECK_FALSE(addfilter(notesfield, WM_DRAWITEM, s.w, 0));
    CHECK_FALSE(redrawicon(s.w, ICONROWS));
    drivepump();
    CHECK(partdiffers(box, fieldbox, true, "text 6 -1 three") == "");
    CHECK_FALSE(focusicon(s.w, ICONFIELD));
    CHECK_FALSE(comboselect(combo, 1));
    drivepump();
    CHECK(partdiffers(box, fieldbox, false, "icon 4 -1; text 24 -1 two") == "");
    CHECK_FALSE(remfilter(notesfield, WM_DRAWITEM, s.w, 0));
    s.play(
        {{"focus 33; key CDown", "1: 2 of 5;"}, {"key CUp; key A_CDown; key CUp", "1: 1 of 5;*"}});
    CHECK_FALSE(remcombo(combo));

    combofunction ends = [](int32_t, window, intptr_t, int32_t, int32_t) -> errorblock * {
        said("ends;");
        return remcombo(combo);
    };
    REQUIRE_FALSE(addcombo(s.w, 0, ICONROWS, &combo, ends));
    for (const char *text : {"one", "two"})
        CHECK_FALSE(comboadd(combo, text));
    s.play({{"key Escape; focus 33; key CDown", "ends;"}, {"key CDown", ""}}); // it goes on plain
}

// Combo and list boxes whose rows the library draws.
#include "desktop/combo.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/filters.h"
#include "desktop/icons.h"
#include "tests/desktop/win32/drawncontrol.h"
#include "tests/desktop/win32/taskwindows.h"

#include <doctest/doctest.h>

#include <initializer_list>

namespace
{

constexpr int ROW = 16;

errorblock *tell(int32_t event, window, intptr_t data, int32_t index, int32_t zero)
{
    CHECK(zero == 0);
    said("%d: %d of %d;", static_cast<int>(event), static_cast<int>(index), static_cast<int>(data));
    return nullptr;
}

// One part of a row, from the left: a text, or the program's icon.
struct part {
    int x;
    const char *text; // 0 for the icon
};

drivepicture drawnrow(SIZE size, HFONT font, bool chosen, std::initializer_list<part> parts)
{
    return drawn(size.cx, size.cy, font, [&](HDC dc) {
        drawfill(dc, {0, 0, size.cx, size.cy},
                 GetSysColor(chosen ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        COLORREF ink = GetSysColor(chosen ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT);
        for (const part &p : parts) {
            if (p.text) {
                drawtext(dc, p.x, (size.cy - textheight(dc)) / 2, p.text, ink);
                continue;
            }
            HANDLE icon =
                LoadImageA(GetModuleHandleA(nullptr), "!Quillmere", IMAGE_ICON, ROW, ROW, 0);
            DrawIconEx(dc, p.x, (size.cy - ROW) / 2, static_cast<HICON>(icon), ROW, ROW, 0, nullptr,
                       DI_NORMAL);
            DestroyIcon(static_cast<HICON>(icon));
        }
    });
}

struct rowswindow : eventwindow {
    comborecord *combo = nullptr;
    listrecord *list = nullptr;
    HWND box, rows;

    rowswindow() : eventwindow(EVENTICONS)
    {
        box = taskcontrol(w, ICONROWS);
        rows = taskcontrol(w, ICONLIST);
        REQUIRE_FALSE(addcombo(w, 5, ICONROWS, &combo, tell));
        REQUIRE_FALSE(addlistbox(w, 6, ICONLIST, &list, tell));
        drivemove(0, 0);
    }
    ~rowswindow()
    {
        if (list) CHECK_FALSE(remlistbox(list));
        if (combo) CHECK_FALSE(remcombo(combo));
    }
    int32_t selected()
    {
        int32_t index = -2;
        CHECK_FALSE(comboselected(combo, &index));
        return index;
    }
    std::string rowdiffers(int row, bool chosen, std::initializer_list<part> parts);
    std::string fielddiffers(bool chosen, std::initializer_list<part> parts);
    driveplace place(int row)
    {
        return driveclient(reinterpret_cast<window>(rows), 20, row * ROW + ROW / 2);
    }
};

// How a part of a control differs on the screen from a row drawn there.
std::string partdiffers(HWND control, RECT box, bool chosen, std::initializer_list<part> parts)
{
    drivepicture whole = drivelook(reinterpret_cast<window>(control));
    drivepicture seen = {box.right - box.left, box.bottom - box.top, {}};
    for (int y = 0; y < seen.height; y++)
        for (int x = 0; x < seen.width; x++)
            seen.pixels.push_back(whole.at(box.left + x, box.top + y));
    HFONT font = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
    return difference(seen, drawnrow({seen.width, seen.height}, font, chosen, parts));
}

std::string rowswindow::rowdiffers(int row, bool chosen, std::initializer_list<part> parts)
{
    drivepump();
    RECT client;
    GetClientRect(rows, &client);
    return partdiffers(rows, {0, row * ROW, client.right, (row + 1) * ROW}, chosen, parts);
}

// Where the system last had the field of a combo box drawn, in the control.
RECT fieldbox;

errorblock *notesfield(const systemmessage *message, intptr_t, int *, intptr_t *, int *)
{
    auto *item = reinterpret_cast<const DRAWITEMSTRUCT *>(message->lparam);
    if (item->itemState & ODS_COMBOBOXEDIT) fieldbox = item->rcItem;
    return nullptr;
}

std::string rowswindow::fielddiffers(bool chosen, std::initializer_list<part> parts)
{
    drivepump();
    return partdiffers(box, fieldbox, chosen, parts);
}

} // namespace

TEST_CASE("rows are drawn by their tokens, and in the colours of a selection")
{
    struct {
        const char *text;
        std::initializer_list<part> parts;
    } table[] = {
        {"Plain", {{0, "Plain"}}},
        {"\\t10\\sAg\\t0x5\\si", {{10, "Ag"}, {15, "i"}}},
        {"\\t3\\i!Quillmere\\i!Quillmere\\sAg", {{7, nullptr}, {31, nullptr}, {51, "Ag"}}},
        {"\\inone\\sAg", {{24, "Ag"}}}, // texts of a column stay one below the other
        {"\\sa\\\\b\\E2\\C\\g0xFF01\\O0\\sc", {{0, "a\\b"}, {0, "c"}}},
        {"A text longer than the whole row", {{0, "A text longer than the whole row"}}},
        {"", {}},
    };
    rowswindow r;
    for (const auto &row : table) {
        INFO(std::string(row.text));
        CHECK_FALSE(listclear(r.list));
        CHECK_FALSE(listadd(r.list, row.text));
        CHECK_FALSE(listadd(r.list, "below"));
        for (bool chosen : {false, true}) {
            SendMessageA(r.rows, LB_SETCURSEL, chosen ? 0 : static_cast<WPARAM>(-1), 0);
            CHECK(r.rowdiffers(0, chosen, row.parts) == "");
            CHECK(r.rowdiffers(1, false, {{0, "below"}}) == "");
        }
    }
    CHECK(taken() == ""); // by program
}

TEST_CASE("a list box has rows of an icon's height, and tells of selections and double clicks")
{
    rowswindow r;
    for (const char *text : {"one", "\\stwo", "three"})
        CHECK_FALSE(listadd(r.list, text));
    driveplace at = r.place(1);
    driveclick(at.x, at.y);
    CHECK(taken() == "2: 1 of 6;");
    at = r.place(2);
    drivedouble(at.x, at.y);
    CHECK(taken() == "2: 2 of 6;1: 2 of 6;");
    drivekey(VK_UP);
    CHECK(taken() == "2: 1 of 6;");
    CHECK(SendMessageA(r.rows, LB_GETITEMHEIGHT, 0, 0) == ROW);
    CHECK(SendMessageA(r.box, CB_GETITEMHEIGHT, 0, 0) >= ROW);
}

TEST_CASE("a combo box tells of a choice, and shows it in its field")
{
    rowswindow r;
    for (const char *text : {"one", "\\i!Quillmere\\stwo", "\\t6\\sthree"})
        CHECK_FALSE(comboadd(r.combo, text));
    CHECK(r.selected() == -1);
    CHECK_FALSE(comboselect(r.combo, 0));
    CHECK(r.selected() == 0);
    CHECK(taken() == "");

    driveiconclick(r.w, ICONROWS);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    REQUIRE(GetComboBoxInfo(r.box, &info));
    REQUIRE(IsWindowVisible(info.hwndList));
    driveplace row = driveclient(reinterpret_cast<window>(info.hwndList), 30, 2 * ROW + ROW / 2);
    driveclick(row.x, row.y);
    CHECK(taken() == "1: 2 of 5;");
    CHECK(r.selected() == 2);
    CHECK_FALSE(IsWindowVisible(info.hwndList));

    // With the focus it is shown selected, without it plain.
    CHECK_FALSE(addfilter(notesfield, WM_DRAWITEM, r.w, 0));
    CHECK_FALSE(redrawicon(r.w, ICONROWS));
    CHECK(r.fielddiffers(true, {{6, "three"}}) == "");
    CHECK_FALSE(focusicon(r.w, ICONFIELD));
    CHECK_FALSE(comboselect(r.combo, 1));
    CHECK(r.fielddiffers(false, {{4, nullptr}, {24, "two"}}) == "");
    CHECK_FALSE(comboclear(r.combo));
    CHECK(r.selected() == -1);
    CHECK(r.fielddiffers(false, {}) == "");
    CHECK_FALSE(remfilter(notesfield, WM_DRAWITEM, r.w, 0));
}

TEST_CASE("a box that is left with Escape, or with what it had")
{
    rowswindow r;
    for (const char *text : {"one", "two", "three"})
        CHECK_FALSE(comboadd(r.combo, text));
    CHECK_FALSE(focusicon(r.w, ICONROWS));
    drivekey(VK_DOWN);
    CHECK(r.selected() == 0);
    CHECK(taken() == "1: 0 of 5;");
    drivekey(VK_DOWN, DRIVEALT);
    drivekey(VK_DOWN);
    taken();
    drivekey(VK_ESCAPE);
    CHECK(taken() == "");
}

TEST_CASE("a record may be ended by its own callback, and the box goes on plain")
{
    static comborecord *ended;
    rowswindow r;
    CHECK_FALSE(remcombo(r.combo));
    combofunction ends = [](int32_t, window, intptr_t, int32_t, int32_t) -> errorblock * {
        said("ends;");
        return remcombo(ended);
    };
    REQUIRE_FALSE(addcombo(r.w, 0, ICONROWS, &ended, ends));
    r.combo = nullptr;
    for (const char *text : {"one", "two"})
        CHECK_FALSE(comboadd(ended, text));
    CHECK_FALSE(focusicon(r.w, ICONROWS));
    drivekey(VK_DOWN);
    CHECK(taken() == "ends;");
    drivekey(VK_DOWN);
    CHECK(taken() == "");
}

TEST_CASE("a box that isn't there, and memory that is short, leave nothing behind")
{
    eventwindow e(EVENTICONS);
    comborecord *combo = nullptr;
    listrecord *list = nullptr;
    CHECK(addcombo(e.w, 0, 77, &combo, tell));
    CHECK(addlistbox(e.w, 0, 77, &list, tell));
    bool failed = true;
    for (int n = 0; failed; n++) {
        flexfailafter(n);
        failed = addcombo(e.w, 0, ICONROWS, &combo, tell);
        flexfailafter(-1);
        CHECK(failed == !combo);
    }
    REQUIRE_FALSE(deleteicon(e.w, ICONROWS));
    int32_t index;
    CHECK(comboadd(combo, "one"));
    CHECK(comboselect(combo, 0));
    CHECK(comboclear(combo));
    CHECK(comboselected(combo, &index));
    CHECK(index == -1);
    CHECK_FALSE(remcombo(combo));
}

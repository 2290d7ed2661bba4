// What a user of a script sees.
#include "app/buttons.h"
#include "app/layout.h"
#include "app/mainwindow.h"
#include "base/chars.h"
#include "base/platform.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "find/solve.h"
#include "find/spellwindow.h"
#include "graphics/modeinfo.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "grid/gridshape.h"
#include "grid/gridview.h"
#include "tests/app/screen/inside.h"
#include "tests/support/runner.h"

#include <commdlg.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <type_traits>

namespace
{

std::string hex(uint32_t rgb)
{
    char digits[8];
    snprintf(digits, sizeof digits, "%06x", rgb);
    return digits;
}

std::string number(int64_t n)
{
    return std::to_string(n);
}

template<typename answer> std::string told(const answer &a)
{
    if constexpr (std::is_same_v<answer, bool>)
        return yes(a);
    else if constexpr (std::is_arithmetic_v<answer>)
        return number(a);
    else
        return a;
}

void add(std::string *all, const std::string &item, const char *between = ", ")
{
    *all += (all->empty() ? "" : between) + item;
}

// Lines parted by "|".
std::string joined(const std::string &lines, char with)
{
    std::string out;
    for (char c : lines)
        if (c != '\r') out += c == '\n' ? with : c;
    while (!out.empty() && out.back() == with)
        out.pop_back();
    return out;
}

// A row of the list of words in pixels of its pane, as it stands.
int wordtop(int32_t row)
{
    windowstaterecord state = {};
    if (windowstate(wordlist()->pane, &state)) return 0;
    return ostodevy(row * wordmetrics.rowheight + state.yscroll);
}

// The colour of a row right of its word, inside any outline.
uint32_t wordground(const drivepicture &p, int top)
{
    int y = top + ostodevy(wordmetrics.rowheight) / 2;
    return y >= 0 && y < p.height ? p.at(p.width - 6, y) : 0;
}

std::string wordsof(const Dictionary &dict)
{
    std::string all;
    for (uint32_t i = 0; i < dictcount(&dict); i++)
        add(&all, dictword(i, &dict), " ");
    return all;
}

const fontrecord &fontof(const std::string &name)
{
    return name == "grid font"   ? grid.gridfont
           : name == "clue font" ? grid.cluefont
           : name == "dict font" ? dictfont
                                 : solfont;
}

// It counts 1, then in tens, then in hundreds.
bool progressright(int least)
{
    std::string shown = drivetext(buttonwindow, BARPROGRESS);
    int n = shown.empty() ? 0 : std::stoi(shown);
    return n >= least && (n == 1 || (n <= 100 ? n : n - 10) % (n <= 100 ? 10 : 100) == 0);
}

bool squarefilled()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if (grid.letters[x][y] < 'a' || grid.letters[x][y] > 'z') return false;
    return true;
}

struct topsearch {
    int32_t control;
    window found;
};

BOOL CALLBACK owns(HWND h, LPARAM word)
{
    auto *s = reinterpret_cast<topsearch *>(word);
    HWND control = GetDlgItem(h, s->control);
    if (!control || !IsWindowVisible(control)) return TRUE;
    s->found = reinterpret_cast<window>(h);
    return FALSE;
}

BOOL CALLBACK ownsbelow(HWND h, LPARAM word)
{
    DWORD process = 0;
    GetWindowThreadProcessId(h, &process);
    if (process != GetCurrentProcessId() || !IsWindowVisible(h) || !IsWindowEnabled(h)) return TRUE;
    return owns(h, word) &&
           (EnumChildWindows(h, owns, word), !reinterpret_cast<topsearch *>(word)->found);
}

// The main window once nothing is left to paint and the screen shows all that was painted:
// two looks at it are the same.
drivepicture settledlook(UINT how)
{
    inprogram([&] {
        RedrawWindow(handle(mainwindow), nullptr, nullptr, how | RDW_UPDATENOW | RDW_ALLCHILDREN);
    });
    drivepicture last, now = drivelook(mainwindow);
    drivewait([&] {
        drivepause(0);
        last = now;
        now = drivelook(mainwindow);
        return !drivediffer(last, now);
    });
    return now;
}

std::string pair(int32_t x, int32_t y)
{
    return number(x) + "," + number(y);
}

// A sight that one question tells, of nothing, a number or a name.
template<auto look> std::string seen(int32_t of, const std::string &named)
{
    if constexpr (std::is_invocable_v<decltype(look)>)
        return told(look());
    else if constexpr (std::is_invocable_v<decltype(look), int32_t>)
        return told(look(of));
    else
        return told(look(named));
}

} // namespace

window ownerof(int32_t control)
{
    topsearch s = {control, 0};
    drivewait([&] { return EnumWindows(ownsbelow, reinterpret_cast<LPARAM>(&s)), s.found != 0; },
              2000);
    return s.found;
}

wordview *wordlist()
{
    bool checking = check.self && (!editor.self || GetForegroundWindow() == handle(check.self));
    return checking ? &check.view : &editor.view;
}

std::string yes(bool holds)
{
    return holds ? "yes" : "no";
}

std::string place(const std::string &leaf)
{
    if (leaf == "Default" || leaf == "Choices") {
        char directory[PATHSIZE] = "", login[256] = "";
        if (platformprogramdirectory(directory, sizeof directory) ||
            platformloginname(login, sizeof login))
            return "";
        return directory + leaf + "\\" + login + (leaf == "Default" ? ".qmg" : ".dat");
    }
    return (leaf.ends_with(".dic") ? std::string(dictdirectory) : scratchfolder()) + "\\" + leaf;
}

const sight title = seen<[] { return drivetext(mainwindow); }>;
const sight cursor = seen<[] { return pair(grid.cursorx, grid.cursory); }>;
const sight mark = seen<[] {
    return grid.markleft == -1
               ? "none"
               : pair(grid.markleft, grid.marktop) + " " + pair(grid.markright, grid.markbottom);
}>;
const sight count = seen<[] { return solutions.count; }>;
const sight selected = seen<[] { return solselected(); }>;
const sight there = seen<[](int32_t control) { return drivecontrol(buttonwindow, control) != 0; }>;
const sight boxthere = seen<[] { return drivefind("", "#32770") != 0; }>;
const sight shown = seen<[](const std::string &named) { return drivefind(named) != 0; }>;
const sight infront =
    seen<[] { return drivetext(reinterpret_cast<window>(GetForegroundWindow())); }>;
const sight enabled = seen<[] { return IsWindowEnabled(handle(mainwindow)) != 0; }>;
const sight wordrow = seen<[] { return wordlist()->rowsel; }>;
const sight caretrow = seen<[] { return wordlist()->rowcaret; }>;
const sight changed = seen<[] { return dictanychanges() != 0; }>;
const sight inuse = seen<[] {
    std::string all;
    for (uint32_t i = 0; i < dictset.count; i++)
        add(&all, dicts[dictset.numbers[i]].name, " ");
    return all;
}>;
const sight known = seen<[] {
    std::string all;
    for (uint32_t i = 0; i < ndicts; i++)
        add(&all, dicts[i].name, " ");
    return all;
}>;

std::string document(int32_t, const std::string &)
{
    return ask([] {
        std::string lines;
        picturetextwrite(&lines);
        return joined(lines, '/');
    });
}

std::string marked(int32_t, const std::string &)
{
    int cells = 0;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            cells += (grid.flags[x][y] & CELLKIND) == CELLMARKED;
    return number(cells);
}

std::string listed(int32_t, const std::string &)
{
    return ask([] {
        std::string all;
        for (int32_t i = 0; i < solutions.count; i++) {
            std::string row;
            if (grid.kind == GRIDWORDSQUARE) row = solword(i)->text;
            for (int32_t slot = 0; grid.kind != GRIDWORDSQUARE && slot < solutions.slotcount;
                 slot++)
                add(&row, wordtext(solref(i, slot)), " ");
            add(&all, row);
        }
        return all;
    });
}

std::string lying(int32_t, const std::string &)
{
    return ask([] {
        int lie = 0;
        for (int32_t n = 0; n < solutions.count; n++) {
            const wsentry &entry = *solword(n);
            bool right = true;
            for (int i = 0; entry.text[i]; i++) {
                int32_t x = entry.x + i * entry.dx, y = entry.y + i * entry.dy;
                right = right && gridinside(x, y) &&
                        grid.letters[x][y] == charlower(static_cast<uint8_t>(entry.text[i]));
            }
            lie += right;
        }
        return number(lie);
    });
}

std::string text(int32_t control, const std::string &)
{
    window w = ownerof(control);
    return w ? drivetext(w, control) : "no control";
}

std::string ticked(int32_t control, const std::string &)
{
    window w = ownerof(control);
    return ask([&] {
        bool on = false;
        return w && !iconselected(w, control, &on) ? yes(on) : "no control";
    });
}

std::string focus(int32_t control, const std::string &)
{
    return ask([&] {
        caretrecord caret = {};
        if (getcaret(&caret)) return std::string("nowhere");
        bool pane = wordlist()->pane && caret.self == wordlist()->pane;
        return yes(control == -1 ? pane : !pane && caret.icon == control);
    });
}

std::string box(int32_t, const std::string &)
{
    window w = drivefind("", "#32770");
    return w ? drivetext(w, 0xFFFF).empty() ? drivetext(w) : drivetext(w, 0xFFFF) : "none";
}

std::string offered(int32_t, const std::string &)
{
    constexpr int types = 0x470, name = 0x480, names = 0x47C;
    char folder[MAX_PATH] = "";
    window w = drivefind("", "#32770"), list = drivecontrol(w, types);
    if (!list) return "none";
    std::string typed = drivetext(w, drivecontrol(w, names) ? names : name);
    SendMessageA(handle(w), CDM_GETFOLDERPATH, sizeof folder, reinterpret_cast<LPARAM>(folder));
    if (std::filesystem::path(place("x")).parent_path() != folder)
        typed += std::string(" in ") + folder;
    return typed + " " + number(SendMessageA(handle(list), CB_GETCURSEL, 0, 0) + 1);
}

// They are as the program makes them when the menu opens: "!" stands before those that
// are grey, "+" before ticked ones.
std::string entries(int32_t of, const std::string &)
{
    auto opened = [](HMENU menus, int entry) {
        HMENU below = GetSubMenu(menus, entry);
        SendMessageA(handle(mainwindow), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(below), entry);
        return below;
    };
    HMENU menus = opened(GetMenu(handle(mainwindow)), of % UNDER);
    if (of >= UNDER) menus = opened(menus, of / UNDER - 1);
    std::string all;
    for (int i = 0; i < GetMenuItemCount(menus); i++) {
        char name[256] = "";
        GetMenuStringA(menus, static_cast<UINT>(i), name, sizeof name, MF_BYPOSITION);
        std::string plain = std::string(name).substr(0, std::string(name).find('\t'));
        std::erase(plain, '&');
        UINT state = GetMenuState(menus, static_cast<UINT>(i), MF_BYPOSITION);
        const char *sign = state & MF_GRAYED ? "!" : state & MF_CHECKED ? "+" : "";
        if (!plain.empty()) add(&all, sign + plain);
    }
    return all;
}

std::string word(int32_t row, const std::string &)
{
    return ask(
        [&] { return std::string(dictword(static_cast<uint32_t>(row), wordlist()->wordrows)); });
}

std::string wordseen(int32_t row, const std::string &)
{
    return ask([&] {
        int width, height;
        drivesize(wordlist()->pane, &width, &height);
        return yes(wordtop(row) >= 0 && wordtop(row + 1) <= height + 1);
    });
}

// The first row with a black edge that is in view.
std::string standing(int32_t, const std::string &)
{
    return ask([&] {
        windowstaterecord state = {};
        drivepicture p = drivelook(solutionswindow);
        if (windowstate(solutionswindow, &state)) return number(-2);
        for (int32_t row = 0; row < solutions.count; row++) {
            int y = ostodevy(row * solutions.rowheight + solutions.rowheight / 2 + state.yscroll);
            if (y >= 0 && y < p.height && p.at(1, y) == 0) return number(row);
        }
        return number(-1);
    });
}

std::string wordink(int32_t row, const std::string &)
{
    return ask([&] { return hex(wordground(drivelook(wordlist()->pane), wordtop(row))); });
}

// Dots down its left edge.
std::string outlined(int32_t row, const std::string &)
{
    return ask([&] {
        drivepicture p = drivelook(wordlist()->pane);
        int dots = 0, end = wordtop(row) + ostodevy(wordmetrics.rowheight - 2) - 2;
        for (int y = wordtop(row) + 2; y < std::min(end, p.height); y++)
            dots += p.at(0, y) != wordground(p, wordtop(row));
        return yes(dots > 0);
    });
}

std::string words(int32_t, const std::string &named)
{
    return ask([&] {
        int n = dictnamefind(named.c_str());
        return n < 0 ? "unknown" : dicts[n].loaded ? wordsof(dicts[n].dict) : "not loaded";
    });
}

std::string kept(int32_t, const std::string &named)
{
    return ask([&] {
        Dictionary dict = {};
        std::string all =
            dictload(dictdirectory, named.c_str(), &dict) ? "an error" : wordsof(dict);
        dictfree(&dict);
        return all;
    });
}

std::string file(int32_t bytes, const std::string &leaf)
{
    std::ifstream in(place(leaf), std::ios::binary);
    if (!in) return "none";
    std::string whole((std::istreambuf_iterator<char>(in)), {});
    return joined(bytes ? whole.substr(0, static_cast<size_t>(bytes)) : whole, '|');
}

std::string quill(int32_t, const std::string &named)
{
    char self[MAX_PATH];
    GetModuleFileNameA(nullptr, self, sizeof self);
    std::string line =
        "\"\"" + (std::filesystem::path(self).parent_path() / "quill.exe").string() + "\"";
    std::istringstream in(named);
    for (std::string one; in >> one;)
        line += one == "@"      ? " \"" + std::string(dictdirectory) + "\""
                : one[0] == '@' ? " \"" + place(one.substr(1)) + "\""
                                : " " + one;
    FILE *pipe = _popen((line + "\"").c_str(), "r");
    std::string lines;
    char part[256];
    while (pipe && fgets(part, sizeof part, pipe))
        lines += part;
    if (!pipe || _pclose(pipe)) return "quill failed";
    return joined(lines, '|');
}

// Records whose controls are closed by now, and fonts in points.
std::string value(int32_t, const std::string &name)
{
    const struct {
        const char *name;
        int64_t is;
    } values[] = {
        {"kind", grid.kind},
        {"limit", solutions.maxsolutions},
        {"scale", grid.squarescale},
        {"cell", grid.cellwidth},
        {"minimum", grid.minwordlength},
        {"show", grid.showsolutions},
        {"directions", grid.filldirections},
        {"slots", solutions.slotcount},
        {"unsaved", gridsunsaved()},
    };
    for (const auto &one : values)
        if (name == one.name) return number(one.is);
    const struct {
        const char *name;
        uint32_t is;
    } colours[] = {
        {"cursor", cursorcolour},   {"selected", selectedcolour}, {"text", grid.textcolour},
        {"lines", grid.gridcolour}, {"blocks", grid.fillcolour},  {"behind", grid.backcolour},
    };
    for (const auto &one : colours) // stored as 0xBBGGRR00
        if (name == one.name)
            return hex((one.is >> 24 & 0xFF) | (one.is >> 8 & 0xFF00) | (one.is << 8 & 0xFF0000));
    if (name.ends_with(" font"))
        return number((fontof(name).height + 8) / 16) + (fontof(name).width ? " and wide" : "");
    if (name == "split") // in thousandths of the window, as far as pixels can tell
        return number((int64_t{grid.splitfraction} * 1000 / 65536 + 5) / 10 * 10);
    if (name == "splitlimit")
        return grid.splitfraction == SPLITMIN   ? "least"
               : grid.splitfraction == SPLITMAX ? "most"
                                                : "none";
    if (name == "whole") // the grid, without bars to scroll it
        return yes(!(GetWindowLongA(handle(gridwindow), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL)));
    constexpr int FIRSTROW = 40; // OS units, of a first start at most
    if (name == "tall list") return yes(solutions.rowheight > FIRSTROW);
    if (name == "tall words") return yes(wordmetrics.rowheight > FIRSTROW);
    if (name == "roomy") return yes(grid.cellwidth > 90); // than any scale makes a small font's
    if (name == "stopping") return number(search.stopflag);
    if (name == "progress") return yes(progressright(1));
    if (name == "counting") return yes(progressright(100));
    if (name == "listing") return yes(solutions.count > 0);
    if (name == "filled") return yes(squarefilled());
    if (name == "size") return pair(grid.width, grid.height);
    if (name == "frame") { // of the main window, to some pixels
        RECT r;
        GetWindowRect(handle(mainwindow), &r);
        return pair((r.right - r.left + 2) * 96 / modeinfo.xdpi / 5 * 5,
                    (r.bottom - r.top + 2) * 96 / modeinfo.ydpi / 5 * 5);
    }
    return name == "file" ? std::filesystem::path(grid.filename).filename().string() : "unknown";
}

std::string colour(int32_t cellat, const std::string &)
{
    return ask([&] {
        windowstaterecord state = {};
        if (windowstate(gridwindow, &state)) return std::string("no window");
        int32_t x = cellat / 1000, y = cellat % 1000;
        driveplace at =
            driveclient(gridwindow, ostodevx(grid.cellwidth * (2 * x + 1) / 2 - state.xscroll),
                        ostodevy(grid.cellheight * (2 * y + 1) / 2 + state.yscroll));
        return hex(drivepixel(at.x, at.y));
    });
}

std::string sample(int32_t control, const std::string &)
{
    window w = ownerof(control);
    if (!w) return "no control";
    driveplace at = driveicon(w, control);
    return hex(drivepixel(at.x, at.y));
}

std::string inks(int32_t where, const std::string &rgb)
{
    drivepicture p = drivelook(where ? drivecontrol(ownerof(where), where) : gridwindow);
    auto wanted = static_cast<uint32_t>(std::stoul(rgb, nullptr, 16));
    auto dots = std::count(p.pixels.begin(), p.pixels.end(), wanted);
    return dots > 200 ? "many" : dots ? "some" : "none";
}

// A redraw heals what it finds: the first answer holds.
std::string undrawn(int32_t, const std::string &)
{
    drivemove(2, 2); // the pointer is in no picture
    drivepicture before = settledlook(0);
    drivepicture after = settledlook(RDW_INVALIDATE | RDW_ERASE);
    decide();
    return number(drivediffer(before, after));
}

std::string repainted(int32_t where, const std::string &)
{
    window w = where == ONGRID ? gridwindow : solutionswindow;
    drivepicture before = drivelook(w);
    HDC dc = GetDC(handle(w));
    RECT all = {0, 0, before.width, before.height};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(DKGRAY_BRUSH)));
    ReleaseDC(handle(w), dc);
    GdiFlush();
    if (!drivewait([&] { return drivediffer(drivelook(w), before) > 1000; }))
        return "not painted over";
    InvalidateRect(handle(w), nullptr, TRUE);
    return yes(drivewait([&] { return drivediffer(drivelook(w), before) < 200; }));
}

std::string scrolled(int32_t, const std::string &)
{
    return ask([] {
        windowstaterecord state = {};
        if (windowstate(gridwindow, &state)) return std::string("no window");
        return number(state.xscroll / grid.cellwidth) + "," +
               number(-state.yscroll / grid.cellheight);
    });
}

// The panes are where the split has them.
std::string layout(int32_t, const std::string &)
{
    auto placed = [](window w) {
        RECT r;
        GetWindowRect(handle(w), &r);
        MapWindowPoints(nullptr, handle(mainwindow), reinterpret_cast<POINT *>(&r), 2);
        return r;
    };
    auto same = [](const RECT &r, const pixelbox &box) {
        return r.left == box.left && r.top == box.top && r.right == box.right &&
               r.bottom == box.bottom;
    };
    int width, height;
    drivesize(mainwindow, &width, &height);
    RECT bar = placed(buttonwindow);
    int32_t gap = std::max(SPLITTERWIDTH * modeinfo.xdpi / 96, SPLITTERWIDTH);
    panelayout panes = layoutpanes({0, 0, width, height}, bar.bottom, grid.splitfraction, gap);
    if (!same(bar, panes.bar)) return "the bar is wrong";
    if (!same(placed(solutionswindow), panes.list)) return "the list is wrong";
    return same(placed(gridwindow), panes.grid) ? "right" : "the grid is wrong";
}

// What a user of a script does.
#include "app/choices.h"
#include "app/mainwindow.h"
#include "base/flex.h"
#include "base/text.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictfile.h"
#include "dict/dictset.h"
#include "dict/wordtables.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "find/spellwindow.h"
#include "graphics/modeinfo.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "grid/gridshape.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/inside.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

HANDLE held = INVALID_HANDLE_VALUE;

// Preparation that must not fail.
void prepare(const std::function<errorblock *()> &work)
{
    if (!ask([&] { return work() ? "an error" : ""; }).empty()) stumble("it can't be prepared");
}

int heldkeys(int32_t flags)
{
    return (flags & SHIFT ? DRIVESHIFT : 0) | (flags & CTRL ? DRIVECTRL : 0) |
           (flags & ALT ? DRIVEALT : 0);
}

drivebutton button(int32_t flags)
{
    return flags & RIGHT ? DRIVERIGHT : DRIVELEFT;
}

// The middle of a cell, as the grid is scrolled.
driveplace cellplace(int32_t x, int32_t y)
{
    driveplace at = {};
    inprogram([&] {
        windowstaterecord state = {};
        if (windowstate(gridwindow, &state)) return;
        at = driveclient(gridwindow,
                         ostodevx(x * grid.cellwidth + grid.cellwidth / 2 - state.xscroll),
                         ostodevy(y * grid.cellheight + grid.cellheight / 2 + state.yscroll));
    });
    return at;
}

std::vector<driveplace> cellplaces(const std::string &cells)
{
    std::vector<driveplace> places;
    std::istringstream in(cells);
    int32_t x, y;
    for (char comma; in >> x >> comma >> y;)
        places.push_back(cellplace(x, y));
    return places;
}

driveplace rowplace(window pane, int32_t row, int32_t height)
{
    driveplace at = {};
    inprogram([&] {
        windowstaterecord state = {};
        if (!windowstate(pane, &state))
            at = driveclient(pane, 12, ostodevy(row * height + height / 2 + state.yscroll));
    });
    return at;
}

window controlowner(int32_t control)
{
    window w = ownerof(control);
    if (!w) stumble("there is no control " + std::to_string(control));
    return w;
}

// The system's box that a control opens, told something and answered by OK.
void pickerwork(int32_t control, const std::function<void(window)> &tell)
{
    press(control, "");
    window asked = driveboxwait();
    if (!asked) return stumble("no box comes up");
    tell(asked);
    driveboxanswer(asked, IDOK);
}

} // namespace

void another(int32_t, const std::string &picture)
{
    std::string lines = picture;
    std::replace(lines.begin(), lines.end(), '/', '\n');
    lines += '\n';
    prepare([&] {
        errorblock *err = picturetextread(lines.data(), static_cast<int32_t>(lines.size()));
        gridunchanged();
        settitlefromgrid();
        return err ? err : scrollto(gridwindow, 0, 0);
    });
}

void crossword(int32_t, const std::string &picture)
{
    dictionaries(1, WORDS);
    another(0, picture);
}

void square(int32_t cells, const std::string &)
{
    dictionaries(1, WORDS);
    inprogram([&] {
        gridsetkind(GRIDWORDSQUARE);
        gridsize(cells, cells);
        gridunchanged();
        settitlefromgrid();
    });
}

void dictionaries(int32_t used, const std::string &list)
{
    static int made;
    std::string folder = scratchfolder() + "\\set" + std::to_string(made++);
    std::filesystem::create_directories(folder);
    prepare([&] {
        strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
        errorblock *err = nullptr;
        std::istringstream all(list);
        for (std::string one; std::getline(all, one, ';') && !err;) {
            std::istringstream in(one);
            std::string name, item;
            std::getline(in >> std::ws, name, ':');
            Dictionary dict;
            err = dictempty(&dict);
            while (!err && in >> item)
                err = dictadd(item.c_str(), &dict);
            if (!err) err = dictsave(dictdirectory, name.c_str(), &dict);
            dictfree(&dict);
        }
        if (!err) err = dictstart();
        if (!err) dictsetclear();
        for (uint32_t i = 0; used && i < ndicts && !err; i++)
            err = dictuse(i);
        return err;
    });
}

bool largehere()
{
    std::string from = datafile("MainDict.dic");
    bool here = !shaken() && !from.empty() && std::filesystem::exists(from);
    if (!here) MESSAGE("skipped: it needs a large dictionary, and its time");
    return here;
}

// Searches through it take the plain road, and so the time to be stopped; through
// more of them under other names a longer one.
void large(int32_t used, const std::string &name)
{
    tablesoff = true;
    for (int32_t n = 0; n < std::max(used, 1); n++)
        std::filesystem::copy_file(datafile("MainDict.dic"),
                                   place(name + (n ? std::to_string(n) : "") + ".dic"),
                                   std::filesystem::copy_options::overwrite_existing);
    prepare([&] {
        errorblock *err = dictstart();
        if (!err) dictsetclear();
        for (int32_t n = 0; n < used && !err; n++) {
            const std::string each = name + (n ? std::to_string(n) : "");
            err = dictuse(static_cast<uint32_t>(dictnamefind(each.c_str())));
        }
        return err;
    });
}

void setting(int32_t number, const std::string &name)
{
    inprogram([&] {
        if (name == "minimum") grid.minwordlength = number;
        if (name == "directions") grid.filldirections = number;
        if (name == "kind") grid.kind = number;
        if (name == "limit") solutions.maxsolutions = number;
        if (name == "cursor") grid.cursorx = number / 1000, grid.cursory = number % 1000;
        gridredraw();
    });
}

// A pointer that comes into a window ends what is held, under Wine: it is there before.
void click(int32_t flags, const std::string &cells)
{
    for (driveplace at : cellplaces(cells)) {
        drivemove(at.x, at.y);
        driveclick(at.x, at.y, button(flags), heldkeys(flags));
        drivemove(2, 2);
    }
}

void drag(int32_t flags, const std::string &cells)
{
    std::vector<driveplace> places = cellplaces(cells);
    drivemove(places[0].x, places[0].y);
    drivedrag(places, button(flags), heldkeys(flags));
    drivemove(2, 2);
}

void twitch(int32_t, const std::string &celltext)
{
    driveplace at = cellplaces(celltext)[0];
    drivemove(at.x, at.y);
    drivedrag({at, {at.x + 2, at.y + 1}});
    drivemove(2, 2);
}

void split(int32_t thousandths, const std::string &)
{
    int width, height;
    drivesize(mainwindow, &width, &height);
    RECT list;
    GetWindowRect(handle(solutionswindow), &list);
    driveplace from = {static_cast<int>(list.right) + 2, static_cast<int>(list.top) + 60};
    driveplace to = {driveclient(mainwindow, 0, 0).x + width * thousandths / 1000, from.y + 20};
    drivedrag({from, {(from.x + to.x) / 2, from.y}, to});
    drivemove(2, 2);
}

void pick(int32_t row, const std::string &how)
{
    driveplace at = rowplace(solutionswindow, row, solutions.rowheight);
    drivemove(at.x, at.y);
    if (how == "double")
        drivedouble(at.x, at.y);
    else
        driveclick(at.x, at.y, how == "right" ? DRIVERIGHT : DRIVELEFT,
                   how == "ctrl" ? DRIVECTRL : 0);
    drivemove(2, 2);
}

void pickword(int32_t row, const std::string &how)
{
    driveplace at = rowplace(wordlist()->pane, row, wordmetrics.rowheight);
    driveclick(at.x, at.y, how == "right" ? DRIVERIGHT : DRIVELEFT);
}

void press(int32_t control, const std::string &how)
{
    window w = controlowner(control);
    if (!w) return;
    driveplace at = driveicon(w, control);
    constexpr int ARROW = 5; // from the middle of a pair, up or down
    static int aside = 3;    // never twice in one place, which would be a double click
    aside = -aside;
    at.x += aside;
    if (how == "high") at.y -= ARROW;
    if (how == "low") at.y += ARROW;
    driveclick(at.x, at.y, how == "right" ? DRIVERIGHT : DRIVELEFT);
}

void fill(int32_t field, const std::string &content)
{
    if (window w = controlowner(field)) drivefill(w, field, content);
}

void type(int32_t, const std::string &letters)
{
    drivetype(letters);
}

void key(int32_t code, const std::string &times)
{
    for (int n = times.empty() ? 1 : std::stoi(times); n > 0; n--)
        drivekey(code & 0xFF, heldkeys(code));
}

void menu(int32_t id, const std::string &name)
{
    int32_t entry = 0;
    if (!name.empty()) {
        inprogram([&] { entry = dictnamefind(name.c_str()) + 1; });
        if (!entry) return stumble("there is no dictionary " + name);
    }
    front(0, "");
    if (!drivemenu(GetMenu(handle(mainwindow)), id, entry)) return stumble("no such command");
    drivekey(VK_RETURN);
}

void command(int32_t id, const std::string &)
{
    PostMessageA(handle(mainwindow), WM_COMMAND, static_cast<WPARAM>(id), 0);
}

void drop(int32_t where, const std::string &leaves)
{
    const window targets[] = {mainwindow, gridwindow, solutionswindow,
                              where == ONWORDS ? wordlist()->pane : 0};
    std::vector<std::string> files;
    std::istringstream in(leaves);
    for (std::string leaf; in >> leaf;)
        files.push_back(place(leaf));
    drivedrop(targets[where], files, drivemiddle(targets[where]));
}

// It begins a little later than its button is pressed.
void searched(int32_t control, const std::string &)
{
    constexpr DWORD SOON = 200;
    press(control, "");
    Sleep(SOON);
    searchend(0, "");
}

void searchend(int32_t, const std::string &)
{
    constexpr int LONGEST = 40000;
    auto over = [] { return ask([] { return yes(searchunderway()); }) == "no"; };
    if (!drivewait(over, LONGEST)) stumble("a search doesn't end");
}

void front(int32_t, const std::string &named)
{
    window w = named.empty() ? mainwindow : drivefind(named);
    inprogram([&] { setactive(w); });
    drivefront(w);
}

void aside(int32_t, const std::string &named)
{
    SetWindowPos(handle(drivefind(named)), nullptr, 10, 500, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void shut(int32_t, const std::string &named)
{
    PostMessageA(handle(drivefind(named)), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void resize(int32_t, const std::string &how)
{
    HWND h = handle(mainwindow);
    int width, height;
    if (sscanf(how.c_str(), "%d,%d", &width, &height) == 2)
        SetWindowPos(h, nullptr, 0, 0, width * modeinfo.xdpi / 96, height * modeinfo.ydpi / 96,
                     SWP_NOMOVE | SWP_NOZORDER);
    else
        ShowWindowAsync(h, how == "max" ? SW_MAXIMIZE : how == "min" ? SW_MINIMIZE : SW_RESTORE);
    drivefront(mainwindow); // or its place, at least
}

void wheel(int32_t notches, const std::string &)
{
    driveplace at = drivemiddle(solutionswindow);
    drivemove(at.x, at.y);
    for (int n = std::abs(notches); n; n--)
        drivewheel(notches < 0 ? -WHEEL_DELTA : WHEEL_DELTA);
}

void answer(int32_t pressed, const std::string &)
{
    window asked = driveboxwait();
    if (!asked) return stumble("no box comes up");
    driveboxanswer(asked, pressed);
}

void choose(int32_t row, const std::string &leaf)
{
    window asked = driveboxwait();
    if (!asked) return stumble("no box comes up");
    Sleep(100); // its own first messages
    driveboxfile(asked, leaf.empty() ? "" : place(leaf), row);
    driveboxanswer(asked, leaf.empty() ? IDCANCEL : IDOK);
}

void retype(int32_t row, const std::string &name)
{
    window asked = driveboxwait();
    if (!asked) return stumble("no box comes up");
    Sleep(100); // its own first messages
    driveboxfile(asked, name, 0);
    driveboxfile(asked, "", row);
}

void pickcolour(int32_t control, const std::string &rgb)
{
    constexpr int RED = 706;
    pickerwork(control, [&](window asked) {
        std::istringstream in(rgb);
        for (int field = RED, part; in >> part; field++)
            SetDlgItemInt(handle(asked), field, static_cast<UINT>(part), FALSE);
    });
}

void pickfont(int32_t control, const std::string &points)
{
    constexpr int HEIGHTS = 0x472;
    pickerwork(control, [&](window asked) {
        SendMessageA(handle(drivecontrol(asked, HEIGHTS)), CB_SELECTSTRING, 0,
                     reinterpret_cast<LPARAM>(points.c_str()));
        SendMessageA(handle(asked), WM_COMMAND, MAKEWPARAM(HEIGHTS, CBN_SELCHANGE),
                     static_cast<LPARAM>(drivecontrol(asked, HEIGHTS)));
    });
}

void fresh(int32_t, const std::string &)
{
    inprogram(documentreset);
}

void nextstart(int32_t, const std::string &)
{
    prepare([] {
        errorblock *err = choicesload();
        return err ? err : gridloaddefault();
    });
}

bool recorded(bool now)
{
    constexpr const char *KEY = "Software\\Orchardlight\\Dictionaries";
    static char before[MAX_PATH];
    static bool had;
    DWORD bytes = sizeof before;
    if (now)
        had =
            !RegGetValueA(HKEY_LOCAL_MACHINE, KEY, nullptr, RRF_RT_REG_SZ, nullptr, before, &bytes);
    if (!now && !had) return !RegDeleteKeyA(HKEY_LOCAL_MACHINE, KEY);
    std::string folder = now ? dictdirectory : before;
    return !RegSetKeyValueA(HKEY_LOCAL_MACHINE, KEY, nullptr, REG_SZ, folder.c_str(),
                            static_cast<DWORD>(folder.size() + 1));
}

void put(int32_t, const std::string &leaftext)
{
    size_t at = leaftext.find(' ');
    std::string content = at == std::string::npos ? "" : leaftext.substr(at + 1), lines;
    for (char c : content)
        lines += c == '|' ? "\r\n" : std::string(1, c);
    std::ofstream(place(leaftext.substr(0, at)), std::ios::binary) << lines;
}

void erase(int32_t, const std::string &leaf)
{
    std::filesystem::remove_all(leaf == "*" ? dictdirectory : place(leaf));
}

void copyfile(int32_t bytes, const std::string &leaves)
{
    size_t at = leaves.find(' ');
    std::string to = place(leaves.substr(at + 1));
    std::filesystem::copy_file(place(leaves.substr(0, at)), to);
    if (bytes > 0) std::filesystem::resize_file(to, static_cast<uintmax_t>(bytes));
}

void hold(int32_t, const std::string &leaf)
{
    held = CreateFileA(place(leaf).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (held == INVALID_HANDLE_VALUE) stumble("it can't be held");
}

void letgo(int32_t, const std::string &)
{
    CloseHandle(held);
    held = INVALID_HANDLE_VALUE;
}

void readonly(int32_t on, const std::string &leaf)
{
    SetFileAttributesA(place(leaf).c_str(), on ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL);
}

void nomemory(int32_t after, const std::string &)
{
    inprogram([&] { flexfailafter(after); });
}

// The steps of this thread: a table of what a user can do.
#include "app/buttons.h"
#include "app/commands.h"
#include "app/mainwindow.h"
#include "base/boxes.h"
#include "dict/dicteditwindow.h"
#include "dict/dictmenu.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "find/spellwindow.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridview.h"
#include "resources/identifiers.h"
#include "tests/app/random/random.h"

#include <algorithm>
#include <cstring>
#include <iterator>

uint64_t steps;

namespace
{

const DWORD programthread = GetCurrentThreadId();

BOOL CALLBACK topadd(HWND h, LPARAM list)
{
    if (IsWindowVisible(h) && IsWindowEnabled(h) && classis(h, "Task"))
        reinterpret_cast<std::vector<window> *>(list)->push_back(word(h));
    return TRUE;
}

BOOL CALLBACK childadd(HWND h, LPARAM list)
{
    if (IsWindowVisible(h) && IsWindowEnabled(h))
        reinterpret_cast<std::vector<HWND> *>(list)->push_back(h);
    return TRUE;
}

int held(dice &from)
{
    static const int keys[] = {DRIVESHIFT, DRIVECTRL, DRIVESHIFT | DRIVECTRL, DRIVEALT};
    return chance(from, 25) ? pick(from, keys) : 0;
}

drivebutton button(dice &from)
{
    return chance(from, 70) ? DRIVELEFT : DRIVERIGHT;
}

void move()
{
    driveplace at = spot(firstdice);
    note("move to %d,%d", at.x, at.y);
    drivemove(at.x, at.y);
}

// Once, or twice; the keys are held only for the one.
void press()
{
    driveplace at = spot(firstdice);
    drivebutton which = button(firstdice);
    int keys = held(firstdice);
    bool twice = chance(firstdice, 30);
    note("press %d at %d,%d with %d%s", which, at.x, at.y, keys, twice ? " twice" : "");
    if (twice)
        drivedouble(at.x, at.y, which);
    else
        driveclick(at.x, at.y, which, keys);
}

void drag()
{
    std::vector<driveplace> places = {spot(firstdice)};
    for (int n = rollbetween(firstdice, 1, 4); n; n--) {
        driveplace close = {places[0].x + rollbetween(firstdice, -150, 150),
                            places[0].y + rollbetween(firstdice, -150, 150)};
        places.push_back(chance(firstdice, 80) ? close : spot(firstdice));
    }
    drivebutton which = button(firstdice);
    int keys = held(firstdice);
    note("drag %d from %d,%d to %d,%d with %d", which, places[0].x, places[0].y, places.back().x,
         places.back().y, keys);
    drivedrag(places, which, keys);
}

// A press that is let go only after other things.
void halfpress()
{
    driveplace at = spot(firstdice);
    note("press at %d,%d, a key, release", at.x, at.y);
    drivemove(at.x, at.y);
    drivepress();
    drivekey(chance(firstdice, 50) ? VK_ESCAPE : VK_RETURN);
    at = spot(firstdice);
    drivemove(at.x, at.y);
    driverelease();
}

void wheel()
{
    int delta = rollbetween(firstdice, -400, 400);
    bool across = chance(firstdice, 20);
    note("wheel by %d", delta);
    drivewheel(delta, across);
}

void letters()
{
    static const char all[] = "abcdefghijklmnopqrstuvwxyzABCXYZ059 -'.,?*{<&%";
    std::string text;
    for (int n = rollbetween(firstdice, 1, chance(firstdice, 5) ? 50 : 8); n; n--)
        text += all[roll(firstdice, sizeof all - 1)];
    note("type \"%s\"", text.c_str());
    drivetype(text);
}

// As another keyboard types it.
void sign()
{
    int code = rollbetween(firstdice, 128, 255);
    HWND focus = GetFocus();
    note("type the character %d", code);
    if (focus) PostMessageA(focus, WM_CHAR, static_cast<WPARAM>(code), 1);
    drivepump();
}

void key()
{
    static const int keys[] = {VK_LEFT,   VK_UP,     VK_RIGHT,  VK_DOWN,   VK_HOME,  VK_END,
                               VK_PRIOR,  VK_NEXT,   VK_INSERT, VK_DELETE, VK_BACK,  VK_TAB,
                               VK_RETURN, VK_ESCAPE, VK_SPACE,  VK_F1,     VK_F2,    VK_F3,
                               VK_F4,     VK_F5,     VK_F6,     VK_F7,     VK_F8,    VK_F9,
                               VK_F10,    VK_F11,    VK_F12,    VK_APPS,   VK_PAUSE, VK_NUMPAD5};
    int code = pick(firstdice, keys), with = held(firstdice);
    int times = chance(firstdice, 20) ? rollbetween(firstdice, 2, 10) : 1;
    note("key %d with %d, %d times", code, with, times);
    while (times--)
        drivekey(code, with);
}

// Letters with Ctrl, and those of the menu bar and of the system's menu with Alt.
void shortcut()
{
    static const int menus[] = {'F', 'W', 'G', 'H', VK_SPACE, VK_MENU};
    bool alt = chance(firstdice, 40);
    int code = alt ? pick(firstdice, menus) : 'A' + roll(firstdice, 26);
    int with = alt ? DRIVEALT : chance(firstdice, 80) ? DRIVECTRL : DRIVECTRL | DRIVESHIFT;
    note("key %d with %d", code, with);
    drivekey(code, with);
}

void menupress()
{
    HWND main = handle(mainwindow);
    RECT item;
    int number = roll(firstdice, 4);
    if (!IsWindowEnabled(main) || IsIconic(main)) return;
    if (!GetMenuItemRect(main, GetMenu(main), static_cast<UINT>(number), &item)) return;
    note("press the menu %d", number);
    driveclick((item.left + item.right) / 2, (item.top + item.bottom) / 2);
}

bool reachable()
{
    return IsWindowEnabled(handle(mainwindow)) && IsWindowVisible(handle(mainwindow));
}

void commandgive(int32_t id)
{
    if (!reachable()) return;
    commandsprepare();
    UINT state = GetMenuState(GetMenu(handle(mainwindow)), static_cast<UINT>(id), MF_BYCOMMAND);
    if (state == static_cast<UINT>(-1) || state & (MF_GRAYED | MF_DISABLED)) return;
    note("command %d", static_cast<int>(id));
    PostMessageA(handle(mainwindow), WM_COMMAND, static_cast<WPARAM>(id), 0);
    drivepump();
}

// Any of the bar's; the dictionaries have a step of their own.
void command()
{
    HMENU in = GetMenu(handle(mainwindow));
    UINT id = static_cast<UINT>(-1); // of what opens a menu
    while (in && id == static_cast<UINT>(-1)) {
        int at = roll(firstdice, std::max(GetMenuItemCount(in), 1));
        id = GetMenuItemID(in, at);
        in = GetSubMenu(in, at);
    }
    if (id < DICTMENUFIRST || id >= DICTMENUFIRST + MAXDICTS) commandgive(static_cast<int32_t>(id));
}

void kindcommand()
{
    commandgive(chance(firstdice, 50) ? COMMANDCROSSWORD : COMMANDWORDSQUARE);
}

void dictionary()
{
    static const int32_t positions[] = {MENUATLOAD, MENUATLOAD, MENUATLOAD,
                                        MENUATEDIT, MENUATEDIT, MENUATDELETE};
    if (!reachable() || !ndicts) return;
    int32_t position = pick(firstdice, positions);
    int32_t number = roll(firstdice, static_cast<int>(ndicts));
    if (position == MENUATDELETE && chance(firstdice, 70)) return;
    note("dictionary %d (%s) under %d", static_cast<int>(number), dicts[number].name,
         static_cast<int>(position));
    reporterror(commanddictionary(position, DICTMENUFIRST + number));
    drivepump();
}

// Onto what takes files, or a parent of it that does.
void dropon(window w, const std::vector<std::string> &files)
{
    HWND target = handle(w);
    while (target && !(GetWindowLongA(target, GWL_EXSTYLE) & WS_EX_ACCEPTFILES))
        target = GetParent(target);
    if (!target || !IsWindowEnabled(GetAncestor(target, GA_ROOT))) return;
    for (const std::string &file : files)
        note("drop %s", file.c_str());
    drivedrop(word(target), files, drivemiddle(word(target)));
}

void drop()
{
    static const window *const targets[] = {&mainwindow,       &gridwindow,      &solutionswindow,
                                            &editor.view.pane, &check.view.pane, &buttonwindow};
    std::vector<std::string> files;
    for (int n = chance(firstdice, 80) ? 1 : rollbetween(firstdice, 2, 5); n; n--)
        files.push_back(droppable(firstdice));
    dropon(*pick(firstdice, targets), files);
}

// A document that searches have something to do with.
void sample()
{
    static const char *const leaves[] = {"crossword13.qmg", "barred12.qmg", "misspelt15.qmg",
                                         "square.qmg", "few.txt"};
    dropon(gridwindow, {scratchfile(pick(firstdice, leaves))});
}

// Dictionaries are used by name: the shipped ones are those that hold much.
void dictionaryuse()
{
    static const char *const names[] = {"MainDict", "Puzzle-UK", "middle", "small"};
    int32_t number = dictnamefind(pick(firstdice, names));
    if (number < 0 || dictinset(static_cast<uint32_t>(number))) return;
    note("use %s", dicts[number].name);
    reporterror(commanddictionary(MENUATLOAD, DICTMENUFIRST + number));
}

void barpress(int icon, const char *text)
{
    HWND button = handle(drivecontrol(buttonwindow, icon));
    if (!button) return;
    note("press %s, %d in the list", text, static_cast<int>(solutions.count));
    driveplace at = drivemiddle(word(button));
    driveclick(at.x, at.y);
    drivepump(200); // it begins a little later
    note("  %d in the list", static_cast<int>(solutions.count));
}

// Of what the view shows of the grid.
void mark()
{
    if (!reachable()) return;
    int width, height;
    drivesize(gridwindow, &width, &height);
    width = std::min(width, ostodevx(grid.width * grid.cellwidth));
    height = std::min(height, ostodevy(grid.height * grid.cellheight));
    if (width < 2 || height < 2) return;
    driveplace from = driveclient(gridwindow, roll(firstdice, width), roll(firstdice, height));
    driveplace to = driveclient(gridwindow, roll(firstdice, width), roll(firstdice, height));
    int shape = roll(firstdice, 5);
    if (shape < 2) to.x = from.x;
    if (shape >= 2 && shape < 4) to.y = from.y;
    note("mark from %d,%d to %d,%d", from.x, from.y, to.x, to.y);
    drivedrag({from, to}, DRIVELEFT, chance(firstdice, 20) ? DRIVECTRL : 0);
}

// Any control of any window, or one of the bar's, whose search begins a little later.
void control()
{
    bool bar = reachable() && buttonwindow && chance(firstdice, 50);
    std::vector<window> tops = topwindows();
    if (tops.empty() && !bar) return;
    std::vector<HWND> all = controls(bar ? buttonwindow : pick(firstdice, tops));
    if (all.empty()) return;
    HWND chosen = pick(firstdice, all);
    driveplace at = drivemiddle(word(chosen));
    note("press control %d", GetDlgCtrlID(chosen));
    driveclick(at.x, at.y, chance(firstdice, 90) ? DRIVELEFT : DRIVERIGHT);
    drivepump(chance(firstdice, 50) ? 150 : 10);
}

void field()
{
    static const char *const texts[] = {
        "0",     "1",           "5",     "127",      "128",
        "-3",    "99999999999", "",      "cat",      "listen",
        "a b c", "qqq",         "small", "new word", "wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww"};
    std::vector<HWND> fields;
    for (window top : topwindows())
        for (HWND h : controls(top))
            if (classis(h, "Edit")) fields.push_back(h);
    if (fields.empty()) return;
    HWND chosen = pick(firstdice, fields);
    const char *text = pick(firstdice, texts);
    note("field %d: \"%s\"", GetDlgCtrlID(chosen), text);
    drivefill(word(GetParent(chosen)), GetDlgCtrlID(chosen), text);
    if (chance(firstdice, 40)) drivekey(VK_RETURN);
}

void size()
{
    if (IsIconic(handle(mainwindow))) return;
    int x = rollbetween(firstdice, -100, 700), y = rollbetween(firstdice, -50, 500);
    int width = rollbetween(firstdice, chance(firstdice, 20) ? 1 : 300, 1000);
    int height = rollbetween(firstdice, chance(firstdice, 20) ? 1 : 250, 740);
    note("main window to %d,%d, %d by %d", x, y, width, height);
    SetWindowPos(handle(mainwindow), nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    drivepump();
}

// Its system menu does something with a window, or the user fetches it to the front.
void windowmenu()
{
    static const WPARAM commands[] = {SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE, SC_RESTORE, SC_MOVE,
                                      SC_SIZE,     SC_CLOSE,    SC_CLOSE,   0,          0};
    std::vector<window> tops = topwindows();
    if (tops.empty()) return;
    WPARAM command = pick(firstdice, commands);
    bool any = command == SC_CLOSE || !command;
    window chosen = any ? pick(firstdice, tops) : mainwindow;
    if (!any && !reachable()) return;
    note("\"%s\": system command %x", drivetext(chosen).c_str(), static_cast<unsigned>(command));
    if (command)
        PostMessageA(handle(chosen), WM_SYSCOMMAND, command, 0);
    else
        SetForegroundWindow(handle(chosen));
    drivepump();
}

// Another program puts a text there.
void clipboard()
{
    note("a text for the clipboard");
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 64);
    std::strcpy(static_cast<char *>(GlobalLock(block)), "pasted words\r\nof two lines");
    GlobalUnlock(block);
    bool taken = OpenClipboard(nullptr);
    if (taken) {
        EmptyClipboard();
        taken = SetClipboardData(CF_TEXT, block);
        CloseClipboard();
    }
    if (!taken) GlobalFree(block);
    drivepump();
}

// The user changes his colours and fonts.
void settings()
{
    static const UINT messages[] = {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_DISPLAYCHANGE,
                                    WM_FONTCHANGE};
    UINT message = pick(firstdice, messages);
    note("the system's message %x", message);
    LPARAM word = message == WM_DISPLAYCHANGE ? MAKELPARAM(1024, 768) : 0;
    for (window top : topwindows())
        SendMessageA(handle(top), message, message == WM_DISPLAYCHANGE ? 24 : 0, word);
    drivepump();
}

// Files come and go behind the program's back.
void dictionaryfile()
{
    if (!ndicts) return;
    std::string path = std::string(dictdirectory) + "\\" +
                       dicts[roll(firstdice, static_cast<int>(ndicts))].name + ".dic";
    int what = roll(firstdice, 3);
    note("%s: %s", what == 0 ? "delete" : what == 1 ? "lock" : "unlock", path.c_str());
    if (what == 0)
        DeleteFileA(path.c_str());
    else
        SetFileAttributesA(path.c_str(),
                           what == 1 ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL);
}

void wait()
{
    int time = rollbetween(firstdice, 20, 400);
    note("wait %d", time);
    DWORD start = GetTickCount();
    drivewait([&] { return GetTickCount() - start >= static_cast<DWORD>(time); }, time);
}

void crosswordsearch()
{
    if (!reachable() || IsIconic(handle(mainwindow))) return;
    commandgive(COMMANDCROSSWORD);
    dictionaryuse();
    if (chance(firstdice, 30)) dropon(gridwindow, {scratchfile("crossword13.qmg")});
    if (chance(firstdice, 70)) commandgive(COMMANDNEWWORDS);
    for (int n = rollbetween(firstdice, 1, 3); n; n--)
        mark();
    barpress(chance(firstdice, 75) ? BARSOLVE : BARANAGRAM, "a Crossword's search");
}

void squaresearch()
{
    static const int buttons[] = {BARMAKE, BARMAKE, BARNEW, BARSQUARESOLVE};
    if (!reachable() || IsIconic(handle(mainwindow))) return;
    dictionaryuse();
    dropon(gridwindow, {scratchfile("square.qmg")});
    static const char *const lists[] = {"few.txt", "few.txt", "many.txt", "tight.txt", "tight.txt"};
    dropon(gridwindow, {scratchfile(pick(firstdice, lists))});
    for (int n = rollbetween(firstdice, 1, 2); n; n--)
        barpress(pick(firstdice, buttons), "a Wordsquare's search");
}

struct steprow {
    int weight;
    void (*take)();
};

const steprow table[] = {
    {6, move},         {14, press},      {6, drag},           {1, halfpress}, {4, wheel},
    {8, letters},      {2, sign},        {12, key},           {7, shortcut},  {4, menupress},
    {8, command},      {2, kindcommand}, {6, dictionary},     {5, drop},      {3, sample},
    {5, mark},         {16, control},    {5, field},          {3, size},      {6, windowmenu},
    {1, clipboard},    {1, settings},    {1, dictionaryfile}, {5, wait},      {6, crosswordsearch},
    {5, squaresearch},
};

const steprow &chosen()
{
    int all = 0;
    for (const steprow &row : table)
        all += row.weight;
    int at = roll(firstdice, all);
    for (const steprow &row : table)
        if ((at -= row.weight) < 0) return row;
    return table[0];
}

// The user comes back to the program from wherever he went.
void comeback()
{
    HWND main = handle(mainwindow);
    if (IsIconic(main) && chance(firstdice, 30)) SendMessageA(main, WM_SYSCOMMAND, SC_RESTORE, 0);
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId())
        SetForegroundWindow(IsWindowEnabled(main) ? main : GetLastActivePopup(main));
}

} // namespace

bool classis(HWND h, const char *wanted)
{
    char name[64] = "";
    GetClassNameA(h, name, sizeof name);
    return !std::strcmp(name, wanted);
}

std::vector<HWND> controls(window top)
{
    std::vector<HWND> found;
    EnumChildWindows(handle(top), childadd, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<window> topwindows()
{
    std::vector<window> found;
    EnumThreadWindows(programthread, topadd, reinterpret_cast<LPARAM>(&found));
    return found;
}

driveplace spot(dice &from)
{
    std::vector<window> tops = topwindows();
    if (tops.empty() || chance(from, 4)) return {roll(from, 1024), roll(from, 768)};
    window top = chance(from, 70) ? tops[0] : pick(from, tops);
    std::vector<HWND> all = controls(top);
    HWND in = chance(from, 60) && !all.empty() ? pick(from, all) : handle(top);
    RECT box;
    GetWindowRect(in, &box);
    return {rollbetween(from, static_cast<int>(box.left), static_cast<int>(box.right)),
            rollbetween(from, static_cast<int>(box.top), static_cast<int>(box.bottom))};
}

void steprandom()
{
    steps++;
    comeback();
    chosen().take();
}

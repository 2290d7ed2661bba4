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

int held()
{
    static const int keys[] = {DRIVESHIFT, DRIVECTRL, DRIVESHIFT | DRIVECTRL, DRIVEALT};
    return chance(25) ? pick(keys) : 0;
}

drivebutton button()
{
    return chance(70) ? DRIVELEFT : DRIVERIGHT;
}

void move()
{
    driveplace at = spot();
    note("move to %d,%d", at.x, at.y);
    drivemove(at.x, at.y);
}

// Once, or twice; the keys are held only for the one.
void press()
{
    driveplace at = spot();
    drivebutton which = button();
    int keys = held();
    bool twice = chance(30);
    note("press %d at %d,%d with %d%s", which, at.x, at.y, keys, twice ? " twice" : "");
    if (twice)
        drivedouble(at.x, at.y, which);
    else
        driveclick(at.x, at.y, which, keys);
}

void drag()
{
    std::vector<driveplace> places = {spot()};
    for (int n = rollbetween(1, 4); n; n--) {
        driveplace close = {places[0].x + rollbetween(-150, 150),
                            places[0].y + rollbetween(-150, 150)};
        places.push_back(chance(80) ? close : spot());
    }
    drivebutton which = button();
    int keys = held();
    note("drag %d from %d,%d to %d,%d with %d", which, places[0].x, places[0].y, places.back().x,
         places.back().y, keys);
    drivedrag(places, which, keys);
}

void wheel()
{
    int delta = rollbetween(-400, 400);
    bool across = chance(20);
    note("wheel by %d", delta);
    drivewheel(delta, across);
}

void letters()
{
    static const char all[] = "abcdefghijklmnopqrstuvwxyzABCXYZ059 -'.,?*{<&%";
    std::string text;
    for (int n = rollbetween(1, chance(5) ? 50 : 8); n; n--)
        text += all[roll(sizeof all - 1)];
    note("type \"%s\"", text.c_str());
    for (size_t i = 0; i < text.size() && !boxup(); i++)
        drivetype(text.substr(i, 1));
}

// Keys that do something, and letters, mostly with what makes commands and menus of them.
void key()
{
    static const int keys[] = {VK_LEFT,  VK_UP,     VK_RIGHT,  VK_DOWN, VK_HOME, VK_END,
                               VK_PRIOR, VK_NEXT,   VK_DELETE, VK_BACK, VK_TAB,  VK_RETURN,
                               VK_SPACE, VK_ESCAPE, VK_F1,     VK_F4,   VK_F5,   VK_F6,
                               VK_F7,    VK_F8,     VK_F10,    VK_APPS, VK_MENU, VK_NUMPAD5};
    static const int mostly[] = {DRIVECTRL, DRIVECTRL, DRIVEALT, DRIVECTRL | DRIVESHIFT};
    bool letter = chance(35);
    int code = letter ? 'A' + roll(26) : pick(keys);
    int with = letter ? pick(mostly) : held();
    int times = chance(20) ? rollbetween(2, 10) : 1;
    note("key %d with %d, %d times", code, with, times);
    while (times-- && !boxup())
        drivekey(code, with);
}

bool reachable()
{
    return IsWindowEnabled(handle(mainwindow)) && IsWindowVisible(handle(mainwindow));
}

void commandgive(int32_t id)
{
    if (!reachable()) return;
    inprogram([] { commandsprepare(); });
    UINT state = GetMenuState(GetMenu(handle(mainwindow)), static_cast<UINT>(id), MF_BYCOMMAND);
    if (state == static_cast<UINT>(-1) || state & (MF_GRAYED | MF_DISABLED)) return;
    note("command %d", static_cast<int>(id));
    PostMessageA(handle(mainwindow), WM_COMMAND, static_cast<WPARAM>(id), 0);
    drivepause(0);
}

// Any of the bar's; the dictionaries have a step of their own.
void command()
{
    HMENU in = GetMenu(handle(mainwindow));
    UINT id = static_cast<UINT>(-1); // of what opens a menu
    while (in && id == static_cast<UINT>(-1)) {
        int at = roll(std::max(GetMenuItemCount(in), 1));
        id = GetMenuItemID(in, at);
        in = GetSubMenu(in, at);
    }
    if (id < DICTMENUFIRST || id >= DICTMENUFIRST + MAXDICTS) commandgive(static_cast<int32_t>(id));
}

void dictionary()
{
    static const int32_t positions[] = {MENUATLOAD, MENUATLOAD, MENUATLOAD,
                                        MENUATEDIT, MENUATEDIT, MENUATDELETE};
    if (!reachable() || !ndicts) return;
    int32_t position = pick(positions);
    int32_t number = roll(static_cast<int>(ndicts));
    if (position == MENUATDELETE && chance(70)) return;
    note("dictionary %d (%s) under %d", static_cast<int>(number), dicts[number].name,
         static_cast<int>(position));
    later([=] { reporterror(commanddictionary(position, DICTMENUFIRST + number)); });
    drivepause(0);
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
    for (int n = chance(80) ? 1 : rollbetween(2, 5); n; n--)
        files.push_back(droppable());
    dropon(*pick(targets), files);
}

// Dictionaries are used by name: the shipped ones are those that hold much.
void dictionaryuse()
{
    static const char *const names[] = {"MainDict", "Puzzle-UK", "middle", "small"};
    int32_t number = dictnamefind(pick(names));
    if (number < 0 || dictinset(static_cast<uint32_t>(number))) return;
    note("use %s", dicts[number].name);
    later([=] { reporterror(commanddictionary(MENUATLOAD, DICTMENUFIRST + number)); });
    drivepause(0);
}

void barpress(int icon, const char *text)
{
    HWND button = handle(drivecontrol(buttonwindow, icon));
    if (!button) return;
    note("press %s, %d in the list", text, static_cast<int>(solutions.count));
    click(button);
    Sleep(200); // it begins a little later
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
    driveplace from = driveclient(gridwindow, roll(width), roll(height));
    driveplace to = driveclient(gridwindow, roll(width), roll(height));
    int shape = roll(5);
    if (shape < 2) to.x = from.x;
    if (shape >= 2 && shape < 4) to.y = from.y;
    note("mark from %d,%d to %d,%d", from.x, from.y, to.x, to.y);
    drivedrag({from, to}, DRIVELEFT, chance(20) ? DRIVECTRL : 0);
}

// Any control of any window, or one of the bar's, whose search begins a little later.
void control()
{
    bool bar = reachable() && buttonwindow && chance(50);
    std::vector<window> tops = topwindows();
    if (tops.empty() && !bar) return;
    std::vector<HWND> all = controls(bar ? buttonwindow : pick(tops));
    if (all.empty()) return;
    HWND chosen = pick(all);
    note("press control %d", GetDlgCtrlID(chosen));
    click(chosen, chance(90) ? DRIVELEFT : DRIVERIGHT);
    Sleep(chance(50) ? 150 : 0);
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
    HWND chosen = pick(fields);
    const char *text = pick(texts);
    note("field %d: \"%s\"", GetDlgCtrlID(chosen), text);
    drivefill(word(GetParent(chosen)), GetDlgCtrlID(chosen), text);
    if (chance(40)) drivekey(VK_RETURN);
}

void size()
{
    if (IsIconic(handle(mainwindow))) return;
    int x = rollbetween(-100, 700), y = rollbetween(-50, 500);
    int width = rollbetween(chance(20) ? 1 : 300, 1000);
    int height = rollbetween(chance(20) ? 1 : 250, 740);
    note("main window to %d,%d, %d by %d", x, y, width, height);
    SetWindowPos(handle(mainwindow), nullptr, x, y, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
    drivepause(0);
}

// Its system menu does something with a window, or the user fetches it to the front.
void windowmenu()
{
    static const WPARAM commands[] = {SC_MINIMIZE, SC_MAXIMIZE, SC_RESTORE, SC_RESTORE, SC_MOVE,
                                      SC_SIZE,     SC_CLOSE,    SC_CLOSE,   0,          0};
    std::vector<window> tops = topwindows();
    if (tops.empty()) return;
    WPARAM command = pick(commands);
    bool any = command == SC_CLOSE || !command;
    window chosen = any ? pick(tops) : mainwindow;
    if (!any && !reachable()) return;
    note("\"%s\": system command %x", drivetext(chosen).c_str(), static_cast<unsigned>(command));
    if (command)
        PostMessageA(handle(chosen), WM_SYSCOMMAND, command, 0);
    else
        SetForegroundWindow(handle(chosen));
    drivepause(0);
}

// The user changes his colours and fonts.
void settings()
{
    static const UINT messages[] = {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_DISPLAYCHANGE,
                                    WM_FONTCHANGE};
    UINT message = pick(messages);
    note("the system's message %x", message);
    LPARAM word = message == WM_DISPLAYCHANGE ? MAKELPARAM(1024, 768) : 0;
    for (window top : topwindows())
        SendNotifyMessageA(handle(top), message, message == WM_DISPLAYCHANGE ? 24 : 0, word);
    drivepause(0);
}

// Files come and go behind the program's back.
void dictionaryfile()
{
    if (!ndicts) return;
    std::string path =
        std::string(dictdirectory) + "\\" + dicts[roll(static_cast<int>(ndicts))].name + ".dic";
    int what = roll(3);
    note("%s: %s", what == 0 ? "delete" : what == 1 ? "lock" : "unlock", path.c_str());
    if (what == 0)
        DeleteFileA(path.c_str());
    else
        SetFileAttributesA(path.c_str(),
                           what == 1 ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL);
}

void wait()
{
    int time = rollbetween(20, 400);
    note("wait %d", time);
    Sleep(static_cast<DWORD>(time));
}

void crosswordsearch()
{
    if (!reachable() || IsIconic(handle(mainwindow))) return;
    commandgive(COMMANDCROSSWORD);
    dictionaryuse();
    if (chance(30)) dropon(gridwindow, {scratchfile("crossword13.qmg")});
    if (chance(70)) commandgive(COMMANDNEWWORDS);
    for (int n = rollbetween(1, 3); n; n--)
        mark();
    barpress(chance(75) ? BARSOLVE : BARANAGRAM, "a Crossword's search");
}

void squaresearch()
{
    static const int buttons[] = {BARMAKE, BARMAKE, BARNEW, BARSQUARESOLVE};
    if (!reachable() || IsIconic(handle(mainwindow))) return;
    dictionaryuse();
    dropon(gridwindow, {scratchfile("square.qmg")});
    static const char *const lists[] = {"few.txt", "few.txt", "many.txt", "tight.txt", "tight.txt"};
    dropon(gridwindow, {scratchfile(pick(lists))});
    for (int n = rollbetween(1, 2); n; n--)
        barpress(pick(buttons), "a Wordsquare's search");
}

struct steprow {
    int weight;
    void (*take)();
};

const steprow table[] = {
    {6, move},           {14, press},     {6, drag},
    {4, wheel},          {8, letters},    {22, key},
    {10, command},       {6, dictionary}, {8, drop},
    {5, mark},           {16, control},   {5, field},
    {3, size},           {6, windowmenu}, {1, settings},
    {1, dictionaryfile}, {5, wait},       {6, crosswordsearch},
    {5, squaresearch},
};

const steprow &chosen()
{
    int all = 0;
    for (const steprow &row : table)
        all += row.weight;
    int at = roll(all);
    for (const steprow &row : table)
        if ((at -= row.weight) < 0) return row;
    return table[0];
}

// The user comes back to the program from wherever he went.
void comeback()
{
    HWND main = handle(mainwindow);
    if (IsIconic(main) && chance(30)) PostMessageA(main, WM_SYSCOMMAND, SC_RESTORE, 0);
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
    EnumThreadWindows(GetWindowThreadProcessId(handle(mainwindow), nullptr), topadd,
                      reinterpret_cast<LPARAM>(&found));
    return found;
}

driveplace spot()
{
    std::vector<window> tops = topwindows();
    if (tops.empty() || chance(4)) return {roll(1024), roll(768)};
    window top = chance(70) ? tops[0] : pick(tops);
    std::vector<HWND> all = controls(top);
    HWND in = chance(60) && !all.empty() ? pick(all) : handle(top);
    RECT box;
    GetWindowRect(in, &box);
    return {rollbetween(static_cast<int>(box.left), static_cast<int>(box.right)),
            rollbetween(static_cast<int>(box.top), static_cast<int>(box.bottom))};
}

void click(HWND control, drivebutton which)
{
    driveplace at = drivemiddle(word(control));
    driveclick(at.x, at.y, which);
}

void steprandom()
{
    steps++;
    comeback();
    chosen().take();
}

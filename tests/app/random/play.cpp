// What the user does in what is up, until it is over; and the watch.
#include "app/buttons.h"
#include "app/mainwindow.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"
#include "tests/app/random/random.h"

#include <thread>

uint32_t fileschosen;

namespace
{

constexpr DWORD STOPWITHIN = 20000;   // milliseconds, from the first try to stop a search
constexpr DWORD PLAYWITHIN = 120000;  // with all the boxes that come up in a row
constexpr DWORD ANSWERWITHIN = 20000; // a message; the machine may be busy
constexpr int MENUPLAY = 30, MOVEPLAY = 8, BOXPLAY = 12;

DWORD programthread;

// Not waited for: what follows may be another box.
void press(HWND box, int button)
{
    PostMessageA(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
}

void messageanswer(HWND box)
{
    std::vector<HWND> buttons;
    for (HWND h : controls(word(box)))
        if (classis(h, "Button")) buttons.push_back(h);
    if (buttons.empty()) return;
    HWND button = pick(buttons);
    note("  the box \"%s\": button %d", drivetext(word(box), 0xFFFF).c_str(), GetDlgCtrlID(button));
    int how = roll(4);
    if (how == 0)
        drivekey(chance(50) ? VK_RETURN : VK_ESCAPE);
    else if (how == 1)
        click(button);
    else
        press(box, GetDlgCtrlID(button));
}

// No keys in here: the system's list of files would take them, and delete.
void filesanswer(HWND box, int tries)
{
    int row = chance(40) ? roll(4) + 1 : 0;
    std::string name = typedname();
    bool ok = tries < BOXPLAY && chance(75);
    driveboxfile(word(box), name, row);
    note("  a box for files: %s, type %d, %s", name.c_str(), row, ok ? "OK" : "Cancel");
    fileschosen += ok;
    // With the mouse: Wine falls over a second OK that a box hears in its first.
    SetForegroundWindow(box);
    HWND button = GetDlgItem(box, ok ? IDOK : IDCANCEL);
    if (tries < 2 * BOXPLAY && button)
        click(button);
    else
        press(box, IDCANCEL);
    Sleep(150);
}

// A colour or a font is chosen by anything that the box has.
void choiceanswer(HWND box, int tries)
{
    static const char *const typed[] = {"0", "-7", "12", "72", "2000", "999999", "abc", ""};
    std::vector<HWND> children = controls(word(box));
    if (tries >= BOXPLAY || children.empty() || chance(25)) {
        bool ok = tries < 2 * BOXPLAY && chance(70);
        note("  a box for a choice: %s", ok ? "OK" : "Cancel");
        return press(box, ok ? IDOK : IDCANCEL);
    }
    HWND child = pick(children);
    note("  a box for a choice: control %d", GetDlgCtrlID(child));
    click(child);
    if (classis(child, "Edit") || classis(child, "ComboBox")) {
        drivekey('A', DRIVECTRL);
        drivetype(pick(typed));
    } else if (chance(50)) {
        drivekey(chance(50) ? VK_DOWN : VK_UP);
    }
}

void boxplay(HWND box, int tries)
{
    constexpr int FILENAME = 0x480, FILENAMES = 0x47C;
    if (GetDlgItem(box, FILENAME) || GetDlgItem(box, FILENAMES))
        filesanswer(box, tries);
    else if (GetDlgItem(box, 0xFFFF))
        messageanswer(box);
    else
        choiceanswer(box, tries);
    Sleep(40);
}

void menuplay(HWND owner, int tries)
{
    static const int keys[] = {VK_DOWN, VK_DOWN,  VK_DOWN,  VK_DOWN,   VK_UP,
                               VK_LEFT, VK_RIGHT, VK_RIGHT, VK_RETURN, VK_RETURN};
    HWND popup = handle(drivefind("", "#32768"));
    if (tries > 2 * MENUPLAY) {
        PostMessageA(owner, WM_CANCELMODE, 0, 0);
        Sleep(50);
    } else if (popup && tries <= MENUPLAY && chance(15)) {
        int width, height;
        drivesize(word(popup), &width, &height);
        driveplace at = driveclient(word(popup), roll(width + 1), roll(height + 1));
        driveclick(at.x, at.y);
    } else {
        int key = tries > MENUPLAY || chance(8) ? VK_ESCAPE
                  : chance(10)                  ? 'A' + roll(26)
                                                : pick(keys);
        note("  key %d in a menu", key);
        drivekey(key);
    }
}

void moveplay(int tries)
{
    static const int keys[] = {VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT};
    driveplace at = spot();
    if (tries > MOVEPLAY) {
        drivekey(chance(50) ? VK_RETURN : VK_ESCAPE);
        driverelease();
    } else if (chance(50)) {
        drivekey(pick(keys));
    } else {
        drivemove(at.x, at.y);
    }
}

// The user goes on while a search runs, and stops it as a user does: the window is
// fetched, and Stop is pressed, or Escape.
void searchplay(DWORD age)
{
    static DWORD patience;
    if (!age) patience = static_cast<DWORD>(rollbetween(500, 4000));
    if (age > patience + STOPWITHIN) fault("a search can't be stopped");
    if (age < patience) {
        driveplace at = spot();
        int what = roll(8);
        if (what < 3) note("  a press, a key or the wheel meanwhile: %d", what);
        if (what == 0) driveclick(at.x, at.y, chance(70) ? DRIVELEFT : DRIVERIGHT);
        if (what == 1) drivekey(chance(50) ? 'A' + roll(26) : VK_LEFT + roll(4));
        if (what == 2) drivewheel(rollbetween(-3, 3) * WHEEL_DELTA);
        return Sleep(60);
    }
    note("  the search is to stop");
    HWND main = handle(mainwindow), stop = handle(drivecontrol(buttonwindow, BARSTOP));
    if (IsIconic(main)) PostMessageA(main, WM_SYSCOMMAND, SC_RESTORE, 0);
    SetForegroundWindow(main);
    Sleep(50);
    driveplace at = stop ? drivemiddle(word(stop)) : driveplace{};
    if (chance(50) || !stop)
        drivekey(VK_ESCAPE);
    else if (WindowFromPoint({at.x, at.y}) == stop)
        driveclick(at.x, at.y);
    else
        press(handle(buttonwindow), BARSTOP);
    Sleep(100);
}

void watch()
{
    for (DWORD_PTR result = 0;; Sleep(500))
        if (!SendMessageTimeoutA(handle(mainwindow), WM_NULL, 0, 0, SMTO_NORMAL, ANSWERWITHIN,
                                 &result))
            fault("the program doesn't answer");
}

} // namespace

bool boxup()
{
    return drivefind("", "#32770") != 0;
}

bool playon()
{
    static DWORD begun, searchbegun; // 0 for none
    static HWND last;
    static int tries;
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(programthread, &info);
    bool menu = info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE);
    bool move = info.flags & GUI_INMOVESIZE, search = searchunderway();
    HWND box = handle(drivefind("", "#32770")), what = box ? box : menu ? info.hwndMenuOwner : 0;
    DWORD now = GetTickCount();
    tries = what == last ? tries + 1 : 0;
    last = what;
    if (!search || !searchbegun) searchbegun = search ? now : 0;
    bool up = box || menu || move || search;
    if (!up || !begun) begun = up ? now : 0;
    if (up && now - begun > PLAYWITHIN) fault("what is up never ends");
    if (box)
        boxplay(box, tries);
    else if (menu)
        menuplay(info.hwndMenuOwner, tries);
    else if (move)
        moveplay(tries);
    else if (search)
        searchplay(now - searchbegun);
    return up;
}

void programwatch()
{
    programthread = GetCurrentThreadId();
    std::thread(watch).detach();
}

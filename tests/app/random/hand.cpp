// The other hand: plays in what runs a loop of its own, and ends it.
#include "app/buttons.h"
#include "app/mainwindow.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"
#include "tests/app/random/random.h"

#include <algorithm>
#include <atomic>
#include <thread>

uint32_t searchesstopped, fileschosen;

namespace
{

constexpr DWORD BUSYAFTER = 500;      // milliseconds of a step, before it counts as long work
constexpr DWORD STOPWITHIN = 20000;   // from the first try to stop a search
constexpr DWORD STEPWITHIN = 120000;  // any step, with all the boxes that it brings up
constexpr DWORD ANSWERWITHIN = 20000; // a message; the machine may be busy
constexpr int MENUPLAY = 30, MOVEPLAY = 8, BOXPLAY = 12;

std::atomic<bool> over, watched;
std::atomic<DWORD> begun; // when the step began, 0 between steps
DWORD programthread;
std::thread hand, watch;

BOOL CALLBACK boxfound(HWND h, LPARAM word)
{
    if (!IsWindowVisible(h) || !IsWindowEnabled(h) || !classis(h, "#32770")) return TRUE;
    *reinterpret_cast<HWND *>(word) = h;
    return FALSE;
}

// The one in front, of the system's boxes that are open.
HWND frontbox()
{
    HWND box = nullptr;
    EnumThreadWindows(programthread, boxfound, reinterpret_cast<LPARAM>(&box));
    return box;
}

// Not waited for: what follows may be another box.
void press(HWND box, int button)
{
    PostMessageA(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
}

void click(HWND control)
{
    driveplace at = drivemiddle(word(control));
    driveclick(at.x, at.y);
}

std::vector<HWND> buttonsof(HWND box)
{
    std::vector<HWND> found;
    for (int id = IDOK; id <= IDCONTINUE; id++)
        if (HWND button = GetDlgItem(box, id); button && IsWindowVisible(button))
            found.push_back(button);
    return found;
}

void messageanswer(HWND box)
{
    std::vector<HWND> buttons = buttonsof(box);
    if (buttons.empty()) return;
    HWND button = pick(otherdice, buttons);
    note("  the box \"%s\": \"%s\", button %d", drivetext(word(box)).c_str(),
         drivetext(word(box), 0xFFFF).c_str(), GetDlgCtrlID(button));
    switch (roll(otherdice, 4)) {
    case 0:
        drivekey(chance(otherdice, 50) ? VK_RETURN : VK_ESCAPE);
        break;
    case 1:
        click(button);
        break;
    default:
        press(box, GetDlgCtrlID(button));
    }
}

constexpr int FILENAME = 0x480, FILENAMES = 0x47C;

// No keys in here: the system's list of files would take them, and delete.
void filesanswer(HWND box, int tries)
{
    int row = chance(otherdice, 40) ? roll(otherdice, 4) + 1 : 0;
    std::string name = typedname(otherdice);
    bool ok = tries < BOXPLAY && chance(otherdice, 75);
    driveboxfile(word(box), name, row);
    note("  the box \"%s\": %s, type %d, %s", drivetext(word(box)).c_str(), name.c_str(), row,
         ok ? "OK" : "Cancel");
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
    std::vector<HWND> children = controls(word(box));
    if (tries >= BOXPLAY || children.empty() || chance(otherdice, 25)) {
        bool ok = tries < 2 * BOXPLAY && chance(otherdice, 70);
        note("  the box \"%s\": %s", drivetext(word(box)).c_str(), ok ? "OK" : "Cancel");
        press(box, ok ? IDOK : IDCANCEL);
        return;
    }
    HWND child = pick(otherdice, children);
    note("  the box \"%s\": control %d", drivetext(word(box)).c_str(), GetDlgCtrlID(child));
    if (classis(child, "Edit") || classis(child, "ComboBox")) {
        click(child);
        static const char *const typed[] = {"0", "-7", "12", "72", "2000", "999999", "abc", ""};
        drivekey('A', DRIVECTRL);
        drivetype(pick(otherdice, typed));
    } else {
        click(child);
        if (chance(otherdice, 50)) drivekey(chance(otherdice, 50) ? VK_DOWN : VK_UP);
    }
}

void boxanswer(HWND box)
{
    static HWND last;
    static int tries;
    tries = box == last ? tries + 1 : 0;
    last = box;
    if (GetDlgItem(box, FILENAME) || GetDlgItem(box, FILENAMES))
        filesanswer(box, tries);
    else if (GetDlgItem(box, 0xFFFF))
        messageanswer(box);
    else
        choiceanswer(box, tries);
    Sleep(40);
}

void menuplay(int times, HWND owner)
{
    static const int keys[] = {VK_DOWN, VK_DOWN,  VK_DOWN,  VK_DOWN,   VK_UP,
                               VK_LEFT, VK_RIGHT, VK_RIGHT, VK_RETURN, VK_RETURN};
    HWND popup = handle(drivefind("", "#32768"));
    if (times > 2 * MENUPLAY) {
        PostMessageA(owner, WM_CANCELMODE, 0, 0);
        Sleep(50);
    } else if (times > MENUPLAY) {
        drivekey(VK_ESCAPE);
    } else if (popup && chance(otherdice, 15)) {
        int width, height;
        drivesize(word(popup), &width, &height);
        driveplace at =
            driveclient(word(popup), roll(otherdice, width + 1), roll(otherdice, height + 1));
        driveclick(at.x, at.y);
    } else {
        int key = chance(otherdice, 8)    ? VK_ESCAPE
                  : chance(otherdice, 10) ? 'A' + roll(otherdice, 26)
                                          : pick(otherdice, keys);
        note("  key %d in a menu", key);
        drivekey(key);
    }
}

void moveplay(int times)
{
    static const int keys[] = {VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT};
    if (times > MOVEPLAY) {
        drivekey(chance(otherdice, 50) ? VK_RETURN : VK_ESCAPE);
        driverelease();
    } else if (chance(otherdice, 50)) {
        drivekey(pick(otherdice, keys));
    } else {
        driveplace at = spot(otherdice);
        drivemove(at.x, at.y);
    }
}

// The user goes on while a search runs.
void searchplay()
{
    driveplace at = spot(otherdice);
    switch (roll(otherdice, 8)) {
    case 0:
        note("  a press at %d,%d meanwhile", at.x, at.y);
        driveclick(at.x, at.y, chance(otherdice, 70) ? DRIVELEFT : DRIVERIGHT);
        break;
    case 1:
        note("  keys meanwhile");
        drivekey('A' + roll(otherdice, 26));
        drivekey(VK_LEFT + roll(otherdice, 4));
        break;
    case 2:
        note("  the wheel meanwhile");
        drivewheel(rollbetween(otherdice, -3, 3) * WHEEL_DELTA);
        break;
    default:
        Sleep(60);
    }
}

// As a user does it: the window is fetched, what covers the button is closed, and
// Stop is pressed, or Escape.
void searchstop()
{
    note("  the search is to stop");
    HWND main = handle(mainwindow);
    if (IsIconic(main)) PostMessageA(main, WM_SYSCOMMAND, SC_RESTORE, 0);
    HWND stop = handle(drivecontrol(buttonwindow, BARSTOP));
    SetForegroundWindow(main);
    Sleep(50);
    if (chance(otherdice, 50) || !stop) {
        drivekey(VK_ESCAPE);
    } else {
        driveplace at = drivemiddle(reinterpret_cast<window>(stop));
        if (WindowFromPoint({at.x, at.y}) == stop)
            driveclick(at.x, at.y);
        else
            press(handle(buttonwindow), BARSTOP);
    }
    Sleep(100);
}

struct playrecord {
    DWORD step;               // the one that it is about
    int times;                // in a menu or a move
    DWORD patience, stopping; // of a search; stopping 0 while it is let run
};

bool down(int button)
{
    return GetAsyncKeyState(button) & 0x8000;
}

// A bar of the system follows the pointer in a loop of its own while it is held. A
// button that isn't down stays so: Wine's list of files would open a menu for it,
// in which Wine itself falls over.
void holdend()
{
    note("  what is held is let go");
    driveplace at = spot(otherdice);
    drivemove(at.x, at.y);
    if (down(VK_LBUTTON)) driverelease(DRIVELEFT);
    if (down(VK_RBUTTON)) driverelease(DRIVERIGHT);
}

// The program's own questions wait for their answer in the poll.
void questionplay()
{
    std::vector<window> tops = topwindows();
    if (tops.empty() || !drivecontrol(tops[0], QUESTIONTEXT)) return;
    std::vector<HWND> children = controls(tops[0]);
    if (children.empty()) return;
    HWND child = pick(otherdice, children);
    note("  \"%s\" waits: control %d", drivetext(tops[0]).c_str(), GetDlgCtrlID(child));
    SetForegroundWindow(handle(tops[0]));
    if (chance(otherdice, 80))
        click(child);
    else
        drivekey(chance(otherdice, 50) ? VK_RETURN : VK_ESCAPE);
}

void busyplay(playrecord *play, DWORD age)
{
    if (!searchunderway()) {
        if (down(VK_LBUTTON) || down(VK_RBUTTON))
            holdend();
        else
            questionplay();
        return;
    }
    if (age < play->patience) {
        searchplay();
        return;
    }
    if (!play->stopping) {
        play->stopping = GetTickCount();
        searchesstopped++;
    }
    searchstop();
    if (searchunderway() && GetTickCount() - play->stopping > STOPWITHIN)
        fault("a search can't be stopped");
}

void playonce(playrecord *play)
{
    DWORD step = begun;
    if (!step) return;
    DWORD age = GetTickCount() - step;
    if (play->step != step)
        *play = {step, 0, static_cast<DWORD>(rollbetween(otherdice, 500, 4000)), 0};
    if (age > STEPWITHIN) fault("a step never ends");
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(programthread, &info);
    if (HWND box = frontbox())
        boxanswer(box);
    else if (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE))
        menuplay(play->times++, info.hwndMenuOwner);
    else if (info.flags & GUI_INMOVESIZE)
        moveplay(play->times++);
    else if (age > BUSYAFTER)
        busyplay(play, age);
}

void handwork()
{
    playrecord play = {};
    while (!over) {
        Sleep(20);
        playonce(&play);
    }
}

void watchwork()
{
    while (!over) {
        DWORD_PTR result = 0;
        if (!SendMessageTimeoutA(handle(mainwindow), WM_NULL, 0, 0, SMTO_NORMAL, ANSWERWITHIN,
                                 &result))
            fault("the program doesn't answer");
        Sleep(500);
    }
    watched = true;
}

} // namespace

void handstart()
{
    programthread = GetCurrentThreadId();
    hand = std::thread(handwork);
    watch = std::thread(watchwork);
}

// The watch waits for answers until the end.
void handend()
{
    over = true;
    while (!watched)
        drivepump(10);
    hand.join();
    watch.join();
}

void stepbegun()
{
    begun = std::max<DWORD>(GetTickCount(), 1); // 0 says that there is none
}

void stepended()
{
    begun = 0;
}

// tests/support/driver.h - a user's hands and eyes: the one set, for the tests of
// windows, the script of the screen, the input at random and the tour.
//
// Input is sent through the system as if from a mouse and a keyboard, and what is
// looked at is what the screen shows. Places are pixels of the screen. Nothing of
// the program is known here but identifiers of controls and commands.
//
// Who is driven:
//  - this process (link `driver`). Called on the main thread, a hand runs the poll
//    until nothing is left to do. What runs a loop of its own there (a menu, a box
//    of the system, a search) doesn't come back before it is over: driveaside gives
//    the hands to a second thread for that, where they sleep a little instead;
//  - a program of its own (link `hands`): driven is its process, and each hand waits
//    until it has answered. tests/support/win32/program.h starts one.
//
// To find what you need: the mouse, keys, menus, controls, boxes of the system,
// windows, pictures, waiting.
#pragma once

#include "desktop/events.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct driveplace {
    int x, y;
};

// Keys held during a call.
constexpr int DRIVESHIFT = 1, DRIVECTRL = 2, DRIVEALT = 4;
enum drivebutton { DRIVELEFT, DRIVERIGHT };

// The mouse.
void drivemove(int x, int y);
void drivepress(drivebutton button = DRIVELEFT);
void driverelease(drivebutton button = DRIVELEFT);
void driveclick(int x, int y, drivebutton button = DRIVELEFT, int held = 0);
void drivedouble(int x, int y, drivebutton button = DRIVELEFT);
// Presses at the first place, moves through the others, releases at the last.
void drivedrag(const std::vector<driveplace> &places, drivebutton button = DRIVELEFT, int held = 0);
void drivewheel(int delta, bool horizontal = false); // where the pointer is
// Files, by names in UTF-8, dropped at a place of a window, told to the window itself.
void drivedrop(window w, const std::vector<std::string> &files, driveplace place);

// The keyboard: a virtual key, or the keys that type a text.
void drivekey(int key, int held = 0);
void drivetype(const std::string &text);

// A command of the menu bar, walked to with the keys; Return would choose it. entry,
// from 1, is one of the menu that it opens itself. menu is the bar's handle, or of
// another process one loaded from its resources. false if there is no such command.
bool drivemenu(void *menu, int32_t command, int32_t entry = 0);

// Controls and places in windows. drivefill types over what a field holds.
window drivecontrol(window w, int icon); // 0 if there is none
driveplace driveicon(window w, int icon);
void driveiconclick(window w, int icon, drivebutton button = DRIVELEFT);
void drivefill(window w, int field, const std::string &text);
driveplace drivemiddle(window w);
driveplace driveclient(window w, int x, int y);    // from the top left of its client area
void drivesize(window w, int *width, int *height); // of the client area
std::string drivetext(window w);                   // as the system has it
std::string drivetext(window w, int icon);

// A box of the system that is up, or comes up in time: 0 if none. What a message
// says; a button pressed by its identifier (1 OK, 2 Cancel, 6 Yes, 7 No; a box with
// OK alone calls it Cancel), until the box is gone. A box for files gets a path ("" to
// leave it) and a row of the types of file, from 1 (0 to leave it).
window driveboxwait(int milliseconds = 5000);
std::string driveboxtext(window box);
void driveboxanswer(window box, int button);
void driveboxfile(window box, const std::string &path, int row);

// The same beside work on the main thread that brings the box up: its text, or ""
// if none came up; whether a box for files did.
std::string drivebox(int button, const std::function<void()> &work);
bool drivefilebox(const std::string &path, int row, bool ok, const std::function<void()> &work);

// Windows of the driven process that are visible, by what title and class are ("" for
// any), the front one first: 0 if there is none. drivefront waits until the window
// manager has brought it to the front and put it in its place: what is answered before
// that may leave nobody with the keys.
window drivefind(const std::string &title, const std::string &classname = "");
window drivewaitwindow(const std::string &title, const std::string &classname = "",
                       int milliseconds = 5000);
bool drivefront(window w);

// What is on the screen, colours as 0xRRGGBB.
struct drivepicture {
    int width, height;
    std::vector<uint32_t> pixels; // from the top
    uint32_t at(int x, int y) const
    {
        return pixels[static_cast<size_t>(y) * width + x];
    }
};
uint32_t drivepixel(int x, int y);
drivepicture drivelook(window w);      // its client area, as the screen shows it
drivepicture drivelookframe(window w); // with its frame
drivepicture drivelookscreen();        // everything
int drivediffer(const drivepicture &a, const drivepicture &b); // pixels; all, if of other sizes
void drivesave(const drivepicture &picture, const std::string &path); // as PNG

// Waiting: until the condition holds, and whether it does; the poll is run until no
// message has come for quiet milliseconds.
bool drivewait(const std::function<bool()> &condition, int milliseconds = 5000);
void drivepump(int quiet = 20);

// Runs script on a second thread while work runs on this one, and waits for both.
// The script waits, presses and types; it must end what work waits for.
void driveaside(const std::function<void()> &work, const std::function<void()> &script);

// Counts of this process that must not grow.
struct drivecounts {
    uint32_t gdiobjects, userobjects, handles;
};
drivecounts drivecountnow();

// Whose windows are looked for, 0 for this process; and how a hand waits after its
// input, for some milliseconds that would do: the driver's own, till something else
// is put there.
extern uint32_t driven;
extern void (*drivepause)(int quiet);

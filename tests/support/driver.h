// tests/support/driver.h - a user's hands and eyes, for tests of windows.
//
// The program under test runs in this process and on this thread: input is sent
// through the system as if from a mouse and a keyboard, and then the poll is run
// until nothing is left to do. Places are pixels of the screen.
//
// What runs a loop of its own (a menu, a box of the system) doesn't return to the
// test until it is over. driveaside hands the hands to a second thread for that.
#pragma once

#include "desktop/events.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Runs the poll until no message has come for quiet milliseconds.
void drivepump(int quiet = 20);

// Runs the poll until the condition holds: whether it did within that time.
bool drivewait(const std::function<bool()> &condition, int milliseconds = 5000);

// Keys held during a call.
constexpr int DRIVESHIFT = 1, DRIVECTRL = 2, DRIVEALT = 4;
enum drivebutton { DRIVELEFT, DRIVERIGHT };

// The mouse. Each pumps afterwards when called on the test's own thread.
void drivemove(int x, int y);
void drivepress(drivebutton button = DRIVELEFT);
void driverelease(drivebutton button = DRIVELEFT);
void driveclick(int x, int y, drivebutton button = DRIVELEFT, int held = 0);
void drivedouble(int x, int y, drivebutton button = DRIVELEFT);
// Presses at the first place, moves through the others, releases at the last.
struct driveplace {
    int x, y;
};
void drivedrag(const std::vector<driveplace> &places, drivebutton button = DRIVELEFT, int held = 0);
void drivewheel(int delta, bool horizontal = false); // where the pointer is

// The keyboard: a virtual key, or the keys that type a text.
void drivekey(int key, int held = 0);
void drivetype(const std::string &text);

// A file dropped at a place of a window, told to the window itself.
void drivedrop(window w, const std::vector<std::string> &files, driveplace place);

// Places of windows and controls: the middle, and any offset from the top left
// of the client area.
driveplace drivemiddle(window w);
driveplace driveclient(window w, int x, int y);
window drivecontrol(window w, int icon); // 0 if there is none
driveplace driveicon(window w, int icon);
void driveiconclick(window w, int icon, drivebutton button = DRIVELEFT);
void drivesize(window w, int *width, int *height); // of the client area

// What is on the screen, colours as 0xRRGGBB.
uint32_t drivepixel(int x, int y);
struct drivepicture {
    int width, height;
    std::vector<uint32_t> pixels; // from the top, 0xRRGGBB
    uint32_t at(int x, int y) const
    {
        return pixels[static_cast<size_t>(y) * width + x];
    }
};
drivepicture drivelook(window w);      // its client area, as the screen shows it
drivepicture drivelookframe(window w); // with its frame
drivepicture drivelookscreen();        // everything
void drivesave(const drivepicture &picture, const std::string &path); // as PNG

// Texts as the system has them.
std::string drivetext(window w);
std::string drivetext(window w, int icon);

// Another window of this process that is visible, by what its title and class
// are ("" for any): 0 if there is none.
window drivefind(const std::string &title, const std::string &classname = "");

// Runs script on a second thread while work runs on this one, and waits for
// both. The script waits, presses and types; it must end what work waits for.
void driveaside(const std::function<void()> &work, const std::function<void()> &script);

// Whether the window manager brings a window to the front in time; it has been put in
// its place then. What is answered before that may leave nobody with the keys.
bool drivefront(window w);

// For scripts: whether such a window comes up in time.
window drivewaitwindow(const std::string &title, const std::string &classname = "",
                       int milliseconds = 5000);

// While work runs, the next box of the system (class #32770) is read and answered
// by the button of that identifier (1 OK, 2 Cancel, 6 Yes, 7 No): its text, or ""
// if none came up.
std::string drivebox(int button, const std::function<void()> &work);

// A save or open box that work brings up: types the path, and presses OK or
// Cancel. row, from 1, chooses the type of file first; 0 leaves it.
bool drivefilebox(const std::string &path, int row, bool ok, const std::function<void()> &work);

// Counts of this process that must not grow.
struct drivecounts {
    uint32_t gdiobjects, userobjects, handles;
};
drivecounts drivecountnow();

// tools/tour/outside.h - Quillmere as its user meets it: a program of its own,
// seen on the screen and worked with the mouse and the keys.
//
// Nothing of it is linked here. What is known of it is what stands in its
// resources: the identifiers of commands and of controls (resources/identifiers.h).
#pragma once

#include "tests/support/driver.h"

#include <cstdint>
#include <string>

// Rows of the list of types in the boxes for files.
constexpr int32_t TYPEGRID = 1, TYPEENHANCED = 2;

// Keys that have no letter.
constexpr int32_t KEYRETURN = 0x0D, KEYESCAPE = 0x1B;

// What a step wanted and did not find ends the program with status 1.
[[noreturn]] void outsidefault(const std::string &what);

// Says what comes now.
void say(const char *format, ...) __attribute__((format(gnu_printf, 1, 2)));

// Starts it, with a file to open or "", and waits for its main window, which is
// mainwindow from then on.
void outsidestart(const std::string &program, const std::string &file);
extern window mainwindow;

// Closes it by its menu and waits for its end; answers No first if it asks about a
// grid that isn't saved.
void outsideend();

// The panes of the main window. The bar is another one after each change of it.
window panebar();
window panelist();
window panegrid();

// A command of the menu bar, walked to with the keys; entry, from 1, is one of the
// menu that it opens, as Load and Edit do for the dictionaries.
void menucommand(int32_t command, int32_t entry = 0);

// The same, up to the last key: the menu is open.
void menuopen(int32_t command, int32_t entry = 0);

// The same for one of the dictionaries, in the program's folder.
void menudictionary(int32_t command, const std::string &name);

// A control of a window, pressed with the mouse; a field of it, filled anew.
void press(window w, int32_t control);
void fill(window w, int32_t field, const std::string &text);

// A dialog left by a control of it.
void leave(window w, int32_t control);

// Waits until no search runs.
void searchwait();

// Another window of the program, which must come up.
window dialog(const std::string &title);

// A box for files: the path is typed, the type chosen, from 1, and Return pressed.
void filebox(const std::string &path, int32_t type = 1);

// The middle of a cell of the grid. The size of a cell is read off the screen:
// the document has that many columns, and all of it is to be seen.
void cellsmeasure(int32_t columns, int32_t rows);
driveplace cell(int32_t x, int32_t y);

// The mouse drawn from cell to cell with the left button.
void cellsdrag(int32_t x0, int32_t y0, int32_t x1, int32_t y1, int32_t held = 0);

// A click on the list, that many pixels under its top.
void listclick(int32_t y, drivebutton button = DRIVELEFT);

// Whether the list shows anything.
bool listshows();

// An enhanced metafile as another program would show it, on white with a margin.
drivepicture metafilelook(const std::string &path, int32_t width);

// The window as it is on the screen, with its frame, the pointer out of the way.
void shot(window w, const std::string &path);

// tools/deskdemo/deskdemo.h - the parts of the demonstration of the desktop
// library.
//
// Each part is one file with one window, made the way that any window of a
// program is: its state is one record, with the window's handle in it; opening
// it twice raises it; one call ends it from whatever point its opening reached;
// every handler that is added is removed there. A new dialog starts as a copy of
// fields.cpp.
//
// What happens is told to the log, which the main window shows.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

// Numbers of the templates, clear of the library's own.
constexpr int32_t TEMPLATEDEMO = 256, TEMPLATELOG = 257, TEMPLATEDRAWN = 258, TEMPLATEFIELDS = 259,
                  TEMPLATESHEET = 260, TEMPLATEDRAGS = 261, TEMPLATEKEYS = 262, TEMPLATECLIP = 263,
                  TEMPLATETALK = 264, TEMPLATEWORK = 265;

// The start of all of it; then the poll runs.
errorblock *demostart();

// The main window. Its close ends the program.
extern window demowindow; // changed by demo.cpp alone
errorblock *demoopen();
void demoend(); // with all the others

// The menus: linked before the main window opens.
constexpr int32_t MENUBAR = 1, MENULOG = 2;
errorblock *demomenus();

// Commands of the menus, by their identifiers. A part that ticks or greys
// entries is asked before a menu opens.
errorblock *democommand(int32_t id);

// The boxes of a command of the menu Boxes; false if it is none of them.
bool boxcommand(int32_t id, errorblock **err);

// The log: a pane of its parent. A line of it, cut to what fits; without a window
// it is kept all the same.
errorblock *logopen(window parent);
void logend();
errorblock *logplace(window parent); // fills its parent
void logclear();
[[gnu::format(printf, 1, 2)]] void logline(const char *format, ...);

// The parts, by their commands.
errorblock *drawnopen();
void drawnend();
errorblock *fieldsopen();
void fieldsend();
errorblock *sheetopen();
void sheetend();
errorblock *dragsopen();
void dragsend();
errorblock *keysopen();
void keysend();
errorblock *clipopen();
void clipend();
errorblock *talkopen();
void talkend();
errorblock *workopen();
void workend();

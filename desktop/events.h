// desktop/events.h - what can happen, and what a handler of it is given.
//
// A type's number is that of its blocks in the block table (blocks.h); what
// registers for it is in handlers.h and the headers named there. A handler
// returns zero or its error, which whoever delivers shows before going on with
// the next one.
//
// Flags that a handler may set through a pointer start as 0.
#pragma once

#include <cstdint>

struct errorblock;
struct openrecord; // the window's state and the system message that changed it

// The system's handle of a window, 0 for none.
using window = intptr_t;

// "First" types deliver to the first block that matches, all others to every
// one in the order of registration.
constexpr int32_t EVENTNULL = 0;   // the poll found no message
constexpr int32_t EVENTREDRAW = 1; // the window needs painting
constexpr int32_t EVENTOPEN = 2;   // moved, sized, shown or scrolled by others
constexpr int32_t EVENTCLOSE = 3;  // first; the close box was used
constexpr int32_t EVENTCLICK = 6;  // first; a press, double click or start of a drag
constexpr int32_t EVENTKEY = 8;    // a key or a character, until one claims it
constexpr int32_t EVENTFOCUS = 11; // the input focus came or went
constexpr int32_t EVENTBROADCAST = 17;
constexpr int32_t EVENTPOSTPOLL = -2;       // just after the wait for a message
constexpr int32_t EVENTPREPOLL = -3;        // just before it
constexpr int32_t EVENTLOAD = -4;           // first; a file from outside
constexpr int32_t EVENTLOADED = -5;         // first; it was loaded without an error
constexpr int32_t EVENTDROPLOAD = -6;       // first; a dropped file was accepted
constexpr int32_t EVENTDROPDONE = -7;       // first; it was loaded without an error
constexpr int32_t EVENTDROP = -8;           // first; a file was dropped
constexpr int32_t EVENTDROPEXTRA = -9;      // can be registered, is never delivered
constexpr int32_t EVENTMESSAGE = -10;       // sendmessage, until one returns an error
constexpr int32_t EVENTPOLLFILTER = -11;    // one message of one window, in the poll
constexpr int32_t EVENTFILTER = -12;        // the same in the window procedure
constexpr int32_t EVENTPOLLFILTERALL = -13; // every message, in the poll
constexpr int32_t EVENTFILTERALL = -14;     // the same in the window procedure
constexpr int32_t EVENTTIMED = -15;         // a delay has passed; once
constexpr int32_t EVENTHELP = -16;          // first; help was asked for
constexpr int32_t EVENTMOUSE = -17;         // the pointer moved, outside a drag
constexpr int32_t EVENTACTIVATE = -18;
constexpr int32_t EVENTPOINTER = -19;       // the cursor's shape is wanted
constexpr int32_t EVENTTEXTCHANGE = -20;    // of a writable control
constexpr int32_t EVENTTEXTFOCUS = -21;     // it got or lost the caret
constexpr int32_t EVENTSUBCLASS = -22;      // any message of a foreign control, until stopped
constexpr int32_t EVENTPARENTDELETED = -23; // first
constexpr int32_t EVENTPARENTCLOSED = -24;  // first
constexpr int32_t EVENTHOOK = -25;          // the system's mouse hook
constexpr int32_t EVENTHOTKEY = -26;
constexpr int32_t EVENTWHEEL = -27;            // first
constexpr int32_t EVENTAPPCOMMAND = -28;       // first; a multimedia or browser key
constexpr int32_t EVENTPOLLFILTERWINDOW = -29; // every message of one window, in the poll
constexpr int32_t EVENTFILTERWINDOW = -30;     // the same in the window procedure

// Buttons of a mouse record.
constexpr int32_t BUTTONLEFT = 4; // also a click of a push button
constexpr int32_t BUTTONRIGHT = 1;
constexpr int32_t BUTTONLEFTDRAG = 64;
constexpr int32_t BUTTONRIGHTDRAG = 16;
constexpr int32_t BUTTONLEFTDOUBLE = 1024;
constexpr int32_t BUTTONRIGHTDOUBLE = 256;

// Where the pointer is and what it did.
struct mouserecord {
    intptr_t x, y; // os units of the screen, y upward from its bottom
    intptr_t buttons;
    intptr_t window;
    intptr_t icon; // the control under the pointer, -1 for the background
};

// A system message on its way through the poll or the window procedure.
struct systemmessage {
    intptr_t window; // 0 for one that belongs to no window
    intptr_t message;
    intptr_t wparam, lparam;
};

// A broadcast record is an array of words; this one holds its number.
constexpr int BROADCASTNUMBER = 4;
constexpr int BROADCASTWORDS = 13; // of the longest record in use

constexpr intptr_t BROADCASTQUIT = 0;
constexpr intptr_t BROADCASTSCREEN = 9;      // the screen's mode or palette changed
constexpr intptr_t BROADCASTFONTS = 0x88000; // the set of fonts changed
constexpr intptr_t BROADCASTPRINT = 0x80145; // words 10 to 12: file type, name, printer or 0

// A key code is a character's code, or a virtual key with flags. A handler that
// has used the key writes this to it.
constexpr int32_t KEYCLAIMED = -1;

using nullfunction = errorblock *(*)(intptr_t data);
using pollfunction = errorblock *(*)(intptr_t data);
using timedfunction = errorblock *(*)(intptr_t data);
using redrawfunction = errorblock *(*)(window self, intptr_t data);
using openfunction = errorblock *(*)(window self, intptr_t data, openrecord *open);
using closefunction = errorblock *(*)(window self, intptr_t data);
using clickfunction = errorblock *(*)(window self, intptr_t data, mouserecord *mouse);
using keyfunction = errorblock *(*)(window self, intptr_t data, int32_t icon, int32_t *code);
using focusfunction = errorblock *(*)(window self, intptr_t data, bool gained);
using broadcastfunction = errorblock *(*)(intptr_t *record, bool *claimed);
using messagefunction = errorblock *(*)(intptr_t number, intptr_t data, intptr_t first,
                                        intptr_t second);
using loadfunction = errorblock *(*)(const char *name, int32_t filetype, intptr_t zero,
                                     intptr_t flag);
using loadedfunction = errorblock *(*)(intptr_t zero);
using dropfunction = errorblock *(*)(const char *name, int32_t filetype, mouserecord *mouse,
                                     intptr_t data, bool *accept);
using droploadfunction = errorblock *(*)(const char *name, int32_t filetype, intptr_t data,
                                         intptr_t zero);
using dropdonefunction = errorblock *(*)(intptr_t data);
using helpfunction = errorblock *(*)(window self, intptr_t data, int32_t icon, const char **text);
using mousefunction = errorblock *(*)(window self, intptr_t data, mouserecord *mouse);
using activatefunction = errorblock *(*)(window self, intptr_t data, intptr_t second,
                                         int32_t firstlow);
using pointerfunction = errorblock *(*)(window self, intptr_t data, mouserecord *mouse,
                                        bool *handled);
using textchangefunction = errorblock *(*)(window self, int32_t icon, intptr_t data);
using textfocusfunction = errorblock *(*)(window self, int32_t icon, bool gained, intptr_t data);
using parentfunction = errorblock *(*)(window self, intptr_t data);
using hookfunction = errorblock *(*)(window self, intptr_t data, window hooked, intptr_t parameter,
                                     intptr_t message, bool *claimed);
using hotkeyfunction = errorblock *(*)(window self, int32_t id, int32_t key);
using wheelfunction = errorblock *(*)(window self, intptr_t data, int32_t delta, int32_t keys,
                                      bool horizontal, bool *claimed);
using appcommandfunction = errorblock *(*)(window self, intptr_t data, window source,
                                           int32_t command, int32_t device, int32_t keys,
                                           bool *claimed);

// A filter sets stop to keep the message from everyone behind the filters, and
// then says what the window procedure gives back: a result and its kind.
using filterfunction = errorblock *(*)(const systemmessage *message, intptr_t data, bool *stop,
                                       intptr_t *result, int *kind);

// The same for a control that is not the library's own.
using subclassfunction = errorblock *(*)(const systemmessage *message, intptr_t data, bool *stop,
                                         intptr_t *result);

// base/boxes.h - telling the user, and asking.
//
// Event handlers return their errors; what called them shows them here. The
// box itself belongs to whoever has a screen: boxshow.
#pragma once

#include <cstdint>

struct errorblock;

// Icons and buttons of boxshow: the system's own message box values.
constexpr uint32_t BOXOKCANCEL = 1;
constexpr uint32_t BOXYESNOCANCEL = 3;
constexpr uint32_t BOXYESNO = 4;
constexpr uint32_t BOXSTOP = 0x10;
constexpr uint32_t BOXQUESTION = 0x20;
constexpr uint32_t BOXWARNING = 0x30;
constexpr uint32_t BOXINFORMATION = 0x40;
constexpr uint32_t BOXTASKMODAL = 0x2000;

// Shows a text, task-modal with a stop icon, or a warning icon. Error 23 shows
// nothing. Returns 0.
errorblock *errorbox(const errorblock *error, bool warn);

// The end of a failure's journey: shows it, and the caller goes on.
void reporterror(const errorblock *error);

// Shows it and ends the process with status 1; nothing for zero.
void reportfatal(const errorblock *error);

// A text in place of an error, tokens expanded: a stop box for flags 0.
constexpr uint32_t REPORTWARNING = 17;
void reporttext(const char *text, uint32_t flags);
[[noreturn]] void reporttextfatal(const char *text);

// Level 0 a stop box, 2 a warning box, 1 a stop box and the end of the process, 3 an
// information box.
[[gnu::format(printf, 2, 3)]] void reportf(int level, const char *format, ...);

// Answers of askbox.
constexpr int ASKOTHER = 0, ASKCANCEL = 1, ASKOK = 2, ASKYES = 3, ASKNO = 4;

// Asks. Flags: bits 16 to 23 the icon (1 exclamation, 2 information, 3
// question, 4 stop), bits 0 to 15 the buttons (0 OK, 1 OK Cancel, 2 Yes No,
// 3 Yes No Cancel). parent is a window of boxshow's making, 0 for none.
[[gnu::format(printf, 4, 5)]] errorblock *askbox(intptr_t parent, uint32_t flags, int *answer,
                                                 const char *format, ...);

// How deep boxes are nested now.
int boxdepth();

// Ends the process through the exit hook.
[[noreturn]] void leave(int status);
void setleave(void (*hook)(int status));

// The name of the task, which titles every box: title, or name without one.
void settaskname(const char *name, const char *title);
const char *taskname();
const char *tasktitle();

// Asked of the window side, which defines it in desktop/win32/boxshow.cpp: shows
// a box with the system's flags and returns the system's answer (1 OK, 2 Cancel,
// 6 Yes, 7 No). Without windows: tools/headlessbase.cpp, and for quill
// tools/quill/searchseam.cpp.
int boxshow(intptr_t parent, const char *text, const char *title, uint32_t flags);

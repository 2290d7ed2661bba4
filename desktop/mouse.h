// desktop/mouse.h - the pointer: where it is, its shape, presses and drags.
#pragma once

#include "desktop/events.h"
#include "graphics/dragbox.h"

#include <cstdint>

struct errorblock;

// Where the pointer is now. buttons is 4, 1 or 0; window is -1 for none, and one
// of another program has icon -1.
errorblock *getpointer(mouserecord *mouse);

// The pointer's shape until the system next asks for it.
constexpr int32_t POINTERSAME = -2, POINTERNONE = -1;
constexpr int32_t POINTERARROW = 0, POINTERBUSY = 2, POINTERCROSS = 3, POINTERHELP = 4,
                  POINTERTEXT = 5, POINTERICON = 6, POINTERNOENTRY = 7;
constexpr int32_t POINTERMODULE = 1;   // named, from a module; 0 is the program
constexpr int32_t POINTERPROGRAM = 16; // named, from the program
errorblock *setpointer(int32_t kind, intptr_t module, const char *name);

// Kinds of drag; graphics/dragbox.h has those that show a box.
constexpr int32_t DRAGWINDOW = 1; // the system moves the window
constexpr int32_t DRAGPOINT = 7;  // nothing is shown; the limits hold the pointer

// Starts a drag, most often from a click with a drag button. It ends when the
// button goes up. box is at the pointer's last place.
errorblock *startdrag(const dragbox *record);

using dragendfunction = errorblock *(*)(window self, intptr_t data, const dragresult *box);
using dragmovefunction = errorblock *(*)(window self, intptr_t data, mouserecord *mouse);

// What the next drag calls. Only the last set counts; 0 for nothing.
void setdragfunctions(window w, intptr_t data, dragendfunction end);
void setdragfunctions2(window w, intptr_t data, dragendfunction end, dragmovefunction move);

// Idle, a button is down, a drag runs.
enum mousestates { MOUSEIDLE, MOUSEPRESSED, MOUSEDRAG };
int32_t mousestate();

// Ends a press or a drag that is of this window.
void mouseend(window w);

// Delivers a click to the handlers of a window.
void clickdeliver(window w, mouserecord *mouse);

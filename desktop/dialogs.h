// desktop/dialogs.h - dialogs: windows that open, and end, as one.
//
// A record describes one: where its handle is kept, its template, what it hears,
// and what opens and ends with it.
#pragma once

#include "desktop/handlertable.h"

#include <cstdint>

struct errorblock;

struct dialogrecord {
    window *self;                     // 0 while closed; changed by the calls below alone
    window *locked = nullptr;         // the owner that takes no input meanwhile; 0 if it goes on
    int32_t number;                   // of the template
    handlertable handlers;            // of the window
    errorblock *(*fill)() = nullptr;  // before it is seen: its texts, what stands in it
    errorblock *(*shown)() = nullptr; // when it has its place
    void (*ending)() = nullptr;       // ends what these began, from any point of them
    int32_t focus = 0;                // gets the caret behind its text; 0 for the first by Tab
};

// Opens it in the middle of the screen, or brings it to the front. After an error
// it is closed. number: a template that takes the place of the record's, for a
// dialog that has several. Errors: the first of any step.
errorblock *dialogopen(const dialogrecord &record, window owner, int32_t number = 0);

// Closes it. The owner takes input again before it goes: the system would make
// another program's window the active one. Nothing if it is closed; one that has
// gone with its owner only loses its handlers. Errors: as removewindow.
errorblock *dialogend(const dialogrecord &record);

// Whether a window takes input. Nothing for 0.
errorblock *enablewindow(window w, bool on);

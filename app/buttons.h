// app/buttons.h - the button bar: one of three, swapped whole.
//
// A Crossword and a Wordsquare have a bar each; while long work runs, a bar with
// Stop stands in their place. What was typed into the Crossword's bar comes back
// with it.
#pragma once

#include "desktop/windows.h"

// The bar, 0 before there is one; changed by swapbuttons alone.
extern window buttonwindow;

// Controls of the bars.
constexpr int32_t BUTTONSOLVE = 1001, BUTTONANAGRAM = 1002, FIELDANAGRAM = 1007,
                  FIELDMARKLENGTH = 1008;
constexpr int32_t FIELDWORD = 1027, BUTTONDELETE = 1004, BUTTONMAKE = 1025,
                  BUTTONSQUARESOLVE = 1026, BUTTONNEW = 1003;
constexpr int32_t BUTTONSTOP = 1021, FIELDPROGRESS = 1020;

// Puts up the bar with Stop, or the one of the document's kind, and clears the
// stop flag. Nothing without a main window.
errorblock *swapbuttons(int solving);

// Whether the bar with Stop is up.
bool barsolving();

// Whether the user wants long work to end. What isn't the button says so by
// stoprequest (grid/gridwindow.h).
int stopflag();

// Takes a kind over for the document as it stands, with its bar.
errorblock *showkind(int32_t kind);

// app/buttons.h - the button bar: one of three, swapped whole.
//
// A Crossword and a Wordsquare have a bar each; while long work runs, a bar with
// Stop stands in their place. What was typed into the Crossword's bar comes back
// with it.
#pragma once

#include "desktop/windows.h"

struct errorblock;

// The bar, 0 before there is one; changed by swapbuttons alone.
extern window buttonwindow;

// Puts up the bar with Stop, or the one of the document's kind, and clears the
// stop flag. Nothing without a main window.
errorblock *swapbuttons(bool solving);

// From now on the main window hears the keys that no control of the bar uses itself:
// behind a press on a button they are still the grid's and the menu's.
errorblock *barkeysforward();

// Shows the count of a search that progressshow (find/findwindow.h) left for later.
void progresscatchup();

// Whether the bar with Stop is up.
bool barsolving();

// Whether the user wants long work to end. What isn't the button says so by
// stoprequest (grid/gridwindow.h).
bool stopflag();

// Takes a kind over for the document as it stands, with its bar.
errorblock *showkind(int32_t kind);

// find/solutionsview.h - the list of results as a window.
//
// A row is a line of text, or, for solutions of several words, a small picture
// of the marked area filled in. What changes the list says so by
// solutionsrefresh (find/findwindow.h).
#pragma once

#include "desktop/events.h"

struct errorblock;

// 0 while there is none; changed by this module alone.
extern window solutionswindow;

// Creates the window, hidden, as a child.
errorblock *solutionsopen(window parent);

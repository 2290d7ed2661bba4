// grid/gridsizewindow.h - the dialog for the size of the grid.
#pragma once

#include "desktop/events.h"

struct errorblock;

// Opens it, or brings it to the front. While it is open, its parent takes no
// input. A number that can't be a size stands for the one that the grid has.
errorblock *gridsizeopen(window parent);

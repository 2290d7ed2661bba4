// app/filecommands.h - the commands that ask for a file, and dropped files.
#pragma once

#include "desktop/events.h"

struct errorblock;

errorblock *filesaveas();    // a grid, or a picture of it
errorblock *filesaveclues(); // a Crossword's clue list, a Wordsquare's word list
errorblock *fileopen();

// Lets files be dropped on a window: grids, and word lists on a Wordsquare.
errorblock *dropsaccept(window w);

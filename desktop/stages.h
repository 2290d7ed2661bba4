// desktop/stages.h - stages of the start-up that stand above this folder's
// logic.
//
// Each is called once, by starttask, in this order. The screen's are defined in
// graphics/win32/modeinfo.cpp, those of sprites in graphics/sprites.cpp, and the
// others in win32/windowclasses.cpp, win32/hourglass.cpp and win32/templates.cpp.
#pragma once

struct errorblock;

errorblock *modeinfoinit();  // pixels per inch, size and depth of the screen
errorblock *inittemp();      // window classes, and the settings of the wheels
errorblock *initsprites();   // the task's pool of sprites
errorblock *hourglassinit(); // the busy cursors
errorblock *addspritesshared(const char *directory, const char *name); // into the pool
errorblock *tasktemplates(); // the library's own template table

// The end of modeinfoinit, called once at the end of the task.
void modeinfoend();

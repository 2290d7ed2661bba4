// app/mainwindow.h - the main window: its panes, its size, its splitter.
#pragma once

#include "desktop/windows.h"

// 0 until it is open; changed by the main window's file alone.
extern window mainwindow;

// Creates the main window with its panes, and shows it. An error of a pane is
// returned, but the window stands and shows what there is.
errorblock *openmainwindow();

// The open handler: lays the panes out in the window's visible area.
errorblock *layoutmain(window self, intptr_t data, openrecord *open);

// The same for the window as it stands.
errorblock *layoutnow();

// Gives the window the size that the document's file remembers, if it does; its
// left and top edges stay.
errorblock *mainrestoresize();

// app/mainwindow.h - the main window.
#pragma once

#include "desktop/events.h"

// 0 until it is open; changed by the main window's file alone.
extern window mainwindow;

// Creates the main window with its panes, and shows it.
errorblock *openmainwindow();

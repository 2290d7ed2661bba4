// app/stages.h - stages of the application's start that the window side defines,
// in app/templates.cpp and app/menus.cpp.
#pragma once

struct errorblock;

errorblock *linktemplates(const char *directory); // the table "Templates"
errorblock *linkmenus();

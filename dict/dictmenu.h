// dict/dictmenu.h - the menu of dictionaries, under three entries of Words.
//
// One menu of all names hangs under Load, Edit and Delete at once; which of them
// it was opened under tells what a choice does. dictmenubuild and dictmenudelete
// are in dict/dictwindow.h.
#pragma once

#include <cstdint>

struct errorblock;

// Whether it hangs at this position of Words.
bool dictmenuat(int32_t position);

// Entry n, from 0, has this identifier and the number.
constexpr int32_t DICTMENUFIRST = 256;

// Before the menu opens: under Load those in use are ticked, elsewhere none.
void dictmenuprepare(int32_t position);

// A choice. Errors: those of dictedit and dictremovefile.
errorblock *dictmenuselect(int32_t position, int32_t id);

// Whether the directory of dictionaries is there.
bool dictdirectoryexists();

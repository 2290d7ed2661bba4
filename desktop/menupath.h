// desktop/menupath.h - the tables of menus as records: finding them, paths, and
// positions.
//
// Positions are counted in two ways. The system counts every entry; the task
// leaves out those that a record's hidden mask marks, which are separators that
// it never named. The mask reaches the first 32 entries.
#pragma once

#include "desktop/menus.h"

// The chain of tables, the newest first, and the menu that a command belongs to:
// the last one opened or highlighted, and the window that it was in. Changed by
// desktop/win32/menus.cpp and menuevents.cpp alone.
struct menustaterecord {
    menulink *tables;
    int32_t current; // a tag, 0 before any
    window owner;
};
extern menustaterecord menustate;

// The record of a tag, or of the system's menu: 0 if there is none, and for a
// menu of 0.
menurow *menufind(int32_t tag);
menurow *menufindhandle(intptr_t menu);

// The record at the top of a record's parents; 0 where a parent is missing or
// the parents go in a ring.
menurow *menuroot(menurow *row);

// The path of an item of the menu, or of the menu itself with item -1, into
// MENUPATH words. False where there is no root, or it is too deep for a path.
bool menupathto(const menurow *row, int32_t item, int32_t *path);

// The menu that the tag names is gone, and with it all that hung below it.
void menuforget(int32_t tag);

int32_t menutosystem(uint32_t hidden, int32_t position);
int32_t menufromsystem(uint32_t hidden, int32_t position);

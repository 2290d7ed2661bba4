// desktop/menus.h - menus, by tags.
//
// Code speaks of a menu by its tag and of an entry by its command. A selection
// arrives as a path: the position of each menu below the root, then the
// command, or -1 for the menu itself, then -1.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

constexpr int MENUPATH = 16; // words of a path at the most

using menuselectfunction = errorblock *(*)(const int32_t *path, window w);
// Before a menu opens: the one place where entries are ticked and greyed.
using menupreparefunction = errorblock *(*)(const int32_t *path, int32_t menu, window w);

struct menurow {
    int32_t tag;          // -1 ends the table
    const char *resource; // 0: a part of its parent, or made at run time
    intptr_t menu;        // the system's, filled in
    uint32_t flags;
    uint32_t hidden; // positions that the task doesn't count, such as separators it added
    int32_t parent;  // a tag that stands before it, 0 for a root
    int32_t position;
    intptr_t user;
    menuselectfunction select; // of a root
    menupreparefunction prepare;
};

struct menulink {
    menulink *next;
    menurow *table;
};

errorblock *addmenus(menurow *table, menulink *link);
errorblock *remmenus(menulink *link);

errorblock *attachmenu(window w, int32_t tag); // as its menu bar
errorblock *popupmenu(window w, int32_t tag);  // at the pointer
errorblock *tickmenu(int32_t tag, int32_t id, int on);
errorblock *shademenu(int32_t tag, int32_t id, int enabled);
errorblock *menutext(int32_t tag, int32_t position, const char *text, int *changed);

// An empty menu in place of the tag's; the handles of all below it are cleared.
errorblock *createmenu(int32_t tag, menuselectfunction select, menupreparefunction prepare);
errorblock *createbar(int32_t tag, menuselectfunction select, menupreparefunction prepare);
constexpr uint32_t MENUTICKED = 1, MENUSEPARATOR = 2, MENUGREY = 16;
errorblock *appendmenu(int32_t tag, const char *text, uint32_t flags, int32_t id);
errorblock *deletemenu(int32_t tag);
errorblock *clearmenu(int32_t tag);
errorblock *linkmenu(int32_t tag, int32_t parent, int32_t position);

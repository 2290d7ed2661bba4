// desktop/menus.h - menus, by tags.
//
// Code speaks of a menu by its tag and of an entry by its command. A selection
// arrives as a path: the position of each menu below the root, then the
// command, or -1 for the menu itself, then -1.
//
// One menu may hang in several places of its parent: its position is the one
// where it was opened last, which a path thus tells.
//
// A tag that is in no table, or has no menu yet, is no error: the call leaves a
// line in the trace, or none where that is usual, and does nothing.
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
    uint32_t flags;       // bit 0 goes to the system with a popup, and means nothing there
    uint32_t hidden;      // positions that the task doesn't count, such as separators it added
    int32_t parent;       // a tag that stands before it, 0 for a root
    int32_t position;
    intptr_t user;
    menuselectfunction select; // of a root
    menupreparefunction prepare;
};

struct menulink {
    menulink *next;
    menurow *table;
};

// Links the table and loads its menus; after an error none of it stays. The twin
// destroys the menus that are left.
errorblock *addmenus(menurow *table, menulink *link);
errorblock *remmenus(menulink *link);

errorblock *attachmenu(window w, int32_t tag); // as its menu bar

// At the pointer. Returns when the menu is closed, from a loop of the system's
// own; what was chosen arrives through the poll after that.
errorblock *popupmenu(window w, int32_t tag);

// Entries are found by their command, below the tag's menu too; one that isn't
// there is passed over.
errorblock *tickmenu(int32_t tag, int32_t id, bool on);
errorblock *shademenu(int32_t tag, int32_t id, bool enabled);

// Positions count what the task named. changed, if not 0, tells whether the text
// was another.
errorblock *menutext(int32_t tag, int32_t position, const char *text, bool *changed);

// An empty menu in place of the tag's; the handles of all below it are cleared.
errorblock *createmenu(int32_t tag, menuselectfunction select, menupreparefunction prepare);
errorblock *createbar(int32_t tag, menuselectfunction select, menupreparefunction prepare);
constexpr uint32_t MENUTICKED = 1, MENUSEPARATOR = 2, MENUGREY = 16;
errorblock *appendmenu(int32_t tag, const char *text, uint32_t flags, int32_t id);
errorblock *deletemenu(int32_t tag);
errorblock *clearmenu(int32_t tag);

// Hangs the tag's menu on an entry of its parent. What hung there goes, unless
// it has a tag.
errorblock *linkmenu(int32_t tag, int32_t parent, int32_t position);

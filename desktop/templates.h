// desktop/templates.h - windows from dialog resources.
//
// A template is a dialog resource that code knows by a number. Tables of them
// stand in a chain; the newest table is asked first, so a later table can
// replace what the library brings.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;

struct templaterow {
    int32_t number; // 0 ends the table
    int32_t reserved;
    const void *resource; // filled in by addtemplates
    const char *name;
};

struct templatelink {
    templatelink *next;
    templaterow *table;
};

// Links the table and finds each of its resources. After an error none of it
// stays. directory and word name a file that could hold them, and are not used:
// templates are resources of the program. Without a table, all dialogs of the
// program get numbers from TEMPLATEUNNAMED up.
errorblock *addtemplates(const char *directory, const char *word, templaterow *table,
                         templatelink *link);
errorblock *remtemplates(templatelink *link);

// From here up a table has been made for the caller; his own stay below.
constexpr int32_t TEMPLATEUNNAMED = 65536;

// Errors: 21 for a number that is in no table.
errorblock *findtemplate(int32_t number, const void **resource);
int32_t templatenumber(const char *name); // ignoring case; 0 if none

// A hidden window. Without a title it has the template's; tokens are expanded.
// After an error *w is as it was and there is no window.
errorblock *createwindow(int32_t number, const char *title, window *w, window parent);
errorblock *createtop(int32_t number, window *w);
errorblock *createchild(int32_t number, window *w, window parent);

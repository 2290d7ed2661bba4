// base/savefilter.h - what a save dialog offers, worked out without a window.
//
// A save may offer several formats. The caller arms the next dialog with a
// table of them; the dialog then shows savechoice and tells what was chosen.
#pragma once

#include "base/platform.h"

#include <cstdint>

struct errorblock;

// One format. getformat gives the file type of row index and makes name, when
// it isn't 0, fit it.
struct savefilter {
    const char *description; // tokens are expanded
    void (*getformat)(intptr_t context, int32_t index, int32_t *type, char *name, int32_t size);
    intptr_t context = 0;
};

using savehandler = errorblock *(*)(const char *path, int32_t type);

// What the dialog shows. Changed by the calls below alone.
struct savechoicerecord {
    char filter[512];    // description, pattern, description, pattern, ""
    int32_t filterindex; // of the row shown, from 1
    int32_t type;        // of that row
    savehandler handler; // does the save
};
extern savechoicerecord savechoice;

// Arms the next dialog, and only that one. The row shown first is
// *currentindex, and the one chosen is put there.
void savefilterset(int32_t count, const savefilter *table, int32_t *currentindex);

// Adds a row to the filter; index 0 begins it anew. What doesn't fit is cut and
// goes to the trace; the filter is well formed all the same.
void savefilteradd(int32_t index, int32_t type, const char *description);

// Before a dialog: fills savechoice from the armed table, or with the one row
// of defaulttype. path, of PATHSIZE bytes, is made to fit the row shown.
void savefilterbuild(char *path, int32_t defaulttype, savehandler handler);

// The user has chosen the row filterindex, counted from 1; name is made to fit.
void savefilterchange(int32_t filterindex, char *name, int32_t size);

// The dialog's end: chosen, with the type's extension, becomes path, of size
// bytes, and the handler saves there. Errors: 30, and then nothing is saved; the
// handler's.
errorblock *savefilterdone(const char *chosen, char *path, int32_t size);

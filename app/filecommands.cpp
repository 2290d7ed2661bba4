#include "app/filecommands.h"

#include "app/filetypes.h"
#include "app/longwork.h"
#include "app/mainwindow.h"
#include "base/paths.h"
#include "base/text.h"
#include "desktop/filedialogs.h"
#include "desktop/handlertable.h"
#include "desktop/windows.h"
#include "find/wordload.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridwindow.h"
#include "output/cluelist.h"
#include "output/picture.h"

namespace
{

// The name keeps what the user typed; the dialog's end gives it the extension.
void formattype(intptr_t filetype, int32_t, int32_t *type, char *, int32_t)
{
    *type = static_cast<int32_t>(filetype);
}

// Row of the list of formats that the box for a grid shows, and that of the grid or
// picture saved last.
struct {
    int32_t chosen, saved;
} gridformat;

// Asks where to save, with the formats that have a text in one of the lists. The path
// is what the box begins with.
errorblock *saveask(char *path, const char *filekind::*list, int32_t filetype, savehandler handler,
                    int32_t *chosen)
{
    savefilter rows[FILEKINDS];
    int32_t count = 0;
    for (const filekind &kind : filekinds)
        if (kind.*list) rows[count++] = {kind.*list, formattype, kind.row.type};
    savefilterset(count, rows, chosen);
    if (*chosen > 0 && *chosen < count) {
        char extension[PATHSIZE];
        filetypetext(static_cast<int32_t>(rows[*chosen].context), extension, sizeof extension);
        pathsetext(path, extension);
    }
    return savefileowner(path, PATHSIZE, filetype, handler, mainwindow);
}

// A file of that name in the document's folder; the name alone where there is none, or
// no room.
void besidedocument(char *path, const char *leaf)
{
    dirname(grid.filename, path, PATHSIZE);
    if (!path[0] || fs_strcat(path, PATHSIZE, leaf)) strcopyn(path, leaf, PATHSIZE);
}

errorblock *gridsavedas(const char *path, int32_t type)
{
    errorblock *err = type == FILETYPEGRID ? gridsaveto(path) : picturesave(type, path);
    if (!err) gridformat.saved = gridformat.chosen;
    return err;
}

errorblock *cluessavedas(const char *path, int32_t type)
{
    if (type != FILETYPETEXT) return nullptr;
    return grid.kind == GRIDWORDSQUARE ? wordlistsave(path) : cluelist(path);
}

errorblock *gridchosen(const char *path, int32_t type, intptr_t, intptr_t)
{
    return gridopened(path, type);
}

// A drop waits here while a search hears that it is to stop.
struct droprecord {
    char path[PATHSIZE];
    int32_t type;
};
droprecord dropped;

errorblock *dropopen(intptr_t)
{
    return gridopened(dropped.path, dropped.type);
}

errorblock *dropasked(const char *, int32_t filetype, mouserecord *, intptr_t, bool *accept)
{
    *accept = gridaccepts(filetype);
    return nullptr;
}

errorblock *droploaded(const char *path, int32_t filetype, intptr_t, intptr_t)
{
    errorblock *err = xzstrncpy(dropped.path, path, sizeof dropped.path);
    dropped.type = filetype;
    return err ? err : aftersearch(dropopen, 0);
}

errorblock *dropdone(intptr_t)
{
    return nullptr;
}

constexpr handlertable drophandlers = {
    {.dropload = droploaded},
    {.dropdone = dropdone},
    {.drop = dropasked},
};

} // namespace

errorblock *filesaveas()
{
    bool named = grid.filename[0];
    char path[PATHSIZE];
    strcopyn(path, named ? grid.filename : "Grid", sizeof path);
    gridformat.chosen = named ? gridformat.saved : 0;
    return saveask(path, &filekind::savegrid, FILETYPEGRID, gridsavedas, &gridformat.chosen);
}

errorblock *filesaveclues()
{
    char path[PATHSIZE];
    int32_t chosen = 0;
    besidedocument(path, "Clues");
    return saveask(path, &filekind::saveclues, FILETYPETEXT, cluessavedas, &chosen);
}

errorblock *fileopen()
{
    loadgroup groups[FILEKINDS];
    int32_t count = 0;
    for (const filekind &kind : filekinds)
        if (kind.opengrid) groups[count++] = {kind.opengrid, 1, &kind.row.type};
    char path[PATHSIZE] = "";
    return loadfile(path, 0, groups, count, gridchosen, 0, mainwindow);
}

errorblock *dropsaccept(window w)
{
    errorblock *err = addhandlers(w, drophandlers);
    return err ? err : setdrops(w, true);
}

void wordlistload(const char *path)
{
    wordload(path);
}

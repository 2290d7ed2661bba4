#include "app/filecommands.h"

#include "app/longwork.h"
#include "app/mainwindow.h"
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

#include <iterator>

namespace
{

constexpr const char *FILTERGRIDS = "Quillmere grid files (*.qmg)";

struct formatrow {
    const char *description;
    int32_t type;
};

const formatrow formats[] = {
    {"Quillmere grid file (*.qmg)", FILETYPEGRID},
    {"Enhanced metafile (*.emf)", PICTUREENHANCED},
    {"Metafile (*.wmf)", PICTUREMETAFILE},
    {"Placeable metafile (*.wmf)", PICTUREPLACEABLE},
};

// The name keeps what the user typed; the dialog's end gives it the extension.
void gridformat(intptr_t, int32_t index, int32_t *type, char *, int32_t)
{
    *type = formats[index].type;
}

void clueformat(intptr_t, int32_t, int32_t *type, char *, int32_t)
{
    *type = FILETYPETEXT;
}

errorblock *gridsavedas(const char *path, int32_t type)
{
    return type == FILETYPEGRID ? gridsaveto(path) : picturesave(type, path);
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

errorblock *dropasked(const char *, int32_t filetype, mouserecord *, intptr_t, int *accept)
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
    savefilter rows[std::size(formats)];
    for (size_t i = 0; i < std::size(formats); i++)
        rows[i] = {formats[i].description, gridformat};
    char path[PATHSIZE] = "Grid";
    int32_t chosen = 0;
    savefilterset(std::size(rows), rows, &chosen);
    return savefileowner(path, sizeof path, FILETYPEGRID, gridsavedas, mainwindow);
}

errorblock *filesaveclues()
{
    static const savefilter rows[] = {{"Text file (*.txt)", clueformat}};
    char path[PATHSIZE] = "Clues";
    int32_t chosen = 0;
    savefilterset(std::size(rows), rows, &chosen);
    return savefileowner(path, sizeof path, FILETYPETEXT, cluessavedas, mainwindow);
}

errorblock *fileopen()
{
    static const int32_t types[] = {FILETYPEGRID};
    static const loadgroup groups[] = {{FILTERGRIDS, std::size(types), types}};
    char path[PATHSIZE] = "";
    return loadfile(path, 0, groups, std::size(groups), gridchosen, 0, mainwindow);
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

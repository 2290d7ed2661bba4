// The File menu's commands on the document, and the user's default grid.
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/userfiles.h"
#include "grid/gridfile.h"
#include "grid/gridwindow.h"

namespace
{

constexpr const char *FOLDER = "Default", *EXTENSION = "qmg";

} // namespace

errorblock *gridsaveto(const char *path)
{
    errorblock *err = gridsave(path);
    if (!err) gridunchanged();
    if (!err) gridsetfilename(path);
    return err;
}

errorblock *gridsavecommand()
{
    return grid.filename[0] ? gridsaveto(grid.filename) : makeerror(ENOSAVE);
}

errorblock *gridsavedefault()
{
    char path[PATHSIZE];
    errorblock *err = userfilefind(FOLDER, EXTENSION, path);
    if (err) return err;
    userfilesave(FOLDER, EXTENSION, gridwrite);
    gridrememberdefaults();
    return nullptr;
}

// A default grid that doesn't load is as none: the program starts all the same.
errorblock *gridloaddefault()
{
    char path[PATHSIZE];
    errorblock *err = userfilefind(FOLDER, EXTENSION, path);
    if (err) return err;
    int32_t type;
    if (fileobject(path, &type) || type != OBJECTFILE || gridload(path)) {
        gridsetdefaults();
        gridsquaresize();
    } else {
        gridrememberdefaults();
    }
    gridkindapply(grid.pendingkind);
    return nullptr;
}

// A word list goes through the same end as a grid: the document bears its
// path, and the kind goes back to that of the grid file read last. A Crossword's
// results must be gone before they count as a Wordsquare's words, and words
// before they count as a Crossword's results; that can be with a list of words,
// and with a grid that can't be opened.
errorblock *gridopened(const char *path, int32_t filetype)
{
    bool words = filetype == FILETYPETEXT;
    errorblock *err = words ? nullptr : gridload(path);
    if (err) return err; // nothing was taken from the file
    if (words) {
        if (grid.kind == GRIDCROSSWORD) resultsdrop();
        wordlistload(path);
    }
    int32_t listed = words ? GRIDWORDSQUARE : grid.kind;
    if (listed != grid.pendingkind) resultsdrop();
    gridunchanged();
    gridsetfilename(path);
    gridkindapply(grid.pendingkind);
    return nullptr;
}

bool gridaccepts(int32_t filetype)
{
    return filetype == FILETYPEGRID || (filetype == FILETYPETEXT && grid.kind == GRIDWORDSQUARE);
}

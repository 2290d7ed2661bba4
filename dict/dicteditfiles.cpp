// Files of words in and out of the dictionary that is open in the editor.

#include "base/errorcodes.h"
#include "base/filetypes.h"
#include "base/paths.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/drop.h"
#include "desktop/filedialogs.h"
#include "desktop/handlertable.h"
#include "desktop/hourglass.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "dict/wordimport.h"
#include "resources/identifiers.h"

#include <iterator>

namespace
{

constexpr const char *FILTERWORDS = "Text file of words (*.txt)";

char importpath[PATHSIZE]; // of the import that waits for a search's end

// The words so far are shown after an error too.
errorblock *importnow(intptr_t)
{
    if (!editor.self) return nullptr;
    errorblock *err = dictneed(editor.number);
    if (err) return err;
    uint32_t before = dictcount(editor.view.wordrows);
    hourglasson();
    kepterror kept = keeperror(wordimport(importpath, editor.number));
    err = editshow(before);
    hourglassoff();
    return firsterror(kept, err);
}

errorblock *importfile(const char *path)
{
    errorblock *err = xzstrncpy(importpath, path, sizeof importpath);
    return err ? err : dictwhenidle(importnow, 0);
}

// The editor may have closed while a box was open.
errorblock *importchosen(const char *path, int32_t, intptr_t, intptr_t)
{
    return importfile(path);
}

errorblock *exportchosen(const char *path, int32_t)
{
    return editor.self ? wordexport(path, editor.view.wordrows) : nullptr;
}

void wordsformat(intptr_t, int32_t, int32_t *type, char *, int32_t)
{
    *type = FILETYPETEXT;
}

errorblock *dropasked(const char *, int32_t filetype, mouserecord *, intptr_t, int *accept)
{
    *accept = filetype == FILETYPETEXT || filetype >= DROPFOLDER;
    return nullptr;
}

// A folder is taken to say why its words are not.
errorblock *droploaded(const char *path, int32_t filetype, intptr_t, intptr_t)
{
    if (filetype < DROPFOLDER) return importfile(path);
    return makeerrortext(EFOLDER, "%s is a folder. Words come from files.", leafname(path));
}

errorblock *dropdone(intptr_t)
{
    return nullptr;
}

constexpr handlertable drophandlers = {
    {.drop = dropasked},
    {.dropload = droploaded},
    {.dropdone = dropdone},
};

} // namespace

errorblock *editimportbox()
{
    static const int32_t types[] = {FILETYPETEXT};
    static const loadgroup groups[] = {{FILTERWORDS, std::size(types), types}};
    char path[PATHSIZE] = "";
    return loadfile(path, 0, groups, std::size(groups), importchosen, 0, editor.self);
}

errorblock *editexportbox()
{
    static const savefilter rows[] = {{FILTERWORDS, wordsformat}};
    char path[PATHSIZE] = "TextFile";
    int32_t chosen = 0;
    savefilterset(std::size(rows), rows, &chosen);
    return savefileowner(path, sizeof path, FILETYPETEXT, exportchosen, editor.self);
}

errorblock *editmenuselect(const int32_t *path, window)
{
    if (!editor.self) return nullptr;
    for (; *path != -1; path++) {
        if (*path == COMMANDIMPORT) return editimportbox();
        if (*path == COMMANDEXPORT) return editexportbox();
    }
    return nullptr;
}

errorblock *editdropsadd()
{
    errorblock *err = addhandlers(editor.view.pane, drophandlers);
    return err ? err : setdrops(editor.view.pane, true);
}

void editdropsremove()
{
    setdrops(editor.view.pane, false);
    remhandlers(editor.view.pane, drophandlers);
}

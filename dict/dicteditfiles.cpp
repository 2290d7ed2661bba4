// Files of words in and out of the dictionary that is open in the editor.

#include "base/boxes.h"
#include "base/errorcodes.h"
#include "base/filetypes.h"
#include "base/paths.h"
#include "base/platform.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/drop.h"
#include "desktop/filedialogs.h"
#include "desktop/handlertable.h"
#include "desktop/heldinput.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "dict/wordimport.h"
#include "resources/identifiers.h"

#include <iterator>

namespace
{

constexpr const char *FILTERWORDS = "Text file of words (*.txt)";

char importpath[PATHSIZE]; // of the import that waits for a search's end

// While words come in the button that takes all changes back only stops that: what
// is pressed in haste must not lose them. Keys and presses meanwhile are dropped.
struct {
    char button[32]; // its own text
    uint32_t polled; // when the user was let in last, by platformticks
    bool stopped;
} importing;

errorblock *importbegin()
{
    importing.polled = platformticks();
    importing.stopped = false;
    hourglasson();
    errorblock *err =
        copyicontext(editor.self, DIALOGCANCEL, importing.button, sizeof importing.button);
    return err ? err : seticontext(editor.self, DIALOGCANCEL, "Stop");
}

errorblock *importend()
{
    heldinput(editor.self, DIALOGCANCEL);
    hourglassoff();
    return seticontext(editor.self, DIALOGCANCEL, importing.button);
}

// The words so far are shown after an error too.
errorblock *importnow(intptr_t)
{
    if (!editor.self) return nullptr;
    errorblock *err = dictneed(editor.number);
    if (err) return err;
    uint32_t before = dictcount(editor.view.wordrows);
    err = importbegin();
    if (!err) err = wordimport(importpath, editor.number);
    kepterror kept = keeperror(err);
    err = importend();
    if (!err) err = editshow(before);
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

errorblock *dropasked(const char *, int32_t filetype, mouserecord *, intptr_t, bool *accept)
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

// Once stopped it is so for both of its loops.
bool importpoll(int32_t words)
{
    constexpr uint32_t OFTEN = 50; // milliseconds
    if (importing.stopped || platformticks() - importing.polled < OFTEN) return importing.stopped;
    reporterror(seticontextf(editor.self, EDITCOUNT, "%d", words));
    importing.stopped = heldinput(editor.self, DIALOGCANCEL);
    importing.polled = platformticks();
    return importing.stopped;
}

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

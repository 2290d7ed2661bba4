#include "dict/dicteditwindow.h"

#include "base/boxes.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/dialogs.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/menus.h"
#include "desktop/windows.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "resources/identifiers.h"

#include <cstring>

editrecord editor;

namespace
{

errorblock *editfill();
errorblock *editshown();
void editending();
errorblock *addpressed();
errorblock *deletepressed();
errorblock *filespressed();
errorblock *okpressed();
errorblock *cancelpressed();
errorblock *editclose();

constexpr int32_t ENTER = KEYEITHER | KEYRETURN;

// With a button in focus Return presses that.
constexpr dialogrecord editdialog = {
    .self = &editor.self,
    .number = TEMPLATEEDIT,
    .handlers =
        {
            {.control = EDITADD, .press = addpressed, .when = dictwhenidle},
            {.control = EDITFILES, .press = filespressed},
            {.control = EDITDELETE, .press = deletepressed, .when = dictwhenidle},
            {.control = EDITOK, .press = okpressed, .when = dictwhenidle},
            {.control = DIALOGCANCEL, .press = cancelpressed, .when = dictwhenidle},
            {.control = EDITWORD, .code = ENTER, .keyed = addpressed, .when = dictwhenidle},
            {.control = -1, .code = ENTER, .keyed = addpressed, .when = dictwhenidle},
            {.closed = editclose},
        },
    .fill = editfill,
    .shown = editshown,
    .ending = editending,
    .focus = EDITWORD,
};

// Of the list, which also takes files.
constexpr handlertable listhandlers = {
    {.code = ENTER, .keyed = addpressed, .when = dictwhenidle},
    {.code = KEYPRESS | KEYDELETE, .keyed = deletepressed, .when = dictwhenidle},
    {.code = KEYPRESS | KEYESCAPE, .keyed = cancelpressed, .when = dictwhenidle},
};

errorblock *countshow(wordview *view)
{
    return seticontextf(editor.self, EDITCOUNT, "%d",
                        static_cast<int32_t>(dictcount(view->wordrows)));
}

errorblock *titleshow()
{
    char title[sizeof "{EDIT} ()" + sizeof editor.name];
    errorblock *err = xzsnprintf(sizeof title, nullptr, title, "{EDIT} (%s)", editor.name);
    return err ? err : settitle(editor.self, title);
}

errorblock *editfill()
{
    errorblock *err = titleshow();
    if (!err)
        err = wordviewopen(&editor.view, editor.self, EDITWORD, EDITLIST, editor.view.wordrows);
    if (!err) err = addhandlers(editor.view.pane, listhandlers);
    if (!err) err = editdropsadd();
    if (!err) err = countshow(&editor.view);
    return err;
}

errorblock *editshown()
{
    return wordviewplace(&editor.view);
}

void editending()
{
    if (!editor.view.pane) return;
    editdropsremove();
    remhandlers(editor.view.pane, listhandlers);
    wordviewclose(&editor.view);
}

errorblock *editclose()
{
    return dialogend(editdialog);
}

// The editor may have closed while a search came to its end. The next word that is
// typed takes the place of the one that was added.
errorblock *addpressed()
{
    if (!editor.self) return nullptr;
    errorblock *err = editadd(editor.number);
    return err ? err : selecticon(editor.self, EDITWORD);
}

errorblock *deletepressed()
{
    return editor.self ? editdelete(editor.number) : nullptr;
}

errorblock *filespressed()
{
    return popupmenu(editor.view.pane, MENUWORDLISTITEMS);
}

errorblock *okpressed()
{
    if (!editor.self) return nullptr;
    errorblock *err = dictsavechanges();
    return err ? err : editclose();
}

errorblock *cancelpressed()
{
    if (!editor.self) return nullptr;
    bool inuse = false;
    for (uint32_t n = 0; n < ndicts; n++)
        inuse = inuse || (dicts[n].changed && dictinset(n));
    errorblock *err = dictdiscardchanges();
    if (inuse) dictrefsgone();
    kepterror kept = keeperror(err);
    err = editclose();
    if (!err) err = wordviewschanged();
    return firsterror(kept, err);
}

errorblock *listmenu(wordview *)
{
    return filespressed();
}

// One that can't be read as a name any more, or has no record, is gone.
void editfollow(int32_t number)
{
    if (number < 0) {
        reporterror(editclose());
        return;
    }
    editor.number = static_cast<uint32_t>(number);
    editor.view.wordrows = &dicts[number].dict;
}

} // namespace

errorblock *editopen(window parent, uint32_t number, Dictionary *dict, const char *name)
{
    editor.number = number;
    strcopyn(editor.name, name, sizeof editor.name);
    editor.view.wordrows = dict;
    editor.view.rowsel = editor.view.rowcaret = -1;
    editor.view.arrowscaret = true;
    editor.view.menu = listmenu;
    editor.view.follow = countshow;
    errorblock *err = nullptr;
    if (editor.self) { // words must not go into another dictionary than the one named
        err = titleshow();
        if (!err) err = wordviewschanged();
    }
    return err ? err : dialogopen(editdialog, parent);
}

errorblock *editadd(uint32_t number)
{
    char word[ICONTEXTSIZE];
    dictrec *record = &dicts[number];
    uint32_t before = dictcount(&record->dict);
    errorblock *err = copyicontext(editor.self, EDITWORD, word, sizeof word);
    if (!err) err = dictneed(number);
    if (!err) err = dictadd(word, &record->dict);
    if (err) return err;
    if (word[0] && strlen(word) <= WORDLENGTH) record->changed = 1;
    return editshow(before);
}

errorblock *editdelete(uint32_t number)
{
    dictcursor cursor;
    dictrec *record = &dicts[number];
    uint32_t before = dictcount(&record->dict);
    if (editor.view.rowsel < 0) return nullptr;
    auto row = static_cast<uint32_t>(editor.view.rowsel);
    if (!dictseek(row, &record->dict, &cursor)) return nullptr;
    if (!dictdelete(&record->dict, &cursor)) return nullptr;
    record->changed = 1;
    errorblock *err = editshow(before);
    return err ? err : wordviewdeleted(&editor.view, static_cast<int32_t>(row));
}

errorblock *editshow(uint32_t before)
{
    if (dictcount(editor.view.wordrows) != before && dictinset(editor.number)) dictrefsgone();
    return wordviewschanged();
}

void editrenumber()
{
    if (editor.self) editfollow(dictnamefind(editor.name));
    reporterror(wordviewschanged());
}

bool dictediting(uint32_t number)
{
    return editor.self && editor.number == number;
}

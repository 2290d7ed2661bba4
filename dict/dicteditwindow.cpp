#include "dict/dicteditwindow.h"

#include "base/boxes.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/menus.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "resources/identifiers.h"

#include <cstring>

editrecord editor;

namespace
{

// The editor may have closed while a search came to its end.
errorblock *addpressed(intptr_t)
{
    return editor.self ? editadd(editor.number) : nullptr;
}

errorblock *deletepressed(intptr_t)
{
    return editor.self ? editdelete(editor.number) : nullptr;
}

errorblock *editclose();

errorblock *okpressed(intptr_t)
{
    if (!editor.self) return nullptr;
    dictsavechanges();
    return editclose();
}

errorblock *cancelpressed(intptr_t)
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

struct pressrow {
    int32_t control;
    errorblock *(*function)(intptr_t);
};

const pressrow presses[] = {
    {EDITADD, addpressed},
    {EDITDELETE, deletepressed},
    {EDITOK, okpressed},
    {DIALOGCANCEL, cancelpressed},
};

errorblock *editclick(window, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    for (const pressrow &row : presses)
        if (row.control == mouse->icon) return dictwhenidle(row.function, 0);
    return nullptr;
}

// With a button in focus Return presses that.
errorblock *editkey(window, intptr_t, int32_t icon, int32_t *code)
{
    if ((*code & ~KEYPRESS) != KEYRETURN || (icon != EDITWORD && icon != -1)) return nullptr;
    *code = KEYCLAIMED;
    return dictwhenidle(addpressed, 0);
}

errorblock *listkey(window, intptr_t, int32_t, int32_t *code)
{
    bool escape = *code == (KEYPRESS | KEYESCAPE);
    if (!escape && (*code & ~KEYPRESS) != KEYRETURN) return nullptr;
    *code = KEYCLAIMED;
    return dictwhenidle(escape ? cancelpressed : addpressed, 0);
}

errorblock *editclosed(window, intptr_t)
{
    return editclose();
}

errorblock *listmenu(wordview *)
{
    return popupmenu(editor.view.pane, MENUWORDLISTITEMS);
}

errorblock *handlersadd()
{
    errorblock *err = addclickhandler(editclick, editor.self, 0);
    if (!err) err = addkeyhandler(editkey, editor.self, 0);
    if (!err) err = addclosehandler(editclosed, editor.self, 0);
    if (!err) err = addkeyhandler(listkey, editor.view.pane, 0);
    if (!err) err = editdropsadd();
    return err;
}

errorblock *editclose()
{
    if (!editor.self) return nullptr;
    remclickhandler(editclick, editor.self, 0);
    remkeyhandler(editkey, editor.self, 0);
    remclosehandler(editclosed, editor.self, 0);
    if (editor.view.pane) {
        remkeyhandler(listkey, editor.view.pane, 0);
        editdropsremove();
    }
    wordviewclose(&editor.view);
    return removewindow(&editor.self);
}

errorblock *countshow(wordview *view)
{
    return seticontextf(editor.self, EDITCOUNT, "%d",
                        static_cast<int32_t>(dictcount(view->wordrows)));
}

errorblock *editcreate(window parent, const Dictionary *dict)
{
    char title[sizeof "{EDIT} ()" + sizeof editor.name];
    errorblock *err = xzsnprintf(sizeof title, nullptr, title, "{EDIT} (%s)", editor.name);
    if (!err) err = createwindow(TEMPLATEEDIT, title, &editor.self, parent);
    if (!err) err = wordviewopen(&editor.view, editor.self, EDITWORD, EDITLIST, dict);
    if (!err) err = handlersadd();
    if (!err) err = countshow(&editor.view);
    if (!err) err = opencentred(editor.self, 0);
    if (!err) err = wordviewplace(&editor.view);
    if (!err) err = setcaret(editor.self, EDITWORD, 0, 0, 0, 0);
    return err;
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
    if (editor.self) return raisewindow(editor.self, 0, nullptr);
    editor.view.arrowscaret = true;
    editor.view.menu = listmenu;
    editor.view.follow = countshow;
    errorblock *err = editcreate(parent, dict);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    return firsterror(kept, editclose());
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
    return editshow(before);
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

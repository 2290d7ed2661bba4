#include "find/spellwindow.h"

#include "base/boxes.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/syserr.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/combo.h"
#include "desktop/confirm.h"
#include "desktop/eventsource.h"
#include "desktop/handlers.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/subclass.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "find/spell.h"
#include "resources/identifiers.h"

#include <cstring>

checkrecord check;

namespace
{

constexpr uint32_t INFORMATION = 2 << 16; // an askbox with OK alone

const Dictionary nowords = {};

dictrec *dictionaryat(uint32_t position)
{
    return position < dictset.count ? &dicts[dictset.numbers[position]] : nullptr;
}

const Dictionary *rowsnow()
{
    const dictrec *record = dictionaryat(check.dictionary);
    if (!check.browsing) return &spell.guessstore;
    return record ? &record->dict : &nowords;
}

errorblock *titleset()
{
    char title[64];
    const dictrec *record = dictionaryat(check.dictionary);
    const char *shown = !check.browsing ? "{SPGUESS}" : record ? record->name : "";
    errorblock *err = xzsnprintf(sizeof title, nullptr, title, "{SPCH} (%s)", shown);
    return err ? err : settitle(check.self, title);
}

// The list has other words, and nothing of it is selected.
errorblock *listrenew()
{
    check.view.wordrows = rowsnow();
    check.view.rowsel = check.view.rowcaret = -1;
    errorblock *err = wordviewextent(&check.view);
    if (!err) err = wordviewcentre(&check.view, 0);
    if (!err) err = wordviewpaint(&check.view, -1);
    return err;
}

errorblock *browse()
{
    check.browsing = true;
    errorblock *err = titleset();
    if (!err) err = listrenew();
    if (!err) err = wordviewsync(&check.view);
    return err;
}

errorblock *guess()
{
    if (!check.browsing) return nullptr;
    check.browsing = false;
    errorblock *err = titleset();
    return err ? err : listrenew();
}

errorblock *namesfill()
{
    check.listed.count = dictset.count;
    errorblock *err = comboclear(check.combo);
    for (uint32_t i = 0; i < dictset.count && !err; i++) {
        std::strcpy(check.listed.names[i], dictionaryat(i)->name);
        err = comboadd(check.combo, check.listed.names[i]);
    }
    return err ? err : comboselect(check.combo, static_cast<int32_t>(check.dictionary));
}

bool namesstand()
{
    if (check.listed.count != dictset.count) return false;
    for (uint32_t i = 0; i < dictset.count; i++)
        if (std::strcmp(check.listed.names[i], dictionaryat(i)->name) != 0) return false;
    return true;
}

// The combo box shows what is in use now; same tells whether the dictionary that
// was chosen is still the one chosen.
errorblock *namesfollow(bool *same)
{
    *same = true;
    if (namesstand()) return nullptr;
    const char *before =
        check.dictionary < check.listed.count ? check.listed.names[check.dictionary] : "";
    uint32_t position = 0;
    while (position < dictset.count && std::strcmp(dictionaryat(position)->name, before) != 0)
        position++;
    *same = position < dictset.count;
    check.dictionary = *same ? position : 0;
    errorblock *err = namesfill();
    return err || !check.browsing ? err : browse();
}

// The numbers of dictionaries move when others come or go.
errorblock *storefollow(wordview *view)
{
    bool same;
    errorblock *err = namesfollow(&same);
    view->wordrows = rowsnow();
    return err;
}

errorblock *spellshow();

errorblock *checknext()
{
    bool same;
    errorblock *err = check.self ? namesfollow(&same) : nullptr;
    return err ? err : spellshow();
}

// Numbers of words move with each one that is added.
errorblock *wordadd(dictrec *record)
{
    char word[ICONTEXTSIZE];
    uint32_t before = dictcount(&record->dict);
    errorblock *err = copyicontext(check.self, CHECKFIELD, word, sizeof word);
    if (!err) err = dictneed(dictset.numbers[check.dictionary]);
    if (!err) err = dictadd(word, &record->dict);
    if (err) return err;
    record->changed = 1;
    if (dictcount(&record->dict) != before) dictrefsgone();
    return wordviewschanged();
}

// A word goes nowhere but into the dictionary that the user sees chosen.
errorblock *checkadd()
{
    bool same;
    errorblock *err = namesfollow(&same);
    if (err || !same) return err;
    dictrec *record = dictionaryat(check.dictionary);
    return record ? wordadd(record) : makeerror(ENOD);
}

errorblock *windowend();

// Yes keeps, No doesn't, and Escape leaves them as they are.
errorblock *changesask(int *answer)
{
    *answer = -1;
    if (!dictanychanges()) return nullptr;
    trace("changed message");
    errorblock *err = confirm(check.self, CONFIRMYESNO, answer, "{SPKEEP}");
    if (!err) trace("result %d", *answer);
    return err;
}

errorblock *discard()
{
    errorblock *err = dictdiscardchanges();
    kepterror kept = keeperror(err);
    dictrefsgone();
    err = wordviewschanged();
    return firsterror(kept, err);
}

// POLLS. The window may be gone behind the question.
errorblock *checkclose()
{
    int answer;
    trace("check close");
    errorblock *asked = changesask(&answer);
    kepterror kept = keeperror(asked);
    spellend();
    if (asked) {
        listrenew(); // the suggestions are gone
        return firsterror(kept, nullptr);
    }
    errorblock *err = windowend();
    kept = keeperror(err);
    if (answer == 1) err = dictsavechanges();
    if (answer == 0) err = discard();
    return firsterror(kept, err);
}

errorblock *browseclick()
{
    bool same;
    errorblock *err = namesfollow(&same);
    if (!err) err = check.browsing ? guess() : browse();
    return err ? err : seticonselected(check.self, CHECKBROWSE, check.browsing);
}

// A search walks the dictionaries and writes into the grid: what would disturb
// it, or be led astray, waits until it has stopped. By then the window may be
// closed.
errorblock *nextidle(intptr_t)
{
    return check.self ? checknext() : nullptr;
}

errorblock *closeidle(intptr_t)
{
    return check.self ? checkclose() : nullptr;
}

errorblock *addidle(intptr_t thennext)
{
    errorblock *err = check.self ? checkadd() : nullptr;
    return err || !thennext ? err : nextidle(0);
}

errorblock *clicked(window, intptr_t, mouserecord *mouse)
{
    switch (mouse->icon) {
    case CHECKBROWSE:
        return browseclick();
    case CHECKADD:
        return dictwhenidle(addidle, mouse->buttons & BUTTONRIGHT);
    case CHECKCONTINUE:
        return dictwhenidle(nextidle, 0);
    case CHECKCLOSE:
        return dictwhenidle(closeidle, 0);
    }
    return nullptr;
}

// The system's buttons answer the left button alone. Fast presses come in pairs.
errorblock *addmessage(const systemmessage *message, intptr_t, int *stop, intptr_t *)
{
    if (message->message != SYSTEMRIGHTDOWN && message->message != SYSTEMRIGHTDOUBLE)
        return nullptr;
    *stop = 1;
    mouserecord mouse = {};
    mouse.buttons = BUTTONRIGHT;
    mouse.icon = CHECKADD;
    reporterror(clicked(check.self, 0, &mouse));
    return nullptr;
}

errorblock *keyed(window, intptr_t, int32_t, int32_t *code)
{
    int32_t key = *code & ~KEYPRESS;
    if (key != KEYRETURN && key != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    return dictwhenidle(key == KEYRETURN ? nextidle : closeidle, 0);
}

errorblock *closed(window, intptr_t)
{
    return dictwhenidle(closeidle, 0);
}

errorblock *chosen(int32_t, window, intptr_t, int32_t index, int32_t)
{
    bool same;
    if (!namesstand()) return namesfollow(&same);
    check.dictionary = static_cast<uint32_t>(index);
    return check.browsing ? browse() : nullptr;
}

errorblock *handlersadd()
{
    errorblock *err = addclickhandler(clicked, check.self, 0);
    if (!err) err = addsubclasshandler(check.self, CHECKADD, 0, addmessage);
    if (!err) err = addkeyhandler(keyed, check.self, 0);
    if (!err) err = addkeyhandler(keyed, check.view.pane, 0);
    if (!err) err = addclosehandler(closed, check.self, 0);
    return err;
}

// From any point of the opening, or when the window is gone already.
errorblock *windowend()
{
    if (!check.self) return nullptr;
    if (check.combo) remcombo(check.combo);
    check.combo = nullptr;
    remclosehandler(closed, check.self, 0);
    if (check.view.pane) remkeyhandler(keyed, check.view.pane, 0);
    remkeyhandler(keyed, check.self, 0);
    remsubclasshandler(check.self, CHECKADD, 0, addmessage);
    remclickhandler(clicked, check.self, 0);
    wordviewclose(&check.view);
    return removewindow(&check.self);
}

errorblock *windowmake()
{
    check.dictionary = 0;
    check.view.follow = storefollow;
    errorblock *err = createwindow(TEMPLATECHECK, "{SPCH}", &check.self, check.parent);
    if (!err) err = titleset();
    if (!err) err = wordviewopen(&check.view, check.self, CHECKFIELD, CHECKLIST, rowsnow());
    if (!err) err = handlersadd();
    if (!err) err = addcombo(check.self, 0, CHECKDICTIONARY, &check.combo, chosen);
    if (!err) err = namesfill();
    if (!err) err = opencentred(check.self, 0);
    if (!err) err = wordviewplace(&check.view);
    if (!err) err = seticonselected(check.self, CHECKBROWSE, check.browsing);
    return err;
}

errorblock *windowopen()
{
    errorblock *err = windowmake();
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    spellend();
    windowend();
    return firsterror(kept, nullptr);
}

errorblock *checkshow()
{
    bool was = check.self;
    errorblock *err = was ? nullptr : windowopen();
    if (!err) err = seticontext(check.self, CHECKFIELD, spell.checkword);
    if (!err && check.browsing) err = wordviewsync(&check.view);
    if (!err && !(was && check.browsing)) err = caretatend(check.self, CHECKFIELD);
    return err || check.browsing || !was ? err : listrenew();
}

errorblock *nonewwords()
{
    int answer;
    return askbox(check.parent, INFORMATION, &answer, "{SPNONE}");
}

// The next word that nobody knows, or the end.
errorblock *spellshow()
{
    hourglasson();
    int found = checkwalk();
    errorblock *err = found ? checkshow() : nullptr;
    hourglassoff();
    trace("check next %d", found ? 0 : 2);
    if (err || found) return err;
    return check.self ? checkclose() : nonewwords();
}

} // namespace

errorblock *spellcheck(window parent)
{
    check.parent = parent;
    checkstart();
    trace("spell check");
    if (dictdefault()) return nullptr;
    errorblock *err = checknext();
    if (!err && check.self) err = raisewindow(check.self, 0, nullptr);
    return err;
}

#include "find/spellwindow.h"

#include "base/boxes.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/syserr.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/combo.h"
#include "desktop/confirm.h"
#include "desktop/dialogs.h"
#include "desktop/eventsource.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "find/spell.h"
#include "resources/identifiers.h"

#include <cstring>

checkrecord check;

namespace
{

constexpr uint32_t INFORMATION = 2 << 16; // an askbox with OK alone

errorblock *windowfill();
errorblock *windowshown();
void windowending();
errorblock *browseswitch();
errorblock *addpressed();
errorblock *nextpressed();
errorblock *closepressed();
errorblock *addmessage(const systemmessage *message, intptr_t, bool *stop, intptr_t *);

// A search walks the dictionaries and writes into the grid: what would disturb it, or
// be led astray, waits until it has stopped.
constexpr dialogrecord checkdialog = {
    .self = &check.self,
    .number = TEMPLATECHECK,
    .handlers =
        {
            {.control = CHECKBROWSE, .press = browseswitch},
            {.control = CHECKADD, .press = addpressed, .when = dictwhenidle},
            {.control = CHECKADD, .subclass = addmessage},
            {.control = CHECKCONTINUE, .press = nextpressed, .when = dictwhenidle},
            {.control = CHECKCLOSE, .press = closepressed, .when = dictwhenidle},
            {.code = KEYEITHER | KEYRETURN, .keyed = nextpressed, .when = dictwhenidle},
            {.code = KEYEITHER | KEYESCAPE, .keyed = closepressed, .when = dictwhenidle},
            {.closed = closepressed, .when = dictwhenidle},
        },
    .fill = windowfill,
    .shown = windowshown,
    .ending = windowending,
    .focus = CHECKFIELD,
};

constexpr handlertable listhandlers = {
    {.code = KEYEITHER | KEYRETURN, .keyed = nextpressed, .when = dictwhenidle},
    {.code = KEYEITHER | KEYESCAPE, .keyed = closepressed, .when = dictwhenidle},
};

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
    errorblock *err = answer == 1 ? dictsavechanges() : nullptr;
    if (err) {
        kept = keeperror(err);
        listrenew();
        return firsterror(kept, nullptr);
    }
    err = dialogend(checkdialog);
    kept = keeperror(err);
    if (answer == 0) err = discard();
    return firsterror(kept, err);
}

errorblock *browseswitch()
{
    bool same;
    errorblock *err = namesfollow(&same);
    if (!err) err = check.browsing ? guess() : browse();
    return err ? err : seticonselected(check.self, CHECKBROWSE, check.browsing);
}

// The window may be closed by the time that a search has stopped.
errorblock *nextpressed()
{
    return check.self ? checknext() : nullptr;
}

errorblock *closepressed()
{
    return check.self ? checkclose() : nullptr;
}

errorblock *addpressed()
{
    return check.self ? checkadd() : nullptr;
}

errorblock *addthennext(intptr_t)
{
    errorblock *err = addpressed();
    return err ? err : nextpressed();
}

// The system's buttons answer the left button alone. Fast presses come in pairs.
errorblock *addmessage(const systemmessage *message, intptr_t, bool *stop, intptr_t *)
{
    if (message->message != SYSTEMRIGHTDOWN && message->message != SYSTEMRIGHTDOUBLE)
        return nullptr;
    *stop = true;
    reporterror(dictwhenidle(addthennext, 0));
    return nullptr;
}

errorblock *chosen(int32_t, window, intptr_t, int32_t index, int32_t)
{
    bool same;
    if (!namesstand()) return namesfollow(&same);
    check.dictionary = static_cast<uint32_t>(index);
    return check.browsing ? browse() : nullptr;
}

errorblock *windowfill()
{
    check.dictionary = 0;
    check.view.follow = storefollow;
    errorblock *err = titleset();
    if (!err) err = wordviewopen(&check.view, check.self, CHECKFIELD, CHECKLIST, rowsnow());
    if (!err) err = addhandlers(check.view.pane, listhandlers);
    if (!err) err = addcombo(check.self, 0, CHECKDICTIONARY, &check.combo, chosen);
    if (!err) err = namesfill();
    return err;
}

errorblock *windowshown()
{
    errorblock *err = wordviewplace(&check.view);
    return err ? err : seticonselected(check.self, CHECKBROWSE, check.browsing);
}

void windowending()
{
    if (check.combo) remcombo(check.combo);
    check.combo = nullptr;
    if (check.view.pane) remhandlers(check.view.pane, listhandlers);
    wordviewclose(&check.view);
}

errorblock *windowopen()
{
    errorblock *err = dialogopen(checkdialog, check.parent);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    spellend();
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

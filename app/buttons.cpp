#include "app/buttons.h"

#include "app/layout.h"
#include "app/mainwindow.h"
#include "base/boxes.h"
#include "base/trace.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/templates.h"
#include "dict/dictionary.h"
#include "find/anagram.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"

window buttonwindow;

namespace
{

constexpr int32_t FIELDSIZE = 33; // 32 characters

bool solvingbar; // the bar with Stop is up, or else
int32_t barkind; // that of this kind of document

// What a bar held that is to come back: the text of the Crossword's, and, over
// the bar with Stop, the control with the caret; -1 if the caret was elsewhere.
char savedtext[FIELDSIZE];
int32_t savedcaret = -1;

errorblock *stoppressed()
{
    trace("stop");
    search.stopflag = 1;
    return nullptr;
}

errorblock *anagrampressed()
{
    char typed[FIELDSIZE];
    errorblock *err = copyicontext(buttonwindow, BARLETTERS, typed, sizeof typed);
    return err ? err : anagramstart(typed);
}

errorblock *deletepressed()
{
    soldeleteselected();
    return nullptr;
}

// The word goes from the field into the list.
errorblock *wordadd()
{
    char typed[sizeof wsentry::text];
    errorblock *err = copyicontext(buttonwindow, BARWORD, typed, sizeof typed);
    if (!err) err = soladdtyped(typed);
    errorblock *emptied = seticontext(buttonwindow, BARWORD, "");
    return err ? err : emptied;
}

struct actionrow {
    int32_t control;
    errorblock *(*function)();
};

const actionrow presses[] = {
    {BARSOLVE, solvestart}, {BARANAGRAM, anagrampressed},
    {BARNEW, wsnew},        {BARDELETE, deletepressed},
    {BARMAKE, wsmake},      {BARSQUARESOLVE, wssolve},
    {BARSTOP, stoppressed},
};

const actionrow returns[] = {
    {BARLETTERS, anagrampressed},
    {BARWORD, wordadd},
};

errorblock *barclick(window, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    for (const actionrow &row : presses)
        if (row.control == mouse->icon) return row.function();
    return nullptr;
}

errorblock *barkey(window, intptr_t, int32_t icon, int32_t *code)
{
    if ((*code & ~KEYPRESS) == KEYESCAPE && solvingbar) {
        *code = KEYCLAIMED;
        stoprequest();
        return nullptr;
    }
    if (*code != KEYRETURN) return nullptr;
    for (const actionrow &row : returns) {
        if (row.control != icon) continue;
        *code = KEYCLAIMED;
        return row.function();
    }
    return nullptr;
}

void barremember(bool caretwanted)
{
    caretrecord caret;
    if (!buttonwindow || solvingbar) return;
    if (barkind == GRIDCROSSWORD)
        copyicontext(buttonwindow, BARLETTERS, savedtext, sizeof savedtext);
    if (caretwanted && !getcaret(&caret) && caret.self == buttonwindow) savedcaret = caret.icon;
}

void barrecall()
{
    if (barkind == GRIDCROSSWORD) seticontext(buttonwindow, BARLETTERS, savedtext);
    if (savedcaret != -1) caretatend(buttonwindow, savedcaret);
    savedcaret = -1;
}

errorblock *barremove()
{
    if (!buttonwindow) return nullptr;
    remclickhandler(barclick, buttonwindow, 0);
    remkeyhandler(barkey, buttonwindow, 0);
    return removewindow(&buttonwindow);
}

errorblock *barcreate()
{
    int32_t number = barkind == GRIDWORDSQUARE ? TEMPLATEBARSQUARE : TEMPLATEBAR;
    if (solvingbar) number = TEMPLATEBARSTOP;
    errorblock *err = createchild(number, &buttonwindow, mainwindow);
    if (!err) err = addclickhandler(barclick, buttonwindow, 0);
    if (!err) err = addkeyhandler(barkey, buttonwindow, 0);
    return err;
}

} // namespace

// The window has the focus only when a control of the bar had it: where there is
// no control any more, the keys go to the main window, which hears Escape.
errorblock *swapbuttons(int solving)
{
    trace("buttons solve");
    if (!mainwindow) return nullptr;
    barremember(solving);
    errorblock *err = barremove();
    search.stopflag = 0;
    solvingbar = solving;
    barkind = grid.kind;
    errorblock *created = barcreate();
    if (!err) err = created;
    if (!err) err = layoutnow();
    if (err) return err;
    if (solving && savedcaret != -1) focuswindow(mainwindow);
    if (!solving) barrecall();
    grid.marklength = -1; // the new field is empty
    marklengthshow();
    return nullptr;
}

bool barsolving()
{
    return solvingbar;
}

int stopflag()
{
    return search.stopflag;
}

void stoprequest()
{
    trace("setevent");
    search.stopflag = 1;
}

errorblock *showkind(int32_t kind)
{
    grid.kind = kind;
    return swapbuttons(barsolving());
}

void gridkindapply(int32_t kind)
{
    reporterror(showkind(kind));
}

void marklengthfield(int32_t length)
{
    if (!buttonwindow || solvingbar || barkind != GRIDCROSSWORD) return;
    if (length < 0)
        seticontext(buttonwindow, BARMARKLENGTH, "");
    else
        seticontextf(buttonwindow, BARMARKLENGTH, "%d", length);
}

void progressshow(int32_t n)
{
    if (solvingbar) seticontextf(buttonwindow, BARPROGRESS, "%d", n);
}

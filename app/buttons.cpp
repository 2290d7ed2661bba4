#include "app/buttons.h"

#include "app/layout.h"
#include "app/mainwindow.h"
#include "base/boxes.h"
#include "base/platform.h"
#include "base/trace.h"
#include "desktop/eventsource.h"
#include "desktop/filters.h"
#include "desktop/handlertable.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/poll.h"
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

errorblock *anagrampressed();
errorblock *wordadd();
errorblock *stoppressed();

// One of the bars: its template, and what it hears.
struct barrecord {
    int32_t number;
    handlertable handlers;
};

constexpr barrecord crosswordbar = {
    TEMPLATEBAR,
    {
        {.control = BARSOLVE, .press = solvestart},
        {.control = BARANAGRAM, .press = anagrampressed},
        {.control = BARLETTERS, .code = KEYRETURN, .keyed = anagrampressed},
    },
};

constexpr barrecord squarebar = {
    TEMPLATEBARSQUARE,
    {
        {.control = BARNEW, .press = wsnew},
        {.control = BARDELETE, .press = calls<soldeleteselected>},
        {.control = BARMAKE, .press = wsmake},
        {.control = BARSQUARESOLVE, .press = wssolve},
        {.control = BARWORD, .code = KEYRETURN, .keyed = wordadd},
    },
};

constexpr barrecord stopbar = {
    TEMPLATEBARSTOP,
    {
        {.control = BARSTOP, .press = stoppressed},
        {.code = KEYEITHER | KEYESCAPE, .keyed = calls<stoprequest>},
    },
};

constexpr int32_t FIELDSIZE = 33; // 32 characters

struct {
    const barrecord *up; // 0 before there is one
    // What a bar held that is to come back: the text of the Crossword's, and, over
    // the bar with Stop, the control with the caret; -1 if the caret was elsewhere.
    char text[FIELDSIZE];
    int32_t caret = -1;
    int32_t count;    // of a search, not yet shown; 0 for none
    uint32_t counted; // when one was shown last, by platformticks
} bar;

errorblock *anagrampressed()
{
    char typed[FIELDSIZE];
    errorblock *err = copyicontext(buttonwindow, BARLETTERS, typed, sizeof typed);
    return err ? err : anagramstart(typed);
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

errorblock *stoppressed()
{
    trace("stop");
    search.stopflag = 1;
    return nullptr;
}

void barremember(bool caretwanted)
{
    caretrecord caret;
    if (!buttonwindow || bar.up == &stopbar) return;
    if (bar.up == &crosswordbar) copyicontext(buttonwindow, BARLETTERS, bar.text, sizeof bar.text);
    if (caretwanted && !getcaret(&caret) && caret.self == buttonwindow) bar.caret = caret.icon;
}

void barrecall()
{
    if (bar.up == &crosswordbar) seticontext(buttonwindow, BARLETTERS, bar.text);
    if (bar.caret != -1) caretatend(buttonwindow, bar.caret);
    bar.caret = -1;
}

// A button uses what presses it or leaves it, a field its characters and what edits.
bool controluses(int32_t icon, const systemmessage &key)
{
    intptr_t code = key.wparam;
    if (icon != BARLETTERS && icon != BARWORD)
        return code == KEYSPACE || code == KEYRETURN || code == KEYTAB;
    return key.message == SYSTEMCHAR || code == KEYBACKSPACE ||
           (code >= KEYPAGEUP && code <= KEYDELETE);
}

// The other keys go to the handlers of the main window, before the navigation between
// the bar's controls can take them.
errorblock *barkey(const systemmessage *message, intptr_t, bool *stop, intptr_t *, int *)
{
    bool key = message->message == SYSTEMKEYDOWN || message->message == SYSTEMSYSKEYDOWN ||
               message->message == SYSTEMCHAR;
    if (!key || polltarget(message->window) != buttonwindow) return nullptr;
    window self;
    int32_t icon;
    errorblock *err = getcaretpair(&self, &icon);
    if (err || self != buttonwindow || controluses(icon, *message)) return err;
    systemmessage forwarded = *message;
    forwarded.window = mainwindow;
    bool claimed = false;
    keydeliver(&forwarded, &claimed);
    if (claimed) *stop = true;
    return nullptr;
}

// After an error of the old bar's end the new one is made all the same.
errorblock *barchange(const barrecord *next)
{
    if (bar.up) remhandlers(buttonwindow, bar.up->handlers);
    errorblock *err = removewindow(&buttonwindow);
    bar.up = next;
    errorblock *created = createchild(next->number, &buttonwindow, mainwindow);
    if (!created) created = addhandlers(buttonwindow, next->handlers);
    return err ? err : created;
}

} // namespace

// The window has the focus only when a control of the bar had it: where there is
// no control any more, the keys go to the main window, which hears Escape.
errorblock *swapbuttons(bool solving)
{
    trace("buttons solve");
    if (!mainwindow) return nullptr;
    barremember(solving);
    search.stopflag = 0;
    bar.count = 0;
    const barrecord *kindbar = grid.kind == GRIDWORDSQUARE ? &squarebar : &crosswordbar;
    errorblock *err = barchange(solving ? &stopbar : kindbar);
    if (!err) err = layoutnow();
    if (err) return err;
    if (solving && bar.caret != -1) focuswindow(mainwindow);
    if (!solving) barrecall();
    grid.marklength = -1; // the new field is empty
    marklengthshow();
    return nullptr;
}

errorblock *barkeysforward()
{
    return addpollfilter(barkey, -1, -1, 0);
}

bool barsolving()
{
    return bar.up == &stopbar;
}

bool stopflag()
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
    if (!buttonwindow || bar.up != &crosswordbar) return;
    if (length < 0)
        seticontext(buttonwindow, BARMARKLENGTH, "");
    else
        seticontextf(buttonwindow, BARMARKLENGTH, "%d", length);
}

// A text in a window takes longer to set than a hundred solutions to find: of the
// counts that come faster than anyone reads, the last is shown, at the next poll if
// not before.
void progressshow(int32_t n)
{
    constexpr uint32_t READ = 20; // milliseconds
    bar.count = n;
    if (platformticks() - bar.counted >= READ) progresscatchup();
}

void progresscatchup()
{
    if (bar.up != &stopbar || !bar.count) return;
    seticontextf(buttonwindow, BARPROGRESS, "%d", bar.count);
    bar.count = 0;
    bar.counted = platformticks();
}

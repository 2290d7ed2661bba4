#include "desktop/confirm.h"

#include "base/boxes.h"
#include "base/chars.h"
#include "base/messages.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/dialogs.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/poll.h"
#include "desktop/templates.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "resources/identifiers.h"

#include <cstdarg>

namespace
{

constexpr int PENDING = -2, CANCELLED = -1;
constexpr int32_t TEXTSIZE = 256;

struct {
    bool quiet; // no questions
    window open;
    uint32_t kind;
    int answer;
} question;

// Each button of each kind, and the keys that stand for it.
struct buttonrow {
    uint32_t kind;
    int32_t icon;
    int32_t key, otherkey; // upper case; 0 for none
    int answer;
};

constexpr buttonrow BUTTONS[] = {
    {CONFIRMYESNO, QUESTIONNO, 'N', 0, 0},
    {CONFIRMYESNO, QUESTIONYES, 'Y', KEYRETURN, 1},
    {CONFIRMDISCARDCANCEL, QUESTIONDISCARD, 'D', 0, 1}, // whether to go ahead
    {CONFIRMDISCARDCANCEL, QUESTIONCANCELOFTWO, 'C', 0, CANCELLED},
    {CONFIRMDISCARDCANCELSAVE, QUESTIONDISCARD, 'D', 0, 0}, // whether to keep
    {CONFIRMDISCARDCANCELSAVE, QUESTIONCANCELOFTHREE, 'C', 0, CANCELLED},
    {CONFIRMDISCARDCANCELSAVE, QUESTIONSAVE, 'S', KEYRETURN, 1},
};

constexpr int32_t ALLBUTTONS[] = {QUESTIONNO,          QUESTIONYES,           QUESTIONDISCARD,
                                  QUESTIONCANCELOFTWO, QUESTIONCANCELOFTHREE, QUESTIONSAVE};

bool iconused(int32_t icon)
{
    for (const buttonrow &row : BUTTONS)
        if (row.icon == icon && row.kind == question.kind) return true;
    return false;
}

// Buttons of several kinds share their places in the template.
errorblock *unusedremove()
{
    errorblock *err = nullptr;
    for (int32_t icon : ALLBUTTONS)
        if (!err && !iconused(icon)) err = deleteicon(question.open, icon);
    return err;
}

// Return presses the button that it stands for, and the system shows which that is.
errorblock *defaultset()
{
    errorblock *err = nullptr;
    for (const buttonrow &row : BUTTONS)
        if (!err && row.kind == question.kind && row.otherkey == KEYRETURN)
            err = seticondefault(question.open, row.icon);
    return err;
}

errorblock *clicked(window, intptr_t, mouserecord *mouse)
{
    for (const buttonrow &row : BUTTONS)
        if (row.kind == question.kind && row.icon == mouse->icon) question.answer = row.answer;
    return nullptr;
}

errorblock *keyed(window, intptr_t, int32_t, int32_t *code)
{
    if (*code <= 0 || *code > 255) return nullptr; // Ctrl+@ types a 0, which no row means
    int32_t key = charupper(static_cast<uint8_t>(*code));
    int answer = key == KEYESCAPE ? CANCELLED : PENDING;
    for (const buttonrow &row : BUTTONS)
        if (row.kind == question.kind && (row.key == key || row.otherkey == key))
            answer = row.answer;
    if (answer == PENDING) return nullptr;
    question.answer = answer;
    *code = KEYCLAIMED;
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    question.answer = CANCELLED;
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addkeyhandler(keyed, w, 0);
    if (!err) err = addclickhandler(clicked, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    if (!err) err = addhelphandler(nullptr, w, TEMPLATECONFIRM);
    return err;
}

void handlersremove(window w)
{
    remhelphandler(nullptr, w, TEMPLATECONFIRM);
    remclosehandler(closed, w, 0);
    remclickhandler(clicked, w, 0);
    remkeyhandler(keyed, w, 0);
}

// The window may go with its parent while the poll runs.
void answerwait(window w)
{
    while (question.answer == PENDING && wdatafind(w))
        pollonce();
    if (question.answer == PENDING) question.answer = CANCELLED;
}

errorblock *answerask(window w)
{
    errorblock *err = opencentred(w, 0);
    if (!err) err = focuswindow(w);
    if (!err) answerwait(w);
    return err;
}

// The parent takes input again before the box goes: the system would make
// another program's window the active one.
errorblock *asked(window w, window parent)
{
    enablewindow(parent, 0);
    errorblock *err = handlersadd(w);
    if (!err) err = answerask(w);
    kepterror kept = keeperror(err);
    enablewindow(parent, 1);
    handlersremove(w);
    return firsterror(kept, nullptr);
}

errorblock *boxask(window parent, const char *text)
{
    errorblock *err = createwindow(TEMPLATECONFIRM, tasktitle(), &question.open, parent);
    if (err) return err;
    window w = question.open;
    err = seticontext(w, QUESTIONTEXT, text);
    if (!err) err = unusedremove();
    if (!err) err = defaultset();
    if (!err) err = asked(w, parent);
    kepterror kept = keeperror(err);
    if (wdatafind(w)) err = removewindow(&question.open);
    question.open = 0;
    return firsterror(kept, err);
}

} // namespace

void setconfirm(int on)
{
    question.quiet = !on;
}

errorblock *confirm(window parent, uint32_t kind, int *answer, const char *format, ...)
{
    *answer = CANCELLED;
    if (question.open) return nullptr;
    bool force = kind & CONFIRMFORCE;
    kind &= ~CONFIRMFORCE;
    trace("force %d doconfirm %d", force, !question.quiet);
    if (!force && question.quiet) {
        *answer = kind == CONFIRMDISCARDCANCELSAVE ? 0 : 1;
        return nullptr;
    }

    char text[TEXTSIZE];
    va_list arguments;
    va_start(arguments, format);
    messageformat(sizeof text, text, format, arguments);
    va_end(arguments);
    expandtokens(text, sizeof text);

    question.kind = kind;
    question.answer = PENDING;
    errorblock *err = boxask(parent, text);
    *answer = err ? CANCELLED : question.answer;
    return err;
}

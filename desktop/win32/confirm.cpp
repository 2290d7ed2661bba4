#include "desktop/confirm.h"

#include "base/boxes.h"
#include "base/chars.h"
#include "base/messages.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/dialogs.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/poll.h"
#include "desktop/templates.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"
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

// The row of a button in a question of this kind, 0 if it hasn't that.
const buttonrow *buttonof(intptr_t icon)
{
    for (const buttonrow &row : BUTTONS)
        if (row.icon == icon && row.kind == question.kind) return &row;
    return nullptr;
}

errorblock *clicked(window, intptr_t, mouserecord *mouse)
{
    if (const buttonrow *row = buttonof(mouse->icon)) question.answer = row->answer;
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

errorblock *closed()
{
    question.answer = CANCELLED;
    return nullptr;
}

constexpr handlertable handlers = {
    {.key = keyed},
    {.click = clicked},
    {.closed = closed},
    {.helptemplate = TEMPLATECONFIRM},
};

// Buttons of several kinds share their places in the template: those of others go.
// Return presses the button that it stands for, and the system shows which that is.
errorblock *boxfill(const char *text)
{
    errorblock *err = seticontext(question.open, QUESTIONTEXT, text);
    for (int32_t icon : ALLBUTTONS)
        if (!err && !buttonof(icon)) err = deleteicon(question.open, icon);
    for (const buttonrow &row : BUTTONS)
        if (!err && row.kind == question.kind && row.otherkey == KEYRETURN)
            err = seticondefault(question.open, row.icon);
    return err;
}

// A question is about the whole program, as a menu of any window might change what
// it asks about: until the answer they all take no input, as the owner of a box of
// the system. Those that were so before stay so behind it.
struct heldwindows {
    window held[32];
    int32_t count;
};

BOOL CALLBACK windowhold(HWND handle, LPARAM list)
{
    auto windows = reinterpret_cast<heldwindows *>(list);
    window w = windowof(handle);
    constexpr int32_t most = sizeof windows->held / sizeof windows->held[0];
    if (w == question.open || !wdatafind(w) || !IsWindowEnabled(handle)) return TRUE;
    if (windows->count == most) return FALSE;
    windows->held[windows->count++] = w;
    EnableWindow(handle, FALSE);
    return TRUE;
}

void windowsrelease(const heldwindows &windows)
{
    for (int32_t i = 0; i < windows.count; i++)
        if (wdatafind(windows.held[i])) EnableWindow(systemwindow(windows.held[i]), TRUE);
}

// POLLS. The window may go with its parent meanwhile. Else the others take input
// again before the box goes: the system would make another program's window the
// active one.
errorblock *boxask(window parent, const char *text)
{
    errorblock *err = createwindow(TEMPLATECONFIRM, tasktitle(), &question.open, parent);
    if (err) return err;
    window w = question.open;
    heldwindows others = {};
    EnumThreadWindows(GetCurrentThreadId(), windowhold, reinterpret_cast<LPARAM>(&others));
    err = boxfill(text);
    if (!err) err = addhandlers(w, handlers);
    if (!err) err = opencentred(w, 0);
    if (!err) err = focuswindow(w);
    while (!err && question.answer == PENDING && wdatafind(w))
        pollonce();
    if (question.answer == PENDING) question.answer = CANCELLED;

    kepterror kept = keeperror(err);
    windowsrelease(others);
    remhandlers(w, handlers);
    if (wdatafind(w)) err = removewindow(&question.open);
    question.open = 0;
    return firsterror(kept, err);
}

} // namespace

void setconfirm(bool on)
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

#include "desktop/dde.h"

#include "base/boxes.h"
#include "base/flex.h"
#include "base/syserr.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/handlers.h"
#include "desktop/win32/ddemessages.h"
#include "desktop/win32/ddeservice.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <dde.h>

ddeservice dde;

static unsigned number(window w)
{
    return static_cast<unsigned>(w);
}

static errorblock *quit(intptr_t *, bool *)
{
    return ddeend();
}

errorblock *ddestart(const char *name)
{
    errorblock *err = xzstrncpy(dde.name, name, DDENAMESIZE);
    if (err || dde.hidden) return err;
    dde.hidden = CreateWindowExA(0, "Task", "osdde", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                 GetModuleHandleA(nullptr), nullptr);
    if (!dde.hidden) return syserr("CreateWindowEx");
    err = setflags(windowof(dde.hidden), WINDOWDDE, 0);
    if (!err) err = addbroadcasthandler(quit, BROADCASTQUIT);
    if (err) {
        kepterror kept = keeperror(err);
        ddeend();
        return firsterror(kept, nullptr);
    }
    return nullptr;
}

void ddesetcallback(ddefunction callback)
{
    dde.callback = callback;
}

void ddename(ATOM atom, char *name)
{
    if (!atom || !GlobalGetAtomNameA(atom, name, DDENAMESIZE)) name[0] = 0;
}

window ddeself(const ddeconversation *conversation)
{
    return conversation->flags & DDEOURS ? conversation->client : conversation->server;
}

window ddepartner(const ddeconversation *conversation)
{
    return conversation->flags & DDEOURS ? conversation->server : conversation->client;
}

errorblock *ddenew(window server, window client, uint32_t flags, ddefunction callback,
                   intptr_t data, ddeconversation **made)
{
    void *record = nullptr;
    errorblock *err = heap_alloc(&record, sizeof(ddeconversation));
    *made = static_cast<ddeconversation *>(record);
    if (err) return err;
    **made = {server, client, data, callback, dde.first, nullptr, flags};
    if (dde.first) dde.first->previous = *made;
    dde.first = *made;
    return nullptr;
}

static bool islisted(const ddeconversation *conversation)
{
    for (const ddeconversation *c = dde.first; c; c = c->next)
        if (c == conversation) return true;
    return false;
}

ddeconversation *ddefind(window w, window partner, uint32_t closing)
{
    for (ddeconversation *c = dde.first; c; c = c->next)
        if (ddeself(c) == w && ddepartner(c) == partner && (c->flags & DDECLOSING) == closing)
            return c;
    return nullptr;
}

void ddetell(ddeconversation *conversation, int32_t event, const char *text, int32_t length)
{
    if (conversation->callback)
        reporterror(conversation->callback(conversation, conversation->data, event, text, length));
}

static void unlink(ddeconversation *conversation)
{
    ddeconversation *next = conversation->next, *previous = conversation->previous;
    (previous ? previous->next : dde.first) = next;
    if (next) next->previous = previous;
    if (dde.found == conversation) dde.found = nullptr;
}

static int count()
{
    int n = 0;
    for (const ddeconversation *c = dde.first; c; c = c->next)
        n += !(c->flags & DDECLOSING);
    return n;
}

// The callback finds it out of the list, where closing it once more does nothing.
void ddefinish(ddeconversation *conversation)
{
    unlink(conversation);
    trace("ddecount %d", count());
    if (!(conversation->flags & DDECLOSING)) ddetell(conversation, DDEENDED, nullptr, 0);
    void *record = conversation;
    heap_free(&record);
}

// Each end may have others in its train: the walk begins anew.
static void finishall(bool (*fits)(const ddeconversation *, window), window w)
{
    for (ddeconversation *c = dde.first; c;) {
        if (!fits(c, w)) {
            c = c->next;
            continue;
        }
        if (!(c->flags & DDECLOSING)) {
            trace("ddescrap first %x ddec %x", number(ddeself(c)), number(ddepartner(c)));
            ddepost(ddepartner(c), WM_DDE_TERMINATE, ddeself(c), 0);
        }
        ddefinish(c);
        c = dde.first;
    }
}

static bool isofwindow(const ddeconversation *conversation, window w)
{
    return ddeself(conversation) == w;
}

static bool isdead(const ddeconversation *conversation, window)
{
    return !IsWindow(systemwindow(ddepartner(conversation)));
}

static bool isany(const ddeconversation *, window)
{
    return true;
}

void ddewindowgone(window w)
{
    finishall(isofwindow, w);
    if (w == windowof(dde.hidden)) dde.hidden = nullptr;
}

void ddesweep()
{
    finishall(isdead, 0);
}

errorblock *ddeend()
{
    if (!dde.hidden) return nullptr;
    rembroadcasthandler(quit, BROADCASTQUIT);
    finishall(isany, 0);
    HWND hidden = dde.hidden;
    dde.hidden = nullptr;
    dde.callback = nullptr;
    return hidden ? deletewindow(windowof(hidden)) : nullptr;
}

// A partner that is there answers, and until then its word must not be taken for
// one about the next conversation of the same two windows.
errorblock *ddeclose(ddeconversation *conversation)
{
    if (!islisted(conversation) || conversation->flags & DDECLOSING) return nullptr;
    conversation->flags |= DDECLOSING;
    errorblock *err = ddepost(ddepartner(conversation), WM_DDE_TERMINATE, ddeself(conversation), 0)
                          ? nullptr
                          : syserr("PostMessage");
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    ddefinish(conversation);
    return firsterror(kept, nullptr);
}

static void terminate(window w, window partner)
{
    trace("dde term hwnd %x client %x", number(w), number(partner));
    ddeconversation *conversation = ddefind(w, partner, DDECLOSING);
    if (!conversation) { // it isn't the answer to ours
        ddepost(partner, WM_DDE_TERMINATE, w, 0);
        conversation = ddefind(w, partner);
    }
    if (conversation) ddefinish(conversation);
}

// Only what was posted has a parameter that the system has checked and made ours.
static bool wasposted()
{
    return (InSendMessageEx(nullptr) & (ISMEX_SEND | ISMEX_REPLIED)) != ISMEX_SEND;
}

static bool dispatchposted(const systemmessage *message, window partner)
{
    window w = message->window;
    switch (message->message) {
    case WM_DDE_EXECUTE:
        ddeexecute(w, partner, message->lparam);
        return true;
    case WM_DDE_ACK:
        ddeacknowledged(message->lparam);
        return true;
    case WM_DDE_DATA:
    case WM_DDE_POKE:
        trace(message->message == WM_DDE_DATA ? "dde data" : "dde poke");
        ddereceive(static_cast<UINT>(message->message), w, partner, message->lparam);
        return true;
    }
    return false;
}

bool ddemessage(const systemmessage *message, intptr_t *result)
{
    *result = 0;
    if (!dde.hidden) return false;
    auto partner = static_cast<window>(message->wparam);
    ATOM app = LOWORD(message->lparam), topic = HIWORD(message->lparam);
    if (message->message == WM_DDE_INITIATE) {
        ddeinitiate(message->window, partner, app, topic);
        return true;
    }
    if (message->message == WM_DDE_ACK && systemwindow(message->window) == dde.opening) {
        ddeanswered(message->window, partner, app, topic);
        return true;
    }
    if (message->message == WM_DDE_TERMINATE) {
        terminate(message->window, partner);
        return true;
    }
    if (message->message == WM_DDE_REQUEST) trace("dde req"); // there is nothing to be had
    return wasposted() && dispatchposted(message, partner);
}

#include "desktop/poll.h"

#include "base/boxes.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/timed.h"

static struct {
    int32_t nesting;
    bool haskey; // the key press being dispatched was offered already
} polling;

// The types whose handlers are given their data and nothing else.
static void callall(int32_t type)
{
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (nextblock(&iter, type, BLOCKANY, BLOCKANY, &b))
        reporterror(reinterpret_cast<pollfunction>(b.function)(b.data));
    blockiter_end(&iter);
}

void pollonce()
{
    bool wait = nullcount() == 0;
    polling.nesting--;
    callall(EVENTPREPOLL);
    systemmessage message;
    sourcefetched fetched = sourcefetch(wait, &message);
    polling.nesting++;
    callall(EVENTPOSTPOLL);

    switch (fetched) {
    case SOURCEMESSAGE:
        deliver(&message, polltarget(message.window));
        break;
    case SOURCENOTHING:
        tickcount();
        callall(EVENTNULL);
        break;
    case SOURCEQUIT:
        broadcast(BROADCASTQUIT);
        leave(0);
    case SOURCEFAILED: // nothing was fetched; the caller polls again
        break;
    }
}

void postquit(int status)
{
    sourcequit(status);
}

window polltarget(window w)
{
    while (w && !sourceisours(w))
        w = sourceparent(w);
    return w;
}

// A key press for a window itself, and not for a control in it, goes to the key
// handlers before the navigation can take it.
static bool keyfirst(const systemmessage *message)
{
    return (message->message == SYSTEMKEYDOWN || message->message == SYSTEMSYSKEYDOWN) &&
           sourceisours(message->window);
}

void deliver(const systemmessage *message, window target)
{
    intptr_t result = 0;
    int kind = 0;
    if (runfilters(FILTERPOLL, message, &result, &kind)) return;

    bool key = keyfirst(message);
    if (key) {
        bool claimed = false;
        keydeliver(message, &claimed);
        if (claimed) return;
    }

    // The navigation dispatches what it doesn't use by itself.
    bool outer = polling.haskey; // of a dispatch that this poll is inside of
    polling.haskey = key;
    if (!target || !sourcenavigates(target) || !sourcenavigate(target, message)) {
        sourcetranslate(message);
        sourcedispatch(message);
    }
    polling.haskey = outer;
}

bool pollhaskey()
{
    bool had = polling.haskey;
    polling.haskey = false;
    return had;
}

int32_t pollnesting()
{
    return polling.nesting;
}

void pollenter()
{
    polling.nesting++;
}

void pollleave()
{
    polling.nesting--;
}

void pollreset()
{
    polling = {};
}

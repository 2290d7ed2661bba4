#include "tests/desktop/fake/fakesource.h"

#include "base/errors.h"
#include "base/trace.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/stages.h"
#include "desktop/timed.h"

fakesystem fake;

std::string fakelog()
{
    std::string all;
    for (const std::string &entry : fake.log)
        all += (all.empty() ? "" : ", ") + entry;
    fake.log.clear();
    return all;
}

void fakefillblocks()
{
    intptr_t number = 1 << 20; // of a message that nobody sends
    do
        addmessagehandler(number++, nullptr, 0);
    while (blockcount() % BLOCKCHUNK);
}

errorblock *fakestage(const char *name)
{
    fake.log.push_back(name);
    if (fake.onstage) fake.onstage(name);
    return fake.failstage == name ? fakeerror() : nullptr;
}

errorblock *fakeerror()
{
    return makeerrortext(99, "It failed");
}

uint32_t fakecode(const errorblock *error)
{
    return error ? error->code : 0;
}

void fakeleave(int status)
{
    throw fakeleft{status};
}

int fakeended(const std::function<void()> &call)
{
    try {
        call();
    } catch (const fakeleft &left) {
        return left.status;
    }
    return -1;
}

// A message and its window in the log.
static void note(const char *what, const systemmessage *message, window w)
{
    fake.log.push_back(std::string(what) + " " + std::to_string(message->message) +
                       (w ? " in " + std::to_string(w) : ""));
}

static bool timerfired()
{
    return fake.timer && static_cast<int32_t>(fake.milliseconds - fake.timerdue) >= 0;
}

// A wait that would never end fails, and the log tells of it.
sourcefetched sourcefetch(bool wait, systemmessage *message)
{
    fake.log.push_back(wait ? "wait" : "look");
    if (fake.fail) {
        fake.fail = false;
        return SOURCEFAILED;
    }
    if (!fake.queue.empty()) {
        *message = fake.queue.front();
        fake.queue.pop_front();
        return message->message == FAKEQUIT ? SOURCEQUIT : SOURCEMESSAGE;
    }
    if (wait && fake.timer && !timerfired()) fake.milliseconds = fake.timerdue;
    if (timerfired()) {
        *message = {0, FAKETIMER, fake.timer, 0};
        return SOURCEMESSAGE;
    }
    if (!wait) return SOURCENOTHING;
    fake.log.push_back("for ever");
    return SOURCEFAILED;
}

void sourcequit(int status)
{
    fake.queue.push_back({0, FAKEQUIT, status, 0});
}

void sourcesetwide(bool) {}

bool sourceisours(window w)
{
    return fake.ours.count(w) != 0;
}

bool sourcenavigates(window w)
{
    return fake.navigates.count(w) != 0;
}

window sourceparent(window w)
{
    return fake.parents.count(w) ? fake.parents[w] : 0;
}

bool sourcenavigate(window target, const systemmessage *message)
{
    note("navigate", message, target);
    return fake.navigated.count(message->message) != 0;
}

void sourcetranslate(const systemmessage *message)
{
    if (message->message != FAKETIMER) note("translate", message, 0);
}

// As in the system, a timer goes on until it is ended, and is called wherever
// messages are dispatched.
void sourcedispatch(const systemmessage *message)
{
    if (message->message == FAKETIMER) {
        if (message->wparam != fake.timer) return;
        fake.timerdue = fake.milliseconds + fake.interval;
        timedrun(true);
        return;
    }
    note("dispatch", message, 0);
    if (fake.ondispatch) fake.ondispatch(*message);
}

intptr_t sourcetimerstart(uint32_t milliseconds)
{
    if (fake.notimer) return 0;
    fake.interval = milliseconds;
    fake.timerdue = fake.milliseconds + milliseconds;
    return fake.timer = ++fake.timers;
}

void sourcetimerend(intptr_t timer)
{
    if (timer == fake.timer) fake.timer = 0;
}

uint32_t sourceticks()
{
    return fake.milliseconds;
}

errorblock *sourcehook(bool on)
{
    if (on && fake.nohook) return fakeerror();
    fake.hooks += on ? 1 : -1;
    return nullptr;
}

// A control's handle and procedure follow from its window and number.
window sourcecontrol(window w, int32_t icon)
{
    return w * 100 + icon;
}

intptr_t sourcesubclass(window control)
{
    return fake.replaced[control] = control * 10;
}

void sourceunsubclass(window control, intptr_t procedure)
{
    if (fake.replaced.count(control) && fake.replaced[control] == procedure)
        fake.replaced.erase(control);
}

uint32_t sourceprocess()
{
    return 4711;
}

void keydeliver(const systemmessage *message, bool *claimed)
{
    note("keys", message, message->window);
    *claimed = fake.claimed.count(message->wparam) != 0;
}

// The stages of a start-up that have windows behind them in the program.
#define STAGE(name)                                                                                \
    errorblock *name()                                                                             \
    {                                                                                              \
        return fakestage(#name);                                                                   \
    }

STAGE(modeinfoinit)
STAGE(inittemp)
STAGE(initsprites)
STAGE(tasktemplates)

errorblock *hourglassinit()
{
    trace("##### hourglass init #####");
    return fakestage("hourglassinit");
}

errorblock *addspritesshared(const char *, const char *name)
{
    fake.log.push_back(name);
    return fakestage("addspritesshared");
}

void modeinfoend()
{
    fake.log.push_back("modeinfoend");
}

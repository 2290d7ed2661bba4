#include "tests/desktop/fake/fakesource.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/handlers.h"
#include "desktop/poll.h"
#include "desktop/timed.h"

fakesystem fake;

void fakereset()
{
    fake = {};
}

void fakepost(intptr_t message, window w, intptr_t wparam)
{
    fake.queue.push_back({w, message, wparam, 0});
}

void fakewait(uint32_t milliseconds)
{
    fake.milliseconds += milliseconds;
}

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

int fakeended(void (*call)())
{
    try {
        call();
    } catch (const fakeleft &left) {
        return left.status;
    }
    return -1;
}

static void note(const char *what, const systemmessage *message)
{
    fake.log.push_back(std::string(what) + " " + std::to_string(message->message));
}

static bool timerfired()
{
    return fake.timer && static_cast<int32_t>(fake.milliseconds - fake.timerdue) >= 0;
}

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
    fake.starved = true;
    return SOURCEFAILED;
}

void sourcequit(int status)
{
    fakepost(FAKEQUIT, 0, status);
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
    auto found = fake.parents.find(w);
    return found == fake.parents.end() ? 0 : found->second;
}

bool sourcenavigate(window target, const systemmessage *message)
{
    fake.log.push_back("navigate " + std::to_string(message->message) + " in " +
                       std::to_string(target));
    return fake.navigated.count(message->message) != 0;
}

void sourcetranslate(const systemmessage *message)
{
    note("translate", message);
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
    note("dispatch", message);
    if (fake.ondispatch) fake.ondispatch(*message);
}

intptr_t sourcetimerstart(uint32_t milliseconds)
{
    if (fake.notimer) return 0;
    fake.interval = milliseconds;
    fake.timerdue = fake.milliseconds + milliseconds;
    fake.timer = ++fake.timers;
    return fake.timer;
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
    fake.replaced[control] = control * 10;
    return control * 10;
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
    fake.log.push_back("keys " + std::to_string(message->message) + " of " +
                       std::to_string(message->window));
    *claimed = fake.claimed.count(message->wparam) != 0;
}

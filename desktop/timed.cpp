#include "desktop/timed.h"

#include "base/boxes.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"

#include <algorithm>

static struct {
    int32_t count;         // timed calls that wait
    intptr_t timer;        // the system's timer, 0 when none runs
    uint64_t milliseconds; // of the system's clock, its wraps counted
    uint32_t tick;         // centiseconds, as last given
} timing;

// The system's milliseconds wrap after 49 days, in the middle of the range that
// a tenth of them covers. Summed up in more bits they give centiseconds that
// wrap at 32 bits, as tickdiff needs.
uint32_t tickcount()
{
    timing.milliseconds += sourceticks() - static_cast<uint32_t>(timing.milliseconds);
    timing.tick = static_cast<uint32_t>(timing.milliseconds / 10);
    return timing.tick;
}

uint32_t ticklast()
{
    return timing.tick;
}

int32_t tickdiff(uint32_t a, uint32_t b)
{
    return static_cast<int32_t>(a - b);
}

int32_t timedcount()
{
    return timing.count;
}

static uint32_t dueof(const block &call)
{
    return static_cast<uint32_t>(call.data);
}

static void timedremove(const block &call)
{
    bool removed;
    remblock(call.type, call.subtype, call.window, call.data, call.function, &removed);
    if (removed) timing.count--;
}

errorblock *addtimedcall(timedfunction function, intptr_t data, int32_t delay)
{
    errorblock *err = nullptr;
    bool added = false;
    uint32_t when = tickcount() + static_cast<uint32_t>(delay);
    auto due = static_cast<intptr_t>(when);
    int32_t waiting = findblock(EVENTTIMED, 0, data, BLOCKANY, anyfunction(function));
    if (waiting != -1)
        blocksetdata(waiting, due);
    else
        err = addblock(EVENTTIMED, 0, data, due, anyfunction(function), &added);
    if (added) timing.count++;
    timedrun(false);
    return err;
}

errorblock *remtimedcall(timedfunction function, intptr_t data)
{
    int32_t waiting = findblock(EVENTTIMED, 0, data, BLOCKANY, anyfunction(function));
    block missed = {EVENTTIMED, 0, data, 0, anyfunction(function)};
    timedremove(waiting != -1 ? blockat(waiting) : missed);
    timedrun(false);
    return nullptr;
}

// What is called may add and remove timed calls, and may poll, so that a timer
// of its own makes others meanwhile.
static void firedue(uint32_t now)
{
    blockiter iter;
    block call;
    blockiter_start(&iter);
    while (nextblock(&iter, EVENTTIMED, BLOCKANY, BLOCKANY, &call)) {
        if (tickdiff(dueof(call), now) > 0) continue;
        timedremove(call);
        auto function = reinterpret_cast<timedfunction>(call.function);
        reporterror(function(call.window));
    }
    blockiter_end(&iter);
}

// How long the earliest call has to wait, in centiseconds; there is one.
static int32_t nextwait(uint32_t now)
{
    int32_t wait = INT32_MAX;
    blockiter iter;
    block call;
    blockiter_start(&iter);
    while (nextblock(&iter, EVENTTIMED, BLOCKANY, BLOCKANY, &call))
        wait = std::min(wait, tickdiff(dueof(call), now));
    blockiter_end(&iter);
    return wait;
}

// The clock is read again behind the calls, which may have taken minutes and
// set other times. A call that is due by now waits for the timer too.
void timedrun(bool fire)
{
    if (fire) firedue(tickcount());

    if (timing.timer) sourcetimerend(timing.timer);
    timing.timer = 0;
    uint32_t now = tickcount();
    if (timing.count == 0) return;
    int32_t wait = std::min(nextwait(now), INT32_MAX / 10);
    timing.timer = sourcetimerstart(wait > 0 ? static_cast<uint32_t>(wait) * 10 : 1);
}

void timedreset()
{
    if (timing.timer) sourcetimerend(timing.timer);
    timing = {};
}

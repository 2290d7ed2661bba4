#include "desktop/filters.h"

#include "base/boxes.h"
#include "desktop/blocks.h"

// Types of block by phase, the narrowest first.
static constexpr int32_t types[2][3] = {
    {EVENTPOLLFILTER, EVENTPOLLFILTERWINDOW, EVENTPOLLFILTERALL},
    {EVENTFILTER, EVENTFILTERWINDOW, EVENTFILTERALL},
};

// The block of a filter. Fields that its type doesn't look at are 0.
static block filterblock(filterphase phase, filterfunction function, intptr_t message, window owner,
                         intptr_t data)
{
    if (message != BLOCKANY) return {types[phase][0], message, owner, data, anyfunction(function)};
    // Nothing registers for all the messages of a window in the poll.
    if (owner != BLOCKANY && phase == FILTERWINDOW)
        return {types[phase][1], 0, owner, data, anyfunction(function)};
    return {types[phase][2], 0, 0, data, anyfunction(function)};
}

static errorblock *add(const block &b)
{
    return addblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
}

static errorblock *rem(const block &b)
{
    return remblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
}

errorblock *addfilter(filterfunction function, intptr_t message, window owner, intptr_t data)
{
    return add(filterblock(FILTERWINDOW, function, message, owner, data));
}

errorblock *remfilter(filterfunction function, intptr_t message, window owner, intptr_t data)
{
    return rem(filterblock(FILTERWINDOW, function, message, owner, data));
}

errorblock *addpollfilter(filterfunction function, intptr_t message, window owner, intptr_t data)
{
    return add(filterblock(FILTERPOLL, function, message, owner, data));
}

errorblock *rempollfilter(filterfunction function, intptr_t message, window owner, intptr_t data)
{
    return rem(filterblock(FILTERPOLL, function, message, owner, data));
}

bool runfilters(filterphase phase, const systemmessage *message, intptr_t *result, int *kind)
{
    const struct {
        intptr_t message, owner;
    } wanted[3] = {
        {message->message, message->window}, {BLOCKANY, message->window}, {BLOCKANY, BLOCKANY}};

    bool stopped = false;
    blockiter iter;
    block b;
    blockiter_start(&iter);
    for (int i = 0; i < 3; i++) {
        blockiter_rewind(&iter);
        while (nextblock(&iter, types[phase][i], wanted[i].message, wanted[i].owner, &b)) {
            if (!b.function) continue;
            bool stop = false;
            auto filter = reinterpret_cast<filterfunction>(b.function);
            reporterror(filter(message, b.data, &stop, result, kind));
            if (stop) stopped = true;
        }
    }
    blockiter_end(&iter);
    return stopped;
}

#include "app/longwork.h"

#include "app/buttons.h"
#include "base/boxes.h"
#include "base/platform.h"
#include "desktop/handlers.h"
#include "desktop/hourglass.h"
#include "desktop/poll.h"
#include "desktop/timed.h"
#include "find/findwindow.h"
#include "find/solve.h"
#include "grid/gridwindow.h"

namespace
{

constexpr int32_t SOON = 10;      // centiseconds
constexpr uint32_t PATIENCE = 50; // milliseconds that a user waits for a poll
constexpr uint32_t UNNOTICED = 5; // milliseconds
constexpr int32_t POLLSDUE = 16;  // messages delivered when he has

struct waitrecord {
    afterfunction function; // 0 for none
    intptr_t data;
};

struct {
    errorblock *(*pending)(intptr_t); // the search that waits to begin, 0 for none
    int32_t running;                  // searches under way: one, or none
    uint32_t polled;                  // when the last poll ended, by platformticks
    waitrecord waiting;               // for the search's end
} work;

errorblock *searchstart(intptr_t data)
{
    auto worker = work.pending;
    work.pending = nullptr;
    return worker ? worker(data) : nullptr;
}

errorblock *waitover(intptr_t)
{
    if (work.running) return addtimedcall(waitover, 0, SOON);
    waitrecord due = work.waiting;
    work.waiting = {};
    return due.function ? due.function(due.data) : nullptr;
}

// It keeps the poll from waiting for a message.
errorblock *nothing(intptr_t)
{
    return nullptr;
}

void searchdrop()
{
    if (!work.pending) return;
    work.pending = nullptr;
    remtimedcall(searchstart, 0);
}

} // namespace

errorblock *aftersearch(afterfunction function, intptr_t data)
{
    searchdrop();
    if (!work.running) return function(data);
    stoprequest();
    work.waiting = {function, data};
    return addtimedcall(waitover, 0, SOON);
}

// One search at a time: a second start takes the place of one that hasn't begun,
// whose slots it has built anew.
errorblock *searchlater(errorblock *(*worker)(intptr_t))
{
    errorblock *err = addtimedcall(searchstart, 0, SOON);
    if (!err) work.pending = worker;
    return err;
}

void searchbegin()
{
    work.running++;
    reporterror(swapbuttons(1));
    reporterror(addnullhandler(nothing, 0));
    work.polled = platformticks() - UNNOTICED; // the first poll is none too many
}

void searchend()
{
    remnullhandler(nothing, 0);
    reporterror(swapbuttons(0));
    work.running--;
}

bool searchunderway()
{
    return work.running > 0;
}

// A look into the queue of messages takes longer than many a step between two polls:
// polls that come sooner than anyone could notice are left out.
//
// A poll delivers one message. When the user has waited, what he has done since
// may be several, so that Stop stands behind them.
void searchpoll()
{
    if (platformticks() - work.polled < UNNOTICED) return;
    progresscatchup();
    int32_t polls = searchpolldue() ? POLLSDUE : 1;
    for (int32_t i = 0; i < polls && !search.stopflag; i++)
        pollonce();
    work.polled = platformticks();
}

bool searchpolldue()
{
    return platformticks() - work.polled >= PATIENCE;
}

void searchbusy(bool on)
{
    if (on)
        hourglasson();
    else
        hourglassoff();
}

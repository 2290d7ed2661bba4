// Long work that can be stopped. There is one thread: the work polls, and
// everything else goes on inside that.
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/poll.h"
#include "desktop/templates.h"
#include "desktop/timed.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

namespace
{

constexpr int32_t CLOSE = 2, START = 3, STOP = 4, COUNTED = 10;
constexpr int32_t SOON = 10; // centiseconds

struct {
    window self;
    bool waiting, running, stop;
    int32_t count;
} work;

// While this is there the poll doesn't wait for a message.
errorblock *idle(intptr_t)
{
    return nullptr;
}

errorblock *buttonsshade()
{
    errorblock *err = seticonshaded(work.self, START, work.running);
    return err ? err : seticonshaded(work.self, STOP, !work.running);
}

// After each poll the window may be gone: the end of it stops the work.
errorblock *loop()
{
    constexpr int32_t ENOUGH = 100000000, STEP = 500;
    errorblock *err = nullptr;
    for (work.count = 0; work.count < ENOUGH && !work.stop && !err; work.count++) {
        if (work.count % STEP) continue;
        err = seticontextf(work.self, COUNTED, "%d", static_cast<int>(work.count));
        pollonce();
    }
    return err;
}

errorblock *run(intptr_t)
{
    work.waiting = work.stop = false;
    work.running = true;
    errorblock *err = buttonsshade();
    if (!err) err = addnullhandler(idle, 0);
    hourglasson();
    if (!err) err = loop();
    kepterror kept = keeperror(err);
    hourglassoff();
    remnullhandler(idle, 0);
    work.running = false;
    logline("Counted to %d", static_cast<int>(work.count));
    return firsterror(kept, work.self ? buttonsshade() : nullptr);
}

// The work doesn't start inside the click, which would last as long.
errorblock *start()
{
    errorblock *err = addtimedcall(run, 0, SOON);
    if (!err) work.waiting = true;
    return err;
}

errorblock *click(window, intptr_t, mouserecord *mouse)
{
    if (mouse->icon == START) return start();
    if (mouse->icon == STOP) work.stop = true;
    if (mouse->icon == CLOSE) workend();
    return nullptr;
}

errorblock *key(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    workend();
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    workend();
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    return err;
}

void handlersremove(window w)
{
    remclosehandler(closed, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
}

} // namespace

errorblock *workopen()
{
    if (work.self) return raisewindow(work.self, 0, nullptr);
    errorblock *err = createchild(TEMPLATEWORK, &work.self, demowindow);
    if (!err) err = handlersadd(work.self);
    if (!err) err = buttonsshade();
    if (!err) err = opencentred(work.self, 8);
    if (!err) err = focuswindow(work.self);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    workend();
    return firsterror(kept, nullptr);
}

void workend()
{
    if (!work.self) return;
    work.stop = true;
    if (work.waiting) remtimedcall(run, 0);
    work.waiting = false;
    handlersremove(work.self);
    removewindow(&work.self);
}

#include "desktop/task.h"

#include "base/boxes.h"
#include "base/dates.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "base/trace.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/message.h"
#include "desktop/poll.h"
#include "desktop/stages.h"

intptr_t taskinstance;
int taskshow;
const char *taskleaf;

static struct {
    const char *icon;
    int running;
    uint32_t process;
    bool (*stays)();
} task;

// The trace shows an error as the word that it is.
static unsigned word(const errorblock *error)
{
    return static_cast<unsigned>(reinterpret_cast<uintptr_t>(error));
}

// What the messages need to be there: memory, errors, window classes.
static errorblock *startfoundation()
{
    errorblock *err = modeinfoinit();
    if (!err) task.process = sourceprocess();
    trace("start task err=%x", word(err));
    if (!err) err = flex_init2();
    trace("flex_init2 err=%x", word(err));
    if (!err) err = initerror();
    trace("initerror err=%x", word(err));
    if (!err) err = inittemp();
    trace("inittemp err=%x", word(err));
    if (!err) err = initsprites();
    if (!err) err = inittrans();
    trace("inittrans err=%x", word(err));
    return err;
}

static errorblock *startlibrary(errorblock *err)
{
    if (!err) err = initalloc();
    trace("initalloc err=%x", word(err));
    if (!err) err = blockstart();
    setdateformats(nullptr, nullptr); // whatever happened: texts of times can't do without
    if (!err) err = hourglassinit();
    if (!err) err = taskerrors();
    trace("taskerrors err=%x", word(err));
    return err;
}

static errorblock *startresources(errorblock *err, const char *directory)
{
    if (!err) err = addspritesshared(directory, "Sprites.spr");
    trace("addsprites err=%x", word(err));
    if (!err) err = sendmessage(TASKSPRITES, 0, 0);
    if (!err) err = sendmessage(TASKSPRITES2, 0, 0);
    if (!err) err = addtrans(directory, "Messages.txt");
    trace("add messages err=%x", word(err));
    if (!err) err = sendmessage(TASKTEXTS, 0, 0);
    if (!err) err = tasktemplates();
    trace("end inittask err=%x", word(err));
    return err;
}

errorblock *starttask(const char *name, const char *title, const char *iconname,
                      const char *directory, int, errorblock *(*inithook)(int32_t))
{
    settaskname(name, title);
    task.icon = iconname;
    errorblock *err = startfoundation();
    if (!err && inithook) err = inithook(0);
    err = startlibrary(err);
    return startresources(err, directory);
}

void runtask()
{
    task.running = 1;
    sendmessage(TASKRUN, 0, 0);
    for (;;)
        pollonce();
}

void setendquery(bool (*stays)())
{
    task.stays = stays;
}

bool taskstays()
{
    return task.stays && task.stays();
}

const char *taskicon()
{
    return task.icon;
}

bool taskrunning()
{
    return task.running;
}

uint32_t taskprocess()
{
    return task.process;
}

void taskreset()
{
    task = {};
}

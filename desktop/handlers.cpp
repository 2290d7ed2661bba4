#include "desktop/handlers.h"

#include "base/boxes.h"
#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"

// Kinds of handler that are counted.
static struct {
    int32_t null;
    int32_t hook;
} counts;

// What adding and removing share is written once, so that they can't drift
// apart; f, the handler, is last in every block.
#define TWINS(name, parameters, ...)                                                               \
    errorblock *add##name##handler parameters                                                      \
    {                                                                                              \
        return addblock(__VA_ARGS__, anyfunction(f), nullptr);                                     \
    }                                                                                              \
    errorblock *rem##name##handler parameters                                                      \
    {                                                                                              \
        return remblock(__VA_ARGS__, anyfunction(f), nullptr);                                     \
    }

#define OFWINDOW(name, function, type)                                                             \
    TWINS(name, (function f, window owner, intptr_t data), type, 0, owner, data)

#define OFDROP(name, function, type)                                                               \
    TWINS(name, (window owner, intptr_t data, function f), type, 0, owner, data)

OFWINDOW(redraw, redrawfunction, EVENTREDRAW)
OFWINDOW(open, openfunction, EVENTOPEN)
OFWINDOW(close, closefunction, EVENTCLOSE)
OFWINDOW(click, clickfunction, EVENTCLICK)
OFWINDOW(key, keyfunction, EVENTKEY)
OFWINDOW(focus, focusfunction, EVENTFOCUS)
OFWINDOW(mouse, mousefunction, EVENTMOUSE)
OFWINDOW(activate, activatefunction, EVENTACTIVATE)
OFWINDOW(pointer, pointerfunction, EVENTPOINTER)
OFWINDOW(textchange, textchangefunction, EVENTTEXTCHANGE)
OFWINDOW(textfocus, textfocusfunction, EVENTTEXTFOCUS)
OFWINDOW(parentdeleted, parentfunction, EVENTPARENTDELETED)
OFWINDOW(parentclosed, parentfunction, EVENTPARENTCLOSED)
OFWINDOW(wheel, wheelfunction, EVENTWHEEL)
OFWINDOW(appcommand, appcommandfunction, EVENTAPPCOMMAND)
OFWINDOW(help, helpfunction, EVENTHELP)

OFDROP(drop, dropfunction, EVENTDROP)
OFDROP(dropload, droploadfunction, EVENTDROPLOAD)
OFDROP(dropdone, dropdonefunction, EVENTDROPDONE)
OFDROP(dropextra, dropfunction, EVENTDROPEXTRA)

TWINS(load, (int32_t filetype, loadfunction f), EVENTLOAD, 0, filetype, 0)
TWINS(loaded, (int32_t filetype, loadedfunction f), EVENTLOADED, 0, filetype, 0)
TWINS(message, (intptr_t number, messagefunction f, intptr_t data), EVENTMESSAGE, number, 0, data)
TWINS(broadcast, (broadcastfunction f, intptr_t number), EVENTBROADCAST, number, 0, 0)
TWINS(prepoll, (pollfunction f, intptr_t data), EVENTPREPOLL, 0, 0, data)
TWINS(postpoll, (pollfunction f, intptr_t data), EVENTPOSTPOLL, 0, 0, data)

errorblock *addnullhandler(nullfunction function, intptr_t data)
{
    bool added;
    errorblock *err = addblock(EVENTNULL, 0, 0, data, anyfunction(function), &added);
    if (added) counts.null++;
    return err;
}

errorblock *remnullhandler(nullfunction function, intptr_t data)
{
    bool removed;
    errorblock *err = remblock(EVENTNULL, 0, 0, data, anyfunction(function), &removed);
    if (removed) counts.null--;
    return err;
}

int32_t nullcount()
{
    return counts.null;
}

errorblock *addhookhandler(hookfunction function, window owner, intptr_t data)
{
    bool added;
    errorblock *err = addblock(EVENTHOOK, 0, owner, data, anyfunction(function), &added);
    if (!added) return err;
    if (counts.hook == 0) err = sourcehook(true);
    if (err)
        remblock(EVENTHOOK, 0, owner, data, anyfunction(function), nullptr);
    else
        counts.hook++;
    return err;
}

errorblock *remhookhandler(hookfunction function, window owner, intptr_t data)
{
    bool removed;
    errorblock *err = remblock(EVENTHOOK, 0, owner, data, anyfunction(function), &removed);
    if (removed && --counts.hook == 0) err = sourcehook(false);
    return err;
}

bool hookdeliver(window hooked, intptr_t parameter, intptr_t message)
{
    bool claimed = false;
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (nextblock(&iter, EVENTHOOK, BLOCKANY, BLOCKANY, &b)) {
        bool mine = false;
        auto function = reinterpret_cast<hookfunction>(b.function);
        reporterror(function(b.window, b.data, hooked, parameter, message, &mine));
        if (mine) claimed = true;
    }
    blockiter_end(&iter);
    return claimed;
}

void handlersreset()
{
    counts = {};
}

#include "desktop/subclass.h"

#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/poll.h"

// The block of the control that was registered first, or -1.
static int32_t firstof(window control)
{
    return findblock(EVENTSUBCLASS, BLOCKANY, control, BLOCKANY, nullptr);
}

errorblock *addsubclasshandler(window owner, int32_t icon, intptr_t data, subclassfunction function)
{
    window control = sourcecontrol(owner, icon);
    int32_t first = firstof(control);
    intptr_t old = first != -1 ? blockat(first).subtype : sourcesubclass(control);
    errorblock *err = addblock(EVENTSUBCLASS, old, control, data, anyfunction(function), nullptr);
    if (err && first == -1) sourceunsubclass(control, old);
    return err;
}

errorblock *remsubclasshandler(window owner, int32_t icon, intptr_t data, subclassfunction function)
{
    window control = sourcecontrol(owner, icon);
    int32_t first = firstof(control);
    intptr_t old = first != -1 ? blockat(first).subtype : 0;
    remblock(EVENTSUBCLASS, old, control, data, anyfunction(function), nullptr);
    if (first != -1 && firstof(control) == -1) sourceunsubclass(control, old);
    return nullptr;
}

bool subclassdeliver(const systemmessage *message, intptr_t *result, intptr_t *procedure)
{
    int32_t first = firstof(message->window);
    *procedure = first != -1 ? blockat(first).subtype : 0;

    bool stop = false;
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (!stop && nextblock(&iter, EVENTSUBCLASS, BLOCKANY, message->window, &b))
        reinterpret_cast<subclassfunction>(b.function)(message, b.data, &stop, result);
    blockiter_end(&iter);
    return stop;
}

errorblock *subclasskeys(const systemmessage *message, intptr_t, bool *stop, intptr_t *)
{
    bool key = message->message == SYSTEMKEYDOWN || message->message == SYSTEMSYSKEYDOWN ||
               message->message == SYSTEMCHAR;
    systemmessage forwarded = *message;
    forwarded.window = polltarget(message->window);
    bool claimed = false;
    if (key && forwarded.window) keydeliver(&forwarded, &claimed);
    if (claimed) *stop = true;
    return nullptr;
}

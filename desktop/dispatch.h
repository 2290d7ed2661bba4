// desktop/dispatch.h - delivering an event to the handlers of a window. Inside
// the library; what each handler is given is in events.h.
//
// Whoever delivers passes a call that takes a copy of the block, since the table
// may change while the handler runs. An error of a handler is shown, and ends
// nothing.
#pragma once

#include "base/boxes.h"
#include "desktop/blocks.h"

// The handler of a block as its own kind of function.
template<typename handler> handler handlerof(const block &b)
{
    return reinterpret_cast<handler>(b.function);
}

// To every block of the type, in the order of registration. False if there was
// none with a handler.
bool dispatchall(int32_t type, window owner, auto call)
{
    bool any = false;
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (nextblock(&iter, type, BLOCKANY, owner, &b)) {
        if (!b.function) continue;
        any = true;
        reporterror(call(b));
    }
    blockiter_end(&iter);
    return any;
}

// To the first block of the type alone, and true if there is one with a handler.
// failed tells of its error.
bool dispatchfirst(int32_t type, window owner, auto call, bool *failed = nullptr)
{
    int32_t index = findblock(type, BLOCKANY, owner, BLOCKANY, nullptr);
    if (index < 0) return false;
    block b = blockat(index);
    if (!b.function) return false;
    errorblock *err = call(b);
    if (failed) *failed = err != nullptr;
    reporterror(err);
    return true;
}

// desktop/subclass.h - handlers of controls that are not the library's own.
//
// The first handler of a control exchanges its window procedure for one that
// asks the handlers, in order, until one stops the message; what none has
// stopped goes to the control's own. The last one's removal puts that back.
#pragma once

#include "desktop/events.h"

errorblock *addsubclasshandler(window owner, int32_t icon, intptr_t data,
                               subclassfunction function);
errorblock *remsubclasshandler(window owner, int32_t icon, intptr_t data,
                               subclassfunction function);

// Asked by the exchanged procedure: true when a handler has stopped the message,
// with its result; else procedure is the control's own, or 0 if it is subclassed
// no more.
bool subclassdeliver(const systemmessage *message, intptr_t *result, intptr_t *procedure);

// A handler that is ready: offers key presses and characters of the control to
// the key handlers of the library's window around it, and stops what they claim.
errorblock *subclasskeys(const systemmessage *message, intptr_t data, bool *stop, intptr_t *result);

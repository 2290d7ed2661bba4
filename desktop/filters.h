// desktop/filters.h - seeing the system's messages before the library does.
//
// A filter looks at every message, at those of one window, or at one message of
// one window. Two phases: in the poll, where only messages that were queued
// pass, and in the window procedure, where all of them do. Of each phase the
// narrowest filters run first; all of them run, even when one has stopped the
// message.
#pragma once

#include "desktop/events.h"

enum filterphase { FILTERPOLL, FILTERWINDOW };

// A filter of the window procedure: message -1 is any message, and then owner
// -1 is any window. A function of 0 makes a block that only carries data.
errorblock *addfilter(filterfunction function, intptr_t message, window owner, intptr_t data);
errorblock *remfilter(filterfunction function, intptr_t message, window owner, intptr_t data);

// A filter of the poll: one message of one window, or, with message -1, any
// message of any window.
errorblock *addpollfilter(filterfunction function, intptr_t message, window owner, intptr_t data);
errorblock *rempollfilter(filterfunction function, intptr_t message, window owner, intptr_t data);

// Shows the message to the filters. True when one of them has stopped it; the
// result and its kind are what the last one to write them wrote.
bool runfilters(filterphase phase, const systemmessage *message, intptr_t *result, int *kind);

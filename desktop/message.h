// desktop/message.h - messages and broadcasts inside the task.
//
// A message asks a chain of handlers, until one fails; the stages of the task's
// life (task.h) are messages. A broadcast tells everyone.
#pragma once

#include "desktop/events.h"

// Calls the message handlers of that number. Gives the first error.
errorblock *sendmessage(intptr_t number, intptr_t first, intptr_t second);

// Calls the broadcast handlers of the record's number, word BROADCASTNUMBER; each
// shows its own errors. 1, or 0 if one of them has claimed it.
bool broadcastrecord(intptr_t *record);

// The same with a record of which only the number has a meaning.
bool broadcast(intptr_t number);

// desktop/poll.h - the event poll: fetches one message and delivers it.
//
// It is the program's main loop, and long work calls it from inside its own
// loops. Handlers nest to any depth: after a call nothing read before it is
// trusted, be it a block, a window or the document.
//
// Whether it waits depends on one thing, the number of null handlers. Without
// one it sleeps until a message comes; long work that wants to look up now and
// then holds one that does nothing.
#pragma once

#include "desktop/events.h"

// Fetches and delivers one message, or without one calls the null handlers.
// Ends the process with status 0 when the quit notice comes, after the broadcast
// of it.
void pollonce();

// Puts the quit notice in the stream. Returns.
void postquit(int status);

// Filters, key handlers, navigation between controls, window procedure: the road
// of a message that was fetched. target is what polltarget gives for its window.
void deliver(const systemmessage *message, window target);

// The library's window that a message's window is, or stands in; 0 for none.
window polltarget(window w);

// Asked by the window procedure: whether the key press that it is handed was
// offered to the key handlers by the poll. Says so once.
bool pollhaskey();

// How deep the task is in events: up with each message fetched and each entry
// to the window procedure, down with each wait and each exit.
int32_t pollnesting();
void pollenter();
void pollleave();

// As it is at start-up.
void pollreset();

// Asked of the window messages (win32/keyevents.cpp): offers a key press to the
// key handlers of its window. Sets claimed when one has used it.
void keydeliver(const systemmessage *message, bool *claimed);

// desktop/dde.h - conversations with other programs, by the system's dynamic data
// exchange.
//
// A started task answers to its name: a shell can have it open and print files
// (ddecommand.h), and programs can poke data at it. It can open a conversation
// with another program itself. Until ddestart nothing is answered.
//
//  - A conversation stands between one window of ours and one of the other
//    program. It is ours until its callback is told of its end, or ddeclose.
//  - Callbacks may close any conversation and delete any window.
//  - All that comes from the other program is checked. A partner that has died
//    without a word is noticed when the next conversation begins.
//
// Items and names are at most 255 characters.
#pragma once

#include "desktop/events.h"

#include <cstdint>

struct errorblock;
struct ddeconversation;

enum ddeevents { DDESTARTED = 1, DDEENDED = 2, DDEPOKED = 3, DDEARRIVED = 4 };

// text is what arrived, for the last two events, good for the call; length counts
// its end zero.
using ddefunction = errorblock *(*)(ddeconversation *conversation, intptr_t data, int32_t event,
                                    const char *text, int32_t length);

constexpr uint32_t DDEOURS = 1; // made by ddeopen: the client is our window

// Read by anyone, changed by the calls below alone, but for data and callback.
struct ddeconversation {
    window server, client;
    intptr_t data;
    ddefunction callback; // 0 for none
    ddeconversation *next, *previous;
    uint32_t flags;
};

// The service, with the name that the task answers to. Its window answers, and so
// does any with the flag WINDOWDDE. The end ends all conversations, and comes with
// the broadcast of the program's end at the latest.
errorblock *ddestart(const char *name);
errorblock *ddeend();

// For conversations that others begin: who doesn't set it takes commands alone.
void ddesetcallback(ddefunction callback);

// Begins a conversation between a window of ours and a program by its topic, the
// first that answers. If none does and program isn't 0, that is started, its path's
// macros expanded, and asked again; this can take some seconds. The conversation is
// 0 if there is none, which is no error. The service must be on.
errorblock *ddeopen(window w, const char *topic, const char *app, const char *program,
                    ddefunction callback, intptr_t data, ddeconversation **conversation);

// Ends it without a word to its callback.
errorblock *ddeclose(ddeconversation *conversation);

// Send a copy of the data to the partner: a poke as a client does, data as a server
// does.
errorblock *ddepoke(ddeconversation *conversation, const void *data, int32_t length, int32_t format,
                    const char *item);
errorblock *ddedata(ddeconversation *conversation, const void *data, int32_t length, int32_t format,
                    const char *item);

// desktop/win32/ddeservice.h - what the parts of the conversations share.
#pragma once

#include "desktop/dde.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

// Of a conversation: we have closed it, and the partner's word is still to come.
// Nobody else sees it any more.
constexpr uint32_t DDECLOSING = 2;

constexpr int DDENAMESIZE = 256;         // of the system's names, with the end
constexpr uint32_t DDEPOSITIVE = 0x8000; // in an acknowledge

struct ddeservice {
    HWND hidden; // "osdde"; 0 while the service is off
    char name[DDENAMESIZE];
    ddefunction callback;   // for conversations that others begin
    ddeconversation *first; // all of them

    // While ddeopen asks around: its window, else 0, and the first that answered.
    HWND opening;
    ddeconversation *found;
};
// Changed by dde.cpp, and the last two by ddeclient.cpp.
extern ddeservice dde;

// A name of the system's, "" if it isn't there.
void ddename(ATOM atom, char *name);

// Adds a conversation. Errors: 2.
errorblock *ddenew(window server, window client, uint32_t flags, ddefunction callback,
                   intptr_t data, ddeconversation **made);

// The conversation of our window w with that partner, or the one that we have closed.
ddeconversation *ddefind(window w, window partner, uint32_t closing = 0);

// Our side of a conversation, and the other.
window ddeself(const ddeconversation *conversation);
window ddepartner(const ddeconversation *conversation);

void ddetell(ddeconversation *conversation, int32_t event, const char *text, int32_t length);

// Takes it out of the list, tells of its end unless it is closing, and frees it.
void ddefinish(ddeconversation *conversation);

// Ends those whose partner is no more.
void ddesweep();

// Post a message to one window: what a partner gives as its own may stand for
// none, or for all. The packed form has two words in its parameter; when it can't
// be posted the parameter is freed, not what is in it. False leaves the system's
// error.
bool ddepost(window to, UINT message, window from, LPARAM parameter);
bool ddepostpacked(window to, UINT message, window from, UINT_PTR low, UINT_PTR high);

// The messages.
void ddeinitiate(window w, window client, ATOM app, ATOM topic);
void ddeanswered(window w, window server, ATOM app, ATOM topic);
void ddeexecute(window w, window client, LPARAM packed);
void ddereceive(UINT message, window w, window partner, LPARAM packed);
void ddeacknowledged(LPARAM packed);

// desktop/handlers.h - registering for events.
//
// Each call has its twin, which takes the same arguments and removes what the
// first one added. What a handler is given and when is in events.h.
//
// A window says all that it hears in one table (handlertable.h); these calls are
// for events that are of no window, and for programs on the library alone.
//
// Elsewhere: timed calls (timed.h), filters (filters.h), subclassed controls
// (subclass.h).
//
// Errors of an add: 2 and 20, as addblock. A rem returns 0; one without its add
// leaves a line in the trace.
#pragma once

#include "desktop/events.h"

#include <cstdint>

// Events of a window.
errorblock *addredrawhandler(redrawfunction function, window owner, intptr_t data);
errorblock *remredrawhandler(redrawfunction function, window owner, intptr_t data);
errorblock *addopenhandler(openfunction function, window owner, intptr_t data);
errorblock *remopenhandler(openfunction function, window owner, intptr_t data);
errorblock *addclosehandler(closefunction function, window owner, intptr_t data);
errorblock *remclosehandler(closefunction function, window owner, intptr_t data);
errorblock *addclickhandler(clickfunction function, window owner, intptr_t data);
errorblock *remclickhandler(clickfunction function, window owner, intptr_t data);
errorblock *addkeyhandler(keyfunction function, window owner, intptr_t data);
errorblock *remkeyhandler(keyfunction function, window owner, intptr_t data);
errorblock *addfocushandler(focusfunction function, window owner, intptr_t data);
errorblock *remfocushandler(focusfunction function, window owner, intptr_t data);
errorblock *addmousehandler(mousefunction function, window owner, intptr_t data);
errorblock *remmousehandler(mousefunction function, window owner, intptr_t data);
errorblock *addactivatehandler(activatefunction function, window owner, intptr_t data);
errorblock *remactivatehandler(activatefunction function, window owner, intptr_t data);
errorblock *addpointerhandler(pointerfunction function, window owner, intptr_t data);
errorblock *rempointerhandler(pointerfunction function, window owner, intptr_t data);
errorblock *addtextchangehandler(textchangefunction function, window owner, intptr_t data);
errorblock *remtextchangehandler(textchangefunction function, window owner, intptr_t data);
errorblock *addtextfocushandler(textfocusfunction function, window owner, intptr_t data);
errorblock *remtextfocushandler(textfocusfunction function, window owner, intptr_t data);
errorblock *addparentdeletedhandler(parentfunction function, window owner, intptr_t data);
errorblock *remparentdeletedhandler(parentfunction function, window owner, intptr_t data);
errorblock *addparentclosedhandler(parentfunction function, window owner, intptr_t data);
errorblock *remparentclosedhandler(parentfunction function, window owner, intptr_t data);
errorblock *addwheelhandler(wheelfunction function, window owner, intptr_t data);
errorblock *remwheelhandler(wheelfunction function, window owner, intptr_t data);
errorblock *addappcommandhandler(appcommandfunction function, window owner, intptr_t data);
errorblock *remappcommandhandler(appcommandfunction function, window owner, intptr_t data);

// With a function of 0 the data is the number of a template in the help table.
errorblock *addhelphandler(helpfunction function, window owner, intptr_t data);
errorblock *remhelphandler(helpfunction function, window owner, intptr_t data);

// Files that are dropped on a window.
errorblock *adddrophandler(window owner, intptr_t data, dropfunction function);
errorblock *remdrophandler(window owner, intptr_t data, dropfunction function);
errorblock *adddroploadhandler(window owner, intptr_t data, droploadfunction function);
errorblock *remdroploadhandler(window owner, intptr_t data, droploadfunction function);
errorblock *adddropdonehandler(window owner, intptr_t data, dropdonefunction function);
errorblock *remdropdonehandler(window owner, intptr_t data, dropdonefunction function);
errorblock *adddropextrahandler(window owner, intptr_t data, dropfunction function);
errorblock *remdropextrahandler(window owner, intptr_t data, dropfunction function);

// Files that come from outside (loadrequest.h), and messages (message.h).
errorblock *addloadhandler(int32_t filetype, loadfunction function);
errorblock *remloadhandler(int32_t filetype, loadfunction function);
errorblock *addloadedhandler(int32_t filetype, loadedfunction function);
errorblock *remloadedhandler(int32_t filetype, loadedfunction function);
errorblock *addmessagehandler(intptr_t number, messagefunction function, intptr_t data);
errorblock *remmessagehandler(intptr_t number, messagefunction function, intptr_t data);
errorblock *addbroadcasthandler(broadcastfunction function, intptr_t number);
errorblock *rembroadcasthandler(broadcastfunction function, intptr_t number);

// Around the wait for a message.
errorblock *addprepollhandler(pollfunction function, intptr_t data);
errorblock *remprepollhandler(pollfunction function, intptr_t data);
errorblock *addpostpollhandler(pollfunction function, intptr_t data);
errorblock *rempostpollhandler(pollfunction function, intptr_t data);

// While one of these is there, the poll never waits: long work holds one.
errorblock *addnullhandler(nullfunction function, intptr_t data);
errorblock *remnullhandler(nullfunction function, intptr_t data);
int32_t nullcount();

// The system's mouse hook, which goes in with the first and out with the last;
// its errors are theirs. Asked by the hook: whether a handler has claimed the
// message.
errorblock *addhookhandler(hookfunction function, window owner, intptr_t data);
errorblock *remhookhandler(hookfunction function, window owner, intptr_t data);
bool hookdeliver(window hooked, intptr_t parameter, intptr_t message);

// The counts as they are at start-up.
void handlersreset();

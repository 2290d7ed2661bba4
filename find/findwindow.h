// find/findwindow.h - what the searches ask of the window side.
//
// The desktop program defines the first two in find/solutionsview.cpp,
// progressshow in app/buttons.cpp and the rest in app/longwork.cpp. quill has
// its own in tools/quill/searchseam.cpp, the tests link tools/headlessfind.cpp.
#pragma once

#include <cstdint>

struct errorblock;

// The list changed: scroll home, set the extent, redraw.
void solutionsrefresh();

// solfont or dictfont changed: measures the lists anew, those of words by
// dictmetricsupdate (dict/dictwindow.h). Redraws nothing.
void metricsupdate();

// The count in the Stop pane.
void progressshow(int32_t n);

// Runs the worker from the poll, a tenth of a second from now.
errorblock *searchlater(errorblock *(*worker)(intptr_t));

// Around a search: the Stop pane and a poll that never waits. searchbegin
// clears search.stopflag.
void searchbegin();
void searchend();

// Lets the user in: delivers what is waiting. search.stopflag may be set after.
void searchpoll();

// Whether the user has waited for a twentieth of a second since the last poll.
bool searchpolldue();

// A counted busy cursor.
void searchbusy(bool on);

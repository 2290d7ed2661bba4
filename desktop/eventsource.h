// desktop/eventsource.h - what the event poll asks of the system.
//
// Messages come one by one; a quit notice may stand among them. Each call is
// thin: the poll decides, this fetches and does. They are defined in
// desktop/win32/eventsource.cpp and hooks.cpp, and for tests by a scripted system.
#pragma once

#include "desktop/events.h"

#include <cstdint>

// Numbers of the messages of the keys, and of the mouse's right button.
constexpr intptr_t SYSTEMKEYDOWN = 0x100, SYSTEMSYSKEYDOWN = 0x104, SYSTEMCHAR = 0x102;
constexpr intptr_t SYSTEMRIGHTDOWN = 0x204, SYSTEMRIGHTDOUBLE = 0x206;

enum sourcefetched {
    SOURCENOTHING, // without waiting: there was none
    SOURCEMESSAGE,
    SOURCEQUIT,
    SOURCEFAILED,
};

// The next message, or with wait the wait for it.
sourcefetched sourcefetch(bool wait, systemmessage *message);

// Puts the quit notice in the stream, behind what is there.
void sourcequit(int status);

// Messages are fetched and dispatched with 16-bit characters; off at the start.
void sourcesetwide(bool wide);

// Whether the window has the library's own window procedure, and whether the
// keys that move between controls mean that in it: it has no menu bar, and
// hasn't refused.
bool sourceisours(window w);
bool sourcenavigates(window w);
window sourceparent(window w); // 0 for none

// Gives the message to the navigation between the controls of a window. True
// when it was used.
bool sourcenavigate(window target, const systemmessage *message);
void sourcetranslate(const systemmessage *message); // key presses become characters too
void sourcedispatch(const systemmessage *message);

// The one timer. It calls timedrun(true) again and again until it is ended, from
// whatever loop fetches messages. Its number, or 0 when none can be had.
intptr_t sourcetimerstart(uint32_t milliseconds);
void sourcetimerend(intptr_t timer);

// Milliseconds from some start, wrapping.
uint32_t sourceticks();

// The mouse hook of this thread, which calls hookdeliver.
errorblock *sourcehook(bool on);

// A control of a window, and its window procedure exchanged for one that calls
// subclassdeliver: gives the old one, 0 for a failure. sourceunsubclass puts it
// back.
window sourcecontrol(window w, int32_t icon);
intptr_t sourcesubclass(window control);
void sourceunsubclass(window control, intptr_t procedure);

// The number by which the system knows this process.
uint32_t sourceprocess();

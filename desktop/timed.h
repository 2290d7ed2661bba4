// desktop/timed.h - calls after a delay, once each.
//
// A timed call is a block of type EVENTTIMED. One timer of the system serves
// all of them and is set anew for the earliest. A call is never made from inside the
// one that asks for it, but from the event loop: the poll's, or that of a
// system's box. The function may ask for the same call again.
//
// Times are centiseconds, 32 bits that wrap; they are compared by tickdiff
// alone.
#pragma once

#include "desktop/events.h"

#include <cstdint>

// Calls function(data) in delay centiseconds. A second call with the same
// function and data only changes when. Data of -1 stands for any data in that
// comparison. Errors: as addblock.
errorblock *addtimedcall(timedfunction function, intptr_t data, int32_t delay);

// Takes it back; one that isn't waiting is traced. Always returns 0.
errorblock *remtimedcall(timedfunction function, intptr_t data);

// Makes the calls that are due, if fire is set, and sets the timer for the next.
// MAY POLL: what is called may be long work.
void timedrun(bool fire);

// The time now; the time that it gave last; the signed difference a - b.
uint32_t tickcount();
uint32_t ticklast();
int32_t tickdiff(uint32_t a, uint32_t b);

int32_t timedcount(); // calls that wait

// As it is at start-up, with no timer running.
void timedreset();

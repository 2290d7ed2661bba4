// tests/desktop/fake/fakesource.h - a scripted system under the event poll, with
// a clock that tests turn.
#pragma once

#include "desktop/events.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

constexpr intptr_t FAKEQUIT = 0x12, FAKETIMER = 0x113;

struct fakesystem {
    std::deque<systemmessage> queue;
    uint32_t milliseconds = 1000; // the clock
    bool fail = false;            // the next fetch fails

    intptr_t timer = 0; // running now, 0 for none
    uint32_t interval = 0, timerdue = 0;
    int timers = 0;       // started so far
    bool notimer = false; // none can be had

    std::set<window> ours, navigates;
    std::map<window, window> parents;
    std::set<intptr_t> navigated; // messages that the navigation takes
    std::set<intptr_t> claimed;   // key presses that the key handlers take

    int hooks = 0;                       // 1 while the mouse hook is in
    bool nohook = false;                 // it can't be had
    std::map<window, intptr_t> replaced; // subclassed controls and their own procedures

    std::vector<std::string> log; // what was asked, in order
    std::function<void(const systemmessage &)> ondispatch;

    std::string failstage; // the stage of the start-up that fails
    std::function<void(const std::string &)> onstage;
};

extern fakesystem fake;

// The log in one line, and empty from then on.
std::string fakelog();

// Fills the block table as far as its memory goes: the next block needs more.
void fakefillblocks();

// A stage of the start-up: notes its name and fails if it is to.
errorblock *fakestage(const char *name);

// The error that failing handlers return; and the process's end, which throws.
errorblock *fakeerror();
uint32_t fakecode(const errorblock *error); // 0 for none
struct fakeleft {
    int status;
};
void fakeleave(int status);

// The status that the process ends with in a call, -1 if it goes on.
int fakeended(const std::function<void()> &call);

// tools/headless.h - the window side of a program that has none.
//
// Each call that the logic makes upward is defined in the headless file of the
// folder that makes it, as doing nothing or as counting, for a test that asks.
#pragma once

#include <cstdint>
#include <string>

struct errorblock;

struct headlessstate {
    // Calls made, by name.
    int redraws, cellredraws, extents, titles, resultsdropped, kindsapplied, wordlists;
    int beeps, stops;
    int metrics;
    int refreshes, begins, ends, polls, busy, menubuilds, menudeletes, setchanges, edits;
    int32_t cells[4];       // the last gridcellsredraw
    int32_t shownx, showny; // the last cell that was to be seen
    bool searching;         // what is said of a search
    int editing;            // 1 more than the number of the open dictionary; 0 for none
    int32_t marklength;     // the last length shown; -1 emptied
    int32_t progress;       // the last count shown
    int32_t importend;      // words after which an import is told to end; 0 for never
    int32_t kind;           // the last kind applied
    int32_t windowwidth, windowheight;
    uint32_t boxes;                // boxes shown
    int boxanswer;                 // what the next box is answered with
    std::string boxtext, boxtitle; // of the last box
    uint32_t boxflags;
    bool keeptrace; // tests that read the trace
    std::string tracetext;
    errorblock *(*worker)(intptr_t); // what searchlater was given
    void (*onpoll)();                // called by each searchpoll
};

extern headlessstate headless;

void headlessreset();

// Whether the grid's cells were all drawn since they last changed, cursor and
// all. gridredraw begins it.
bool headlessdrawn();

// Runs the worker that a start call left, if it left one.
errorblock *headlessrun();

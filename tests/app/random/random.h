// tests/app/random/random.h - a user who does anything at all.
//
// The whole program runs in this process, on the first thread. The user has a second
// one and takes step after step at random, each a thing that a user can do; behind each
// the program does all that it has to do. In what is up then, a box of the system, a
// menu, a search, he plays for a while before he ends it. A third thread watches that
// the program answers.
//
// Every step is written into a ring first. A fault prints the ring, and ends the process
// with status 1. The steps follow from the seed as far as no time comes into it.
//
// All files lie in one scratch folder, the program's own among them.
#pragma once

#include "desktop/events.h"
#include "tests/support/driver.h"
#include "tests/support/win32/inside.h"

#include <windows.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Chance.
extern std::mt19937 dice;
int roll(int below);                // 0 to below - 1
int rollbetween(int low, int high); // both included
bool chance(int percent);

template<typename list> const auto &pick(const list &items)
{
    return items[static_cast<size_t>(roll(static_cast<int>(std::size(items))))];
}

// The ring of what was done, and the end that a fault makes. Any thread.
extern bool telling; // each line is also printed at once
[[gnu::format(printf, 1, 2)]] void note(const char *format, ...);
[[noreturn, gnu::format(printf, 1, 2)]] void fault(const char *format, ...);

// Has crashes, aborts and an unasked end of the program be faults.
void faultswatch();

// The scratch folder, absolute, with no separator at its end; and files in it.
extern std::string scratch, datafolder;
std::string scratchfile(const std::string &leaf);
void scratchfill(); // files to drop, and the dictionaries as they were
std::string droppable();
std::string typedname(); // good, bad, taken, long

// Windows as the system names them.
inline HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}
inline window word(HWND h)
{
    return reinterpret_cast<window>(h);
}
bool classis(HWND h, const char *wanted);
std::vector<HWND> controls(window top); // visible and enabled, below it at any depth
std::vector<window> topwindows();       // visible and enabled, of the program itself
driveplace spot();                      // mostly somewhere in them
void click(HWND control, drivebutton button = DRIVELEFT);

// One step, and how many there were. Then the program is at rest, or something is up.
void steprandom();
extern uint64_t steps;

// The user does something in what is up: false if nothing is.
bool playon();
bool boxup();
void programwatch(); // on the program's thread, before the user begins

// The program's own boxes, how often the user chose to end it, and the files chosen in
// boxes of the system.
extern uint32_t boxesseen, quits, fileschosen;

// The document and the dictionaries are as their headers say. On the program's thread.
void invariants();

// Everything is closed and dropped, and the document is new: then the counts of
// what the program holds are compared with those of the first time.
void rest();

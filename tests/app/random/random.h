// tests/app/random/random.h - a user who does anything at all.
//
// The whole program runs in this process. This thread takes step after step at
// random, each a thing that a user can do, and pumps the poll behind it. What
// runs a loop of its own (a menu, a box of the system, a search) doesn't come
// back: the second thread, the other hand, plays in it for a while and then ends
// it. A third thread watches that the program answers.
//
// Every step is written into a ring first. A fault prints the ring, with where
// this thread stood, and ends the process with status 1. The steps of this thread
// follow from the seed; what the other hand does in between depends on time too.
//
// All files lie in one scratch folder, the program's own among them.
#pragma once

#include "desktop/events.h"
#include "tests/support/driver.h"

#include <windows.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Chance, one for each hand.
struct dice {
    std::mt19937 source;
};
extern dice firstdice, otherdice;
int roll(dice &from, int below);                // 0 to below - 1
int rollbetween(dice &from, int low, int high); // both included
bool chance(dice &from, int percent);

template<typename list> const auto &pick(dice &from, const list &items)
{
    return items[static_cast<size_t>(roll(from, static_cast<int>(std::size(items))))];
}

// The ring of what was done, and the end that a fault makes. Any thread.
extern bool telling; // each line is also printed at once
[[gnu::format(printf, 1, 2)]] void note(const char *format, ...);
[[noreturn, gnu::format(printf, 1, 2)]] void fault(const char *format, ...);

// Has crashes, aborts and an unasked end of the program be faults. Called on
// the thread that the program runs on.
void faultswatch();

// The scratch folder, absolute, with no separator at its end; and files in it.
extern std::string scratch, datafolder;
std::string scratchfile(const std::string &leaf);
void scratchfill(); // files to drop, and the dictionaries as they were
std::string droppable(dice &from);
std::string typedname(dice &from); // good, bad, taken, long

// Windows as the system names them; any thread.
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

// One step of this thread.
void steprandom();
std::vector<window> topwindows(); // visible and enabled, of the program itself; any thread
driveplace spot(dice &from);      // mostly somewhere in them; any thread
extern uint64_t steps;

// The other hand and the watch. stepbegun and stepended stand around each step.
void handstart();
void handend();
void stepbegun();
void stepended();

// The program's own boxes, how often the user chose to end it, the searches that
// went on until they were stopped, and the files chosen in boxes of the system.
extern uint32_t boxesseen, quits, searchesstopped, fileschosen;

// The document and the dictionaries are as their headers say.
void invariants();

// Everything is closed and dropped, and the document is new: then the counts of
// what the program holds are compared with those of the first time.
void restbegin(); // remembers the state after the start
void rest();

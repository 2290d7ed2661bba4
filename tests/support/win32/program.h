// tests/support/win32/program.h - a program under test, run as a user would and watched
// from outside. Its windows are looked at and worked by tests/support/driver.h while
// driven is its process; programstart sets that, and its end puts it back.
#pragma once

#include "desktop/events.h"

#include <windows.h>

#include <string>
#include <vector>

struct program {
    PROCESS_INFORMATION process;
    HANDLE job; // ends the process if the test doesn't
};

// Starts an exe of the folder that this one is in, or of a path: without a console, so
// that it makes its own, or in this program's.
program programstart(const std::string &exe, const std::string &words = "", bool own = true);

// Its main window, in front and settled: 0 if none comes up in time.
window programwindow();

// Tells it to quit: once it has a message queue, the notice is in it.
bool programquit(const program &p);

// The status that it ends with, or -1 if it goes on and on.
int programstatus(program &p);

// Whether it still runs after a while.
bool programstays(const program &p, DWORD milliseconds);

// The lines in its console once one of them begins with last; empty if that
// doesn't come to be.
std::vector<std::string> programtrace(const program &p, const std::string &last);

// Ctrl+Break and Ctrl+C in its console, in which no click holds a line up: whether that
// is so, and Ctrl+C was sent.
bool programbreak(const program &p);

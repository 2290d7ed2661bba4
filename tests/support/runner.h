// tests/support/runner.h - what every test program shares.
//
// The runner puts the modules back to their start-up state before and after
// each test, and demands that no block is left. With --shake, movable blocks
// move at every chance. --data=FOLDER names the folder of word lists and
// dictionaries that slower tests read.
#pragma once

#include <string>

// Each test program defines this: its modules, as they are at start-up.
void modulesreset();

// The blocks that a program holds when its modules are so: 0, until modulesreset
// says another number.
extern int blocksatrest;

// True under --shake, where each edit of a dictionary copies it whole: tests of
// long lists take shorter ones.
bool shaken();

// A file in the data folder, or empty if no folder was named; a test that
// needs one says so with a visible skip.
std::string datafile(const std::string &leaf);

// A fresh empty folder for this run's files, with no separator at its end.
const std::string &scratchfolder();

// tests/support/hands.h - the hands and eyes of tests/support/driver.h, for driving
// another process too.
//
// They are one library, and whoever drives defines what is below, and drivewait:
// the driver for this process and its poll, or a program for one that it has
// started. The driver's other calls want the poll, and are for this process alone.
#pragma once

#include "tests/support/driver.h"

// Whose windows are looked for.
uint32_t driveprocess();

// After each input: the program has had the time to answer it.
void drivesettle();

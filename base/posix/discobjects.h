// base/posix/discobjects.h - shared by the calls on objects and the scan.
#pragma once

#include "base/platform.h"

// What is known of the object at a path of the system's. False, with the
// system's code left behind, when it can't be asked.
bool objectstatus(const char *system, platforminfo *info);

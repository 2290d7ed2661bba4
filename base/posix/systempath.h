// base/posix/systempath.h - paths on their way to and from the system.
#pragma once

#include "base/platform.h"

constexpr int32_t SYSTEMPATHSIZE = PATHSIZE * 3 + 1; // three bytes a character at the most

// A path as the system wants it: UTF-8, its parts set apart by "/". False, with
// the system's own code left behind, for one that is longer than a path may be.
bool systempath(const char *path, char (&out)[SYSTEMPATHSIZE]);

// A name or a folder that the system gave. False for one that can't be held
// inside: a character outside code page 1252, a backslash, too long.
bool systempathback(const char *name, char *out, int32_t size);

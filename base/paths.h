// base/paths.h - path notation and the parts of a path.
//
// A configured path may hold macros in angle brackets: "<%NAME%>" an
// environment variable, "<HKEY_...\key\value>" a registry value. Paths are
// code page 1252, at most 260 bytes with their zero; "\" separates.
#pragma once

#include "base/platform.h"

#include <cstdint>

struct errorblock;

// Expands in, drops double quotes, turns "<<" into "<". A macro that yields
// nothing stays in the text. Always returns 0.
errorblock *pathexpand(const char *in, char *out, int32_t size);

// path := path \ leaf, with one backslash between. Error 30 for too little room.
errorblock *fs_strcat(char *path, int32_t size, const char *leaf);
errorblock *fs_strcpycat(char *out, int32_t size, const char *directory, const char *leaf);

const char *leafname(const char *path);
void dirname(const char *path, char *out, int32_t size);

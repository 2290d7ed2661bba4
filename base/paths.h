// base/paths.h - path notation and the parts of a path.
//
// A configured path may hold macros in angle brackets: "<%NAME%>" an
// environment variable, "<HKEY_...\key\value>" a registry value without its
// quotes, of this user where that of HKEY_LOCAL_MACHINE is missing. Paths are
// code page 1252, at most 260 bytes with their zero; "\" separates.
#pragma once

#include "base/platform.h"

#include <cstdint>

struct errorblock;

// Expands in, drops double quotes, turns "<<" into "<". A macro that yields
// nothing stays in the text; what doesn't fit size is cut. A result that names
// a shortcut becomes what it stands for. Always returns 0.
errorblock *pathexpand(const char *in, char *out, int32_t size);

// The same for a file that is to be opened, made or asked for: a shortened name would
// be another file's. Error 30 and an empty path when the result doesn't fit.
errorblock *pathwhole(const char *in, char (&out)[PATHSIZE]);

// Error 30 that says of a name what pathwhole does.
errorblock *pathtoolong(const char *name);

// Expands in and, where it is relative, puts the current folder in front, so that
// it means the same file later too. Error 30 and an empty path when the result
// doesn't fit.
errorblock *pathabsolute(const char *in, char *out, int32_t size);

// Whether macros, double quotes and "<<" mean anything: they do, from the start. A
// console's names are files' names as they stand.
void pathmacros(bool on);

// Whether shortcuts are followed: they are, from the start.
void pathfollow(bool on);

// path := path \ leaf, with one backslash between. Error 30 for too little room.
errorblock *fs_strcat(char *path, int32_t size, const char *leaf);
errorblock *fs_strcpycat(char *out, int32_t size, const char *directory, const char *leaf);

// Behind the last backslash; without one behind the last "/"; without one
// behind the last colon; else the whole path.
const char *leafname(const char *path);

// What stands before the leaf, without its separator, cut to size.
void dirname(const char *path, char *out, int32_t size);

// The extension: behind the last dot of the leaf, or 0.
const char *pathgetext(const char *path);

// 0 when the extension is ext, compared without case.
int pathhasext(const char *path, const char *ext);

// Changes to path, a buffer of PATHSIZE bytes. Error 30 and no change when the
// result doesn't fit. pathsetext leaves an extension that differs in case
// alone; pathforceext writes it anew.
errorblock *pathsetext(char *path, const char *ext);
errorblock *pathforceext(char *path, const char *ext);

// Puts text before the extension, or at the end if there is none.
errorblock *pathinsert(char *path, const char *text);

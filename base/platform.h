// base/platform.h - everything that base asks of the system.
//
// Defined twice: base/win32 over Win32, base/posix with just what the logic
// needs. Calls are thin: a failure is reported the way syserr.h tells, with the
// system's message, the call's name and the code.
//
// Paths are code page 1252 and already expanded; on posix "\" and "/" both
// separate, and names are converted to UTF-8 at this edge.
#pragma once

#include <cstdint>

struct errorblock;

// A file handle, or a directory scan's: 0 is none.
using filehandle = intptr_t;

constexpr int32_t PATHSIZE = 260; // bytes of every path buffer

// What the system knows of one object.
struct platforminfo {
    int32_t objecttype;  // 0 not found, 1 file, 2 directory
    uint32_t length;     // bytes, low word
    uint32_t attributes; // the system's; 2 hidden, 4 system, 1 read only
    uint64_t time;       // last write, 100 ns since 1601
};

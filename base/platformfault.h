// base/platformfault.h - faults of the file system, for tests only.
//
// The calls of files.h ask this record before they ask the platform, so that
// a test meets the same fault on every system. Counts run down: with n the
// call after n more fails, once, and -1 is never.
#pragma once

#include <cstdint>

struct platformfaultrecord {
    int32_t opens = -1;
    int32_t reads = -1;
    int32_t writes = -1;
    int32_t syncs = -1;
    int32_t closes = -1; // the file is closed all the same
    int32_t replaces = -1;
    int32_t readlimit = -1;  // the most bytes that one read moves, -1 no limit
    int32_t writelimit = -1; // the same for a write
    int32_t space = -1;      // bytes that the disc still takes, -1 no limit
};

extern platformfaultrecord platformfault;

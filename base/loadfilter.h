// base/loadfilter.h - what a load dialog offers, worked out without a window.
#pragma once

#include <cstdint>

// One row: its description, whose tokens are expanded, and its file types, of
// which -1 stands for all files.
struct loadgroup {
    const char *description;
    int32_t count;
    const int32_t *types;
};

// The filter of these rows, in a static buffer: description, patterns with a
// semicolon behind each, and so on, then an empty string. Rows that don't fit
// 256 bytes are left out.
const char *loadfilterbuild(const loadgroup *groups, int32_t count);

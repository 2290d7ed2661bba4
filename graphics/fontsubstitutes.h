// graphics/fontsubstitutes.h - which font the system takes for which name.
#pragma once

#include <cstdint>

struct errorblock;

struct fontsubstitute {
    const char *name, *substitute;
};

// The system's table, sorted by name without case. Names end at their first
// comma; those beyond 128 bytes are left out. The table and its texts are one
// plain allocation, which the caller frees with heap_free; 0 for an empty or a
// missing one. Errors: 2, with no table.
errorblock *fontsubstitutes(fontsubstitute **table, int32_t *count);

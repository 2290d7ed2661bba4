// base/rawmemory.h - the one road from both kinds of allocation to the
// runtime's heap; for flex.cpp and heap.cpp only.
//
// Here stand the faults and the shaking that tests ask for, and the count of
// what is held. Sizes are bytes, headers included; a result of 0 means that
// memory is short, and then nothing has changed.
#pragma once

#include <cstdint>

void *rawalloc(int64_t size, bool zero);
void *rawresize(void *old, int32_t oldsize, int64_t newsize);
void rawfree(void *old, int32_t size);

// A resize to a smaller size that can't be made to fail: the old place may
// stay. Returns where the bytes are now.
void *rawshrink(void *old, int32_t oldsize, int32_t newsize);

// While shaking, the bytes in another place; otherwise old itself.
void *rawshake(void *old, int32_t size);

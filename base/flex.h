// base/flex.h - movable memory, and the plain allocations beside it.
//
// Bulk data lives in blocks that may move when they are resized. Each is
// reached through its anchor, a variable of its owner that holds the address
// of the payload and is rewritten whenever the block moves.
//
//  - An anchor is 0 exactly when it owns nothing.
//  - A block moves only in an operation on that same block. A pointer read
//    from an anchor dies at the next call marked MOVES on it; keep offsets.
//  - Sizes and offsets are bytes, signed 32 bits. After a failure nothing has
//    changed.
//
// Errors: 2 when memory is short, 5 for a negative size or an offset outside
// the block, which is the only sign of a client's fault.
#pragma once

#include <cstdint>

struct errorblock;
using flexptr = void *;

// Called after a block has moved, with the bytes it moved by.
using flexmove = void (*)(intptr_t argument, intptr_t delta);

// Called when memory is short, with 0, by flex_alloc and flex_extend. Zero
// means that something was freed and the step is tried again; an error ends
// the attempt and is its result.
using flexfail = errorblock *(*)(int32_t);

// Start and end of the allocator: there is nothing to start. Both return 0.
errorblock *flex_init2();
errorblock *flex_end();
errorblock *initalloc();

// MOVES. A new block of size zero bytes; what *anchor held is not looked at.
errorblock *flex_alloc(flexptr *anchor, int32_t size);

// Frees the block if there is one; the anchor becomes 0. Returns 0.
errorblock *flex_free(flexptr *anchor);

// MOVES. The block's payload becomes newsize bytes; bytes added hold anything.
errorblock *flex_extend(flexptr *anchor, int32_t newsize);

// MOVES. Opens (by > 0) or closes (by < 0) a gap before offset at, 0..size.
// New bytes hold what lay there before; the caller fills them. At most at
// bytes can be closed. Doesn't ask the out-of-memory hook.
errorblock *flex_midextend(flexptr *anchor, int32_t at, int32_t by);

// MOVES. Resizes in steps of chunk (not 0); accepts an empty anchor. Doesn't
// ask the out-of-memory hook. A block that already holds more than size, by
// at most chunk, is left alone; else the new size is the next multiple of
// chunk strictly above size.
errorblock *flex_chunk(flexptr *anchor, int32_t size, int32_t chunk);

// The payload's size in bytes. The anchor must hold a block. Returns 0.
errorblock *flex_size(const flexptr *anchor, int32_t *size);

// Exchanges two anchors; no data moves.
errorblock *flex_swap(flexptr *a, flexptr *b);

// Who is told when the block moves, 0 for nobody.
errorblock *flex_setreloc(flexptr *anchor, flexmove move, intptr_t argument);

// The out-of-memory hook, 0 for none.
errorblock *flex_setfail(flexfail hook);

// The memory that is left: no limit is known, so always 0x7fffffff.
int32_t flex_space();

// Writes the state of the heap to the trace under this name.
errorblock *flex_check(const char *name);

// Plain allocations, which never move on their own. A size of 0 gives one
// byte, so that a valid pointer always results.
errorblock *heap_alloc(void **pointer, int32_t size);                // zero-filled
errorblock *heap_allocraw(void **pointer, int32_t size);             // not filled
errorblock *heap_realloc(void **pointer, int32_t size);              // *pointer may be 0
errorblock *heap_chunk(void **pointer, int32_t size, int32_t chunk); // as flex_chunk
errorblock *heap_free(void **pointer);                               // 0 is harmless

// Tests only. Shaking: every MOVES call and heap_realloc moves the block and
// spoils its old place, so that a stale pointer is found at once; bytes that
// may hold anything are spoilt too. flexfailafter(n): the allocation or resize
// after n more fails, once, with error 2; -1 never. Closing a gap can't fail
// and isn't counted. flexblocks: movable blocks and plain allocations now held.
void flexshake(bool on);
void flexfailafter(int32_t n);
int32_t flexblocks();

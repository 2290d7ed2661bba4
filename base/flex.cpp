#include "base/flex.h"

#include "base/errors.h"
#include "base/platform.h"
#include "base/rawmemory.h"
#include "base/trace.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace
{

// What stands before the payload. Its size keeps the payload aligned for
// whatever record a client puts there.
struct alignas(16) header {
    int32_t size; // of the whole allocation
    flexmove move;
    intptr_t argument;
};

constexpr int32_t HEADERSIZE = sizeof(header);

flexfail failhook;

header *headerof(flexptr payload)
{
    return static_cast<header *>(payload) - 1;
}

int32_t payloadsize(flexptr payload)
{
    return headerof(payload)->size - HEADERSIZE;
}

// Tells whoever asked that the block has moved. A growing block that goes
// downward is worth a line: clients have been seen to mistake delta's sign.
void movetell(flexptr anchor, intptr_t delta, bool growing)
{
    const header *block = headerof(anchor);
    if (!block->move || !delta) return;
    block->move(block->argument, delta);
    if (growing && delta < 0) trace("!!!!XXX realloc down");
}

// Puts the block's address now into its anchor, and returns how far it moved.
intptr_t anchorset(flexptr *anchor, intptr_t before, header *block)
{
    *anchor = block + 1;
    return reinterpret_cast<intptr_t>(*anchor) - before;
}

errorblock *blockalloc(flexptr *anchor, int32_t size)
{
    trace("Alloc %d valid %d", size, platformheapcheck());
    if (size < 0) return makeerror(ERRORCORRUPTMEMORY);
    int64_t whole = int64_t{size} + HEADERSIZE;
    header *block = static_cast<header *>(rawalloc(whole, true));
    if (!block) return makeerror(ERRORMEMORY);
    block->size = static_cast<int32_t>(whole);
    *anchor = block + 1;
    return nullptr;
}

// Resizes without telling, for callers that have bytes to move first.
errorblock *blockresize(flexptr *anchor, int64_t newsize, intptr_t *delta)
{
    assert(*anchor);
    if (newsize < 0) return makeerror(ERRORCORRUPTMEMORY);
    header *block = headerof(*anchor);
    intptr_t before = reinterpret_cast<intptr_t>(*anchor);
    int64_t whole = newsize + HEADERSIZE;
    block = static_cast<header *>(rawresize(block, block->size, whole));
    if (!block) return makeerror(ERRORMEMORY);
    block->size = static_cast<int32_t>(whole);
    *delta = anchorset(anchor, before, block);
    return nullptr;
}

errorblock *blockextend(flexptr *anchor, int64_t newsize)
{
    intptr_t delta = 0;
    errorblock *err = blockresize(anchor, newsize, &delta);
    if (!err) movetell(*anchor, delta, true);
    return err;
}

// Nothing to do to the block.
errorblock *blockstay(flexptr *anchor)
{
    header *block = headerof(*anchor);
    intptr_t before = reinterpret_cast<intptr_t>(*anchor);
    block = static_cast<header *>(rawshake(block, block->size));
    intptr_t delta = anchorset(anchor, before, block);
    movetell(*anchor, delta, false);
    return nullptr;
}

// Asks the hook to free something. Only a shortage can be helped that way.
bool tryagain(errorblock **err)
{
    if (!*err || (*err)->code != ERRORMEMORY || !failhook) return false;
    *err = failhook(0);
    return !*err;
}

errorblock *gapopen(flexptr *anchor, int32_t at, int32_t by)
{
    intptr_t delta = 0;
    int32_t size = payloadsize(*anchor);
    errorblock *err = blockresize(anchor, int64_t{size} + by, &delta);
    if (err) return err;
    uint8_t *gap = static_cast<uint8_t *>(*anchor) + at;
    std::memmove(gap + by, gap, static_cast<size_t>(size - at));
    movetell(*anchor, delta, true);
    return nullptr;
}

void gapclose(flexptr *anchor, int32_t at, int32_t by)
{
    header *block = headerof(*anchor);
    intptr_t before = reinterpret_cast<intptr_t>(*anchor);
    uint8_t *end = static_cast<uint8_t *>(*anchor) + at;
    std::memmove(end - by, end, static_cast<size_t>(payloadsize(*anchor) - at));
    int32_t size = block->size - by;
    block = static_cast<header *>(rawshrink(block, block->size, size));
    block->size = size;
    intptr_t delta = anchorset(anchor, before, block);
    movetell(*anchor, delta, false);
}

} // namespace

errorblock *flex_init2()
{
    return nullptr;
}

errorblock *flex_end()
{
    return nullptr;
}

errorblock *initalloc()
{
    return nullptr;
}

errorblock *flex_alloc(flexptr *anchor, int32_t size)
{
    errorblock *err;
    do
        err = blockalloc(anchor, size);
    while (tryagain(&err));
    return err;
}

errorblock *flex_free(flexptr *anchor)
{
    if (*anchor) rawfree(headerof(*anchor), headerof(*anchor)->size);
    *anchor = nullptr;
    return nullptr;
}

errorblock *flex_extend(flexptr *anchor, int32_t newsize)
{
    errorblock *err;
    do
        err = blockextend(anchor, newsize);
    while (tryagain(&err));
    return err;
}

errorblock *flex_midextend(flexptr *anchor, int32_t at, int32_t by)
{
    assert(*anchor);
    if (int64_t{at} + by < 0) by = -at;
    if (at < 0 || at > payloadsize(*anchor)) return makeerror(ERRORCORRUPTMEMORY);
    if (by == 0) return blockstay(anchor);
    if (by > 0) return gapopen(anchor, at, by);
    gapclose(anchor, at, -by);
    return nullptr;
}

errorblock *flex_chunk(flexptr *anchor, int32_t size, int32_t chunk)
{
    assert(chunk);
    if (!*anchor) return blockalloc(anchor, std::max(size, chunk));
    int32_t current = payloadsize(*anchor);
    if (size < current && current <= int64_t{size} + chunk) return blockstay(anchor);
    return blockextend(anchor, (int64_t{size / chunk} + 1) * chunk);
}

errorblock *flex_size(const flexptr *anchor, int32_t *size)
{
    assert(*anchor);
    *size = payloadsize(*anchor);
    return nullptr;
}

errorblock *flex_swap(flexptr *a, flexptr *b)
{
    std::swap(*a, *b);
    return nullptr;
}

errorblock *flex_setreloc(flexptr *anchor, flexmove move, intptr_t argument)
{
    assert(*anchor);
    headerof(*anchor)->move = move;
    headerof(*anchor)->argument = argument;
    return nullptr;
}

errorblock *flex_setfail(flexfail hook)
{
    failhook = hook;
    return nullptr;
}

int32_t flex_space()
{
    return 0x7fffffff;
}

errorblock *flex_check(const char *name)
{
    trace("Check memory %s valid %d", name, platformheapcheck());
    trace("heap %s", platformheapvalid() ? "OK" : "Bad");
    return nullptr;
}

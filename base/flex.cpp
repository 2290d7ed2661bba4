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

// Records where the block is now, and tells whoever asked for it. The blocks
// that growing moves downward are worth a line: clients have been seen to
// mistake the sign of delta.
void blockmoved(flexptr *anchor, header *block, bool removing)
{
    flexptr payload = block + 1;
    intptr_t delta = reinterpret_cast<intptr_t>(payload) - reinterpret_cast<intptr_t>(*anchor);
    *anchor = payload;
    if (!block->move || !delta) return;
    block->move(block->argument, delta);
    if (delta < 0 && !removing) trace("!!!!XXX realloc down");
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

errorblock *blockresize(flexptr *anchor, int64_t newsize)
{
    assert(*anchor);
    if (newsize < 0) return makeerror(ERRORCORRUPTMEMORY);
    header *block = headerof(*anchor);
    int64_t whole = newsize + HEADERSIZE;
    block = static_cast<header *>(rawresize(block, block->size, whole));
    if (!block) return makeerror(ERRORMEMORY);
    block->size = static_cast<int32_t>(whole);
    blockmoved(anchor, block, false);
    return nullptr;
}

// Nothing to do to the block.
errorblock *blockstay(flexptr *anchor)
{
    header *block = headerof(*anchor);
    blockmoved(anchor, static_cast<header *>(rawshake(block, block->size)), true);
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
    int32_t tail = payloadsize(*anchor) - at;
    errorblock *err = blockresize(anchor, int64_t{at} + tail + by);
    if (err) return err;
    uint8_t *gap = static_cast<uint8_t *>(*anchor) + at;
    std::memmove(gap + by, gap, static_cast<size_t>(tail));
    return nullptr;
}

void gapclose(flexptr *anchor, int32_t at, int32_t by)
{
    header *block = headerof(*anchor);
    uint8_t *end = static_cast<uint8_t *>(*anchor) + at;
    std::memmove(end - by, end, static_cast<size_t>(payloadsize(*anchor) - at));
    int32_t size = block->size - by;
    block = static_cast<header *>(rawshrink(block, block->size, size));
    block->size = size;
    blockmoved(anchor, block, true);
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
        err = blockresize(anchor, newsize);
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
    return blockresize(anchor, (int64_t{size / chunk} + 1) * chunk);
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

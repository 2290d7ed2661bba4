// The plain allocations. Each remembers its size in front of it, so that
// heap_chunk gives the same on every runtime.

#include "base/errors.h"
#include "base/flex.h"
#include "base/rawmemory.h"

#include <algorithm>
#include <cassert>

namespace
{

struct alignas(16) header {
    int32_t size; // of the whole allocation
};

constexpr int32_t HEADERSIZE = sizeof(header);

header *headerof(void *pointer)
{
    return static_cast<header *>(pointer) - 1;
}

// A size of 0 gives one byte. A negative one, which heap_allocraw lets
// through, is more than any heap has.
int64_t wholesize(int64_t size)
{
    if (size < 0) return INT64_MAX;
    return std::max<int64_t>(size, 1) + HEADERSIZE;
}

errorblock *made(void **pointer, void *block, int64_t size)
{
    if (!block) return makeerror(ERRORMEMORY);
    header *head = static_cast<header *>(block);
    head->size = static_cast<int32_t>(wholesize(size));
    *pointer = head + 1;
    return nullptr;
}

errorblock *resize(void **pointer, int64_t size)
{
    if (size < 0) return makeerror(ERRORCORRUPTMEMORY);
    if (!*pointer) return made(pointer, rawalloc(wholesize(size), false), size);
    header *head = headerof(*pointer);
    return made(pointer, rawresize(head, head->size, wholesize(size)), size);
}

} // namespace

errorblock *heap_alloc(void **pointer, int32_t size)
{
    if (size < 0) return makeerror(ERRORCORRUPTMEMORY);
    return made(pointer, rawalloc(wholesize(size), true), size);
}

errorblock *heap_allocraw(void **pointer, int32_t size)
{
    return made(pointer, rawalloc(wholesize(size), false), size);
}

errorblock *heap_realloc(void **pointer, int32_t size)
{
    return resize(pointer, size);
}

errorblock *heap_chunk(void **pointer, int32_t size, int32_t chunk)
{
    assert(chunk);
    if (!*pointer) return heap_alloc(pointer, std::max(size, chunk));
    int32_t current = headerof(*pointer)->size - HEADERSIZE;
    if (size < current && current <= int64_t{size} + chunk) return nullptr;
    return resize(pointer, (int64_t{size / chunk} + 1) * chunk);
}

errorblock *heap_free(void **pointer)
{
    if (*pointer) rawfree(headerof(*pointer), headerof(*pointer)->size);
    *pointer = nullptr;
    return nullptr;
}

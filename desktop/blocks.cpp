#include "desktop/blocks.h"

#include "base/errors.h"
#include "base/trace.h"

#include <cassert>
#include <cstring>

// The table and the walks that are under way, newest first.
static struct {
    flexptr blocks; // block[count], and room
    int32_t count;
    blockiter *newest;
} table;

static block *blocks()
{
    return static_cast<block *>(table.blocks);
}

errorblock *blockstart()
{
    table = {};
    return flex_chunk(&table.blocks, 0, BLOCKCHUNK * sizeof(block));
}

void blockend()
{
    flex_free(&table.blocks);
    table = {};
}

static bool same(const block &a, const block &b)
{
    return a.type == b.type && a.subtype == b.subtype && a.window == b.window && a.data == b.data &&
           a.function == b.function;
}

static int32_t indexof(const block &wanted)
{
    for (int32_t i = 0; i < table.count; i++)
        if (same(blocks()[i], wanted)) return i;
    return -1;
}

// Asked only when the table is full, since flex_chunk would also shrink it:
// handlers come and go by the dozen, and it is small.
static errorblock *makeroom()
{
    int32_t size;
    int32_t needed = (table.count + 1) * static_cast<int32_t>(sizeof(block));
    errorblock *err = flex_size(&table.blocks, &size);
    if (err || needed <= size) return err;
    return flex_chunk(&table.blocks, needed, BLOCKCHUNK * sizeof(block));
}

errorblock *addblock(int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                     blockfunction function, bool *added)
{
    if (added) *added = false;
    if (!table.blocks) return makeerror(ERRORNOEVENT);
    block wanted = {type, subtype, owner, data, function};
    if (indexof(wanted) != -1) return nullptr;

    errorblock *err = makeroom();
    if (err) return err;
    blocks()[table.count++] = wanted;
    if (added) *added = true;
    return nullptr;
}

errorblock *remblock(int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                     blockfunction function, bool *removed)
{
    if (removed) *removed = false;
    int32_t gone = indexof({type, subtype, owner, data, function});
    if (gone == -1) {
        trace("remblock missed type %d message %d", static_cast<int>(type),
              static_cast<int>(subtype));
        return nullptr;
    }
    table.count--;
    std::memmove(blocks() + gone, blocks() + gone + 1,
                 static_cast<size_t>(table.count - gone) * sizeof(block));
    // The place of a walk is the last block it handed out. When that one or an
    // earlier one goes, the next is one nearer.
    for (blockiter *iter = table.newest; iter; iter = iter->older)
        if (iter->pos >= gone) iter->pos--;
    if (removed) *removed = true;
    return nullptr;
}

static bool matches(intptr_t field, intptr_t wanted)
{
    return wanted == BLOCKANY || field == wanted;
}

// The first match from index on, or -1.
static int32_t search(int32_t index, int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                      blockfunction function)
{
    for (int32_t i = index; i < table.count; i++) {
        const block &b = blocks()[i];
        if (matches(b.type, type) && matches(b.subtype, subtype) && matches(b.window, owner) &&
            matches(b.data, data) && (!function || b.function == function))
            return i;
    }
    return -1;
}

int32_t findblock(int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                  blockfunction function)
{
    return search(0, type, subtype, owner, data, function);
}

block blockat(int32_t index)
{
    assert(index >= 0 && index < table.count);
    return blocks()[index];
}

void blocksetdata(int32_t index, intptr_t data)
{
    assert(index >= 0 && index < table.count);
    blocks()[index].data = data;
}

int32_t blockcount()
{
    return table.count;
}

void blockiter_start(blockiter *iter)
{
    *iter = {-1, table.newest, nullptr};
    if (table.newest) table.newest->newer = iter;
    table.newest = iter;
}

void blockiter_end(blockiter *iter)
{
    if (iter->older) iter->older->newer = iter->newer;
    if (iter->newer)
        iter->newer->older = iter->older;
    else
        table.newest = iter->older;
}

int32_t blockiter_next(blockiter *iter, int32_t type, intptr_t subtype, intptr_t owner,
                       intptr_t data)
{
    int32_t found = search(iter->pos + 1, type, subtype, owner, data, nullptr);
    // A walk that has ended goes on if a block is added behind its end.
    iter->pos = found == -1 ? table.count - 1 : found;
    return found;
}

void blockiter_rewind(blockiter *iter)
{
    iter->pos = -1;
}

bool nextblock(blockiter *iter, int32_t type, intptr_t subtype, intptr_t owner, block *found)
{
    int32_t index = blockiter_next(iter, type, subtype, owner, BLOCKANY);
    if (index != -1) *found = blockat(index);
    return index != -1;
}

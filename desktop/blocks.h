// desktop/blocks.h - the block table: every registration of a handler.
//
// One array in a movable block, in the order of registration, searched from
// the front at each delivery. It serves tens of windows with some ten blocks
// each, for a message every few milliseconds.
//
//  - Handlers add and remove blocks while the table is being walked. A walker
//    holds its place in a blockiter, which remblock corrects: no block is
//    handed out twice or passed over, and one that is added during a walk is
//    still met by it.
//  - Nobody keeps a pointer into the table; nextblock copies the block out.
//  - No two blocks are equal.
//  - A block that belongs to a window outlives it unless its owner removes it.
//    Handles are only compared, so it does no harm.
#pragma once

#include "base/flex.h"
#include "desktop/events.h"

#include <cstdint>

// Any handler: only its own kind of delivery knows how to call it, and casts it
// back.
using blockfunction = void (*)();

blockfunction anyfunction(auto handler)
{
    return reinterpret_cast<blockfunction>(handler);
}

struct block {
    int32_t type;
    intptr_t subtype;       // by type: a message number, a hot key, a saved procedure; else 0
    intptr_t window;        // or, for types without a window, the user's word or a file type
    intptr_t data;          // the user's word, or when a timed call is due
    blockfunction function; // 0 for a block that only carries data
};

// A walker's place, in its frame. Walks nest, and end in any order.
struct blockiter {
    int32_t pos; // of the block handed out last, -1 before the first
    blockiter *older, *newer;
};

constexpr int32_t BLOCKCHUNK = 64; // blocks by which the table grows
constexpr int32_t BLOCKANY = -1;   // an argument that every block matches

// The table, empty, with room for a chunk of blocks. Its end is for tests: it
// drops what is left, and walks that were cut off.
errorblock *blockstart();
void blockend();

// MOVES. Appends a block; one that is there already is not added again, which is
// no error. added may be 0. Errors: 20 without a table, 2.
errorblock *addblock(int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                     blockfunction function, bool *added);

// Removes the equal block. One that isn't there is traced and no error. removed
// may be 0. Always returns 0.
errorblock *remblock(int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                     blockfunction function, bool *removed);

// The index of the first block that matches, or -1; for function, 0 matches any.
// An index is good until a block is removed.
int32_t findblock(int32_t type, intptr_t subtype, intptr_t owner, intptr_t data,
                  blockfunction function);

block blockat(int32_t index);
void blocksetdata(int32_t index, intptr_t data);
int32_t blockcount();

// Around each walk.
void blockiter_start(blockiter *iter);
void blockiter_end(blockiter *iter);

// Steps to the next block that matches, whatever its function: its index, or -1
// at the end. blockiter_rewind goes back to before the first.
int32_t blockiter_next(blockiter *iter, int32_t type, intptr_t subtype, intptr_t owner,
                       intptr_t data);
void blockiter_rewind(blockiter *iter);

// The same step with a copy of the block, which is what a walker that calls
// handlers needs. False at the end.
bool nextblock(blockiter *iter, int32_t type, intptr_t subtype, intptr_t owner, block *found);

// output/gridstats.h - what a setter checks before a grid goes out.
//
// A word here is a run of two cells or more, across or down, that no block and no
// bar divides, whatever its cells hold. A bar on the outer edge divides nothing and
// isn't counted.
#pragma once

#include "grid/grid.h"

#include <cstdint>
#include <string>
#include <vector>

struct gridstats {
    int32_t open, blocks, bars;    // cells, cells, edges
    int32_t filled;                // open cells with a letter
    int32_t letters[256];          // how often each, small ones counted as capitals
    int32_t across, down;          // words
    int32_t lengths[GRIDSTRIDE];   // words of each length
    int32_t checked, unchecked;    // open cells in two words, in one
    int32_t pieces;                // parts that hang together, cell to cell
    uint32_t symmetries;           // of blocks and bars: a bit for each row of symmetrynames
    std::vector<std::string> same; // filled words that stand more than once, sorted
};

constexpr const char *symmetrynames[] = {"half turn", "quarter turn", "left to right",
                                         "top to bottom", "diagonal"};

// Of the document, which stays as it is.
void gridstatsread(gridstats *stats);

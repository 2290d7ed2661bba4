// tests/find/solvemodel.h - Crossword solving told again, as plainly as can be.
//
// Slots are maximal runs of marked cells, cut at bars; dictionaries are plain
// lists of words. Only the place where a scan begins is asked of the index.
#pragma once

#include "dict/dictset.h"
#include "grid/grid.h"

#include <cstdint>
#include <vector>

struct solvemodelresult {
    std::vector<std::vector<wordref>> solutions;
    std::vector<uint8_t> letters; // the whole array, as the search leaves it
};

// How many slots the marked cells make.
int32_t solvemodelslots();

// Solves the grid as it stands, and leaves it alone.
solvemodelresult solvemodel(int32_t limit);

// find/wssolve.h - the dictionary words hidden in a filled Wordsquare.
//
// From every cell, in all eight directions, the longest known word that starts
// there and has at least grid.minwordlength letters.
#pragma once

#include <cstdint>

struct errorblock;

// The Wordsquare's Solve button, and its run. Nothing happens without a
// dictionary, and no error is told of. POLLS: once for each cell.
errorblock *wssolve();
errorblock *wssolverun(intptr_t);

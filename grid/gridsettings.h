// grid/gridsettings.h - what the user sets of a document: its looks, and how a
// Wordsquare is made.
#pragma once

#include "base/fontrecord.h"

#include <cstdint>

// Fields are those of the document (grid.h) and have its ranges.
struct gridsettings {
    uint32_t textcolour, gridcolour, fillcolour, backcolour;
    fontrecord gridfont, cluefont;
    int32_t squarescale;
    int32_t minwordlength;
    int32_t showsolutions;
    uint32_t filldirections;
};

constexpr int32_t SQUARESCALEMIN = 150, SQUARESCALEMAX = 400;

// The document's.
void gridsettingsget(gridsettings *settings);

// Gives them to the document, those for a Wordsquare only to one, as one edit;
// the shortest word and the scale are brought into range. Squares take their new
// size, and the grid is redrawn.
void gridsettingsapply(const gridsettings &settings);

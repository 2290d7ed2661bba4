// grid/gridshape.h - the document's size, kind and case, as the Grid menu
// changes them.
#pragma once

#include <cstdint>

// At least 1; what is beyond GRIDMAX becomes GRIDMAX. Cells keep what they hold,
// those outside too, and the squares their size.
void gridsize(int32_t width, int32_t height);

// Another kind begins a new document, without a question. The same kind does
// nothing.
void gridsetkind(int32_t kind);

// CASEUPPER or CASELOWER: switches it on, and the other off, with every letter
// of an open cell taken along, outside the grid too; or, if it was on, off.
void gridcaseswitch(int32_t mode);

// app/layout.h - where the panes of the main window lie.
//
// The button bar runs along the top. Below it, the list of solutions is on the
// left and the grid on the right, with a gap between them in which the main
// window shows: the splitter.
//
// Places are pixels of the screen.
#pragma once

#include "desktop/windows.h"

#include <cstdint>

struct panelayout {
    pixelbox bar, list, grid;
};

constexpr int32_t SPLITTERWIDTH = 4; // at 96 dots to the inch

// Lays the panes out in an area. fraction, 16.16, is where the middle of the
// splitter is, and gap how wide. The bar keeps its height, as it is asked for it at
// the next layout. A pane for which no room is left is empty, never turned inside out.
panelayout layoutpanes(const pixelbox &area, int32_t barheight, uint32_t fraction,
                       int32_t gap = SPLITTERWIDTH);

// The width of the smallest area whose grid's pane is that wide.
int32_t layoutwidth(int32_t gridwidth, uint32_t fraction, int32_t gap = SPLITTERWIDTH);

// The fraction of a splitter that was let go at x, inside its limits.
uint32_t layoutfraction(int32_t left, int32_t right, int32_t x);

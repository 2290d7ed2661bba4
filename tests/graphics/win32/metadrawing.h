// tests/graphics/win32/metadrawing.h - one drawing, for the screen and for all
// kinds of metafile.
#pragma once

#include <cstdint>

constexpr int32_t DRAWINGWIDTH = 201, DRAWINGHEIGHT = 121;

// Draws on the current surface, with y down from 0: boxes, lines, text and a
// sprite with a mask.
void metadraw();

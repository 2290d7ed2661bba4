// graphics/spriterow.h - whole rows of sprites to rows of bitmaps, a byte at a
// time by tables.
#pragma once

#include "graphics/spritelayout.h"

#include <cstdint>

// The depth of a bitmap that holds a sprite's pixels as they are.
int32_t spriterowdepth(int32_t bpp);

// Bytes of a row of that many pixels.
int64_t spriterowbytes(int64_t width, int32_t bpp);

// Row y of an image that begins at bit 0. out has room for the bytes of the row.
void spriterowconvert(const spritelayout *layout, int32_t y, uint8_t *out);

// One pixel of a bitmap's row; a fresh row is all zeros.
void spriterowput(uint8_t *row, int32_t bpp, int32_t x, uint32_t value);

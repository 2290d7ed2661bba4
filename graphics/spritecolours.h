// graphics/spritecolours.h - the colours of sprites, as bitmaps have them:
// 0x00RRGGBB.
#pragma once

#include "graphics/spritelayout.h"

#include <cstdint>

constexpr int32_t SPRITETABLESIZE = 256;

// The palette words of a sprite without a palette, by its depth of 1, 2, 4 or 8
// bits. count gets 2, 4, 16 and, of the base colours that 8 bits expand, 16.
const uint32_t *spritedefaultpalette(int32_t bpp, int32_t *count);

// The colours of a sprite of up to 8 bits: those of pixtrans, a palette word for
// each, or its own, or the default. Returns how many there are. Greyed ones look
// disabled.
int32_t spritecolours(const spritelayout *layout, const uint32_t *pixtrans, bool greyed,
                      uint32_t *colours);

// The colour of a pixel of 16 bits or more.
uint32_t spritedeepcolour(uint32_t pixel, int32_t bpp);

uint32_t spritegreyed(uint32_t colour);

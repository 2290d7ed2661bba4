// graphics/spritelayout.h - a sprite's head, read and checked.
//
// Whoever goes to a sprite's bytes goes through a layout: what it points at lies
// inside the sprite.
#pragma once

#include "graphics/sprites.h"

#include <cstdint>

// Rows of pixels, from the top down.
struct spriterows {
    const uint8_t *bytes; // 0 for a mask that isn't there
    int32_t rowbytes;     // a multiple of 4
    int32_t firstbit;     // of the first pixel of each row
    int32_t bpp;
};

struct spritelayout {
    int32_t width, height; // pixels, at least 1
    spriterows image, mask;
    const uint8_t *palette; // entries of SPRITECOLOURSIZE bytes
    int32_t palettecount;
};

// Errors: 283 for a head that doesn't agree with the sprite's size, EMODE for
// one that does as far as can be told. layout is filled on success only.
errorblock *spritelay(const sprite *s, spritelayout *layout);

// The bits of a pixel inside the layout, and whether the mask shows it.
uint32_t spritepixel(const spriterows *rows, int32_t x, int32_t y);
bool spriteshows(const spritelayout *layout, int32_t x, int32_t y);

// graphics/spritemode.h - mode words: the depth and resolution of a sprite.
//
// A word whose top five bits are zero is an old mode number: its low seven bits
// name a row of a table. Any other has bit 0 set, dots to the inch in x and y in
// bits 1 to 13 and 14 to 26, where 0 stands for 90, and a type in bits 27 to 30.
// Bit 31 is no part of the type: it says that the sprite's mask isn't one of
// one bit a pixel.
//
// Error: EMODE for a word that can't be read.
#pragma once

#include <cstdint>

struct errorblock;

constexpr uint32_t SPRITEMODENOMASK = 0x80000000;

// What a mode word says. colours is the highest colour number, or the bits that
// count in a pixel of a deep one.
struct spritemode {
    int32_t xeig, yeig; // OS units to the pixel, at least 1
    int32_t xdpi, ydpi; // pixels to the inch
    int32_t bpp;        // bits to the pixel: 1, 2, 4, 8, 16, 24 or 32
    uint32_t colours;
    bool old; // an old mode number
};
errorblock *spritemoderead(uint32_t mode, spritemode *out);

// Parts of it; any address may be 0.
errorblock *spriteeig(uint32_t mode, int32_t *x, int32_t *y);
errorblock *spritedepth(uint32_t mode, int32_t *bpp, uint32_t *colours);

// The mode word of a new sprite, whose pixels are xsize by ysize OS units: an
// old mode number up to 8 bits a pixel, else a word with the resolution.
uint32_t spritemodeword(int32_t bpp, int32_t xsize, int32_t ysize);

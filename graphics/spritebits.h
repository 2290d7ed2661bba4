// graphics/spritebits.h - from sprites to device-independent bitmaps.
//
// What goes to a device is a bitmap of its final size, with the part of the
// sprite that shows there: nothing is left for the device to stretch, and a
// large zoom in a small window stays cheap.
#pragma once

#include "graphics/spritecolours.h"
#include "graphics/spriteplace.h"

#include <cstdint>

struct errorblock;

// Rows run from the bottom up, pixels from the high bit of each byte down, both
// padded to words. A pixel has 1, 4 or 8 bits, which pick from the table; or 16,
// five each for red, green and blue, blue lowest; or 24, the bytes blue, green
// and red.
//
// A mask has one bit a pixel, set where the sprite shows. Elsewhere the image
// then is black, or white if greyed: what ORing it to the device, or ANDing,
// leaves alone.
struct spritebitmap {
    int32_t x, y; // of the top left pixel, on the device
    int32_t width, height;
    int32_t bpp;
    int32_t rowbytes, maskrowbytes;
    int32_t colours; // in the table
    uint32_t table[SPRITETABLESIZE + 1];
    void *rows; // plain allocations; 0 for nothing to draw
    void *mask; // 0 where all of it shows
};

// What to make of a sprite beside its place. pixtrans is 0 for its own colours.
struct spritelook {
    const uint32_t *pixtrans; // palette words, one for each value of a pixel
    bool greyed;
};

// The bitmap of what shows inside the clip. Nothing is an empty bitmap and no
// error. Error: 2.
errorblock *spritebitsplace(const spritelayout *layout, const spritelook &look,
                            const spriteplace *place, const spritebox &clip, spritebitmap *out);
errorblock *spritebitswarp(const spritelayout *layout, const spritelook &look,
                           const spritewarp *warp, const spritebox &clip, spritebitmap *out);
void spritebitsfree(spritebitmap *bitmap);

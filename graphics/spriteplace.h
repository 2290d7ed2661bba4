// graphics/spriteplace.h - where the pixels of a sprite go.
//
// Boxes are device pixels, or pixels of a sprite counted from its top left, with
// y down; right and bottom are the first that are not in the box.
#pragma once

#include "graphics/spritelayout.h"
#include "graphics/textmatrix.h"

#include <cstdint>

struct errorblock;
struct surface;

struct spritebox {
    int32_t left, top, right, bottom;
};
bool spriteboxempty(const spritebox &box);
spritebox spriteboxmeet(const spritebox &a, const spritebox &b);

// A size other than the sprite's own: multipliers, then divisors.
struct spritefactors {
    int32_t xmul, ymul, xdiv, ydiv;
};

// Part of a sprite onto an upright box, each device pixel from the sprite pixel
// that its middle falls into, or mirrored.
struct spriteplace {
    spritebox box, source;
    bool flipx, flipy;
};

// The place of a sprite whose lower left corner is at a device pixel's edge. A
// negative size goes the other way from there and mirrors. factors of 0 are the
// sprite's own size; a size of 0, or places beyond any device, give an empty box.
spriteplace spriteplaceat(const spritelayout *layout, int32_t x, int32_t y,
                          const spritefactors *factors);

// The sprite pixel for a device pixel of the box.
int32_t spriteplacex(const spriteplace *place, int32_t x);
int32_t spriteplacey(const spriteplace *place, int32_t y);

// Part of a sprite onto any parallelogram: the corners of the part, from the top
// left clockwise, in 1/256 device pixels. The last corner follows from the rest.
struct spritepoint {
    int32_t x, y;
};
struct spritewarp {
    spritepoint corners[4];
    spritebox source;
};

// The warp of a matrix. The sprite lies with its lower left at the matrix's
// origin, each pixel as large as its mode says; scale is the surface that turns
// OS units into device pixels. Error: EMODE.
errorblock *spritewarpmatrix(const sprite *s, const spritelayout *layout, const spritebox &source,
                             const plotmatrix *matrix, const surface *scale, spritewarp *out);

// The warp of four corners given in 1/256 OS units.
void spritewarpcorners(const spritepoint *corners, const spritebox &source, const surface *scale,
                       spritewarp *out);

// Whether the corners are an upright rectangle, which place then does.
bool spritewarpupright(const spritewarp *warp, spriteplace *place);

// The box that holds all device pixels of a warp; empty for one without area or
// with corners beyond any device.
spritebox spritewarpbox(const spritewarp *warp);

// The sprite pixel that the middle of a device pixel of that box falls into;
// false when it falls beside the part.
bool spritewarpfind(const spritewarp *warp, int32_t x, int32_t y, spritepoint *found);

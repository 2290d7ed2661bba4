// graphics/spriteplot.h - sprites on the current surface.
//
// A sprite that isn't found is plotted as nothing, without an error; so is one
// that lies outside the clip. Its mask, if it has one, lets what is behind
// through. Errors: EMODE, 283 for a sprite that isn't well formed, 2, and the
// system's for its bitmap calls.
#pragma once

#include "graphics/spriteplace.h"
#include "graphics/sprites.h"
#include "graphics/textmatrix.h"

#include <cstdint>

struct errorblock;

// Bits of action and flags; others mean nothing.
constexpr uint32_t SPRITEGREYED = 1;      // the look of what is disabled
constexpr uint32_t SPRITECORNERS = 0x100; // of the transformed plot: four corners

// Plots with the lower left corner at a position in OS units, or in device
// pixels. factors give the size, by the sprite's in pixels (0: just that), and a
// negative one mirrors; pixtrans (0: none) gives a palette word for each value
// of a pixel, of up to 8 bits, in place of the sprite's own colours.
errorblock *spriteplot(const void *area, spritereference reference, uint32_t action, int32_t x,
                       int32_t y, const spritefactors *factors, const uint32_t *pixtrans);
errorblock *spriteplotdevice(const void *area, spritereference reference, uint32_t action,
                             int32_t x, int32_t y, const spritefactors *factors,
                             const uint32_t *pixtrans);

// How to transform: through a matrix, or, with SPRITECORNERS, onto the corners
// in 1/256 OS units, from the top left clockwise.
struct spritetransform {
    plotmatrix matrix;
    spritepoint corners[4];
};

// source (0: all) is the part to plot, in pixels of the sprite. Under a matrix
// it stays where it is in the whole sprite, which lies with its lower left at
// the matrix's origin and has pixels as large as its mode says; corners it fills.
errorblock *spriteplottransformed(const void *area, spritereference reference, uint32_t flags,
                                  const spritetransform *transform, const spritebox *source,
                                  const uint32_t *pixtrans);

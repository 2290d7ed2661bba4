// graphics/clip.h - where on the current surface drawing shows.
//
// Boxes only shrink the clip, until it is reset or restored; a path can enlarge it
// too. Who needs the old one back saves it; callers nest by holding a handle each.
#pragma once

#include <cstdint>

struct errorblock;

// Shrinks the clip to a box in OS units, or in 1/256 OS units.
errorblock *clipbox(int32_t x0, int32_t y0, int32_t x1, int32_t y1);
errorblock *clipboxfine(int32_t x0, int32_t y0, int32_t x1, int32_t y1);

// Whether some of a box in 1/256 OS units would show.
errorblock *clipvisible(int32_t x0, int32_t y0, int32_t x1, int32_t y1, bool *visible);

// The box round the clip in OS units (x0, y0 its lower left) and the system's
// kind of region. Any address may be 0.
errorblock *clipget(int32_t *x0, int32_t *y0, int32_t *x1, int32_t *y1, int32_t *kind);

// No clip, but the fixed box of a surface that has one.
errorblock *clipreset();

// Joins the path just ended to the clip.
constexpr int32_t CLIPAND = 0, CLIPDIFF = 1, CLIPCOPY = 2, CLIPOR = 3, CLIPXOR = 4;
errorblock *clippath(int32_t mode);

// clipsave gives a handle for cliprestore, which takes it back, or 0 when there
// was no clip.
errorblock *clipsave(intptr_t *handle);
errorblock *cliprestore(intptr_t handle);

// graphics/metafile.h - pictures: a surface that records what is drawn on it.
//
// A metafile is opened, drawn on by the usual calls and closed, all within one
// command; there is one at a time. Its scale is 1 to 1: an OS unit is a logical
// unit, and y runs down the picture.
//
//  - It grows in memory. The close writes it beside an older file of the name, which
//    gives way when the new one is whole.
//  - An error met while drawing goes into the close, which tidies up, writes
//    nothing and returns it.
//  - After an open that failed there is nothing to close; to close it all the
//    same, with the error and a context of 0, is harmless.
//
// Errors: 2, and the system's.
#pragma once

#include <cstdint>

struct errorblock;
struct surface;

// 0 while no metafile is open; changed by these calls alone.
extern surface *metasurface;

// A metafile in memory, width by height logical units, and the current surface
// on it. unused is not looked at.
errorblock *metaopen(int32_t unused, int32_t width, int32_t height, intptr_t *dc);

// The plain form: the recorded bytes go into a file. None make no file.
errorblock *metaclose(errorblock *error, intptr_t dc, const char *path);

// The same with the header of graphics/placeable.h in front.
errorblock *metacloseplaceable(errorblock *error, intptr_t dc, const char *path, int16_t left,
                               int16_t right, int16_t bottom, int16_t top, int16_t inch);

// The enhanced form, for a file whose path is looked at here and written by the close.
// description is the name that the file gives its maker, cut at 250 bytes.
errorblock *metaopenenhanced(const char *path, int32_t unused, int32_t width, int32_t height,
                             intptr_t *dc, const char *description);
errorblock *metacloseenhanced(errorblock *error, intptr_t dc);

// The pieces: a surface for a recording context, made current; and its end.
errorblock *metasetup(intptr_t dc, int32_t width, int32_t height);
void metaend(intptr_t dc);

// The frame of an enhanced metafile, in 1/100 mm: of a length on a display whose
// pixels span so many mm; and as systems of the older family want it.
int32_t metaframe(int32_t length, int32_t mm, int32_t pixels);
int32_t metaframeold(int32_t length, int32_t dpi);

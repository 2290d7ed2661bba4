// graphics/textplot.h - text on the current surface.
//
// Text takes the font, the colours and the alignment that graphics/fonts.h set.
// Plotters take flags and a position, in OS units with TEXTOSUNITS and else in
// millipoints; other bits mean nothing but where they are named. All return 0.
//
// The letters behind the names: n an explicit length, m a matrix, x an explicit
// length, a clip box and a spacing, s a scale, w 16-bit text.
#pragma once

#include "graphics/textmatrix.h"
#include "graphics/textposition.h"

#include <cstdint>

struct errorblock;

// A box in the unit of the position, its corners in any order. It stays upright
// where it is told, whatever the text is turned or scaled by.
struct textclip {
    int32_t x0, y0, x1, y1;
};

errorblock *plottext(const char *text, uint32_t flags, int32_t x, int32_t y);
errorblock *plottextw(const char16_t *text, uint32_t flags, int32_t x, int32_t y);
errorblock *plottextn(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y);
errorblock *plottextm(const char *text, uint32_t flags, int32_t x, int32_t y,
                      const plotmatrix *matrix);

// clip and spacing may be 0. spacing holds the advance of each character, in
// pixels before any scale or matrix; the scales are 16.16, and one that comes to
// nothing in 1/256 plots nothing.
errorblock *plottextx(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                      const textclip *clip, const int32_t *spacing);
errorblock *plottextxs(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                       const textclip *clip, const int32_t *spacing, int32_t scalex,
                       int32_t scaley);
errorblock *plottextxm(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                       const textclip *clip, const int32_t *spacing, const plotmatrix *matrix);

// With TEXTGLYPHS every character of the caller's text is replaced by its glyph,
// by cmapglyph, and the glyphs are plotted.
constexpr uint32_t TEXTGLYPHS = 0x1000;
errorblock *plottextxw(char16_t *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                       const textclip *clip, const int32_t *spacing);
errorblock *plottextxsw(char16_t *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                        const textclip *clip, const int32_t *spacing, int32_t scalex,
                        int32_t scaley);
errorblock *plottextxmw(char16_t *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                        const textclip *clip, const int32_t *spacing, const plotmatrix *matrix);

// Tab stops are pixels from the position; the last distance goes on behind the
// last stop, and without any the system's own stand.
errorblock *plottexttab(const char *text, uint32_t flags, int32_t x, int32_t y, int32_t nstops,
                        const int32_t *stops);

// graphics/fonts.h - fonts, made for the surface that they are used on.
//
// A font is made, used and lost within one drawing, on one current surface:
//
//     fontfind(&gridfont, &font);
//     fontset(font, FONTCLEAR, grid.textcolour, 0);
//     fontalign(FONTCENTRE);
//     plottext("A", TEXTOSUNITS, x, y);
//     fontlose(font);
//
// Nothing here looks at the system's answers; all calls return 0. A font that
// can't be made is the handle 0, and text comes out in the system's own font.
#pragma once

#include "base/fontrecord.h"

#include <cstdint>

struct errorblock;
struct surface;

using fonthandle = intptr_t; // the system's; 0 for none

// Sizes in sixteenths of a point, scaled for the current surface. A height is
// that of the characters, without the leading; a width of 0 is the font's own.
// The angle is 16.16 degrees, anticlockwise.
errorblock *fontfind(const fontrecord *record, fonthandle *font);
errorblock *fontfindsize(const char *name, int32_t width, int32_t height, int32_t unused1,
                         int32_t unused2, fonthandle *font);
errorblock *fontfindangle(const char *name, int32_t width, int32_t height, int32_t angle,
                          fonthandle *font);

// Sizes in pixels, angles in tenths of a degree.
errorblock *fontfindpixel(const char *name, int32_t width, int32_t height, int32_t angle,
                          fonthandle *font);
errorblock *fontfindset(const char *name, int32_t charset, int32_t width, int32_t height,
                        int32_t angle, fonthandle *font);
// Family 1 Roman, 2 Swiss, 3 modern, 4 script, 5 decorative; pitch 1 fixed, 2
// variable; 0 any.
errorblock *fontfindall(const char *name, int32_t charset, int32_t weight, int32_t italic,
                        int32_t family, int32_t pitch, int32_t width, int32_t height, int32_t angle,
                        fonthandle *font);

// Deletes a font. Every surface that holds it gets back what it displaced.
errorblock *fontlose(fonthandle font);

// Selects a font, unless it is 0, and sets the colour words of text. The
// background FONTCLEAR leaves what is behind the text.
constexpr uint32_t FONTCLEAR = 0xFFFFFFFF;
errorblock *fontset(fonthandle font, uint32_t background, uint32_t foreground, int32_t unused);
errorblock *fontcolour(uint32_t foreground);

// Where a text stands by its position: to the left of it and on it with its
// base line, unless a bit says otherwise. Right wins over centre, top over
// bottom; other bits mean nothing. With FONTCURSOR text starts at the cursor
// and takes it along, and positions are not looked at.
constexpr uint32_t FONTRIGHT = 2, FONTCENTRE = 4, FONTTOP = 8, FONTBOTTOM = 16, FONTCURSOR = 64;
errorblock *fontalign(uint32_t flags);

// Extra pixels shared out over the breaks of the next text, and behind every
// character. The second forms name the surface.
errorblock *textjustify(int32_t extra, int32_t breaks);
errorblock *textjustifyon(surface *s, int32_t extra, int32_t breaks);
errorblock *textspacing(int32_t extra);
errorblock *textspacingon(surface *s, int32_t extra);

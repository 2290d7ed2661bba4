// tools/gallerysheets/sheets.h - what stands on the gallery's sheets.
//
// Each is drawn on a page of its size, told in OS units, all in negative y.
#pragma once

#include <cstdint>
#include <string>

struct errorblock;
struct page;

errorblock *drawscales(const page *p);
errorblock *drawboxes(const page *p);
errorblock *drawshapes(const page *p);
errorblock *drawcurves(const page *p);
errorblock *drawpaths(const page *p);
errorblock *drawclips(const page *p);
errorblock *drawdrags(const page *p);
errorblock *drawcolours(const page *p);
errorblock *drawmixes(const page *p);
errorblock *drawaligned(const page *p);
errorblock *drawtext(const page *p);
errorblock *drawmeasured(const page *p);
errorblock *drawfonts(const page *p);
errorblock *drawsprites(const page *p);
errorblock *drawtransformed(const page *p);
errorblock *drawshipped(const page *p);

// One drawing on a page and in metafiles of all kinds, each of which is played
// back on a page of its own. It fails where a played page isn't the drawn one.
errorblock *drawpictures(const std::string &folder);

// Colour words for the sheets' own lettering and lines.
constexpr uint32_t INK = 0x30303000, FAINT = 0xC8C8C800, RED = 0x0000E000, BLUE = 0xC0602000,
                   GREEN = 0x00900000, WHITE = 0xFFFFFF00;

// Whether this drawing is for the kept pictures, which hold nothing that is the
// system's own: no lettering, no list of fonts, no colours of its windows.
extern bool forkeeping;

// A small text with its base line at a place, and a larger one.
void label(int32_t x, int32_t y, const char *text);
[[gnu::format(printf, 3, 4)]] void labelf(int32_t x, int32_t y, const char *format, ...);
void heading(int32_t x, int32_t y, const char *text);

// A cross of 7 pixels round a point.
void mark(int32_t x, int32_t y);

// Every pixel of a page as a square with a gap beside it. The current surface
// isn't that page.
void magnify(const page *from, int32_t x, int32_t y, int32_t size);

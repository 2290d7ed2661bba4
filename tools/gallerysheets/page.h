// tools/gallerysheets/page.h - a sheet of paper: a surface on a bitmap of 24 bits
// in memory, saved as a PNG.
//
// At a scale of OSUNITS an OS unit is a pixel. The top left corner is 0, 0, so
// that all of a page lies at negative y.
#pragma once

#include "graphics/surface.h"

#include <cstdint>
#include <string>

struct errorblock;

struct page {
    int32_t width, height; // pixels
    surface *drawing;
    surface *outer; // current before this page was
    intptr_t bitmap, before;
    uint8_t *bits; // rows from the top down; blue, green, red
    int32_t rowbytes;
};

// A white page, the current surface until it is closed. After an error there is
// nothing to close.
errorblock *pageopen(page *p, int32_t width, int32_t height, int32_t scale);
void pageclose(page *p);

// Pens, brushes, contexts and the like that this program holds now.
int deviceobjects();

// The colour word of a pixel.
uint32_t pageat(const page *p, int32_t x, int32_t y);

// How many pixels differ between two pages of the same size.
int32_t pagedifference(const page *a, const page *b);

errorblock *pagesave(const page *p, const std::string &path);

// The pixels of a window's inside, from its top left, to a place on the page.
void pagecopywindow(const page *p, int32_t x, int32_t y, intptr_t window, int32_t width,
                    int32_t height);

// Plays metafiles of the three kinds over a page.
errorblock *pageplay(const page *p, const std::string &path);
errorblock *pageplayenhanced(const page *p, const std::string &path);

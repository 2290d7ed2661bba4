// graphics/textmeasure.h - the size of text and of fonts.
//
// All sizes are device pixels. Calls that take a fontrecord measure on the
// measuring surface, the others on the current one with the font selected there.
// What can't be measured is 0. Errors: 2 for a measuring surface or for the
// memory of a measurement, with nothing measured.
#pragma once

#include "base/fontrecord.h"
#include "graphics/textspan.h"

#include <cstdint>

struct errorblock;

struct fontmetrics {
    int32_t ascent, descent, height; // height is the sum of both
    int32_t internalleading, externalleading;
    int32_t maxwidth, averagewidth; // of a character
};
errorblock *fontinfo(const fontrecord *record, fontmetrics *metrics);
errorblock *fontmetricsget(fontmetrics *metrics);

// The largest advance of the characters 32 to 254: 255 doesn't count.
errorblock *fontmaxwidth(const fontrecord *record, int32_t *width);

// How much of a text fits span->width. Without a split, width becomes that of
// the whole text looked at. With one, a text that doesn't fit is cut back to its
// last split character, at the latest the first character that didn't fit, and
// width becomes that of the rest.
errorblock *textfit(textspan *span);

// As textfit without a split. widths has room for the characters looked at, and
// gets for each that fits the width up to its end.
errorblock *textfitdx(textspan *span, int32_t *widths);

// The advance of each character, into an array with room for all looked at.
// length becomes how many were placed, width their sum, height 0. With
// PLACEFIT only what fits span->width is placed.
constexpr uint32_t PLACEKERNED = 1, PLACEFIT = 2;
errorblock *textplace(textspan *span, int32_t *widths, uint32_t flags);
errorblock *textplacew(textspanw *span, int32_t *widths, uint32_t flags);

// From the pen's position, y up. Of a whole text: left is 0, right its advance,
// bottom and top the extremes of its characters.
struct glyphextent {
    int32_t left, bottom, right, top;
};
errorblock *textbox(const char *text, glyphextent *box);
errorblock *textboxw(const char16_t *text, glyphextent *box);

// One character's black box and advance; each address may be 0.
errorblock *glyphbox(uint8_t character, glyphextent *box, int32_t *advancex, int32_t *advancey);
errorblock *glyphboxw(char16_t character, glyphextent *box, int32_t *advancex, int32_t *advancey);

// The same by the font's own table, for a system whose 16-bit call can't be
// relied on; glyphboxw takes it when that call fails.
errorblock *glyphboxmapped(char16_t character, glyphextent *box, int32_t *advancex,
                           int32_t *advancey);

// The font's pairs. count is the room in pairs and becomes the number read; with
// pairs 0, the number there are.
struct kerningpair {
    uint16_t first, second;
    int32_t amount; // pixels added between them
};
errorblock *fontkerning(kerningpair *pairs, int32_t *count);
errorblock *fontkerningw(kerningpair *pairs, int32_t *count);

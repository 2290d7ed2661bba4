// graphics/textspan.h - how much of a text fits a line.
#pragma once

#include <cstdint>

// What the measuring calls read and write. Widths are device pixels of the
// current surface.
struct textspan {
    const char *text;
    int32_t width;  // in: the width allowed; out: the width used
    int32_t height; // out
    int32_t split;  // the character that a line may be split at, negative for none
    int32_t length; // in: the most characters to look at; out: how many fit
};

// The same for 16-bit text.
struct textspanw {
    const char16_t *text;
    int32_t width, height, split, length;
};

// The characters that a span looks at: its length, or up to the text's zero.
int32_t spanlength(const textspan *span);
int32_t spanlengthw(const textspanw *span);

// A line of which fitted characters fit, and the next one doesn't, cut back to
// its last split character, which may be that next one; 0 if there is none.
int32_t textcut(const char *text, int32_t fitted, int32_t split);

// How many of count characters of these widths go into limit together, and
// their width; a negative limit is none.
int32_t textsum(const int32_t *widths, int32_t count, int32_t limit, int32_t *width);

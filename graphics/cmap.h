// graphics/cmap.h - from characters to glyphs by a font's own table.
//
// The road of 16-bit text where the system's calls can't be relied on: the
// table "cmap" of the font file, of which the subtable of format 4 is read that
// is for Unicode (encoding 1) or for symbols (encoding 0). Of several the last
// one counts.
//
// In a symbol font the glyphs stand at 0xF000 and up; a character below 256, or
// one of code page 1252, is found there too.
//
//  - A font file comes from outside. Nothing that it says of itself leads past
//    the bytes that were read.
//  - Glyph 0 is the one for what a font lacks.
#pragma once

#include <cstdint>

struct errorblock;

// A table's name as its four bytes stand in the file.
constexpr uint32_t CMAPTAG = 'c' | 'm' << 8 | 'a' << 16 | uint32_t{'p'} << 24;

constexpr int32_t CMAPSYMBOL = 0, CMAPUNICODE = 1; // encodings

// Asked of the window side (win32/fonttable.cpp): copies size bytes at offset of a
// table of the font that is selected in the context. Returns the bytes there were,
// at most size.
int32_t fonttable(intptr_t dc, uint32_t tag, uint32_t offset, void *out, int32_t size);

// Reads the subtable into buffer, its 16-bit values in the machine's order.
// size is the buffer's bytes; required gets those of the subtable, 0 if there is
// none of the kind, or one that contradicts itself. 1 if it was read: a buffer
// of 0, or too small, makes it the call that finds the size. encoding may be 0.
int32_t cmapload(intptr_t dc, uint16_t *buffer, int32_t size, int32_t *required, int32_t *encoding);

// A subtable that was read: for who asks of many characters.
struct charmap {
    uint16_t *words; // a plain allocation; 0 for a font without one
    int32_t nwords, nsegments, encoding;
};

// Errors: 2; then and for a font without a subtable words is 0.
errorblock *charmapread(intptr_t dc, charmap *map);
void charmapfree(charmap *map);

// The glyph of a code; -1 for one that no segment holds.
int32_t charmapglyph(const charmap *map, uint16_t code);

// The same from the font itself. 0, with a line in the trace, if there is none.
uint16_t cmapglyph(intptr_t dc, uint16_t code);

// How many codes of the subtable have a glyph.
int32_t cmapcount(intptr_t dc);

// The character as a symbol font has it: a code below 256 as it is, one of code
// page 1252 as its byte; -1 for others.
int32_t codetosymbol(uint16_t code);

// The characters of a font: ranges in a plain allocation that the caller frees,
// ended by one of zeros that count leaves out. Those of a symbol font are the
// characters of the code page whose bytes it has, and then its own codes.
// Errors: 2, with no list.
struct unicoderange {
    uint32_t first, count;
};
errorblock *cmapranges(intptr_t dc, unicoderange **list, int32_t *count);

// graphics/colours.h - colour words and the colour that drawing uses.
//
// A colour word is 0xBBGGRR00; its low byte is free, and tells colour words from
// other forms. The system's own colour is the word shifted right by 8.
//
// setcolour makes a pen and a brush each time: group drawing by colour.
#pragma once

#include "graphics/modeinfo.h"

#include <cstdint>

struct errorblock;

constexpr uint32_t COLOURNONE = 0xFF000000; // the value of a code without a colour
constexpr int32_t COLOURXOR = 3;            // mode: exclusive-or; any other copies

// The standard colours, numbers 0 to 15, into modeinfo.
void coloursinstall();

// Colours for the pen and the brush of the current surface. All return 0.
errorblock *setcolour(uint32_t word); // copying, the usual call
errorblock *setcolourmode(uint32_t word, int32_t mode);
errorblock *setcolourstore(uint32_t word, int32_t mode, uint32_t *store); // stores the word too
errorblock *setcolourinverse(uint32_t word); // each byte 255 less itself
errorblock *setcolourcode(uint32_t code);
errorblock *setcolourvalue(uint32_t colorref); // leaves the mode as it is

// The number road. Bit 7 set: the text background, transparent when bits 4 to
// 6 are 7, else desktop colour code & 15. Bit 7 clear: pen and brush of that
// colour, exclusive-or when bits 4 to 6 are 3.
errorblock *setgcol(uint32_t code);

// A colour and mode such that drawing turns a into b: desktop colours by
// number, or a word for a.
errorblock *xorcolours(int32_t a, int32_t b);
errorblock *xorcolourword(uint32_t word, int32_t b);

// What those draw with: a colour of the system, or an index with COLOURINDEX in
// its top byte on a palette device.
constexpr uint32_t COLOURINDEX = 0x01000000;
uint32_t xorvalue(int32_t a, int32_t b);
uint32_t xorvalueword(uint32_t word, int32_t b);

uint32_t colourinverse(uint32_t word);

// The system's colour of a colour code: low byte 0 or 255 none, 1 the colour in
// the upper bytes, 2 to 17 a desktop colour, 18 to 254 a colour of the system.
uint32_t colourcodevalue(uint32_t code);

// Asked of the window side (win32/colours.cpp): a colour of the system, by its
// number.
uint32_t systemcolour(int32_t number);

// The index of the device palette's entry nearest to a word.
int32_t nearestcolour(uint32_t word);

// How unlike two words are: 0 for equal ones.
int32_t colourdistance(uint32_t a, uint32_t b);

// The lowest index below end with the least distance; 0 when end is 0.
int32_t nearestinpalette(const uint32_t *table, int32_t end, uint32_t word);

// Palette words to grey in place, their bytes from the second up taken as red,
// green and blue.
void greyscale(uint32_t *words, int32_t count);

// Colours of the system (red lowest) to grey in the upper half of the range:
// the look of what is disabled.
void greyscalelight(uint32_t *colours, int32_t count);

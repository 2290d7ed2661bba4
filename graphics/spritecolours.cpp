#include "graphics/spritecolours.h"

#include "graphics/colours.h"
#include "graphics/palette.h"

#include <algorithm>
#include <cstring>

namespace
{

const uint32_t twocolours[] = {0xFFFFFF00, 0x00000000};
const uint32_t fourcolours[] = {0xFFFFFF00, 0xDDDDDD00, 0x99999900, 0x00000000};

constexpr int32_t BASECOLOURS = 16; // what 256 colours are expanded from

// From a word's order, or the system's, with red lowest, to a bitmap's.
uint32_t turned(uint32_t colorref)
{
    return (colorref & 255) << 16 | (colorref & 0xFF00) | colorref >> 16;
}

uint32_t paletteword(const spritelayout *layout, int32_t n)
{
    uint32_t word;
    memcpy(&word, layout->palette + n * SPRITECOLOURSIZE, sizeof word);
    return word;
}

void expandfrom(const spritelayout *layout, int32_t first, uint32_t *words)
{
    uint32_t base[BASECOLOURS];
    for (int32_t n = 0; n < BASECOLOURS; n++)
        base[n] = paletteword(layout, first + n);
    paletteexpand(base, words);
}

void defaultwords(int32_t bpp, uint32_t *words)
{
    int32_t count;
    const uint32_t *table = spritedefaultpalette(bpp, &count);
    if (bpp == 8)
        paletteexpand(table, words);
    else
        std::copy_n(table, count, words);
}

// Of a palette shorter than the depth asks for, the default stands for the rest;
// but a deep sprite's is short because it was meant to be expanded.
void ownwords(const spritelayout *layout, int32_t colours, uint32_t *words)
{
    int32_t count = std::min(layout->palettecount, colours);
    if (layout->image.bpp == 8 && count == 16) {
        expandfrom(layout, 0, words);
    } else if (layout->image.bpp == 8 && count == 64) {
        expandfrom(layout, 48, words);
    } else {
        defaultwords(layout->image.bpp, words);
        for (int32_t n = 0; n < count; n++)
            words[n] = paletteword(layout, n);
    }
}

uint32_t widened5(uint32_t bits)
{
    bits &= 31;
    return bits << 3 | bits >> 2;
}

} // namespace

const uint32_t *spritedefaultpalette(int32_t bpp, int32_t *count)
{
    *count = bpp == 1 ? 2 : bpp == 2 ? 4 : BASECOLOURS;
    switch (bpp) {
    case 1:
        return twocolours;
    case 2:
        return fourcolours;
    case 4:
        return modeinfo.desktopcolours;
    default:
        return palettebase;
    }
}

int32_t spritecolours(const spritelayout *layout, const uint32_t *pixtrans, bool greyed,
                      uint32_t *colours)
{
    int32_t count = 1 << layout->image.bpp;
    if (pixtrans)
        std::copy_n(pixtrans, count, colours);
    else
        ownwords(layout, count, colours);
    for (int32_t n = 0; n < count; n++)
        colours[n] = turned(colours[n] >> 8);
    for (int32_t n = 0; n < count && greyed; n++)
        colours[n] = spritegreyed(colours[n]);
    return count;
}

// Red is lowest in all of them.
uint32_t spritedeepcolour(uint32_t pixel, int32_t bpp)
{
    if (bpp != 16) return turned(pixel & 0xFFFFFF);
    return widened5(pixel) << 16 | widened5(pixel >> 5) << 8 | widened5(pixel >> 10);
}

uint32_t spritegreyed(uint32_t colour)
{
    uint32_t colorref = turned(colour);
    greyscalelight(&colorref, 1);
    return turned(colorref);
}

#include "graphics/colours.h"

#include "graphics/palette.h"

#include <algorithm>
#include <climits>

namespace
{

constexpr uint32_t defaults[DESKTOPCOLOURS] = {
    0xffffff00, 0xdddddd00, 0xbbbbbb00, 0x99999900, 0x77777700, 0x55555500, 0x33333300, 0x00000000,
    0x99440000, 0x00eeee00, 0x00cc0000, 0x0000dd00, 0xbbeeee00, 0x00885500, 0x00bbff00, 0xffbb0000,
};

int32_t byteat(uint32_t word, int32_t n)
{
    return static_cast<int32_t>(word >> n * 8 & 255);
}

uint32_t desktopcolour(int32_t number)
{
    return modeinfo.desktopcolours[number & (DESKTOPCOLOURS - 1)];
}

uint32_t nearestdesktop(int32_t number)
{
    return modeinfo.nearest[number & (DESKTOPCOLOURS - 1)];
}

// What joins a word and a desktop colour: their colours where the device has
// more than a palette, otherwise their places in it.
uint32_t xorof(uint32_t word, uint32_t index, int32_t b)
{
    if (modeinfo.bpp > 8) return (word ^ desktopcolour(b)) >> 8;
    uint32_t joined = index ^ nearestdesktop(b);
    if (modeinfo.palettedevice) return joined | COLOURINDEX;
    return modeinfo.systempalette[joined & (PALETTECOLOURS - 1)] >> 8;
}

int32_t grey(int32_t red, int32_t green, int32_t blue)
{
    return (299 * red + 587 * green + 114 * blue) / 1000;
}

} // namespace

// The room behind the sixteen begins them again, so that a number a little too
// large still is a colour.
void coloursinstall()
{
    std::copy_n(defaults, DESKTOPCOLOURS, modeinfo.desktopcolours);
    for (int i = 0; i < 4; i++)
        modeinfo.desktopcolours[DESKTOPCOLOURS + i] = defaults[i % 3];
}

uint32_t colourinverse(uint32_t word)
{
    return word ^ 0xFFFFFF00;
}

uint32_t xorvalue(int32_t a, int32_t b)
{
    return xorof(desktopcolour(a), nearestdesktop(a), b);
}

uint32_t xorvalueword(uint32_t word, int32_t b)
{
    return xorof(word, static_cast<uint32_t>(nearestcolour(word)), b);
}

int32_t nearestcolour(uint32_t word)
{
    return nearestinpalette(modeinfo.systempalette, palettelength(), word);
}

int32_t colourdistance(uint32_t a, uint32_t b)
{
    int32_t red = byteat(a, 1) - byteat(b, 1);
    int32_t green = byteat(a, 2) - byteat(b, 2);
    int32_t blue = byteat(a, 3) - byteat(b, 3);
    return 3 * red * red + 10 * green * green + blue * blue;
}

int32_t nearestinpalette(const uint32_t *table, int32_t end, uint32_t word)
{
    int32_t best = 0, least = INT_MAX;
    for (int32_t i = 0; i < end; i++) {
        int32_t away = colourdistance(table[i], word);
        if (away < least) {
            least = away;
            best = i;
        }
    }
    return best;
}

void greyscale(uint32_t *words, int32_t count)
{
    for (uint32_t *word = words; word < words + count; word++) {
        uint32_t g =
            static_cast<uint32_t>(grey(byteat(*word, 1), byteat(*word, 2), byteat(*word, 3)));
        *word = g << 24 | g << 16 | g << 8 | (*word & 255);
    }
}

void greyscalelight(uint32_t *colours, int32_t count)
{
    for (uint32_t *colour = colours; colour < colours + count; colour++) {
        int32_t g = grey(byteat(*colour, 0), byteat(*colour, 1), byteat(*colour, 2));
        uint32_t light = static_cast<uint32_t>(g * 128 / 255 + 127);
        *colour = (*colour & 0xFF000000) | light << 16 | light << 8 | light;
    }
}

// Colours: the sixteen, what is made of them, codes and palettes.

#include "graphics/colours.h"

#include "graphics/palette.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <algorithm>
#include <iterator>

namespace
{

void swatch(int32_t x, int32_t y, int32_t size)
{
    fillbox(x, y, size - 2, size - 2);
    setcolour(FAINT);
    hollowbox(x, y, size - 2, size - 2);
}

void wordrow(int32_t y, const char *name, const uint32_t *words)
{
    label(20, y + 16, name);
    for (int32_t i = 0; i < DESKTOPCOLOURS; i++) {
        setcolour(words[i]);
        swatch(200 + i * 48, y, 48);
    }
}

void sixteen()
{
    uint32_t words[DESKTOPCOLOURS];
    wordrow(-100, "The sixteen", modeinfo.desktopcolours);
    for (int32_t i = 0; i < DESKTOPCOLOURS; i++) {
        labelf(200 + i * 48, -116, "%d", i);
        labelf(200 + i * 48, i & 1 ? -142 : -130, "%06X",
               static_cast<unsigned>(modeinfo.desktopcolours[i] >> 8));
    }
    std::transform(modeinfo.desktopcolours, modeinfo.desktopcolours + DESKTOPCOLOURS, words,
                   colourinverse);
    wordrow(-200, "colourinverse", words);
    std::copy_n(modeinfo.desktopcolours, DESKTOPCOLOURS, words);
    greyscale(words, DESKTOPCOLOURS);
    wordrow(-250, "greyscale", words);
    for (int32_t i = 0; i < DESKTOPCOLOURS; i++)
        words[i] = modeinfo.desktopcolours[i] >> 8;
    greyscalelight(words, DESKTOPCOLOURS);
    std::transform(words, words + DESKTOPCOLOURS, words, [](uint32_t value) { return value << 8; });
    wordrow(-310, "greyscalelight", words);
}

// The same sixteen by two other roads, and the system's own.
void codes()
{
    label(20, -354, "setgcol 0 to 15");
    label(20, -414, "setcolourcode 2 to 17");
    label(20, -474, "setcolourcode 18 to 48");
    for (int32_t i = 0; i < DESKTOPCOLOURS; i++) {
        setgcol(static_cast<uint32_t>(i));
        swatch(200 + i * 48, -370, 48);
        setcolourcode(static_cast<uint32_t>(i + 2));
        swatch(200 + i * 48, -430, 48);
    }
    for (int32_t i = 0; !forkeeping && i < 31; i++) {
        setcolourcode(static_cast<uint32_t>(i + 18));
        swatch(200 + i * 24, -480, 24);
    }
}

uint32_t ramp(int32_t n, int32_t most)
{
    auto part = [&](int32_t from) {
        int32_t at = (n * 6 + from * most) % (6 * most);
        int32_t up = at < most ? at : at < 3 * most ? most : at < 4 * most ? 4 * most - at : 0;
        return static_cast<uint32_t>(up * 255 / most);
    };
    return part(2) << 8 | part(0) << 16 | part(4) << 24;
}

// A row of every hue, and the nearest of the sixteen to each.
void nearest()
{
    heading(20, -530, "Hues, and the nearest of the sixteen");
    for (int32_t i = 0; i < 192; i++) {
        uint32_t word = ramp(i, 192);
        setcolour(word);
        fillbox(200 + i * 4, -590, 4, 40);
        int32_t n = nearestinpalette(modeinfo.desktopcolours, DESKTOPCOLOURS, word);
        setcolour(modeinfo.desktopcolours[n]);
        fillbox(200 + i * 4, -632, 4, 40);
    }
}

void expanded()
{
    heading(20, -670, "The 256 colours of a sprite without a palette; of the sixteen expanded");
    uint32_t colours[2][PALETTECOLOURS];
    paletteexpand(palettebase, colours[0]);
    paletteexpand(modeinfo.desktopcolours, colours[1]);
    for (int32_t i = 0; i < 2 * PALETTECOLOURS; i++) {
        setcolour(colours[i / PALETTECOLOURS][i % PALETTECOLOURS]);
        swatch(200 + i / 256 * 400 + i % 16 * 18, -700 - i % 256 / 16 * 18, 18);
    }
}

} // namespace

errorblock *drawcolours(const page *)
{
    heading(20, -30, "Colours");
    sixteen();
    codes();
    nearest();
    expanded();
    return nullptr;
}

namespace
{

void mix(int32_t a, int32_t b)
{
    int32_t x = 60 + b * 44, y = -110 - a * 44;
    setcolour(modeinfo.desktopcolours[a]);
    swatch(x, y, 44);
    xorcolours(a, b);
    fillbox(x + 10, y + 10, 22, 22);
}

// Stripes over a ground, once exclusive-or and twice.
void modes()
{
    label(20, -856, "setcolourmode: copied; exclusive-or; exclusive-or twice; by gcol 3");
    for (int32_t i = 0; i < 4; i++)
        for (int32_t times = 0; times < (i == 2 ? 2 : 1); times++)
            for (int32_t part = 0; part < 6; part++) {
                if (!times) {
                    setcolour(modeinfo.desktopcolours[part + 8]);
                    fillbox(20 + i * 190 + part * 28, -920, 28, 50);
                }
                setcolourmode(0xFFA03000, i ? COLOURXOR : 0);
                if (i == 3) setgcol(3 << 4 | 11);
                fillbox(20 + i * 190 + part * 28, -905, 28, 20);
            }
    setcolour(0);
}

} // namespace

errorblock *drawmixes(const page *)
{
    heading(20, -30, "xorcolours: the inner squares of a column are all of its own colour");
    for (int32_t i = 0; i < DESKTOPCOLOURS; i++) {
        labelf(76 + i * 44, -56, "%d", i);
        labelf(30, -90 - i * 44, "%d", i);
        for (int32_t b = 0; b < DESKTOPCOLOURS; b++)
            mix(i, b);
    }
    modes();
    return nullptr;
}

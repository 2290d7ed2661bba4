#include "graphics/palette.h"

#include "graphics/colours.h"

#include <algorithm>

intptr_t identitypalette, palette;

const uint32_t palettebase[16] = {
    0x00000000, 0x10101000, 0x20202000, 0x30303000, 0x00004000, 0x10105000, 0x20206000, 0x30307000,
    0x40000000, 0x50101000, 0x60202000, 0x70303000, 0x40004000, 0x50105000, 0x60206000, 0x70307000,
};

int32_t palettelength()
{
    int32_t entries = modeinfo.palettedevice ? modeinfo.sizepalette : modeinfo.numcolours;
    return std::clamp(entries, 0, PALETTECOLOURS);
}

void palettenearest()
{
    for (int32_t i = 0; i < DESKTOPCOLOURS; i++)
        modeinfo.nearest[i] = static_cast<uint32_t>(nearestcolour(modeinfo.desktopcolours[i]));
}

// Bits 4 to 7 of the index each decide one bit of the word, of red, green,
// green and blue.
static uint32_t expanded(uint32_t base, uint32_t index)
{
    constexpr uint32_t decided = 1u << 15 | 1u << 22 | 1u << 23 | 1u << 31;
    uint32_t bits = (index >> 4 & 1) << 15 | (index >> 5 & 1) << 22 | (index >> 6 & 1) << 23 |
                    (index >> 7 & 1) << 31;
    uint32_t word = ((base & ~decided) | bits) & 0xF0F0F000;
    return word | word >> 4;
}

void paletteexpand(const uint32_t *base, uint32_t *colours)
{
    for (uint32_t index = 0; index < 256; index++)
        colours[index] = expanded(base[index & 15], index);
}

void paletteidentityentries(int32_t size, paletteentry *entries)
{
    for (int32_t i = 0; i < size; i++)
        entries[i] = {static_cast<uint8_t>(i), 0, 0, PALETTEEXPLICIT};
}

namespace
{

constexpr int32_t RESERVED = 10; // of the system, at either end of the device's palette

paletteentry entryof(uint32_t word, uint8_t flags)
{
    return {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word >> 16),
            static_cast<uint8_t>(word >> 24), flags};
}

// Takes the nearest match of each of ten system colours out of the library's,
// of which left remain.
int32_t withoutnearest(uint32_t *colours, int32_t left, const uint32_t *reserved)
{
    for (int32_t i = 0; i < RESERVED; i++) {
        int32_t match = nearestinpalette(colours, left, reserved[i]);
        colours[match] = colours[--left];
    }
    return left;
}

} // namespace

// The system's twenty stay in their places, and the library's colours fill the
// room between them.
void paletteentries(int32_t size, paletteentry *entries)
{
    const uint32_t *system = modeinfo.systempalette;
    for (int32_t i = 0; i < size; i++)
        entries[i] = entryof(system[i], 0);
    if (size < PALETTECOLOURS) {
        // Only the first 16 are known to be anything; the count stays as it is.
        std::fill(entries + std::min(size, 16), entries + size, paletteentry{});
        return;
    }
    uint32_t colours[PALETTECOLOURS];
    paletteexpand(palettebase, colours);
    int32_t left = withoutnearest(colours, PALETTECOLOURS, system);
    left = withoutnearest(colours, left, system + size - RESERVED);
    for (int32_t i = 0; i < left; i++)
        entries[RESERVED + i] = entryof(colours[i], PALETTENOCOLLAPSE);
}

#include "graphics/spriterow.h"

#include <array>
#include <cstring>

namespace
{

// In a sprite the first pixel has the lowest bits of a byte, in a bitmap the
// highest.
constexpr uint32_t pixelof(uint32_t byte, uint32_t bpp, uint32_t n)
{
    return byte >> n * bpp & ((1u << bpp) - 1);
}

constexpr std::array<uint8_t, 256> turnedtable(uint32_t bpp)
{
    std::array<uint8_t, 256> table = {};
    for (uint32_t byte = 0; byte < 256; byte++)
        for (uint32_t n = 0; n < 8 / bpp; n++)
            table[byte] |= static_cast<uint8_t>(pixelof(byte, bpp, n) << (8 - bpp - n * bpp));
    return table;
}

// There are no bitmaps of 2 bits: four pixels become two bytes of 4 bits each.
constexpr std::array<uint16_t, 256> widenedtable()
{
    std::array<uint16_t, 256> table = {};
    for (uint32_t byte = 0; byte < 256; byte++)
        table[byte] = static_cast<uint16_t>(pixelof(byte, 2, 0) << 4 | pixelof(byte, 2, 1) |
                                            pixelof(byte, 2, 2) << 12 | pixelof(byte, 2, 3) << 8);
    return table;
}

constexpr std::array<uint8_t, 256> turned1 = turnedtable(1), turned4 = turnedtable(4);
constexpr std::array<uint16_t, 256> widened2 = widenedtable();

void widenrow(const uint8_t *in, int32_t bytes, uint8_t *out, int32_t room)
{
    for (int32_t n = 0; n < bytes && n * 2 < room; n++) {
        out[n * 2] = static_cast<uint8_t>(widened2[in[n]]);
        out[n * 2 + 1] = static_cast<uint8_t>(widened2[in[n]] >> 8);
    }
}

void turnrow(const uint8_t *in, const std::array<uint8_t, 256> &table, uint8_t *out, int32_t room)
{
    for (int32_t n = 0; n < room; n++)
        out[n] = table[in[n]];
}

// Red and blue change places.
void deeprow(const spritelayout *layout, int32_t y, uint8_t *out)
{
    for (int32_t x = 0; x < layout->width; x++) {
        uint32_t pixel = spritepixel(&layout->image, x, y);
        if (layout->image.bpp == 16)
            spriterowput(out, 16, x, (pixel & 31) << 10 | (pixel & 31 << 5) | (pixel >> 10 & 31));
        else
            spriterowput(out, 24, x, (pixel & 255) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 255));
    }
}

} // namespace

int32_t spriterowdepth(int32_t bpp)
{
    return bpp == 2 ? 4 : bpp == 32 ? 24 : bpp;
}

int64_t spriterowbytes(int64_t width, int32_t bpp)
{
    return (width * bpp + 31) / 32 * 4;
}

void spriterowconvert(const spritelayout *layout, int32_t y, uint8_t *out)
{
    const spriterows &image = layout->image;
    const uint8_t *in = image.bytes + static_cast<int64_t>(y) * image.rowbytes;
    int32_t bpp = spriterowdepth(image.bpp);
    int32_t room = static_cast<int32_t>(spriterowbytes(layout->width, bpp));
    switch (image.bpp) {
    case 1:
        turnrow(in, turned1, out, room);
        break;
    case 2:
        widenrow(in, image.rowbytes, out, room);
        break;
    case 4:
        turnrow(in, turned4, out, room);
        break;
    case 8:
        memcpy(out, in, static_cast<size_t>(room));
        break;
    default:
        deeprow(layout, y, out);
    }
}

void spriterowput(uint8_t *row, int32_t bpp, int32_t x, uint32_t value)
{
    if (bpp < 8) {
        int32_t perbyte = 8 / bpp, shift = 8 - bpp - x % perbyte * bpp;
        row[x / perbyte] |= static_cast<uint8_t>(value << shift);
        return;
    }
    for (int32_t byte = 0; byte < bpp / 8; byte++)
        row[x * (bpp / 8) + byte] = static_cast<uint8_t>(value >> byte * 8);
}

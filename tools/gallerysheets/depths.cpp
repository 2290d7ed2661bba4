#include "tools/gallerysheets/depths.h"

#include "graphics/colours.h"
#include "graphics/palette.h"
#include "graphics/sprites.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

std::string depthsfolder;

namespace
{

constexpr int32_t HALF = DEPTHSIDE / 2;
const int32_t bayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

struct rgb {
    double red, green, blue; // 0 to 1
};

double hue(double angle)
{
    return std::clamp(std::abs(std::fmod(angle + 6, 6.0) - 3) - 1, 0.0, 1.0);
}

rgb wheel(int32_t x, int32_t y)
{
    if (x + y < 16) return {0.1, 0.1, 0.1};
    if (y > DEPTHSIDE - 7 && x > 5 && x < 30) return {1, 1, 1};
    double across = x - HALF + 0.5, down = y - HALF + 0.5;
    double angle = std::atan2(down, across) * 3 / 3.14159265358979 + 3;
    double far = std::min(1.0, std::hypot(across, down) / HALF);
    auto part = [&](double turned) { return 1 - far + far * hue(angle + turned); };
    return {part(0), part(4), part(2)};
}

bool shows(int32_t x, int32_t y)
{
    return std::hypot(x - HALF + 0.5, y - HALF + 0.5) < HALF;
}

uint32_t level(double value, int32_t most)
{
    return static_cast<uint32_t>(std::lround(value * most));
}

uint32_t wordof(const rgb &c)
{
    return level(c.red, 255) << 8 | level(c.green, 255) << 16 | level(c.blue, 255) << 24;
}

// The colours of a depth that has a palette.
std::vector<uint32_t> paletteof(int32_t bpp)
{
    std::vector<uint32_t> words(size_t{1} << bpp);
    if (bpp == 1) words = {0xFFFFFF00, 0x40104000};
    if (bpp == 2) words = {0xFFFFFF00, 0xAAAAAA00, 0x55555500, 0};
    if (bpp == 4) std::copy_n(modeinfo.desktopcolours, DESKTOPCOLOURS, words.begin());
    if (bpp == 8) paletteexpand(palettebase, words.data());
    return words;
}

uint32_t dithered(const rgb &c, int32_t x, int32_t y, int32_t most)
{
    double grey = 0.3 * c.red + 0.59 * c.green + 0.11 * c.blue;
    double raised = grey * most + (bayer[y & 3][x & 3] + 0.5) / 16;
    return static_cast<uint32_t>(most - std::clamp(static_cast<int32_t>(raised), 0, most));
}

uint32_t pixelof(int32_t bpp, const std::vector<uint32_t> &palette, int32_t x, int32_t y)
{
    rgb c = wheel(x, y);
    if (bpp <= 2) return dithered(c, x, y, (1 << bpp) - 1);
    if (bpp <= 8)
        return static_cast<uint32_t>(
            nearestinpalette(palette.data(), static_cast<int32_t>(palette.size()), wordof(c)));
    if (bpp == 16) return level(c.red, 31) | level(c.green, 31) << 5 | level(c.blue, 31) << 10;
    return wordof(c) >> 8;
}

void putword(std::string *out, uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8)
        *out += static_cast<char>(value >> shift);
}

// Pixels of one row after the other, the low bits first.
struct bitrow {
    std::string bytes;
    int32_t bits;
};

void putbits(bitrow *row, uint32_t value, int32_t bpp)
{
    for (int32_t n = 0; n < bpp; n++, row->bits++) {
        if (row->bits % 8 == 0) row->bytes += '\0';
        if (value >> n & 1) row->bytes.back() |= static_cast<char>(1 << row->bits % 8);
    }
}

std::string padded(bitrow row)
{
    row.bytes.resize((row.bytes.size() + 3) & ~size_t{3});
    return row.bytes;
}

std::string imagerows(int32_t bpp, const std::vector<uint32_t> &palette)
{
    std::string out;
    for (int32_t y = 0; y < DEPTHSIDE; y++) {
        bitrow row = {};
        for (int32_t x = 0; x < DEPTHSIDE; x++)
            putbits(&row, pixelof(bpp, palette, x, y), bpp);
        out += padded(row);
    }
    return out;
}

std::string maskrows(int32_t bpp)
{
    std::string out;
    for (int32_t y = 0; y < DEPTHSIDE; y++) {
        bitrow row = {};
        for (int32_t x = 0; x < DEPTHSIDE; x++)
            putbits(&row, shows(x, y) ? 0xFFFFFFFF : 0, bpp);
        out += padded(row);
    }
    return out;
}

uint32_t modeof(int32_t bpp)
{
    if (bpp <= 8) return bpp == 8 ? 28 : bpp == 4 ? 27 : bpp == 2 ? 26 : 25;
    uint32_t type = bpp == 16 ? 5 : bpp == 24 ? 8 : 6;
    return type << 27 | 90 << 14 | 90 << 1 | 1;
}

// Deep sprites have masks of one bit a pixel.
std::string spriteof(int32_t bpp, bool masked)
{
    std::vector<uint32_t> palette;
    if (bpp <= 8) palette = paletteof(bpp);
    std::string image = imagerows(bpp, palette), mask = masked ? maskrows(bpp > 8 ? 1 : bpp) : "";
    uint32_t imageat = static_cast<uint32_t>(sizeof(sprite) + palette.size() * SPRITECOLOURSIZE);
    uint32_t maskat = imageat + static_cast<uint32_t>(masked ? image.size() : 0);
    uint32_t bits = static_cast<uint32_t>(DEPTHSIDE * bpp);
    std::string name = (masked ? "round" : "wheel") + std::to_string(bpp), out;
    name.resize(12);
    putword(&out, imageat + static_cast<uint32_t>(image.size() + mask.size()));
    out += name;
    for (uint32_t value : {(bits + 31) / 32 - 1, uint32_t{DEPTHSIDE - 1}, uint32_t{0},
                           (bits - 1) % 32, imageat, maskat, modeof(bpp)})
        putword(&out, value);
    for (uint32_t word : palette) {
        putword(&out, word);
        putword(&out, word);
    }
    return out + image + mask;
}

} // namespace

std::string depthsfile()
{
    std::string all, out;
    for (int32_t bpp : DEPTHS)
        all += spriteof(bpp, false) + spriteof(bpp, true);
    putword(&out, 2 * std::size(DEPTHS));
    putword(&out, sizeof(spritearea));
    putword(&out, static_cast<uint32_t>(all.size() + sizeof(spritearea)));
    return out + all;
}

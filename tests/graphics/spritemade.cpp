#include "tests/graphics/spritemade.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace
{

void putword(std::string *out, int64_t value)
{
    for (int n = 0; n < 4; n++)
        *out += static_cast<char>(value >> n * 8);
}

void setbit(std::string *row, int64_t bit)
{
    (*row)[static_cast<size_t>(bit / 8)] |= static_cast<char>(1 << bit % 8);
}

// A row bit by bit, from the low bit of each byte.
std::string rowbits(const spritemade &made, int32_t y, int32_t bpp, int32_t firstbit,
                    const std::function<uint32_t(size_t)> &value)
{
    int64_t bits = firstbit + static_cast<int64_t>(made.width) * bpp;
    std::string row(static_cast<size_t>((bits + 31) / 32 * 4), 0);
    for (int32_t x = 0; x < made.width; x++)
        for (int32_t n = 0; n < bpp; n++)
            if (value(static_cast<size_t>(y * made.width + x)) >> n & 1)
                setbit(&row, firstbit + static_cast<int64_t>(x) * bpp + n);
    return row;
}

std::string image(const spritemade &made)
{
    std::string out;
    for (int32_t y = 0; y < made.height; y++)
        out += rowbits(made, y, made.bpp, made.firstbit, [&](size_t n) { return made.pixels[n]; });
    return out;
}

std::string mask(const spritemade &made)
{
    int32_t bpp = made.widemask ? made.bpp : 1;
    std::string out;
    for (int32_t y = 0; y < made.height && !made.mask.empty(); y++)
        out += rowbits(made, y, bpp, made.widemask ? made.firstbit : 0,
                       [&](size_t n) { return made.mask[n] ? 0xFFFFFFFFu : 0u; });
    return out;
}

int32_t channel(uint32_t value, int32_t shift)
{
    return static_cast<int32_t>(value >> shift & 255);
}

// A colour of which the low byte of each is a part: red, green and blue.
int32_t join(uint32_t red, uint32_t green, uint32_t blue)
{
    return channel(red, 0) << 16 | channel(green, 0) << 8 | channel(blue, 0);
}

uint32_t from5(uint32_t bits)
{
    return (bits & 31) * 8 + (bits & 31) / 4;
}

int32_t greyed(int32_t colour)
{
    uint32_t c = static_cast<uint32_t>(colour);
    int32_t g = (299 * channel(c, 16) + 587 * channel(c, 8) + 114 * channel(c, 0)) / 1000;
    return (g * 128 / 255 + 127) * 0x010101;
}

int32_t plaincolour(const spritemade &made, uint32_t pixel)
{
    if (made.bpp == 16) return join(from5(pixel), from5(pixel >> 5), from5(pixel >> 10));
    if (made.bpp > 16) return join(pixel, pixel >> 8, pixel >> 16);
    uint32_t word = made.palette[pixel];
    return join(word >> 8, word >> 16, word >> 24);
}

} // namespace

spritemade spritestriped(int32_t bpp, int32_t width, int32_t height, bool masked)
{
    spritemade made;
    made.width = width;
    made.height = height;
    made.bpp = bpp;
    made.mode = bpp == 1 ? 25 : bpp == 2 ? 26 : bpp == 4 ? 27 : bpp == 8 ? 28 : 0;
    if (bpp > 8) {
        uint32_t type = bpp == 16 ? 5 : bpp == 24 ? 8 : 6;
        made.mode = type << 27 | 90 << 14 | 90 << 1 | 1;
        made.widemask = false;
    }
    for (uint32_t n = 0; n < static_cast<uint32_t>(width * height); n++) {
        uint32_t spread = bpp > 8 ? n * 2654435761u : n;
        made.pixels.push_back(bpp == 32 ? spread : spread & ((1u << bpp) - 1));
        int32_t x = static_cast<int32_t>(n) % width, y = static_cast<int32_t>(n) / width;
        if (masked) made.mask.push_back((x + y) % 5 != 2);
    }
    for (uint32_t n = 0; bpp <= 8 && n < 1u << bpp; n++)
        made.palette.push_back((n * 0x9E3779B1u + 0x10305000) & 0xFFFFFF00);
    return made;
}

std::string spritebytes(const spritemade &made)
{
    std::string colours, rows = image(made), maskrows = mask(made);
    for (uint32_t word : made.palette) {
        putword(&colours, word);
        putword(&colours, word);
    }
    size_t imageat = 44 + colours.size(), maskat = imageat + (made.mask.empty() ? 0 : rows.size());
    int64_t bits = made.firstbit + static_cast<int64_t>(made.width) * made.bpp;

    std::string out;
    putword(&out, static_cast<int64_t>(imageat + rows.size() + maskrows.size()));
    out += (made.name + std::string(12, 0)).substr(0, 12);
    for (int64_t value :
         {(bits + 31) / 32 - 1, int64_t{made.height} - 1, int64_t{made.firstbit}, (bits - 1) % 32,
          static_cast<int64_t>(imageat), static_cast<int64_t>(maskat), int64_t{made.mode}})
        putword(&out, value);
    return out + colours + rows + maskrows;
}

std::string spritefile(const std::vector<std::string> &sprites)
{
    std::string all, out;
    for (const std::string &bytes : sprites)
        all += bytes;
    putword(&out, static_cast<int64_t>(sprites.size()));
    putword(&out, 16);
    putword(&out, static_cast<int64_t>(all.size()) + 16);
    return out + all;
}

const sprite *spritein(const std::string &bytes)
{
    return reinterpret_cast<const sprite *>(bytes.data());
}

int32_t spritecolourat(const spritemade &made, int32_t x, int32_t y, bool grey)
{
    if (x < 0 || y < 0 || x >= made.width || y >= made.height) return -1;
    size_t n = static_cast<size_t>(y * made.width + x);
    if (!made.mask.empty() && !made.mask[n]) return -1;
    int32_t colour = plaincolour(made, made.pixels[n]);
    return grey ? greyed(colour) : colour;
}

int32_t spritecolourplotted(const spritemade &made, const spriteshown &shown, int32_t x, int32_t y)
{
    x -= shown.left;
    y -= shown.top;
    if (x < 0 || y < 0 || x >= shown.width || y >= shown.height) return -1;
    double across = (x + 0.5) / shown.width, down = (y + 0.5) / shown.height;
    if (shown.flipx) across = 1 - across;
    if (shown.flipy) down = 1 - down;
    return spritecolourat(made, static_cast<int32_t>(across * made.width),
                          static_cast<int32_t>(down * made.height), shown.greyed);
}

spriteshown spriteshownat(const spritemade &made, int32_t x, int32_t y,
                          const spritefactors &factors, bool greyed)
{
    int32_t width = made.width * factors.xmul / factors.xdiv;
    int32_t height = made.height * factors.ymul / factors.ydiv;
    return {std::min(x, x + width),
            std::min(y, y - height),
            std::abs(width),
            std::abs(height),
            width < 0,
            height < 0,
            greyed};
}

areamade::areamade()
{
    spriteinit(&block);
}

areamade::~areamade()
{
    flex_free(&block);
}

const spritearea &areamade::head() const
{
    return *static_cast<spritearea *>(block);
}

std::string areamade::used() const
{
    return {static_cast<char *>(block) + 4, static_cast<size_t>(head().free) - 4};
}

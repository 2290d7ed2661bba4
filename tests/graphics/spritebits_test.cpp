// From sprites to bitmaps: bytes, colours, and which pixel goes where.
#include "graphics/colours.h"
#include "graphics/palette.h"
#include "graphics/spritebits.h"
#include "graphics/spriterow.h"
#include "graphics/surface.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/spritemade.h"

#include <doctest/doctest.h>

#include <cstring>

namespace
{

constexpr spritebox EVERYWHERE = {-1000, -1000, 1000, 1000};
constexpr int32_t ONE = MATRIXONE;
using words = std::vector<uint32_t>;

// A made sprite with its layout.
struct laid {
    spritemade made;
    std::string bytes;
    spritelayout layout;
    explicit laid(const spritemade &m) : made(m), bytes(spritebytes(m)), layout()
    {
        REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    }
};

// The colours of a made sprite, 0xRRGGBB.
words coloursof(const spritemade &made, const uint32_t *pixtrans = nullptr, bool greyed = false)
{
    laid s(made);
    words colours(SPRITETABLESIZE);
    colours.resize(static_cast<size_t>(spritecolours(&s.layout, pixtrans, greyed, colours.data())));
    return colours;
}

// Those of palette words, made out of sixteen.
words expanded(const uint32_t *base)
{
    words colours(256);
    paletteexpand(base, colours.data());
    for (uint32_t &word : colours)
        word = (word >> 8 & 255) << 16 | (word >> 16 & 255) << 8 | word >> 24;
    return colours;
}

uint32_t bitsat(const void *rows, int32_t rowbytes, int32_t height, int32_t bpp, int32_t x,
                int32_t y)
{
    const uint8_t *row = static_cast<const uint8_t *>(rows) + (height - 1 - y) * rowbytes;
    uint32_t value = 0;
    for (int32_t bit = x * bpp; bpp < 8 && bit < (x + 1) * bpp; bit++)
        value = value << 1 | (row[bit / 8] >> (7 - bit % 8) & 1);
    for (int32_t n = 0; n < bpp / 8; n++)
        value |= static_cast<uint32_t>(row[x * (bpp / 8) + n]) << n * 8;
    return value;
}

int32_t colourof(const spritebitmap &b, int32_t x, int32_t y)
{
    uint32_t value = bitsat(b.rows, b.rowbytes, b.height, b.bpp, x, y);
    if (b.bpp <= 8) {
        REQUIRE(value < static_cast<uint32_t>(b.colours));
        return static_cast<int32_t>(b.table[value]);
    }
    if (b.bpp == 24) return static_cast<int32_t>(value);
    int32_t out = 0;
    for (int32_t shift : {10, 5, 0}) {
        int32_t five = static_cast<int32_t>(value >> shift & 31);
        out = out << 8 | five << 3 | five >> 2;
    }
    return out;
}

// The colour that a device gets at a place, -1 for none; where the mask hides
// it, the image has to be neutral.
int32_t shownat(const spritebitmap &b, int32_t x, int32_t y, bool greyed)
{
    x -= b.x;
    y -= b.y;
    if (!b.rows || x < 0 || y < 0 || x >= b.width || y >= b.height) return -1;
    if (b.mask && !bitsat(b.mask, b.maskrowbytes, b.height, 1, x, y)) {
        REQUIRE(colourof(b, x, y) == (greyed ? 0xFFFFFF : 0));
        return -1;
    }
    return colourof(b, x, y);
}

bool inbox(const spritebox &box, int32_t x, int32_t y)
{
    return x >= box.left && x < box.right && y >= box.top && y < box.bottom;
}

// Plots into a bitmap, and looks at all pixels inside the clip.
void checkplot(const laid &s, const spritefactors &factors, const spritebox &clip, bool greyed)
{
    const spriteshown shown = spriteshownat(s.made, 10, 20, factors, greyed);
    spriteplace place = spriteplaceat(&s.layout, 10, 20, &factors);
    spritebitmap bitmap;
    REQUIRE_FALSE(spritebitsplace(&s.layout, {nullptr, greyed}, &place, clip, &bitmap));
    int32_t wrong = 0;
    for (int32_t y = -20; y < 60; y++)
        for (int32_t x = -20; x < 60; x++)
            wrong += inbox(clip, x, y) &&
                     shownat(bitmap, x, y, greyed) != spritecolourplotted(s.made, shown, x, y);
    CHECK(wrong == 0);
    spritebitsfree(&bitmap);
}

spritebitmap warped(const laid &s, const spritewarp &warp, const spritebox &clip)
{
    spritebitmap bitmap;
    REQUIRE_FALSE(spritebitswarp(&s.layout, {nullptr, false}, &warp, clip, &bitmap));
    return bitmap;
}

bool same(const spritebox &a, const spritebox &b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// One pixel to the OS unit, y up from the pixel row 100.
surface plainsurface()
{
    surface s = {};
    s.unitx = s.unity = s.scalex = s.scaley = 1;
    s.deviceshifty = 100;
    return s;
}

} // namespace

TEST_CASE("sprites at every depth, size, turn and clip")
{
    const spritefactors sizes[] = {{1, 1, 1, 1},  {2, 3, 1, 1},  {1, 1, 2, 3},   {5, 3, 3, 5},
                                   {-1, 1, 1, 1}, {1, -1, 1, 1}, {-3, 2, -2, -1}};
    const spritebox clips[] = {EVERYWHERE, {13, 11, 17, 18}, {-9, 2, 12, 90}};
    for (int32_t bpp : {1, 2, 4, 8, 16, 24, 32})
        for (int masked : {0, 1}) {
            CAPTURE(bpp);
            CAPTURE(masked);
            spritemade made = spritestriped(bpp, 9, 7, masked);
            made.firstbit = bpp < 8 ? 4 * masked : 0;
            if (bpp == 16) made.pixels[1] = 0x7FFF; // beside 0, the furthest greys
            laid s(made);
            for (const spritefactors &size : sizes)
                for (const spritebox &clip : clips)
                    for (bool greyed : {false, true})
                        checkplot(s, size, clip, greyed);
        }
}

TEST_CASE("a bitmap is as deep as its sprite, unless a mask leaves no number free")
{
    const int32_t rows[][4] = {{1, 1, 4, 1},     {2, 4, 4, 4},     {4, 4, 8, 4},    {8, 8, 24, 8},
                               {16, 16, 16, 16}, {24, 24, 24, 24}, {32, 24, 24, 24}};
    auto depthof = [](const spritemade &made) {
        laid s(made);
        spriteplace place = spriteplaceat(&s.layout, 0, 5, nullptr);
        spritebitmap bitmap;
        REQUIRE_FALSE(spritebitsplace(&s.layout, {}, &place, EVERYWHERE, &bitmap));
        spritebitsfree(&bitmap);
        return bitmap.bpp;
    };
    for (const auto &[bpp, plain, masked, black] : rows) {
        CAPTURE(bpp);
        spritemade made = spritestriped(bpp, 5, 5, true);
        for (uint32_t &word : made.palette)
            word |= 0x01000000; // none of them is black
        CHECK(depthof(made) == masked);
        if (bpp <= 8) made.palette.back() = 0; // where a colour hides
        CHECK(depthof(made) == black);
        CHECK(depthof(spritestriped(bpp, 5, 5, false)) == plain);
    }
}

TEST_CASE("colours: a palette, its expansion, the default, the caller's")
{
    coloursinstall();
    spritemade made = spritestriped(1, 1, 1, false);
    made.palette = {0x11223300, 0xAABBCC00};
    CHECK(coloursof(made) == words{0x332211, 0xCCBBAA});
    const uint32_t pixtrans[] = {0xFF000000, 0x00FF0000};
    CHECK(coloursof(made, pixtrans) == words{0x0000FF, 0x00FF00});
    // 29 * 128 / 255 + 127, and 149 likewise
    CHECK(coloursof(made, pixtrans, true) == words{0x8D8D8D, 0xC9C9C9});
    made.palette.clear();
    CHECK(coloursof(made) == words{0xFFFFFF, 0});
    made = spritestriped(2, 1, 1, false);
    made.palette = {0x00000100}; // and the default's behind it
    CHECK(coloursof(made) == words{0x010000, 0xDDDDDD, 0x999999, 0});
    made = spritestriped(8, 1, 1, false);
    made.palette.clear();
    CHECK(coloursof(made) == expanded(palettebase));
    for (uint32_t n = 0; n < 64; n++)
        made.palette.push_back(n * 0x04030200);
    CHECK(coloursof(made) == expanded(&made.palette[48]));
}

TEST_CASE("places: nothing for a size of nothing, out of all bounds or out of memory")
{
    laid s(spritestriped(1, 9, 7, true));
    for (const spritefactors &factors : {spritefactors{1, 1, 0, 1},
                                         {1, 1, 1, 0},
                                         {0, 1, 1, 1},
                                         {1, 1, 1, 8},
                                         {0x7FFFFFFF, 1, 1, 1}})
        CHECK(spriteboxempty(spriteplaceat(&s.layout, 0, 0, &factors).box));
    CHECK(spriteboxempty(spriteplaceat(&s.layout, 0x7FFFFFFF, 0, nullptr).box));
    CHECK(spriteboxempty(spriteplaceat(&s.layout, 0, -0x7FFFFFFF, nullptr).box));
    const spritefactors huge = {10000000, 10000000, 1, 1};
    spriteplace place = spriteplaceat(&s.layout, -50000000, 20000000, &huge);
    spritebitmap bitmap;
    REQUIRE_FALSE(spritebitsplace(&s.layout, {}, &place, {0, 0, 40, 30}, &bitmap));
    CHECK((bitmap.width == 40 && bitmap.height == 30));
    CHECK(shownat(bitmap, 5, 5, false) == spritecolourat(s.made, 5, 5, false));
    spritebitsfree(&bitmap);
    const spritebox vast = {-100000000, 0, 1000000, 1000000};
    CHECK(codeof(spritebitsplace(&s.layout, {}, &place, vast, &bitmap)) == ERRORMEMORY);
    for (int32_t n = 0; n < 2; n++) {
        flexfailafter(n);
        CHECK(spritebitsplace(&s.layout, {}, &place, {0, 0, 40, 30}, &bitmap));
        flexfailafter(-1);
        CHECK((!bitmap.rows && !bitmap.mask));
    }
}

TEST_CASE("warps: upright ones are places, others go by their middles, some are nothing")
{
    laid s(spritestriped(8, 9, 7, true));
    const surface scale = plainsurface();
    spritewarp warp;
    spriteplace place;
    auto upright = [&](std::vector<spritepoint> corners, const spritebox &part) {
        spritewarpcorners(corners.data(), part, &scale, &warp);
        return spritewarpupright(&warp, &place);
    };
    REQUIRE(upright({{256, 2560}, {5120, 2560}, {5120, 300}, {256, 300}}, {1, 2, 6, 7}));
    CHECK(same(place.box, {1, 90, 20, 99}));
    CHECK_FALSE((place.flipx || place.flipy));
    CHECK(spriteplacex(&place, 19) == 5);
    // Wherever both roads can go they come to the same pixels.
    spritebitmap one = warped(s, warp, EVERYWHERE), other;
    REQUIRE_FALSE(spritebitsplace(&s.layout, {}, &place, EVERYWHERE, &other));
    for (int32_t n = 0; n < 500; n++)
        REQUIRE(shownat(one, n % 25, 85 + n / 25, false) ==
                shownat(other, n % 25, 85 + n / 25, false));
    spritebitsfree(&one);
    spritebitsfree(&other);
    REQUIRE(upright({{128, 2432}, {384, 2432}, {384, 2176}, {128, 2176}}, {0, 0, 9, 7}));
    CHECK(place.box.left == 0); // an edge on a pixel's middle takes it in
    CHECK(place.box.right == 1);
    CHECK_FALSE(upright({{256, 300}, {256, 2560}, {5120, 2560}, {5120, 300}}, {0, 0, 9, 7}));

    // Without area, and out of all bounds.
    for (const std::vector<spritepoint> &corners :
         {std::vector<spritepoint>{{0, 0}, {2560, 1280}, {5120, 2560}, {2560, 1280}},
          {{0, 0}, {0x7FFFFFFF, 500}, {0x7FFFFFFF, -900}, {0, -0x7FFFFFFF}}}) {
        upright(corners, {0, 0, 9, 7});
        CHECK(spriteboxempty(spritewarpbox(&warp)));
        CHECK(!warped(s, warp, EVERYWHERE).rows);
    }
}

TEST_CASE("matrices: quarter turns, mirrored too, and a wild one is nothing")
{
    laid s(spritestriped(8, 3, 2, true));
    surface scale = plainsurface();
    spritewarp warp;
    spriteplace place;
    for (bool mirrored : {false, true}) {
        // x goes up, y to the left or, mirrored, to the right; a pixel is 2 OS units.
        const plotmatrix matrix = {0, ONE, mirrored ? ONE : -ONE, 0, 10, 20};
        const int32_t left = mirrored ? 10 : 6;
        REQUIRE_FALSE(
            spritewarpmatrix(spritein(s.bytes), &s.layout, {0, 0, 3, 2}, &matrix, &scale, &warp));
        REQUIRE_FALSE(spritewarpupright(&warp, &place));
        spritebitmap bitmap = warped(s, warp, EVERYWHERE);
        CHECK((bitmap.x == left && bitmap.width == 4 && bitmap.height == 6));
        for (int32_t y = 0; y < 6; y++)
            for (int32_t x = 0; x < 4; x++)
                CHECK(shownat(bitmap, left + x, 74 + y, false) ==
                      spritecolourat(s.made, (5 - y) / 2, (mirrored ? 3 - x : x) / 2, false));
        // Every part is the same whatever the clip.
        spritebitmap part = warped(s, warp, {8, 75, 9, 78});
        for (int32_t y = 75; y < 78; y++)
            CHECK(shownat(part, 8, y, false) == shownat(bitmap, 8, y, false));
        spritebitsfree(&part);
        spritebitsfree(&bitmap);
    }
    const plotmatrix wild = {INT32_MAX, -INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX, 1};
    REQUIRE_FALSE(
        spritewarpmatrix(spritein(s.bytes), &s.layout, {0, 0, 3, 2}, &wild, &scale, &warp));
    CHECK(spriteboxempty(spritewarpbox(&warp)));
}

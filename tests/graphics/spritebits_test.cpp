// From sprites to bitmaps: bytes, colours, and which pixel goes where.
#include "graphics/colours.h"
#include "graphics/palette.h"
#include "graphics/spritebits.h"
#include "graphics/spriterow.h"
#include "graphics/surface.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/spritemade.h"

#include <doctest/doctest.h>

#include <array>
#include <cstdio>

namespace
{

constexpr spritebox EVERYWHERE = {-1000, -1000, 1000, 1000};

// A made sprite with its layout.
struct laid {
    spritemade made;
    std::string bytes;
    spritelayout layout;
    explicit laid(const spritemade &m) : made(m), bytes(spritebytes(m)), layout()
    {
        REQUIRE_FALSE(spritelay(spritein(bytes), &layout));
    }
    laid(const laid &) = delete;
    laid &operator=(const laid &) = delete;
};

using words = std::vector<uint32_t>;

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

// The first bytes of the only row of a sprite, as a bitmap has them.
std::string converted(int32_t bpp, const std::vector<uint32_t> &pixels, size_t count)
{
    spritemade made = spritestriped(bpp, static_cast<int32_t>(pixels.size()), 1, false);
    made.pixels = pixels;
    laid s(made);
    uint8_t row[64] = {};
    spriterowconvert(&s.layout, 0, row);
    std::string hex;
    for (size_t n = 0; n < count; n++) {
        char text[4];
        std::snprintf(text, sizeof text, "%02x", row[n]);
        hex += text;
    }
    return hex;
}

uint32_t bitsat(const void *rows, int32_t rowbytes, int32_t height, int32_t bpp, int32_t x,
                int32_t y)
{
    const uint8_t *row = static_cast<const uint8_t *>(rows) + (height - 1 - y) * rowbytes;
    uint32_t value = 0;
    for (int32_t n = 0; bpp < 8 && n < bpp; n++) {
        int32_t bit = x * bpp + n;
        value = value << 1 | (row[bit / 8] >> (7 - bit % 8) & 1);
    }
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
    for (int32_t y = -20; y < 60; y++)
        for (int32_t x = -20; x < 60; x++)
            if (inbox(clip, x, y) &&
                shownat(bitmap, x, y, greyed) != spritecolourplotted(s.made, shown, x, y)) {
                CAPTURE(x);
                CAPTURE(y);
                FAIL_CHECK("another colour at a pixel");
            }
    spritebitsfree(&bitmap);
}

using four = std::array<int32_t, 4>;

// Left, top, right and bottom.
four edges(const spritebox &box)
{
    return {box.left, box.top, box.right, box.bottom};
}

spritebitmap warped(const laid &s, const spritewarp &warp, const spritebox &clip)
{
    spritebitmap bitmap;
    REQUIRE_FALSE(spritebitswarp(&s.layout, {nullptr, false}, &warp, clip, &bitmap));
    return bitmap;
}

// A surface of one pixel to the OS unit, y up from the pixel row 100.
surface plainsurface()
{
    surface s = {};
    s.unitx = s.unity = s.scalex = s.scaley = 1;
    s.deviceshifty = 100;
    return s;
}

} // namespace

TEST_CASE("rows change the order of their pixels")
{
    CHECK(converted(1, {1, 0, 0, 0, 0, 0, 1, 1, 1, 1, 0}, 2) == "83c0");
    CHECK(converted(2, {0, 1, 2, 3, 3}, 3) == "012330");
    CHECK(converted(4, {1, 2, 15}, 2) == "12f0");
    CHECK(converted(8, {1, 2, 255}, 3) == "0102ff");
    CHECK(converted(16, {0x001F, 0x03E0, 0x7C00}, 6) == "007ce0031f00"); // red, green, blue
    CHECK(converted(24, {0x0000FF, 0x123456}, 6) == "0000ff123456");
    CHECK(converted(32, {0xFF0000FF, 0x99123456}, 6) == "0000ff123456");
}

TEST_CASE("sprites at every depth, size, turn and clip")
{
    const spritefactors sizes[] = {{1, 1, 1, 1},  {2, 3, 1, 1},  {1, 1, 2, 3},   {5, 3, 3, 5},
                                   {-1, 1, 1, 1}, {1, -1, 1, 1}, {-3, 2, -2, -1}};
    const spritebox clips[] = {EVERYWHERE, {13, 11, 17, 18}, {10, 19, 11, 20}, {-9, 2, 12, 90}};
    for (int32_t bpp : {1, 2, 4, 8, 16, 24, 32})
        for (int masked : {0, 1})
            for (int firstbit : {0, 4}) {
                spritemade made = spritestriped(bpp, 9, 7, masked);
                made.firstbit = bpp < 8 ? firstbit : 0;
                if (bpp == 16) made.pixels[1] = 0x7FFF; // beside 0, the furthest greys
                laid s(made);
                for (const spritefactors &size : sizes)
                    for (const spritebox &clip : clips)
                        for (bool greyed : {false, true}) {
                            CAPTURE(bpp);
                            CAPTURE(masked);
                            CAPTURE(size.xmul);
                            checkplot(s, size, clip, greyed);
                        }
            }
}

TEST_CASE("a bitmap is as deep as its sprite, unless a mask leaves no number free")
{
    struct {
        int32_t bpp, plain, masked, black; // black, where a colour hides
    } const rows[] = {{1, 1, 4, 1},    {2, 4, 4, 4},    {4, 4, 8, 4},   {8, 8, 24, 8},
                      {16, 16, 16, 0}, {24, 24, 24, 0}, {32, 24, 24, 0}};
    auto depthof = [](const spritemade &made) {
        laid s(made);
        spriteplace place = spriteplaceat(&s.layout, 0, 5, nullptr);
        spritebitmap bitmap;
        REQUIRE_FALSE(spritebitsplace(&s.layout, {}, &place, EVERYWHERE, &bitmap));
        spritebitsfree(&bitmap);
        return bitmap.bpp;
    };
    for (const auto &row : rows)
        for (bool masked : {false, true}) {
            CAPTURE(row.bpp);
            spritemade made = spritestriped(row.bpp, 5, 5, masked);
            for (uint32_t &word : made.palette)
                word |= 0x01000000; // none of them is black
            CHECK(depthof(made) == (masked ? row.masked : row.plain));
            if (!row.black) continue;
            made.palette.back() = 0;
            CHECK(depthof(made) == row.black);
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

    made = spritestriped(4, 1, 1, false);
    made.palette.clear();
    words sixteen = coloursof(made);
    REQUIRE(sixteen.size() == 16);
    CHECK(sixteen[8] == 0x004499);
    CHECK(sixteen[15] == 0x00BBFF);
}

TEST_CASE("eight bits with few colours are expanded")
{
    spritemade made = spritestriped(8, 1, 1, false);
    made.palette.clear();
    CHECK(coloursof(made) == expanded(palettebase));
    CHECK(coloursof(made)[0x10] == 0x880000); // bit 4 is red's

    for (uint32_t n = 0; n < 64; n++)
        made.palette.push_back(n * 0x04030200);
    CHECK(coloursof(made) == expanded(&made.palette[48]));
    made.palette.resize(16);
    CHECK(coloursof(made) == expanded(&made.palette[0]));
}

TEST_CASE("places: nothing for a size of nothing, or out of all bounds")
{
    laid s(spritestriped(1, 9, 7, true));
    const spritefactors odd[] = {
        {1, 1, 0, 1}, {1, 1, 1, 0}, {0, 1, 1, 1}, {1, 1, 1, 8}, {0x7FFFFFFF, 1, 1, 1}};
    for (const spritefactors &factors : odd)
        CHECK(spriteboxempty(spriteplaceat(&s.layout, 0, 0, &factors).box));
    CHECK(spriteboxempty(spriteplaceat(&s.layout, 0x7FFFFFFF, 0, nullptr).box));
    CHECK(spriteboxempty(spriteplaceat(&s.layout, 0, -0x7FFFFFFF, nullptr).box));

    const spritefactors huge = {10000000, 10000000, 1, 1};
    spriteplace place = spriteplaceat(&s.layout, -50000000, 20000000, &huge);
    spritebitmap bitmap;
    REQUIRE_FALSE(spritebitsplace(&s.layout, {}, &place, {0, 0, 40, 30}, &bitmap));
    CHECK(bitmap.width == 40);
    CHECK(bitmap.height == 30);
    CHECK(shownat(bitmap, 5, 5, false) == spritecolourat(s.made, 5, 5, false));
    spritebitsfree(&bitmap);
    const spritebox vast = {-100000000, 0, 1000000, 1000000};
    CHECK(codeof(spritebitsplace(&s.layout, {}, &place, vast, &bitmap)) == ERRORMEMORY);
    CHECK(!bitmap.rows);
}

TEST_CASE("a warp onto an upright rectangle is a place")
{
    laid s(spritestriped(4, 9, 7, true));
    const surface scale = plainsurface();
    const spritebox part = {1, 2, 6, 7};
    spritewarp warp;
    spriteplace place;
    const spritepoint upright[] = {{256, 2560}, {5120, 2560}, {5120, 300}, {256, 300}};
    spritewarpcorners(upright, part, &scale, &warp);
    REQUIRE(spritewarpupright(&warp, &place));
    CHECK(edges(place.box) == four{1, 90, 20, 99});
    CHECK_FALSE(place.flipx);
    CHECK_FALSE(place.flipy);
    CHECK(spriteplacex(&place, 1) == 1);
    CHECK(spriteplacex(&place, 19) == 5);

    // Wherever both roads can go they come to the same pixels.
    spritebitmap one = warped(s, warp, EVERYWHERE), other;
    REQUIRE_FALSE(spritebitsplace(&s.layout, {}, &place, EVERYWHERE, &other));
    for (int32_t y = 85; y < 105; y++)
        for (int32_t x = 0; x < 25; x++)
            REQUIRE(shownat(one, x, y, false) == shownat(other, x, y, false));
    spritebitsfree(&one);
    spritebitsfree(&other);

    const spritepoint turned[] = {{5120, 300}, {256, 300}, {256, 2560}, {5120, 2560}};
    spritewarpcorners(turned, part, &scale, &warp);
    REQUIRE(spritewarpupright(&warp, &place));
    CHECK(place.flipx);
    CHECK(place.flipy);
    CHECK(spriteplacex(&place, 1) == 5);
    const spritepoint middles[] = {{128, 2432}, {384, 2432}, {384, 2176}, {128, 2176}};
    spritewarpcorners(middles, part, &scale, &warp);
    REQUIRE(spritewarpupright(&warp, &place)); // an edge on a pixel's middle takes it in
    CHECK(place.box.left == 0);
    CHECK(place.box.right == 1);
    const spritepoint quarter[] = {{256, 300}, {256, 2560}, {5120, 2560}, {5120, 300}};
    spritewarpcorners(quarter, part, &scale, &warp);
    CHECK_FALSE(spritewarpupright(&warp, &place));
}

TEST_CASE("a quarter turn, and one mirrored, pixel for pixel")
{
    laid s(spritestriped(8, 3, 2, true));
    const surface scale = plainsurface();
    spritewarp warp;
    spriteplace place;
    for (bool mirrored : {false, true}) {
        // x goes up, y to the left or, mirrored, to the right; a pixel is 2 OS units.
        const plotmatrix matrix = {0, MATRIXONE, mirrored ? MATRIXONE : -MATRIXONE, 0, 10, 20};
        const int32_t left = mirrored ? 10 : 6;
        REQUIRE_FALSE(
            spritewarpmatrix(spritein(s.bytes), &s.layout, {0, 0, 3, 2}, &matrix, &scale, &warp));
        REQUIRE_FALSE(spritewarpupright(&warp, &place));
        spritebitmap bitmap = warped(s, warp, EVERYWHERE);
        CHECK(bitmap.x == left);
        CHECK(bitmap.y == 74);
        CHECK(bitmap.width == 4);
        CHECK(bitmap.height == 6);
        for (int32_t y = 0; y < 6; y++)
            for (int32_t x = 0; x < 4; x++)
                CHECK(shownat(bitmap, left + x, 74 + y, false) ==
                      spritecolourat(s.made, (5 - y) / 2, (mirrored ? 3 - x : x) / 2, false));
        spritebitsfree(&bitmap);
    }
}

TEST_CASE("a matrix sets the size by the mode's pixels and the surface's scale")
{
    spritemade made = spritestriped(4, 5, 4, false);
    made.mode = 12; // of 2 by 4 OS units to the pixel
    laid s(made);
    surface scale = plainsurface();
    scale.unitx = scale.unity = 180;
    scale.scalex = scale.scaley = 90;
    scale.deviceshifty = 0;
    const plotmatrix twice = {2 * MATRIXONE, 0, 0, 2 * MATRIXONE, 4, 6};
    spritewarp warp;
    spriteplace place;
    REQUIRE_FALSE(
        spritewarpmatrix(spritein(s.bytes), &s.layout, {1, 1, 5, 3}, &twice, &scale, &warp));
    REQUIRE(spritewarpupright(&warp, &place));
    // Two pixels of the device to one of the sprite, and twice as high.
    CHECK(edges(place.box) == four{2 + 2, -3 - 12, 2 + 10, -3 - 4});
}

TEST_CASE("a warp shows every part of the sprite, the same whatever the clip")
{
    laid s(spritestriped(16, 40, 30, true));
    const surface scale = plainsurface();
    const spritepoint corners[] = {{1000, 20000}, {18000, 16000}, {22000, 2000}, {5000, 6000}};
    spritewarp warp;
    spritewarpcorners(corners, {0, 0, 40, 30}, &scale, &warp);
    spritebitmap all = warped(s, warp, EVERYWHERE);
    int32_t inside = 0;
    for (int32_t x = 0; x < 90; x += 7) {
        spritebitmap part = warped(s, warp, {x, 30, x + 7, 70});
        for (int32_t y = 30; y < 70; y++)
            for (int32_t n = x; n < x + 7; n++) {
                REQUIRE(shownat(part, n, y, false) == shownat(all, n, y, false));
                spritepoint from;
                inside += spritewarpfind(&warp, n, y, &from);
            }
        spritebitsfree(&part);
    }
    spritebitsfree(&all);
    // The area of the part of the parallelogram between the rows.
    CHECK(inside > 1800);
    CHECK(inside < 3000);
}

TEST_CASE("warps without area or out of all bounds are nothing")
{
    laid s(spritestriped(4, 9, 7, true));
    const surface scale = plainsurface();
    const spritepoint flat[] = {{0, 0}, {2560, 1280}, {5120, 2560}, {2560, 1280}};
    const spritepoint far[] = {{0, 0}, {0x7FFFFFFF, 500}, {0x7FFFFFFF, -900}, {0, -0x7FFFFFFF}};
    spritewarp warp;
    for (const spritepoint *corners : {flat, far}) {
        spritewarpcorners(corners, {0, 0, 9, 7}, &scale, &warp);
        CHECK(spriteboxempty(spritewarpbox(&warp)));
        spritebitmap bitmap = warped(s, warp, EVERYWHERE);
        CHECK(!bitmap.rows);
    }
    const plotmatrix wild = {0x7FFFFFFF, -0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 1};
    REQUIRE_FALSE(
        spritewarpmatrix(spritein(s.bytes), &s.layout, {0, 0, 9, 7}, &wild, &scale, &warp));
    CHECK(spriteboxempty(spritewarpbox(&warp)));
}

TEST_CASE("short memory leaves no bitmap")
{
    laid s(spritestriped(4, 9, 7, true));
    spriteplace place = spriteplaceat(&s.layout, 0, 0, nullptr);
    for (int32_t n = 0; n < 2; n++) {
        spritebitmap bitmap;
        flexfailafter(n);
        CHECK(spritebitsplace(&s.layout, {}, &place, EVERYWHERE, &bitmap));
        flexfailafter(-1);
        CHECK(!bitmap.rows);
        CHECK(!bitmap.mask);
    }
}

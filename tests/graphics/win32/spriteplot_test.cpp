// Sprites on a device, pixel by pixel over a background of many colours.
#include "base/errorcodes.h"
#include "graphics/clip.h"
#include "graphics/spriteplot.h"
#include "graphics/win32/surfacecontext.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/spritemade.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>

namespace
{

constexpr int32_t SIDE = 48;

// The colour that the background has at a place, 0xRRGGBB.
int32_t backgroundat(int32_t x, int32_t y)
{
    return (x * 5 + 3) << 16 | (y * 5 + 7) << 8 | ((x * y * 11) & 255);
}

void fillbackground(canvas *c)
{
    for (int32_t y = 0; y < c->height; y++)
        for (int32_t x = 0; x < c->width; x++)
            c->row(y)[x] = static_cast<uint32_t>(backgroundat(x, y));
}

// Looks at all pixels: those inside the clip as expected(x, y) has them, which is
// -1 for the background, and those outside as they were.
template<typename Expected> void checkpixels(const canvas &c, const RECT &clip, Expected expected)
{
    GdiFlush();
    int32_t wrong = 0;
    for (int32_t y = 0; y < c.height; y++)
        for (int32_t x = 0; x < c.width; x++) {
            bool inside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
            int32_t wanted = inside ? expected(x, y) : -1;
            if (wanted < 0) wanted = backgroundat(x, y);
            int32_t seen = static_cast<int32_t>(c.row(y)[x] & 0xFFFFFF);
            if (seen == wanted || wrong++) continue;
            CAPTURE(x);
            CAPTURE(y);
            CHECK(seen == wanted);
        }
    CHECK(wrong == 0);
}

constexpr RECT ALL = {0, 0, SIDE, SIDE};

void setclip(const RECT &clip)
{
    HRGN region = CreateRectRgnIndirect(&clip);
    SelectClipRgn(surfacecontext(), region);
    DeleteObject(region);
}

void checkplot(canvas *c, const spritemade &made, const spritefactors &factors, const RECT &clip,
               bool greyed)
{
    areamade area;
    std::string bytes = spritebytes(made);
    const spriteshown shown = spriteshownat(made, 20, 24, factors, greyed);
    fillbackground(c);
    setclip(clip);
    CHECK_FALSE(spriteplotdevice(area.block, spriteitself(spritein(bytes)),
                                 greyed ? SPRITEGREYED : 0, 20, 24, &factors, nullptr));
    checkpixels(*c, clip,
                [&](int32_t x, int32_t y) { return spritecolourplotted(made, shown, x, y); });
}

} // namespace

TEST_CASE("sprites of every depth: plain, masked, greyed, clipped, scaled and flipped")
{
    const spritefactors sizes[] = {{1, 1, 1, 1}, {3, 5, 2, 3}, {-1, 1, 1, 1}, {-3, -2, 2, 1}};
    canvas c(SIDE, SIDE);
    for (int32_t bpp : {1, 2, 4, 8, 16, 24, 32})
        for (bool masked : {false, true})
            for (bool greyed : {false, true})
                for (const spritefactors &size : sizes)
                    for (const RECT &clip : {ALL, RECT{17, 16, 26, 33}}) {
                        CAPTURE(bpp);
                        CAPTURE(masked);
                        CAPTURE(greyed);
                        CAPTURE(size.xmul);
                        checkplot(&c, spritestriped(bpp, 11, 7, masked), size, clip, greyed);
                    }
}

TEST_CASE("a position in OS units is the sprite's lower left corner")
{
    areamade area;
    spritemade made = spritestriped(4, 5, 4, false);
    std::string bytes = spritebytes(made);
    canvas c(SIDE, SIDE, 96);
    fillbackground(&c);
    CHECK_FALSE(spriteplot(area.block, spriteitself(spritein(bytes)), 0, 30, -60, nullptr,
                           nullptr)); // 16 pixels across, 32 down
    checkpixels(c, ALL, [&](int32_t x, int32_t y) {
        return spritecolourplotted(made, {16, 28, 5, 4, false, false, false}, x, y);
    });
}

TEST_CASE("what isn't there, is no size or can't be read isn't plotted")
{
    canvas c(SIDE, SIDE);
    fillbackground(&c);
    areamade area;
    spritemade made = spritestriped(1, 8, 8, false);
    std::string bytes = spritebytes(made);
    const spritereference s = spriteitself(spritein(bytes));
    const spritefactors none = {1, 1, 0, 0};
    CHECK_FALSE(spriteplotdevice(area.block, spritenamed("none"), 0, 9, 9, nullptr, nullptr));
    CHECK_FALSE(spriteplotdevice(nullptr, s, 0, 9, 9, nullptr, nullptr));
    CHECK_FALSE(spriteplotdevice(area.block, s, 0, 9, 9, &none, nullptr));

    made.mode = 15u << 27 | 1;
    std::string unread = spritebytes(made);
    const spritereference odd = spriteitself(spritein(unread));
    CHECK(codeof(spriteplot(area.block, odd, 0, 9, -9, nullptr, nullptr)) == EMODE);

    clipbox(5, -5, 5, -5);
    CHECK_FALSE(spriteplotdevice(area.block, s, 0, 9, 9, nullptr, nullptr));
    checkpixels(c, ALL, [](int32_t, int32_t) { return -1; });
}

TEST_CASE("the caller's colours in place of the sprite's")
{
    canvas c(SIDE, SIDE);
    fillbackground(&c);
    areamade area;
    spritemade made = spritestriped(2, 6, 3, true);
    std::string bytes = spritebytes(made);
    const uint32_t pixtrans[] = {0x11223300, 0x44556600, 0x00000000, 0xFFFFFF00};
    CHECK_FALSE(
        spriteplotdevice(area.block, spriteitself(spritein(bytes)), 0, 4, 9, nullptr, pixtrans));
    made.palette.assign(pixtrans, pixtrans + 4);
    checkpixels(c, ALL, [&](int32_t x, int32_t y) {
        return spritecolourplotted(made, {4, 6, 6, 3, false, false, false}, x, y);
    });
}

TEST_CASE("a transformed sprite, and the surface left as it was")
{
    canvas c(SIDE, SIDE);
    areamade area;
    spritemade made = spritestriped(8, 6, 4, true);
    std::string bytes = spritebytes(made);
    spritereference s = spriteitself(spritein(bytes));
    spritetransform transform = {};
    surfacescale before, after;
    surfacestate(currentsurface, &before);
    fillbackground(&c);

    SUBCASE("onto an upright rectangle, mirrored, in part")
    {
        const spritepoint corners[] = {{30, -10}, {20, -10}, {20, -30}, {30, -30}};
        for (int n = 0; n < 4; n++)
            transform.corners[n] = {corners[n].x * 256, corners[n].y * 256};
        const spritebox part = {1, 1, 6, 3};
        CHECK_FALSE(
            spriteplottransformed(area.block, s, SPRITECORNERS, &transform, &part, nullptr));
        checkpixels(c, ALL, [&](int32_t x, int32_t y) {
            bool inside = x >= 20 && x < 30 && y >= 10 && y < 30;
            return inside ? spritecolourat(made, 1 + (29 - x) / 2, 1 + (y - 10) / 10, false) : -1;
        });
    }
    SUBCASE("sheared and greyed, row by row")
    {
        // Each row of two pixels a step further to the right than the one below.
        transform.matrix = {MATRIXONE, 0, MATRIXONE / 2, MATRIXONE, 8, -40};
        CHECK_FALSE(
            spriteplottransformed(area.block, s, SPRITEGREYED, &transform, nullptr, nullptr));
        checkpixels(c, ALL, [&](int32_t x, int32_t y) {
            double up = 40 - y - 0.5, across = x + 0.5 - 8 - up / 2;
            if (up < 0 || up >= 8 || across < 0 || across >= 12) return -1;
            return spritecolourat(made, static_cast<int32_t>(across / 2),
                                  3 - static_cast<int32_t>(up / 2), true);
        });
    }
    surfacestate(currentsurface, &after);
    CHECK(!std::memcmp(&before, &after, sizeof before));
}

#include "graphics/clip.h"

#include "base/errors.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>

namespace
{

// What the clip lets through.
canvas::extent shown(canvas &c)
{
    c.clear();
    setcolour(0);
    fillbox(-100, -100, 200, 200);
    return c.drawn();
}

constexpr canvas::extent ALL = {0, 0, 19, 19};
constexpr canvas::extent NOTHING = {20, 20, -1, -1};

} // namespace

TEST_CASE("a clip box lets its inside through, and only shrinks")
{
    canvas c(20, 20);
    CHECK(shown(c) == ALL);
    CHECK_FALSE(clipbox(2, -12, 10, -4));
    CHECK(shown(c) == canvas::extent{2, 4, 9, 11});
    CHECK_FALSE(clipbox(15, -2, 5, -8)); // its corners in any order
    CHECK(shown(c) == canvas::extent{5, 4, 9, 7});
    CHECK_FALSE(clipbox(12, -8, 15, -2));
    CHECK(shown(c) == NOTHING);
    CHECK_FALSE(clipreset());
    CHECK(shown(c) == ALL);
}

TEST_CASE("fine clips take 256ths")
{
    canvas c(20, 20);
    CHECK_FALSE(clipboxfine(2 * 256 + 255, -12 * 256, 10 * 256, -4 * 256 - 255));
    CHECK(shown(c) == canvas::extent{2, 4, 9, 11});

    bool visible = true;
    CHECK_FALSE(clipvisible(11 * 256, -12 * 256, 15 * 256, -4 * 256, &visible));
    CHECK_FALSE(visible);
    CHECK_FALSE(clipvisible(9 * 256, -15 * 256, 15 * 256, -11 * 256, &visible));
    CHECK(visible);
}

TEST_CASE("a surface with a fixed clip box is put back to that")
{
    canvas c(20, 20);
    c.drawing->flags = SURFACECLIPPED;
    c.drawing->clipleft = 3;
    c.drawing->cliptop = 4;
    c.drawing->clipright = 13;
    c.drawing->clipbottom = 15;
    CHECK_FALSE(clipreset());
    CHECK(shown(c) == canvas::extent{3, 4, 12, 14});
    CHECK_FALSE(clipbox(0, -10, 20, -5));
    CHECK(shown(c) == canvas::extent{3, 5, 12, 9});
    CHECK_FALSE(clipreset());
    CHECK(shown(c) == canvas::extent{3, 4, 12, 14});
}

TEST_CASE("the clip is told in OS units")
{
    canvas c(100, 100, 90);
    CHECK_FALSE(clipbox(20, -80, 60, -40));
    int32_t x0 = 0, y0 = 0, x1 = 0, y1 = 0, kind = 0;
    CHECK_FALSE(clipget(&x0, &y0, &x1, &y1, &kind));
    CHECK(canvas::extent{x0, y0, x1, y1} == canvas::extent{20, -80, 60, -40});
    CHECK(kind == SIMPLEREGION);

    CHECK_FALSE(clipbox(1000, -80, 1100, -40));
    CHECK_FALSE(clipget(nullptr, nullptr, nullptr, nullptr, &kind));
    CHECK(kind == NULLREGION);
    CHECK_FALSE(clipget(nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_CASE("clips are saved and restored, one inside the other")
{
    canvas c(20, 20);
    int before = gdiobjects();
    intptr_t none = 17, outer = 0, inner = 0;
    CHECK_FALSE(clipsave(&none));
    CHECK(none == 0); // there was no clip

    clipbox(2, -18, 18, -2);
    CHECK_FALSE(clipsave(&outer));
    CHECK(outer);
    clipbox(5, -15, 15, -5);
    CHECK_FALSE(clipsave(&inner));
    clipbox(8, -12, 12, -8);
    CHECK(shown(c) == canvas::extent{8, 8, 11, 11});

    CHECK_FALSE(cliprestore(inner));
    CHECK(shown(c) == canvas::extent{5, 5, 14, 14});
    CHECK_FALSE(cliprestore(outer));
    CHECK(shown(c) == canvas::extent{2, 2, 17, 17});
    CHECK_FALSE(cliprestore(none));
    CHECK(shown(c) == ALL);
    surfacerelease(c.drawing);
    CHECK(gdiobjects() == before);
}

TEST_CASE("paths become clips by five modes")
{
    struct {
        int32_t mode;
        canvas::extent shown;
        int32_t pixels;
    } const modes[] = {{CLIPAND, {5, 5, 14, 9}, 50},
                       {CLIPDIFF, {0, 0, 19, 9}, 150},
                       {CLIPCOPY, {5, 5, 14, 14}, 100},
                       {CLIPOR, {0, 0, 19, 14}, 250},
                       {CLIPXOR, {0, 0, 19, 14}, 200}};
    for (const auto &mode : modes) {
        CAPTURE(mode.mode);
        canvas c(20, 20);
        setcolour(0);
        clipbox(0, -10, 20, 0); // the upper half
        pathbegin();
        linebox(5, -15, 10, 10);
        pathend();
        CHECK_FALSE(clippath(mode.mode));
        CHECK(shown(c) == mode.shown);
        CHECK(c.count() == mode.pixels);
    }
}

TEST_CASE("clip calls that fail say which call it was")
{
    canvas c(20, 20);
    errorblock *err = clippath(CLIPAND); // there is no path
    REQUIRE(err);
    CHECK(std::strstr(err->text, "(SelectClipPath) ("));

    intptr_t dc = c.drawing->dc;
    c.drawing->dc = 0;
    SetLastError(0);
    err = clipbox(0, 0, 1, 1);
    c.drawing->dc = dc;
    if (GetLastError()) {
        REQUIRE(err);
        CHECK(std::strstr(err->text, "(IntersectClipRect) ("));
    }
}

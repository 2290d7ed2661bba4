// The pictures that the program carries as resources.
#include "graphics/spriteplot.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <initializer_list>

namespace
{

// Begun with the program's sprites, and ended without them.
struct pool {
    pool()
    {
        REQUIRE_FALSE(initsprites());
        REQUIRE_FALSE(addspritesshared(nullptr, "Sprites.spr"));
    }
    ~pool()
    {
        endsprites();
    }
    pool(const pool &) = delete;
    pool &operator=(const pool &) = delete;
};

HMODULE program()
{
    return GetModuleHandleA(nullptr);
}

// Where a cursor points.
POINT hotspot(const char *name)
{
    ICONINFO info = {};
    HCURSOR cursor = LoadCursorA(program(), name);
    REQUIRE(cursor);
    REQUIRE(GetIconInfo(cursor, &info));
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return {static_cast<LONG>(info.xHotspot), static_cast<LONG>(info.yHotspot)};
}

} // namespace

TEST_CASE("the program's sprites come from its resources")
{
    pool sprites;
    CHECK(static_cast<spritearea *>(spritepool)->count == 2);
    const sprite *s = spritefind(spritepool, "RINDENT");
    REQUIRE(s);
    CHECK(s->mode == 25);
    int32_t width, height;
    REQUIRE_FALSE(spritesize(s, &width, &height, nullptr));
    CHECK(width == 423);
    CHECK(height == 1);
    s = spritefind(spritepool, "warning");
    REQUIRE(s);
    CHECK(s->mode == 25);
    REQUIRE_FALSE(spritesize(s, &width, &height, nullptr));
    CHECK(width == 32);
    CHECK(height == 32);
}

TEST_CASE("a resource that isn't there adds nothing")
{
    pool sprites;
    CHECK_FALSE(addspritesshared(nullptr, "None.spr"));
    CHECK_FALSE(addsprites(nullptr, "Sprites.spr", &spritepool,
                           reinterpret_cast<intptr_t>(GetModuleHandleA("gdi32.dll"))));
    CHECK(static_cast<spritearea *>(spritepool)->count == 2);
    CHECK_FALSE(
        addsprites(nullptr, "Sprites.spr", &spritepool, reinterpret_cast<intptr_t>(program())));
    CHECK(static_cast<spritearea *>(spritepool)->count == 4);
}

TEST_CASE("the sprite of a picker button, in the middle of one")
{
    pool sprites;
    canvas c(16, 3);
    c.clear(0xC0C0C0);
    spriteplotdevice(spritepool, spritenamed("rindent"), 0, 8 - 423 / 2, 2, nullptr, nullptr);
    for (int32_t x = 0; x < 16; x++) {
        bool dot = x == 3 || x == 7 || x == 11, glint = x == 4 || x == 8 || x == 12;
        CHECK(c.at(x, 0) == 0xC0C0C0);
        CHECK(c.at(x, 1) == (dot ? 0u : glint ? 0xFFFFFFu : 0xC0C0C0u));
    }
}

TEST_CASE("the program's icon has its sizes, and its cursors point")
{
    for (int side : {16, 32, 48}) {
        ICONINFO info = {};
        BITMAP bitmap = {};
        HICON icon = static_cast<HICON>(
            LoadImageA(program(), "!Quillmere", IMAGE_ICON, side, side, LR_DEFAULTCOLOR));
        REQUIRE(icon);
        REQUIRE(GetIconInfo(icon, &info));
        GetObjectA(info.hbmColor, sizeof bitmap, &bitmap);
        CHECK(bitmap.bmWidth == side);
        DeleteObject(info.hbmMask);
        DeleteObject(info.hbmColor);
        DestroyIcon(icon);
    }
    POINT hand = hotspot("hand"), splith = hotspot("splith");
    CHECK(hand.x == 5);
    CHECK(hand.y == 0);
    CHECK(splith.x == 11);
    CHECK(splith.y == 8);
}

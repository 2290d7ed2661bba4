#include "base/errorcodes.h"
#include "graphics/spritemode.h"
#include "graphics/sprites.h"
#include "tests/graphics/codeof.h"

#include <doctest/doctest.h>

namespace
{

struct told {
    uint32_t mode;
    int32_t xeig, yeig, bpp;
    uint32_t colours;
};

void checkmode(const told &t)
{
    CAPTURE(t.mode);
    int32_t x = 0, y = 0, bpp = 0;
    uint32_t colours = 0;
    REQUIRE_FALSE(spriteeig(t.mode, &x, &y));
    REQUIRE_FALSE(spritedepth(t.mode, &bpp, &colours));
    CHECK(x == t.xeig);
    CHECK(y == t.yeig);
    CHECK(bpp == t.bpp);
    CHECK(colours == t.colours);
}

uint32_t word(uint32_t type, uint32_t ydpi, uint32_t xdpi)
{
    return type << 27 | ydpi << 14 | xdpi << 1 | 1;
}

} // namespace

TEST_CASE("old mode numbers have their rows")
{
    const told rows[] = {{12, 2, 4, 4, 15},
                         {15, 2, 4, 8, 255},
                         {20, 2, 2, 4, 15},
                         {25, 2, 2, 1, 1},
                         {27, 2, 2, 4, 15},
                         {28, 2, 2, 8, 255},
                         {50, 1, 1, 1, 1},
                         {81, 1, 1, 1, 1},
                         {82, 1, 1, 4, 15},
                         {83, 1, 1, 1, 1},
                         {127, 1, 1, 1, 1},
                         {128 + 28, 2, 2, 8, 255},
                         {0x7FFFF80 + 12, 2, 4, 4, 15}};
    for (const told &row : rows)
        checkmode(row);
}

TEST_CASE("new mode words tell type and resolution")
{
    const told types[] = {{word(1, 90, 90), 2, 2, 1, 1},
                          {word(2, 45, 90), 2, 4, 2, 3},
                          {word(3, 180, 180), 1, 1, 4, 15},
                          {word(4, 0, 0), 2, 2, 8, 255},
                          {word(5, 90, 45), 4, 2, 16, 0x7FFF},
                          {word(6, 96, 96), 2, 2, 32, 0xFFFFFF},
                          {word(7, 1, 8191), 1, 180, 32, 0xFFFFFFFF},
                          {word(8, 90, 90), 2, 2, 24, 0xFFFFFF},
                          {word(16 + 6, 90, 90), 2, 2, 32, 0xFFFFFF}};
    for (const told &type : types)
        checkmode(type);
}

TEST_CASE("a word that can't be read is an unknown mode")
{
    spritemode read;
    for (uint32_t type = 9; type < 16; type++)
        CHECK(codeof(spritemoderead(word(type, 90, 90), &read)) == EMODE);
    CHECK(codeof(spritemoderead(word(16, 90, 90), &read)) == EMODE);    // bit 31 alone is no type
    CHECK(codeof(spritemoderead(word(6, 90, 90) - 1, &read)) == EMODE); // bit 0 clear
    sprite s = {};
    s.mode = word(9, 90, 90);
    int32_t x = 5;
    CHECK(codeof(spritedpi(&s, &x, nullptr, nullptr)) == EMODE);
    CHECK(x == 5);
}

TEST_CASE("a sprite's resolution, by either form of its mode")
{
    sprite s = {};
    int32_t x, y, bpp;
    s.mode = 12;
    REQUIRE_FALSE(spritedpi(&s, &x, &y, &bpp));
    CHECK(x == 90);
    CHECK(y == 45);
    CHECK(bpp == 4);
    s.mode = word(6, 0, 300);
    REQUIRE_FALSE(spritedpi(&s, &x, &y, nullptr));
    CHECK(x == 300);
    CHECK(y == 90);
}

TEST_CASE("a mode word for a new sprite reads back as what was asked for")
{
    struct {
        int32_t bpp, xeig, yeig;
        uint32_t mode;
    } const rows[] = {{8, 2, 2, 28},
                      {4, 2, 2, 27},
                      {2, 2, 2, 26},
                      {1, 2, 2, 25},
                      {8, 2, 4, 15},
                      {4, 2, 4, 12},
                      {2, 2, 4, 4},
                      {1, 2, 4, 0},
                      {16, 2, 4, word(5, 45, 90)},
                      {32, 2, 2, word(6, 90, 90)}};
    for (const auto &row : rows) {
        CAPTURE(row.mode);
        CHECK(spritemodeword(row.bpp, row.xeig, row.yeig) == row.mode);
        int32_t x, y, bpp;
        REQUIRE_FALSE(spriteeig(row.mode, &x, &y));
        REQUIRE_FALSE(spritedepth(row.mode, &bpp, nullptr));
        CHECK(bpp == row.bpp);
        CHECK(x == row.xeig);
        CHECK(y == row.yeig);
    }
    CHECK(spritemodeword(24, 1, 1) == word(6, 180, 180));
}

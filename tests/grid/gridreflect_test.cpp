#include "grid/gridreflect.h"

#include "tests/grid/gridlooks.h"

#include <random>

namespace
{

std::string reflected(const std::string &picture, int32_t which)
{
    gridset(picture);
    gridreflect(which);
    return gridtext();
}

uint8_t kind(int32_t x, int32_t y)
{
    return grid.flags[x][y] & CELLKIND;
}

void randomblocks(int32_t width, int32_t height, uint32_t seed)
{
    std::mt19937 draw(seed);
    gridclear();
    grid.width = width;
    grid.height = height;
    for (int32_t x = 0; x < width; x++)
        for (int32_t y = 0; y < height; y++)
            if (draw() % 3 == 0) grid.flags[x][y] = CELLBLOCK;
}

} // namespace

TEST_CASE("left onto right: blocks to their mirror, bars to their edge's, letters stay")
{
    CHECK(reflected("a#..b\n..#cd\n#....\n\nleft 1,0\ntop 1,1\n", REFLECTHORIZONTAL) ==
          "a#.#b\n..#cd\n#...#\n\nleft 1,0 4,0\ntop 1,1 3,1\n");
    // Of an even size the middle stays.
    CHECK(reflected("##....\n#.#.##\n", REFLECTHORIZONTAL) == "##..##\n#.#..#\n");
    // The last copied column keeps the bar of the cell opposite.
    CHECK(reflected(".....\n.....\n\nleft 3,1\n", REFLECTHORIZONTAL) ==
          ".....\n.....\n\nleft 3,0 3,1\n");
    // The first column's bar lands behind the last column.
    reflected("...\n\nleft 0,0\n", REFLECTHORIZONTAL);
    CHECK(grid.flags[3][0] == BARLEFT);
}

TEST_CASE("top onto bottom")
{
    CHECK(reflected("a#.\n.#.\n...\n..#\nb..\n\nleft 1,0\ntop 0,1\n", REFLECTVERTICAL) ==
          "a#.\n.#.\n...\n.#.\nb#.\n\nleft 1,0 1,4\ntop 0,1 0,4\n");
    reflected(".\n.\n.\n\ntop 0,0\n", REFLECTVERTICAL);
    CHECK(grid.flags[0][3] == BARTOP);
    CHECK(reflected("#\n.\n#\n.\n", REFLECTVERTICAL) == "#\n.\n#\n#\n");
}

TEST_CASE("half a turn, bars to the edges that they turn to")
{
    CHECK(reflected("#..\n...\n..#\n\nleft 1,0\ntop 0,1\n", REFLECTRISING) ==
          "#..\n...\n..#\n\nleft 1,0 2,2\ntop 0,1 2,2\n");
    CHECK(reflected("a.#\n...\n#.b\n\nleft 2,0\ntop 2,1\n", REFLECTFALLING) ==
          "a.#\n...\n#.b\n\nleft 2,0 1,2\ntop 2,1 0,2\n");
}

TEST_CASE("a turned grid is the same upside down, and the source stays")
{
    for (uint32_t seed = 1; seed <= 20; seed++) {
        CAPTURE(seed);
        bool rising = seed % 2;
        int32_t size = 2 + static_cast<int32_t>(seed % 9);
        randomblocks(size, size, seed);
        griddocument before = grid;
        gridreflect(rising ? REFLECTRISING : REFLECTFALLING);
        for (int32_t x = 0; x < size; x++)
            for (int32_t y = 0; y < size; y++) {
                REQUIRE(kind(x, y) == kind(size - 1 - x, size - 1 - y));
                bool source = rising ? x + y < size - 1 : x > y;
                if (source) REQUIRE(kind(x, y) == (before.flags[x][y] & CELLKIND));
            }
    }
}

TEST_CASE("the largest and the smallest grids stay in their arrays")
{
    for (int32_t which : {REFLECTHORIZONTAL, REFLECTVERTICAL, REFLECTRISING, REFLECTFALLING})
        for (int32_t size : {1, 2, 127}) {
            randomblocks(size, size, 6);
            gridreflect(which);
            REQUIRE((grid.width == size && grid.height == size));
        }
}

TEST_CASE("no mark is copied")
{
    grid.flags[1][1] = CELLMARKED;
    markset(1, 1, 1, 1);
    gridreflect(REFLECTVERTICAL);
    CHECK(grid.flags[1][14] == CELLOPEN);
    CHECK(headless.resultsdropped == 1);
    CHECK(grid.changed == 1);
}

#include "grid/grid.h"

#include "grid/appearance.h"
#include "grid/wsentry.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstring>
#include <string>

namespace
{

void fillall(uint8_t letter, uint8_t flags)
{
    memset(grid.letters, letter, sizeof grid.letters);
    memset(grid.flags, flags, sizeof grid.flags);
    memset(grid.counts, 9, sizeof grid.counts);
}

void size(int32_t width, int32_t height)
{
    grid.width = width;
    grid.height = height;
}

void mark(int32_t left, int32_t right, int32_t top, int32_t bottom)
{
    grid.markleft = left;
    grid.markright = right;
    grid.marktop = top;
    grid.markbottom = bottom;
}

} // namespace

TEST_CASE("a fresh document")
{
    CHECK(grid.width == 16);
    CHECK(grid.height == 16);
    CHECK(grid.kind == GRIDCROSSWORD);
    CHECK(grid.cursorx == 5);
    CHECK(grid.cursory == 5);
    CHECK(grid.lastcursorx == 0);
    CHECK(grid.markleft == -1);
    CHECK(grid.minwordlength == 5);
    CHECK(grid.filldirections == 15);
    CHECK(grid.showsolutions == 1);
    CHECK(grid.splitfraction == 0x5000);
    CHECK(grid.letters[127][127] == ' ');
    CHECK(std::string(grid.gridfont.face) == "Arial");
    CHECK(grid.gridfont.weight == 400);
    CHECK(grid.cluefont.height == 64);
    CHECK(grid.backcolour == 0xFFFFFF00);
    CHECK(grid.cellwidth == 36);
    CHECK(grid.cellheight == 36);
}

TEST_CASE("the first change shows in the title, and so does a name")
{
    gridchange();
    gridchange();
    CHECK(headless.titles == 1);
    CHECK(grid.changed == 2);
    CHECK(gridsunsaved() == 1);
    gridunchanged();
    CHECK(gridsunsaved() == 0);
    CHECK(headless.titles == 1);
    gridchange();
    CHECK(headless.titles == 2);

    gridsetfilename("C:\\grids\\one.qmg");
    CHECK(headless.titles == 3);
    gridsetfilename(grid.filename);
    CHECK(std::string(grid.filename) == "C:\\grids\\one.qmg");
    gridsetfilename(std::string(400, 'x').c_str());
    CHECK(strlen(grid.filename) == 259);
}

TEST_CASE("each way of clearing has its own reach")
{
    size(3, 4);
    SUBCASE("gridclear: everywhere, and the upper bits stay")
    {
        fillall('q', 0xFF);
        gridclear();
        CHECK(grid.letters[127][127] == ' ');
        CHECK(grid.flags[0][0] == 0xF0);
        CHECK(grid.flags[127][127] == 0xF0);
        CHECK(grid.counts[0][0] == 9);
    }
    SUBCASE("gridclearwords: open cells everywhere")
    {
        fillall('q', BARLEFT | BARTOP | VISITEDDOWN);
        grid.flags[1][1] |= CELLBLOCK;
        grid.flags[1][2] |= CELLMARKED;
        gridclearwords();
        CHECK(grid.letters[0][0] == ' ');
        CHECK(grid.letters[127][127] == ' ');
        CHECK(grid.letters[1][1] == 'q');
        CHECK(grid.letters[1][2] == 'q');
        CHECK(grid.flags[0][0] == (BARLEFT | BARTOP | VISITEDDOWN));
    }
    SUBCASE("gridclearfill: the grid alone, and bars stay")
    {
        fillall('q', 0xFF);
        gridclearfill();
        CHECK(grid.letters[2][3] == ' ');
        CHECK(grid.flags[2][3] == 0xFC);
        CHECK(grid.counts[2][3] == 0);
        CHECK(grid.letters[3][3] == 'q');
        CHECK(grid.flags[2][4] == 0xFF);
        CHECK(grid.counts[3][0] == 9);
    }
    SUBCASE("gridclearcounts: everywhere")
    {
        fillall('q', 0);
        gridclearcounts();
        CHECK(grid.counts[0][0] == 0);
        CHECK(grid.counts[127][127] == 0);
    }
}

TEST_CASE("random letters go into the grid's blanks")
{
    size(20, 20);
    grid.letters[1][0] = 'K';
    gridfillrandom();
    bool seen[26] = {};
    for (int32_t x = 0; x < 20; x++)
        for (int32_t y = 0; y < 20; y++) {
            if (x == 1 && y == 0) continue;
            REQUIRE(grid.letters[x][y] >= 'a');
            REQUIRE(grid.letters[x][y] <= 'z');
            seen[grid.letters[x][y] - 'a'] = true;
        }
    for (bool letter : seen)
        CHECK(letter);
    CHECK(grid.letters[1][0] == 'K');
    CHECK(grid.letters[20][0] == ' ');
    CHECK(grid.letters[0][20] == ' ');
}

TEST_CASE("case is changed for a to z alone")
{
    CHECK(gridcase('q') == 'q');
    grid.casemode = CASEUPPER;
    CHECK(gridcase('q') == 'Q');
    CHECK(gridcase(0xE9) == 0xE9);
    CHECK(gridcase('*') == '*');
    grid.casemode = CASELOWER;
    CHECK(gridcase('Q') == 'q');
    CHECK(gridcase(0xC9) == 0xC9);
}

TEST_CASE("the square follows font and scale, whatever they are")
{
    grid.gridfont.height = 129;
    gridsquaresize();
    CHECK(grid.cellwidth == 36); // 36.28 cut off
    grid.squarescale = 400;
    grid.gridfont.height = 1152;
    gridsquaresize();
    CHECK(grid.cellheight == 720);

    for (int32_t height : {INT_MIN, -1, 0, 1, INT_MAX})
        for (int32_t scale : {INT_MIN, -1, 0, 1, INT_MAX}) {
            grid.gridfont.height = height;
            grid.squarescale = scale;
            gridsquaresize();
            CHECK(grid.cellwidth >= 1);
            CHECK(grid.cellwidth <= INT_MAX / GRIDMAX);
            CHECK(grid.cellheight == grid.cellwidth);
        }
}

TEST_CASE("New Grid and New Words")
{
    fillall('q', CELLOPEN);
    grid.flags[2][2] = CELLBLOCK | BARTOP;
    grid.flags[3][3] = CELLMARKED;
    mark(3, 3, 3, 3);
    gridchange();
    gridsetfilename("one.qmg");
    headless.marklength = 1;

    SUBCASE("a new grid")
    {
        gridnew();
        CHECK(grid.letters[2][2] == ' ');
        CHECK(grid.flags[2][2] == 0);
        CHECK(gridsunsaved() == 0);
        CHECK(grid.filename[0] == 0);
        CHECK(headless.titles == 3);
    }
    SUBCASE("new words: what was marked is blanked too, blocks keep their letter")
    {
        gridnewwords();
        CHECK(grid.letters[3][3] == ' ');
        CHECK(grid.letters[2][2] == 'q');
        CHECK(grid.flags[2][2] == (CELLBLOCK | BARTOP));
        CHECK(grid.changed == 2);
        CHECK(std::string(grid.filename) == "one.qmg");
    }
    CHECK(grid.markleft == -1);
    CHECK(headless.marklength == -1);
    CHECK(headless.resultsdropped == 1);
    CHECK(headless.redraws == 1);
}

TEST_CASE("markclear unmarks a rectangle given in any order, but no block")
{
    grid.flags[1][1] = CELLMARKED | BARTOP;
    grid.flags[2][2] = CELLBLOCK;
    grid.flags[3][4] = CELLMARKED;
    SUBCASE("in the grid")
    {
        mark(3, 1, 4, 1);
        markclear();
        CHECK(grid.flags[1][1] == BARTOP);
        CHECK(grid.flags[2][2] == CELLBLOCK);
        CHECK(grid.flags[3][4] == CELLOPEN);
    }
    SUBCASE("reaching outside after a change of size: cells stay")
    {
        mark(1, 3, 1, 4);
        size(4, 4);
        markclear();
        CHECK(grid.flags[1][1] == (CELLMARKED | BARTOP));
    }
    SUBCASE("none")
    {
        markclear();
        CHECK(grid.flags[1][1] == (CELLMARKED | BARTOP));
    }
    CHECK(grid.markleft == -1);
    CHECK(grid.markright == -1);
    CHECK(grid.marktop == -1);
    CHECK(grid.markbottom == -1);
}

TEST_CASE("markrescan finds the bounding box of the grid's marked cells")
{
    size(10, 10);
    mark(0, 9, 0, 9);
    markrescan();
    CHECK(grid.markleft == -1);
    CHECK(grid.markbottom == -1);

    grid.flags[7][2] = CELLMARKED;
    grid.flags[3][5] = CELLMARKED | BARLEFT;
    grid.flags[4][0] = CELLBLOCK;
    grid.flags[10][3] = grid.flags[3][10] = CELLMARKED; // outside
    markrescan();
    CHECK(grid.markleft == 3);
    CHECK(grid.markright == 7);
    CHECK(grid.marktop == 2);
    CHECK(grid.markbottom == 5);
}

TEST_CASE("the length field shows the width of a wide mark, and is written once")
{
    mark(5, 3, 0, 4);
    marklengthshow();
    CHECK(headless.marklength == 3);
    headless.marklength = 77;
    mark(0, 2, 0, 0);
    marklengthshow();
    CHECK(headless.marklength == 77); // still 3
    mark(2, 2, 6, 0);
    marklengthshow();
    CHECK(headless.marklength == 7);
    mark(2, 2, 2, 2);
    marklengthshow();
    CHECK(headless.marklength == 1);
    mark(-1, -1, -1, -1);
    marklengthshow();
    CHECK(headless.marklength == -1);
    mark(2, 2, 2, 2);
    marklengthshow();
    CHECK(headless.marklength == 1); // the field was empty
}

TEST_CASE("the cursor")
{
    cursordrawoff();
    CHECK(headless.cellredraws == 1);
    CHECK(headless.cells[0] == 5);
    CHECK(headless.cells[3] == 5);
    CHECK(grid.cursorx == 5);
    CHECK(grid.cursory == 5);
    cursordraw();
    CHECK(headless.cellredraws == 2);
    cursorremove();
    CHECK(grid.cursorx == -1);
    CHECK(grid.cursory == -1);
    CHECK(grid.lastcursorx == -1);
    CHECK(grid.lastcursory == -1);
    cursordraw();
    cursordrawoff();
    CHECK(headless.cellredraws == 2);
}

TEST_CASE("the changed area grows by placed words")
{
    dirtyredraw();
    CHECK(headless.cellredraws == 0);

    wsentry unplaced = {-1, -1, -1, -1, 0, "word"};
    dirtyadd(&unplaced);
    wsentry empty = {3, 3, 1, 0, 0, ""};
    dirtyadd(&empty);
    dirtyredraw();
    CHECK(headless.cellredraws == 0);

    wsentry leftup = {9, 8, -1, -1, 0, "word"};
    dirtyadd(&leftup);
    wsentry right = {7, 2, 1, 0, 1, "cat"};
    dirtyadd(&right);
    dirtyredraw();
    CHECK(headless.cellredraws == 1);
    CHECK(headless.cells[0] == 6);
    CHECK(headless.cells[1] == 2);
    CHECK(headless.cells[2] == 9);
    CHECK(headless.cells[3] == 8);

    dirtyreset();
    dirtyredraw();
    CHECK(headless.cellredraws == 1);
}

TEST_CASE("the built-in appearance")
{
    SUBCASE("remembered by the slot, but for the list fonts")
    {
        grid.gridfont.height = 200;
        grid.textcolour = 0x11223300;
        grid.squarescale = 300;
        solfont.height = 77;
        gridrememberdefaults();
        grid.gridfont.height = grid.squarescale = 0;
        grid.textcolour = 0;
        gridsetdefaults();
        CHECK(grid.gridfont.height == 200);
        CHECK(grid.textcolour == 0x11223300);
        CHECK(grid.squarescale == 300);
        CHECK(solfont.height == 128);
    }
    SUBCASE("as the factory has it")
    {
        gridsetdefaults();
        CHECK(grid.gridfont.height == 128);
        CHECK(grid.squarescale == 180);
        CHECK(dictfont.height == 128);
        CHECK(std::string(dictfont.face) == "Arial");
    }
}

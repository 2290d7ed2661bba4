#include "grid/grid.h"

#include "grid/appearance.h"
#include "grid/wsentry.h"
#include "tests/grid/gridlooks.h"

#include <climits>
#include <cstring>

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

} // namespace

TEST_CASE("a fresh document")
{
    CHECK((grid.width == 16 && grid.height == 16 && grid.kind == GRIDCROSSWORD));
    CHECK((cursorat(5, 5) && grid.lastcursorx == 0 && nomark()));
    CHECK(grid.letters[127][127] == ' ');
    CHECK((grid.minwordlength == 5 && grid.filldirections == 15 && grid.showsolutions == 1));
    CHECK(grid.splitfraction == 0x5000);
    CHECK((grid.cellwidth == 36 && grid.cellheight == 36));
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
        CHECK((grid.flags[0][0] == 0xF0 && grid.flags[127][127] == 0xF0));
        CHECK(grid.counts[0][0] == 9);
    }
    SUBCASE("gridclearwords: open cells everywhere")
    {
        fillall('q', BARLEFT | BARTOP | VISITEDDOWN);
        grid.flags[1][1] |= CELLBLOCK;
        grid.flags[1][2] |= CELLMARKED;
        gridclearwords();
        CHECK((grid.letters[0][0] == ' ' && grid.letters[127][127] == ' '));
        CHECK((grid.letters[1][1] == 'q' && grid.letters[1][2] == 'q'));
        CHECK(grid.flags[0][0] == (BARLEFT | BARTOP | VISITEDDOWN));
    }
    SUBCASE("gridclearfill: the grid alone, and bars stay")
    {
        fillall('q', 0xFF);
        gridclearfill();
        CHECK((grid.letters[2][3] == ' ' && grid.letters[3][3] == 'q'));
        CHECK((grid.flags[2][3] == 0xFC && grid.flags[2][4] == 0xFF));
        CHECK((grid.counts[2][3] == 0 && grid.counts[3][0] == 9));
    }
    SUBCASE("gridclearcounts: everywhere")
    {
        fillall('q', 0);
        gridclearcounts();
        CHECK((grid.counts[0][0] == 0 && grid.counts[127][127] == 0));
    }
}

TEST_CASE("random letters go into the grid's blanks")
{
    size(20, 20);
    grid.letters[1][0] = 'K';
    gridfillrandom();
    std::string text = gridtext();
    for (char letter = 'a'; letter <= 'z'; letter++)
        CHECK(text.find(letter) != std::string::npos);
    CHECK(text.find('.') == std::string::npos);
    CHECK(text[1] == 'K');
    CHECK((grid.letters[20][0] == ' ' && grid.letters[0][20] == ' '));
}

TEST_CASE("case is changed for a to z alone")
{
    CHECK(gridcase('q') == 'q');
    grid.casemode = CASEUPPER;
    CHECK((gridcase('q') == 'Q' && gridcase(0xE9) == 0xE9 && gridcase('*') == '*'));
    grid.casemode = CASELOWER;
    CHECK((gridcase('Q') == 'q' && gridcase(0xC9) == 0xC9));
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
    markset(3, 3, 3, 3);
    gridchange();
    gridsetfilename("one.qmg");
    headless.marklength = 1;

    SUBCASE("a new grid")
    {
        gridnew();
        CHECK((grid.letters[2][2] == ' ' && grid.flags[2][2] == 0));
        CHECK(gridsunsaved() == 0);
        CHECK(grid.filename[0] == 0);
        CHECK(headless.titles == 3);
    }
    SUBCASE("new words: what was marked is blanked too, blocks keep their letter")
    {
        gridnewwords();
        CHECK((grid.letters[3][3] == ' ' && grid.letters[2][2] == 'q'));
        CHECK(grid.flags[2][2] == (CELLBLOCK | BARTOP));
        CHECK(grid.changed == 2);
        CHECK(std::string(grid.filename) == "one.qmg");
    }
    CHECK(nomark());
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
        markset(3, 4, 1, 1);
        markclear();
        CHECK(grid.flags[1][1] == BARTOP);
        CHECK(grid.flags[2][2] == CELLBLOCK);
        CHECK(grid.flags[3][4] == CELLOPEN);
    }
    SUBCASE("reaching outside after a change of size, or none: cells stay")
    {
        for (int32_t left : {1, -1}) {
            markset(left, 1, 3, 4);
            size(4, 4);
            markclear();
            CHECK(grid.flags[1][1] == (CELLMARKED | BARTOP));
        }
    }
    CHECK(nomark());
}

TEST_CASE("markrescan finds the bounding box of the grid's marked cells")
{
    size(10, 10);
    markset(0, 0, 9, 9);
    markrescan();
    CHECK(nomark());

    grid.flags[7][2] = CELLMARKED;
    grid.flags[3][5] = CELLMARKED | BARLEFT;
    grid.flags[4][0] = CELLBLOCK;
    grid.flags[10][3] = grid.flags[3][10] = CELLMARKED; // outside
    markrescan();
    CHECK(markis(3, 2, 7, 5));
}

TEST_CASE("the length field shows the width of a wide mark, and is written once")
{
    const struct {
        int32_t left, top, right, bottom, shown;
    } rows[] = {
        {5, 0, 3, 4, 3},      {0, 0, 2, 0, 77}, // still 3: not written
        {2, 6, 2, 0, 7},      {2, 2, 2, 2, 1},
        {-1, -1, -1, -1, -1}, {2, 2, 2, 2, 1}, // the field was empty
    };
    for (auto [left, top, right, bottom, shown] : rows) {
        if (shown == 77) headless.marklength = 77;
        markset(left, top, right, bottom);
        marklengthshow();
        CHECK(headless.marklength == shown);
    }
}

TEST_CASE("the cursor's cell is drawn without it and with it")
{
    cursordrawoff();
    CHECK(headless.cellredraws == 1);
    CHECK(drawn(5, 5, 5, 5));
    CHECK(cursorat(5, 5));
    cursordraw();
    CHECK(headless.cellredraws == 2);
    cursorremove();
    CHECK(cursorat(-1, -1));
    CHECK((grid.lastcursorx == -1 && grid.lastcursory == -1));
    cursordraw();
    cursordrawoff();
    CHECK(headless.cellredraws == 2);
}

TEST_CASE("the changed area grows by placed words")
{
    wsentry unplaced = {-1, -1, -1, -1, 0, "word"}, empty = {3, 3, 1, 0, 0, ""};
    dirtyadd(&unplaced);
    dirtyadd(&empty);
    dirtyredraw();
    CHECK(headless.cellredraws == 0);

    wsentry leftup = {9, 8, -1, -1, 0, "word"}, right = {7, 2, 1, 0, 1, "cat"};
    dirtyadd(&leftup);
    dirtyadd(&right);
    dirtyredraw();
    CHECK(headless.cellredraws == 1);
    CHECK(drawn(6, 2, 9, 8));

    dirtyreset();
    dirtyredraw();
    CHECK(headless.cellredraws == 1);
}

// As the factory has it, the appearance is in the files of gridfile_test.cpp.
TEST_CASE("the built-in appearance remembers a grid's, but for the list fonts")
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
    CHECK(dictfont.height == 128);
    CHECK(std::string(dictfont.face) == "Arial");
}

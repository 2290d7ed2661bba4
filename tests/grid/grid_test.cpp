#include "grid/grid.h"

#include "grid/appearance.h"
#include "grid/gridsettings.h"
#include "grid/wsentry.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/runner.h"

#include <climits>
#include <cstring>
#include <utility>

namespace
{

void fillall(uint8_t letter, uint8_t flags)
{
    memset(grid.letters, letter, sizeof grid.letters);
    memset(grid.flags, flags, sizeof grid.flags);
    memset(grid.counts, 9, sizeof grid.counts);
    grid.width = 3;
    grid.height = 4;
}

// Cells inside and at the edges of the arrays, as letter, flags and count.
std::string cells()
{
    std::string all;
    for (auto [x, y] : {std::pair(2, 3), std::pair(2, 4), std::pair(3, 0), std::pair(127, 127)})
        all += static_cast<char>(grid.letters[x][y]) + std::to_string(grid.flags[x][y]) + "/" +
               std::to_string(grid.counts[x][y]) + " ";
    return all;
}

} // namespace

TEST_CASE("a fresh document, whose first change shows in its title, as does a name")
{
    CHECK((grid.width == 16 && grid.height == 16 && grid.kind == GRIDCROSSWORD));
    CHECK((cursorat(5, 5) && grid.lastcursorx == 0 && nomark()));
    CHECK((grid.minwordlength == 5 && grid.filldirections == 15 && grid.showsolutions == 1));
    CHECK((grid.splitfraction == 0x5000 && grid.cellwidth == 36 && grid.cellheight == 36));
    gridchange();
    gridchange();
    CHECK((headless.titles == 1 && grid.changed == 2 && gridsunsaved() == 1));
    gridunchanged();
    CHECK((headless.titles == 1 && gridsunsaved() == 0));
    gridsetfilename(std::string(400, 'x').c_str());
    gridsetfilename(grid.filename);
    CHECK((headless.titles == 3 && std::string(grid.filename) == std::string(259, 'x')));
}

TEST_CASE("each way of clearing has its own reach")
{
    const struct {
        void (*clear)();
        uint8_t flags;
        const char *cells;
    } rows[] = {
        {gridclear, 0xFF, " 240/9  240/9  240/9  240/9 "}, // everywhere; the upper bits stay
        {gridclearwords, 0xFC, " 252/9  252/9  252/9  252/9 "},
        {gridclearwords, CELLBLOCK, "q2/9 q2/9 q2/9 q2/9 "}, // of open cells alone
        {gridclearwords, CELLMARKED, "q1/9 q1/9 q1/9 q1/9 "},
        {gridclearfill, 0xFF, " 252/0 q255/9 q255/9 q255/9 "}, // the grid alone, but for bars
        {gridclearcounts, 1, "q1/0 q1/0 q1/0 q1/0 "},
        {gridvisitreset, 0xC8, "q8/9 q200/9 q200/9 q200/9 "}, // scans begin with it
        {gridvisitreset, CELLBLOCK, "q194/9 q2/9 q2/9 q2/9 "},
    };
    for (const auto &row : rows) {
        fillall('q', row.flags);
        row.clear();
        CHECK(cells() == row.cells);
    }
}

TEST_CASE("random letters go into the grid's blanks")
{
    grid.width = grid.height = 20;
    grid.letters[1][0] = 'K';
    gridfillrandom();
    std::string text = gridtext();
    for (char letter = 'a'; letter <= 'z'; letter++)
        CHECK(text.find(letter) != std::string::npos);
    CHECK((text.find('.') == std::string::npos && text[1] == 'K'));
    CHECK((grid.letters[20][0] == ' ' && grid.letters[0][20] == ' '));
}

TEST_CASE("the square follows font and scale, whatever they are")
{
    grid.gridfont.height = 129;
    gridsquaresize();
    CHECK((grid.cellwidth == 36 && grid.cellheight == 36)); // 36.28 is cut off
    for (int32_t height : {INT_MIN, -1, 0, 1, INT_MAX})
        for (int32_t scale : {INT_MIN, -1, 0, 1, INT_MAX}) {
            grid.gridfont.height = height;
            grid.squarescale = scale;
            gridsquaresize();
            CHECK((grid.cellwidth >= 1 && grid.cellwidth <= INT_MAX / GRIDMAX));
        }
}

TEST_CASE("the mark: unmarked in any order, found again from the cells, and its length")
{
    gridset("....\n....\n....\n....\n....\n");
    grid.flags[1][1] = CELLMARKED | BARTOP;
    grid.flags[2][2] = CELLBLOCK;
    grid.flags[3][4] = CELLMARKED;
    grid.flags[4][3] = grid.flags[3][5] = CELLMARKED; // outside
    markrescan();
    CHECK(markis(1, 1, 3, 4));
    for (int32_t left : {-1, 4}) { // reaching outside after a change of size: cells stay
        markset(left, 1, 3, 4);
        markclear();
        CHECK((nomark() && grid.flags[1][1] == (CELLMARKED | BARTOP)));
    }
    markset(3, 4, 1, 1);
    markclear();
    CHECK((grid.flags[1][1] == BARTOP && grid.flags[2][2] == CELLBLOCK && !grid.flags[3][4]));
    markrescan();
    CHECK(nomark());

    markset(5, 0, 3, 4); // its length is written where it is another
    marklengthshow();
    CHECK(headless.marklength == 3);
    headless.marklength = 77;
    markset(0, 0, 2, 0);
    marklengthshow();
    CHECK(headless.marklength == 77);
}

TEST_CASE("the cursor's cell is drawn without it and with it, the area of placed words once")
{
    cursordrawoff();
    CHECK((headless.cellredraws == 1 && drawn(5, 5, 5, 5) && cursorat(5, 5)));
    CHECK_FALSE(headlessdrawn());
    cursordraw();
    cursorremove();
    CHECK((headless.cellredraws == 2 && cursorat(-1, -1)));
    CHECK((grid.lastcursorx == -1 && grid.lastcursory == -1));
    cursordraw();
    cursordrawoff();

    wsentry unplaced = {-1, -1, -1, -1, 0, "word"}, empty = {3, 3, 1, 0, 0, ""};
    wsentry leftup = {9, 8, -1, -1, 0, "word"}, right = {7, 2, 1, 0, 1, "cat"};
    dirtyadd(&unplaced);
    dirtyadd(&empty);
    dirtyredraw();
    CHECK(headless.cellredraws == 2);
    dirtyadd(&leftup);
    dirtyadd(&right);
    dirtyredraw();
    CHECK((headless.cellredraws == 3 && drawn(6, 2, 9, 8)));
    dirtyreset();
    dirtyredraw();
    CHECK(headless.cellredraws == 3);
}

// As the factory has it, the appearance is in the files of gridfile_test.cpp.
TEST_CASE("settings are one edit, in their ranges; those for making are a Wordsquare's alone")
{
    const struct {
        int32_t kind, scale, length, scaleafter, lengthafter;
    } rows[] = {{GRIDCROSSWORD, 200, 7, 200, 5},
                {GRIDWORDSQUARE, 149, 0, 150, 1},
                {GRIDWORDSQUARE, 401, 13, 400, 12},
                {GRIDWORDSQUARE, 400, 12, 400, 12}};
    for (const auto &row : rows) {
        modulesreset();
        grid.kind = row.kind;
        gridsettings before, wanted, after;
        gridsettingsget(&before);
        wanted = {.textcolour = 0x11000000,
                  .gridcolour = 0x22000000,
                  .fillcolour = 0x33000000,
                  .backcolour = 0x44000000,
                  .gridfont = before.gridfont,
                  .cluefont = before.cluefont,
                  .squarescale = row.scale,
                  .minwordlength = row.length,
                  .showsolutions = 0,
                  .filldirections = 0x81};
        wanted.gridfont.height = 256;
        wanted.cluefont.italic = 1;
        gridsettingsapply(wanted);
        gridsettingsget(&after);
        wanted.squarescale = row.scaleafter;
        wanted.minwordlength = row.lengthafter;
        if (row.kind == GRIDCROSSWORD) wanted.showsolutions = before.showsolutions;
        if (row.kind == GRIDCROSSWORD) wanted.filldirections = before.filldirections;
        CHECK(!memcmp(&after, &wanted, sizeof wanted));  // which has no padding
        CHECK(grid.cellwidth == row.scaleafter * 2 / 5); // 16 points are 40 units
        CHECK((headless.extents == 1 && headless.redraws == 1 && grid.changed == 1));
    }
    // The built-in appearance remembers a grid's, but for the list fonts.
    solfont.height = 77;
    gridrememberdefaults();
    grid.gridfont.height = grid.squarescale = 0;
    grid.textcolour = grid.gridcolour = grid.fillcolour = grid.backcolour = 0;
    gridsetdefaults();
    CHECK((grid.gridfont.height == 256 && grid.textcolour == 0x11000000));
    CHECK((grid.gridcolour == 0x22000000 && grid.fillcolour == 0x33000000));
    CHECK((grid.squarescale == 400 && solfont.height == 128 && dictfont.height == 128));
}

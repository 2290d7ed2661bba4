#include "grid/gridshape.h"

#include "tests/grid/gridlooks.h"

TEST_CASE("a change of size keeps cells and squares")
{
    grid.letters[10][10] = 'q';
    grid.flags[2][2] = CELLMARKED;
    markset(2, 2, 2, 2);
    gridsize(5, 128);
    CHECK((grid.width == 5 && grid.height == 127 && grid.cellwidth == 36));
    CHECK(grid.letters[10][10] == 'q');
    CHECK((grid.flags[2][2] == CELLOPEN && nomark()));
    CHECK(headless.extents == 1);
    CHECK(grid.changed == 1);
}

TEST_CASE("another kind is another document; the same is none")
{
    gridsetfilename("one.qmg");
    grid.letters[1][1] = 'q';
    grid.letters[100][100] = 'q';
    grid.flags[2][2] = CELLBLOCK | BARTOP;
    gridchange();
    gridsetkind(GRIDCROSSWORD);
    CHECK(grid.letters[1][1] == 'q');
    CHECK(gridsunsaved() == 1);
    CHECK(headless.kindsapplied == 0);

    gridsetkind(GRIDWORDSQUARE);
    CHECK(headless.kind == GRIDWORDSQUARE);
    CHECK(grid.letters[100][100] == ' ');
    CHECK(grid.flags[2][2] == 0);
    CHECK(grid.cursorx == -1);
    CHECK(gridsunsaved() == 0);
    CHECK(grid.filename[0] == 0);
    CHECK(headless.resultsdropped == 1);
    CHECK(headless.redraws == 1);
}

TEST_CASE("each case switches itself, and the other off")
{
    gridset("q#q\n");
    grid.letters[1][0] = grid.letters[127][127] = 'q';
    grid.flags[2][0] = CELLMARKED;
    markset(2, 0, 2, 0);
    gridunchanged();
    headless.redraws = 0;

    gridcaseswitch(CASEUPPER);
    CHECK(grid.casemode == CASEUPPER);
    CHECK((grid.letters[0][0] == 'Q' && grid.letters[127][127] == 'Q'));
    CHECK(grid.letters[1][0] == 'q');
    CHECK(grid.letters[2][0] == 'Q'); // no longer marked
    CHECK(headless.redraws == 1);

    gridcaseswitch(CASELOWER);
    CHECK(grid.casemode == CASELOWER);
    CHECK(grid.letters[0][0] == 'q');
    gridcaseswitch(CASELOWER);
    CHECK(grid.casemode == CASEASTYPED);
    CHECK(grid.letters[0][0] == 'q');
    CHECK(grid.changed == 3);
}

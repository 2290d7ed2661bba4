#include "find/solutions.h"

#include "find/solve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"

namespace
{

int32_t blocksize()
{
    int32_t size = 0;
    if (solutions.wslist) flex_size(&solutions.wslist, &size);
    return size;
}

// The words of the list, with a "*" behind those that are selected.
std::string texts()
{
    std::string all;
    for (int32_t i = 0; i < solutions.count; i++)
        all += (i ? " " : "") + std::string(solword(i)->text) + (solword(i)->selected ? "*" : "");
    return all;
}

// The marked cells of the grid, and how often cells are counted, all in all.
int cellsmarked()
{
    int n = 0;
    for (const auto &column : grid.flags)
        for (uint8_t flags : column)
            n += flags == CELLMARKED;
    return n;
}

int cellscounted()
{
    int n = 0;
    for (const auto &column : grid.counts)
        for (uint8_t count : column)
            n += count;
    return n;
}

std::string place(const wsentry *word)
{
    std::string text;
    for (int32_t number : {word->x, word->y, word->dx, word->dy})
        text += std::to_string(number) + " ";
    return text;
}

// otter across from 1,1; toad down from 2,1, through its second letter; newt
// nowhere.
void threewords()
{
    gridclear();
    gridclearcounts();
    grid.kind = GRIDWORDSQUARE;
    grid.width = grid.height = 8;
    REQUIRE(soladdword(1, 1, 1, 0, "otter") == nullptr);
    REQUIRE(soladdword(2, 1, 0, 1, "toad") == nullptr);
    REQUIRE(soladdword(-1, -1, -1, -1, "newt") == nullptr);
    dirtyreset();
}

} // namespace

TEST_CASE("progress is shown at one, at tens up to a hundred, then at hundreds")
{
    std::string shown;
    solprogress(0);
    headless.progress = -1;
    for (int32_t n = 1; n <= 2400; n++) {
        solprogress(n);
        if (headless.progress == n) shown += std::to_string(n) + " ";
    }
    CHECK(shown.substr(0, 56) == "1 10 20 30 40 50 60 70 80 90 100 110 210 310 410 510 610");
    CHECK(shown.substr(shown.size() - 10) == "2210 2310 "); // never by thousands

    solprogress(0); // begins anew, and shows nothing by itself
    CHECK(headless.progress == 2310);
    solprogress(7); // a search need not begin at 1
    solprogress(9);
    CHECK(headless.progress == 7);
}

TEST_CASE("references make an entry from the last slot down")
{
    solutions.slotcount = 3;
    for (uint32_t n = 0; n < 1000; n++)
        for (int32_t slot = 2; slot >= 0; slot--) {
            REQUIRE(soladdref(makewordref(static_cast<uint32_t>(slot), n), slot) == nullptr);
            CHECK(solutions.count == static_cast<int32_t>(n) + 1);
        }
    CHECK(blocksize() % 2048 == 0);
    for (uint32_t n = 0; n < 1000; n++)
        for (uint32_t slot = 0; slot < 3; slot++)
            REQUIRE(solref(static_cast<int32_t>(n), static_cast<int32_t>(slot)) ==
                    makewordref(slot, n));
    CHECK(solref(-1, 0) == NOWORD);
    CHECK(solref(1 << 20, 0) == NOWORD);

    solreset();
    CHECK(solutions.count == 0);
    CHECK(solutions.wslist == nullptr);
    CHECK(solref(0, 0) == NOWORD);
}

TEST_CASE("short memory leaves the count, and references overwrite the last entry")
{
    solutions.slotcount = 2;
    flexfailafter(0);
    errorblock *err = soladdref(7, 1);
    CHECK(code(err) == ERRORMEMORY);
    CHECK(soladdref(7, 0) == nullptr); // nothing there to overwrite
    CHECK(solutions.count == 0);

    while (!err || solutions.count == 0) { // up to a resize that fails
        flexfailafter(solutions.count ? 0 : -1);
        err = soladdref(1000, 1);
        if (!err) soladdref(2000, 0);
    }
    flexfailafter(-1);
    int32_t count = solutions.count;
    CHECK(count == 2048 / 8 - 1); // a resize comes when the block is just full
    CHECK(soladdref(2001, 0) == nullptr);
    CHECK(solutions.count == count);
    CHECK(solref(count - 1, 1) == 1000);
    CHECK(solref(count - 1, 0) == 2001);
    CHECK(solref(count - 2, 0) == 2000);
    solreset();

    for (int32_t n = 0; n < 200; n++) {
        flexfailafter(n % 3 ? -1 : 0);
        err = soladdword(n, 0, 1, 0, "w");
        CHECK(solutions.count >= 0);
        if (err) CHECK(err->code == ERRORMEMORY);
        if (!err) CHECK(solword(solutions.count - 1)->x == n);
    }
    flexfailafter(-1);
    CHECK(solutions.count > 130);
    CHECK(solutions.count < 200);
}

TEST_CASE("words are kept to 35 characters, removed, unplaced and sorted")
{
    REQUIRE(soladdword(3, 4, -1, 1, std::string(50, 'x').c_str()) == nullptr);
    const wsentry *first = solword(0);
    CHECK(first->text == std::string(35, 'x'));
    CHECK(place(first) == "3 4 -1 1 ");
    CHECK(first->selected == 0);
    solclearplaces();
    CHECK(place(first) == "-1 -1 -1 -1 ");

    for (int32_t row : {1, -1, 0}) { // the last of which there is
        CHECK(solutions.count == 1);
        solremove(row);
    }
    CHECK(solutions.count == 0);
    solsort(); // of nothing

    for (const char *text : {"pear", "Fig", "\xE9t\xE9", "apple", "fig tree", "\xC9tat", "fi"})
        REQUIRE(soladdword(-1, -1, -1, -1, text) == nullptr);
    solsort();
    CHECK(texts() == "apple fi Fig fig tree pear \xC9tat \xE9t\xE9");
    solremove(2);
    solremove(5);
    CHECK(texts() == "apple fi fig tree pear \xC9tat");
}

TEST_CASE("a cell is marked while any selected word runs through it")
{
    threewords();
    solmark(solword(0));
    CHECK(cellsmarked() == 5);
    solmark(solword(1));
    CHECK(cellsmarked() == 8);
    CHECK(grid.counts[2][1] == 2);
    solunmark(solword(0));
    CHECK(cellsmarked() == 4);
    CHECK((grid.flags[1][1] == CELLOPEN && grid.flags[2][1] == CELLMARKED));
    solmark(solword(2)); // unplaced
    CHECK(cellsmarked() == 4);
    solunmark(solword(1));
    CHECK(cellscounted() == 0);

    // Off the top, and out of the arrays, the walk ends.
    REQUIRE(soladdword(1, 2, 0, -1, "badger") == nullptr);
    REQUIRE(soladdword(126, 5, 1, 0, "weasel") == nullptr);
    solmark(solword(3));
    CHECK(cellscounted() == 3);
    solmark(solword(4));
    CHECK(cellscounted() == 5);
}

TEST_CASE("clicks select one word, toggle one, or change nothing")
{
    const struct {
        int32_t row;
        bool toggle, changes;
        const char *after;
        int marked, counted;
    } clicks[] = {
        {0, false, true, "otter* toad newt", 5, 5},
        {0, false, false, "otter* toad newt", 5, 5}, // alone already
        {3, false, false, "otter* toad newt", 5, 5}, // below the last row
        {-1, true, false, "otter* toad newt", 5, 5},
        {1, true, true, "otter* toad* newt", 8, 9},
        {0, false, true, "otter* toad newt", 5, 5},
        {1, true, true, "otter* toad* newt", 8, 9},
        {1, true, true, "otter* toad newt", 5, 5},
        {0, true, true, "otter toad newt", 0, 0},
        {2, false, true, "otter toad newt*", 0, 0}, // unplaced
    };
    threewords();
    for (auto [row, toggle, changes, after, marked, counted] : clicks) {
        CHECK(solselect(row, toggle) == changes);
        CHECK(texts() == after);
        CHECK((cellsmarked() == marked && cellscounted() == counted));
        CHECK((marked == 0 ? nomark() : markis(1, 1, 5, marked == 8 ? 4 : 1)));
    }

    solselect(0, false);
    dirtyreset();
    solselect(1, false); // both words' cells are drawn anew
    dirtyredraw();
    CHECK(drawn(1, 1, 5, 4));
}

TEST_CASE("Delete removes the selected words and their marks")
{
    threewords();
    soldeleteselected();
    CHECK(texts() == "otter toad newt");
    CHECK((headless.refreshes == 0 && headless.cellredraws == 0));

    solselect(0, false);
    solselect(1, true);
    soldeleteselected();
    CHECK(texts() == "newt");
    CHECK((cellsmarked() == 0 && cellscounted() == 0 && nomark()));
    CHECK((headless.refreshes == 1 && headless.cellredraws == 1));
    CHECK(drawn(1, 1, 5, 4));

    solselect(0, true);
    soldeleteselected();
    CHECK(solutions.count == 0);
    soldeleteselected();
    CHECK(headless.refreshes == 2);
}

TEST_CASE("a typed word goes below the others")
{
    solutions.charwidth = 10;
    solutions.lineheight = 24;
    solutions.slotcount = 5;
    CHECK(soladdtyped("heron") == nullptr);
    CHECK((solutions.slotcount == 1 && solutions.listwidth == 170 && solutions.rowheight == 24));
    CHECK(std::string(lastword) == "heron");
    CHECK(headless.refreshes == 1);
    CHECK(soladdtyped("") == nullptr); // the text is not checked
    CHECK(soladdtyped(std::string(300, 'y').c_str()) == nullptr);
    CHECK(std::string(lastword) == std::string(35, 'y'));
    CHECK(solutions.count == 3);
    CHECK(solword(0)->x == -1);
    solutions.charwidth = 7;
    solutions.lineheight = 30;
    grid.kind = GRIDWORDSQUARE;
    solrelayout(); // another font
    CHECK((solutions.slotcount == 1 && solutions.listwidth == 119 && solutions.rowheight == 30));
    solreset();
    flexfailafter(0);
    CHECK(code(soladdtyped("crane")) == ERRORMEMORY);
    CHECK(solutions.count == 0);
}

TEST_CASE("a row's words are written into the grid")
{
    testdict("d", {"cat", "tap"});
    gridset("c..\n##.\n##.\n");
    for (auto [x, y] : {std::pair{0, 0}, {1, 0}, {2, 0}, {2, 1}, {2, 2}})
        grid.flags[x][y] = CELLMARKED;
    grid.casemode = CASEUPPER;
    solutions.charwidth = 3;
    solutions.textheight = 20;
    solutions.lineheight = 25;
    searchrun(solvestart());
    CHECK(solutions.listwidth == 9);
    CHECK(solutions.rowheight == 80); // a line of the picture each, and one between
    REQUIRE(solutions.count == 1);
    gridclearwords();
    gridunchanged();
    headless.titles = 0;

    solapply(1);
    solapply(-1);
    grid.markleft = -1;
    solapply(0);
    CHECK(grid.changed == 0);
    solutions.charwidth = 5;
    solutions.textheight = 10;
    solrelayout(); // of the slots that the list was found for
    CHECK((solutions.slotcount == 2 && solutions.listwidth == 15 && solutions.rowheight == 40));

    markrescan();
    solapply(0);
    CHECK(grid.changed == 2); // one for each slot
    CHECK(headless.titles == 1);
    CHECK(gridtext() == "CAT\n##A\n##P\n");
    CHECK(drawn(0, 0, 2, 2));
}

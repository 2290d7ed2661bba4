#include "find/solutions.h"

#include "base/errorcodes.h"
#include "find/solve.h"
#include "find/wordload.h"
#include "find/wsmake.h"
#include "find/wssolve.h"
#include "tests/find/testdicts.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/testfiles.h"

namespace
{

// The words of the list, with a "*" behind those that are selected.
std::string texts()
{
    std::string all;
    for (int32_t i = 0; i < solutions.count; i++)
        all += (i ? " " : "") + std::string(solword(i)->text) + (solword(i)->selected ? "*" : "");
    return all;
}

// The marked cells of the grid, and how often cells are counted, all in all.
std::string cells()
{
    int marked = 0, counted = 0;
    for (size_t i = 0; i < sizeof grid.flags; i++) {
        marked += (&grid.flags[0][0])[i] == CELLMARKED;
        counted += (&grid.counts[0][0])[i];
    }
    return std::to_string(marked) + " " + std::to_string(counted);
}

// otter across from 1,1; toad down from 2,1, through its second letter; newt
// nowhere.
void threewords()
{
    grid.kind = GRIDWORDSQUARE;
    grid.width = grid.height = 8;
    REQUIRE_FALSE(soladdword(1, 1, 1, 0, "otter"));
    REQUIRE_FALSE(soladdword(2, 1, 0, 1, "toad"));
    REQUIRE_FALSE(soladdword(-1, -1, -1, -1, "newt"));
    dirtyreset();
}

} // namespace

TEST_CASE("progress is shown at one, at tens up to a hundred, then at hundreds")
{
    std::string shown;
    headless.progress = -1;
    for (int32_t n = 1; n <= 2400; n++) {
        solprogress(n);
        if (headless.progress == n) shown += std::to_string(n) + " ";
    }
    CHECK(shown.starts_with("1 10 20 30 40 50 60 70 80 90 100 110 210 310 410 510 610"));
    CHECK(shown.ends_with("2210 2310 ")); // never by thousands
    solprogress(0);                       // begins anew, and shows nothing by itself
    CHECK(headless.progress == 2310);
    solprogress(7); // a search need not begin at 1
    CHECK(headless.progress == 7);
}

// In a list of references the order of slots is the judge's in searches_test.cpp.
TEST_CASE("short memory overwrites the last entry of references, and adds no word")
{
    solutions.slotcount = 2;
    CHECK(soladdref(7, 0) == nullptr); // nothing there to overwrite
    for (int32_t n = 0; n < 2048 / 8 - 1; n++)
        REQUIRE_FALSE(soladdref(1000, 1));
    flexfailafter(0);
    CHECK(code(soladdref(2000, 1)) == ERRORMEMORY); // the block is just full
    CHECK((soladdref(2001, 0) == nullptr && solutions.count == 2048 / 8 - 1));
    CHECK((solref(254, 1) == 2000 && solref(254, 0) == 2001 && solref(253, 1) == 1000));
    CHECK((solref(-1, 0) == NOWORD && solref(1 << 20, 0) == NOWORD));
    solreset();
    CHECK((solutions.count == 0 && !solutions.wslist && solref(0, 0) == NOWORD));
    flexfailafter(0);
    CHECK((code(soladdword(1, 2, 1, 0, "w")) == ERRORMEMORY && solutions.count == 0));
}

TEST_CASE("words are kept to 35 characters, unplaced, sorted and removed")
{
    solsort(); // of nothing
    REQUIRE_FALSE(soladdword(3, 4, -1, 1, std::string(50, 'x').c_str()));
    const wsentry *first = solword(0);
    CHECK((first->text == std::string(35, 'x') && !first->selected));
    CHECK((first->x == 3 && first->y == 4 && first->dx == -1 && first->dy == 1));
    solclearplaces();
    CHECK((first->x == -1 && first->y == -1 && first->dx == -1 && first->dy == -1));
    for (const char *text : {"pear", "Fig", "\xE9t\xE9", "apple", "fig tree", "\xC9tat", "fi"})
        REQUIRE_FALSE(soladdword(-1, -1, -1, -1, text));
    solsort();
    for (int32_t row : {5, 2, 6, -1}) // of the last two there are none
        solremove(row);
    CHECK(texts() == "apple fi fig tree pear \xC9tat \xE9t\xE9");
}

TEST_CASE("clicks select and toggle, cells are marked for it, and Delete takes both away")
{
    const struct {
        int32_t row;
        bool toggle, changes;
        const char *selected, *cells;
        int bottom; // of the mark; -1 for none
    } clicks[] = {
        {0, false, true, "10000", "5 5", 1},  {0, false, false, "10000", "5 5", 1}, // alone already
        {5, false, false, "10000", "5 5", 1}, // below the last row
        {-1, true, false, "10000", "5 5", 1}, {1, true, true, "11000", "8 9", 4},
        {0, true, true, "01000", "4 4", 4},   {1, true, true, "00000", "0 0", -1},
        {2, false, true, "00100", "0 0", -1}, // unplaced
        {3, false, true, "00010", "3 3", 2},  // off the top
        {4, false, true, "00001", "2 2", -1}, // out of the arrays
    };
    threewords();
    REQUIRE_FALSE(soladdword(1, 2, 0, -1, "badger"));
    REQUIRE_FALSE(soladdword(126, 5, 1, 0, "weasel"));
    for (auto [row, toggle, changes, selected, counts, bottom] : clicks) {
        CHECK(solselect(row, toggle) == changes);
        for (int32_t i = 0; i < 5; i++)
            CHECK(solword(i)->selected == selected[i] - '0');
        CHECK(cells() == counts);
        CHECK(grid.markbottom == bottom);
    }
    // Shown are places that lie in the grid, first letters last.
    headless.shownx = headless.showny = -9;
    for (int32_t row : {-1, 2, 3, 4, 5})
        solshow(row);
    CHECK((headless.shownx == -9 && headless.showny == -9));
    solshow(0);
    CHECK((headless.shownx == solword(0)->x && headless.showny == solword(0)->y));
    solselect(0, false);
    dirtyreset();
    solselect(1, false); // both words' cells are drawn anew
    dirtyredraw();
    CHECK(drawn(1, 1, 5, 4));
    solselect(0, true);
    headlessreset();
    soldeleteselected();
    CHECK((texts() == "newt badger weasel" && cells() == "0 0" && nomark()));
    CHECK((headless.refreshes == 1 && headless.cellredraws == 1 && drawn(1, 1, 5, 4)));
    soldeleteselected(); // of none
    CHECK((solutions.count == 3 && headless.refreshes == 1));
}

TEST_CASE("a word clicked during a search stands marked, and can be unmarked")
{
    testdict({"cat", "otter"});
    grid.minwordlength = 3;
    gridset("catotter.\n.........\n");
    grid.kind = GRIDWORDSQUARE;
    grid.counts[1][0] = 1; // left by a list that is gone
    headless.onpoll = [] {
        if (headless.polls == 4) CHECK(solselect(0, false));
    };
    searchrun(wssolve());
    CHECK(cells() == "3 3");
    CHECK(solselect(1, false)); // no longer so once the making begins
    CHECK_FALSE(wsmake());
    CHECK((solselected() == 0 && nomark() && cells() == "0 0"));
    headless.polls = 2;
    searchrun(nullptr);
    CHECK((cells() == "3 3" && !nomark()));
    CHECK(solselect(0, true));
    CHECK((cells() == "0 0" && nomark()));
}

TEST_CASE("a typed word goes below the others, a text file takes their place")
{
    solutions.charwidth = 10;
    solutions.lineheight = 24;
    solutions.slotcount = 5;
    CHECK(soladdtyped("heron") == nullptr);
    CHECK((solutions.slotcount == 1 && solutions.listwidth == 170 && solutions.rowheight == 24));
    CHECK((lastword == std::string("heron") && headless.refreshes == 1));
    CHECK(soladdtyped("") == nullptr); // the text is not checked
    CHECK(soladdtyped(std::string(300, 'y').c_str()) == nullptr);
    CHECK((lastword == std::string(35, 'y') && solutions.count == 3 && solword(0)->x == -1));

    solreset();
    threewords();
    solselect(0, false);
    headlessreset();
    CHECK(wordload(scratch("none.txt").c_str()) == 0);
    CHECK(texts() == "otter* toad newt"); // as it was
    putfile(scratch("list.txt"), "heron\r\nIce-Cream\n\nheron");
    CHECK(wordload(scratch("list.txt").c_str()) == 1);
    CHECK((texts() == "heron Icecream heron" && solword(0)->x == -1 && solutions.slotcount == 1));
    CHECK((cells() == "0 0" && nomark() && headless.refreshes == 2)); // a mark gone, a new list
}

TEST_CASE("a row's words are written into the grid")
{
    testdict({"cat", "tap", "a bed"});
    gridmarked("c..\n##.\n##.\n");
    grid.casemode = CASEUPPER;
    solutions.charwidth = 3;
    solutions.textheight = 20;
    searchrun(solvestart());
    CHECK((solutions.count == 1 && solutions.listwidth == 9));
    CHECK(solutions.rowheight == 80); // a line of the picture each, and one between
    gridclearwords();
    gridunchanged();
    for (int32_t row : {1, -1})
        solapply(row);
    grid.markleft = -1;
    solapply(0);
    CHECK((grid.changed == 0 && gridtext() == "c..\n##.\n##.\n"));
    solutions.textheight = 10;
    solrelayout(); // of the slots that the list was found for
    CHECK((solutions.slotcount == 2 && solutions.rowheight == 40));
    markrescan();
    solapply(0);
    CHECK(grid.changed == 2); // one for each slot
    CHECK((gridtext() == "CAT\n##A\n##P\n" && drawn(0, 0, 2, 2)));

    gridmarked("....d");
    searchrun(solvestart());
    grid.letters[4][0] = 'x'; // typed since
    gridchange();
    solapply(0);
    CHECK(gridtext() == "ABEDx\n"); // without a gap
}

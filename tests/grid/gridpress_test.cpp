#include "grid/gridpress.h"

#include "grid/gridwindow.h"
#include "tests/grid/gridlooks.h"

namespace
{

void setup(const std::string &picture)
{
    gridset(picture);
    gridunchanged();
    gridredraw();
}

// Marked cells as "m", blocks as "#", the cursor as "c". All are drawn as they are.
std::string marks()
{
    CHECK(headlessdrawn());
    std::string text;
    for (int32_t y = 0; y < grid.height; y++) {
        for (int32_t x = 0; x < grid.width; x++) {
            char ch = ".m#?"[grid.flags[x][y] & CELLKIND];
            text += cursorat(x, y) && ch == '.' ? 'c' : ch;
        }
        text += '/';
    }
    return text;
}

void drag(int32_t x, int32_t y, int32_t tox, int32_t toy, bool ctrl = false)
{
    gridleftpress(x, y, ctrl);
    REQUIRE(griddragstart(x, y));
    griddragstep(tox, toy);
    griddragend();
}

} // namespace

TEST_CASE("a left press moves the cursor, but onto no block")
{
    setup("...\n#..\n");
    gridleftpress(1, 1, false);
    CHECK(marks() == ".../#c./");
    CHECK((grid.lastcursorx == 1 && grid.lastcursory == 1));
    CHECK(headless.beeps == 0);
    gridleftpress(0, 1, false);
    gridleftpress(3, 0, false);
    gridleftpress(0, -1, true);
    CHECK(headless.beeps == 3);
    CHECK(marks() == ".../#c./");
    CHECK(grid.changed == 0);
}

TEST_CASE("a right press makes blocks and bars, and takes all away again")
{
    setup("ab\ncd\n");
    const struct {
        bool shift, ctrl;
        int after;
    } presses[] = {
        {true, true, BARLEFT}, // Shift wins
        {false, true, BARLEFT | BARTOP},
        {true, false, BARTOP},
        {false, true, 0},
        {false, true, BARTOP},
        {false, false, BARTOP | CELLBLOCK},
        {true, false, 0},
    };
    grid.flags[1][0] = VISITEDDOWN;
    for (auto [shift, ctrl, after] : presses) {
        CHECK(grid.letters[1][0] == 'b');
        gridrightpress(1, 0, shift, ctrl);
        CHECK(grid.flags[1][0] == (VISITEDDOWN | after));
    }
    CHECK(grid.letters[1][0] == ' ');
    CHECK(grid.changed == 7);

    gridrightpress(2, 0, false, false);
    CHECK(headless.beeps == 1);
    CHECK(grid.changed == 7);
    CHECK(headlessdrawn());
}

TEST_CASE("while there is a mark, a right press marks single cells")
{
    setup("...\n..#\n");
    drag(0, 0, 1, 0);
    CHECK(headless.marklength == 2);
    int dropped = headless.resultsdropped;
    gridrightpress(2, 0, false, false);
    CHECK(marks() == "mmm/..#/");
    CHECK(headless.marklength == 3);
    CHECK(headless.resultsdropped == dropped + 1);
    gridrightpress(2, 1, false, false);
    CHECK(marks() == "mmm/..#/");
    CHECK(grid.changed == 1);
    for (int32_t x : {0, 1, 2})
        gridrightpress(x, 0, true, false);
    CHECK(marks() == ".../..#/");
    CHECK(nomark());
    CHECK(headless.marklength == -1);
}

TEST_CASE("a drag marks a rectangle, and back again")
{
    setup("....\n.#..\n....\n");
    gridleftpress(0, 0, false);
    REQUIRE(griddragstart(0, 0));
    griddragstep(0, 0);
    CHECK(marks() == "c.../.#../..../");
    griddragstep(2, 1);
    CHECK(marks() == "mmm./m#m./..../");
    CHECK(markis(0, 0, 2, 1));
    CHECK(headless.marklength == 3);
    griddragstep(1, 7); // beyond the edge
    CHECK(marks() == "mm../m#../mm../");
    griddragstep(-3, 0);
    CHECK(marks() == "c.../.#../..../");
    CHECK(headless.marklength == -1);
    griddragstep(0, 2);
    griddragend();
    CHECK(marks() == "m.../m#../m.../");
    CHECK(headless.marklength == 3);
    CHECK(grid.changed == 0);
}

TEST_CASE("a drag from a block keeps the cursor off it")
{
    setup("#..\n...\n");
    gridleftpress(2, 1, false);
    gridleftpress(0, 0, false);
    REQUIRE(griddragstart(0, 0));
    griddragstep(0, 0);
    CHECK(marks() == "#../..c/");
    griddragstep(1, 0);
    CHECK(marks() == "#m./.../");
    griddragstep(0, 0);
    CHECK(marks() == "#../.../");
    griddragend();
    CHECK(nomark());
}

TEST_CASE("with Ctrl a drag adds to the mark; without, it begins anew")
{
    setup("....\n....\n....\n");
    drag(3, 0, 2, 0);
    drag(2, 0, 2, 2, true);
    CHECK(marks() == "...m/..m./..m./"); // what both share is unmarked
    CHECK(markis(2, 0, 3, 2));
    drag(0, 0, 0, 0, true); // a single cell too
    CHECK(marks() == "m..m/..m./..m./");
    CHECK(markis(0, 0, 3, 2));
    int dropped = headless.resultsdropped;
    drag(0, 2, 1, 2);
    CHECK(headless.resultsdropped == dropped + 1);
    CHECK(marks() == "..../..../mm../");
}

TEST_CASE("a Wordsquare has a cursor, and neither marks nor blocks by hand")
{
    setup("..\n..\n");
    CHECK_FALSE(griddragstart(2, 1)); // outside
    grid.kind = GRIDWORDSQUARE;
    gridleftpress(1, 1, false);
    CHECK_FALSE(griddragstart(1, 1));
    gridrightpress(0, 0, false, false);
    gridrightpress(0, 1, true, false);
    CHECK(marks() == "../.c/");
    CHECK(grid.flags[0][1] == 0);
    CHECK(grid.changed == 0);
    CHECK(headless.beeps == 0);
}

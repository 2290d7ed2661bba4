#include "grid/gridtype.h"

#include "grid/gridwindow.h"
#include "tests/grid/gridlooks.h"

namespace
{

void setup(const std::string &picture, int32_t x, int32_t y)
{
    gridset(picture);
    cursorto(x, y);
    gridunchanged();
    gridredraw();
}

void typetext(const std::string &text)
{
    for (char ch : text)
        gridtype(static_cast<uint8_t>(ch));
}

} // namespace

TEST_CASE("typing goes the only way that is open, and then on in it")
{
    SUBCASE("across, over a crossing")
    {
        setup("....\n##.#\n##.#\n", 0, 0);
        typetext("Caf\xE9");
        CHECK(gridtext() == "Caf\xE9\n##.#\n##.#\n");
        CHECK(headless.beeps == 1); // behind the last
        CHECK(cursorat(3, 0));
    }
    SUBCASE("down, over a crossing")
    {
        setup(".##\n...\n.##\n", 0, 0);
        typetext("abc");
        CHECK(gridtext() == "a##\nb..\nc##\n");
    }
    SUBCASE("at a crossing after a click: nowhere")
    {
        setup("..\n..\n", 0, 0);
        typetext("a");
        CHECK(cursorat(0, 0));
        CHECK(headless.beeps == 1);
    }
    SUBCASE("after a move: on in its direction")
    {
        setup("...\n...\n...\n", 1, 0);
        cursormove(0, 1);
        typetext("a");
        CHECK(cursorat(1, 2));
        cursorto(0, 1);
        cursormove(1, 0);
        typetext("b");
        CHECK(cursorat(2, 1));
    }
    SUBCASE("not across a bar, but along it")
    {
        setup("..\n..\n\nleft 1,0\ntop 0,1\n", 0, 0);
        typetext("a");
        CHECK(cursorat(0, 0));
        cursorto(0, 0);
        grid.flags[0][1] = 0;
        typetext("b");
        CHECK(cursorat(0, 1));
    }
    CHECK(headlessdrawn());
    CHECK(grid.changed > 0);
}

TEST_CASE("what can be typed")
{
    setup("......\n", 0, 0);
    typetext("a1?\r\t*\xDF");
    grid.casemode = CASEUPPER;
    typetext("q\xE9");
    CHECK(gridtext() == "a*\xDFQ\xE9.\n");
    cursorto(1, 0);
    typetext(" ");
    CHECK(grid.letters[1][0] == ' ');
    CHECK(grid.changed == 6);
    CHECK(headlessdrawn());
}

TEST_CASE("erasing steps back, over bars but not over blocks")
{
    SUBCASE("the only way")
    {
        setup("abc\n\nleft 1,0 2,0\n", 2, 0);
        griderase();
        griderase();
        CHECK(gridtext() == "a..\n\nleft 1,0 2,0\n");
        CHECK(headless.beeps == 0);
        griderase();
        CHECK(cursorat(0, 0));
        CHECK(headless.beeps == 1);
    }
    SUBCASE("on in the direction of the last step")
    {
        setup("#a.\nbc.\n#d.\n", 1, 2); // up: there is no cell to the left
        griderase();
        CHECK(cursorat(1, 1));
        griderase();
        CHECK(cursorat(1, 0));
        CHECK(gridtext() == "#a.\nb..\n#..\n");
    }
    SUBCASE("after typing at a crossing: nowhere")
    {
        setup("...\n...\n", 0, 1);
        cursormove(1, 0);
        griderase();
        CHECK(cursorat(1, 1));
        CHECK(headless.beeps == 1);
    }
    CHECK(headlessdrawn());
}

TEST_CASE("arrows jump over blocks and stop at the edge")
{
    setup(".##.\n#...\n#...\n", 0, 0);
    cursormove(1, 0);
    CHECK(cursorat(3, 0));
    CHECK((headless.shownx == 3 && headless.showny == 0));
    cursormove(1, 0);
    CHECK(cursorat(3, 0));
    typetext("a"); // a jump is no step, but there is one way alone
    CHECK(cursorat(3, 1));
    for (int n = 0; n < 3; n++)
        cursormove(-1, 0); // the first cell of the row is a block
    CHECK(cursorat(1, 1));
    cursormove(0, -1);
    CHECK(cursorat(1, 1));
    CHECK(grid.changed == 1);
    CHECK(headlessdrawn());
}

TEST_CASE("without a cursor in the grid keys do nothing")
{
    setup("abc\nabc\n", 2, 1);
    grid.width = 2; // it is outside
    for (int i = 0; i < 2; i++) {
        typetext("x");
        griderase();
        cursormove(-1, 0);
        cursorremove();
    }
    grid.width = 3;
    CHECK(gridtext() == "abc\nabc\n");
    CHECK(grid.changed == 0);
}

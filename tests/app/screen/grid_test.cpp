// The grid's window, with a user's hands and eyes.
#include "app/buttons.h"
#include "app/commands.h"
#include "app/mainwindow.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/windows.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "graphics/modeinfo.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <fstream>
#include <random>
#include <string>

namespace
{

void begin()
{
    screenstart();
    REQUIRE_FALSE(scrollto(gridwindow, 0, 0));
}

windowstaterecord view()
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(gridwindow, &state));
    return state;
}

// Where a cell's frame begins, in pixels of the window. Drawing drops fractions.
int32_t cellx(int32_t x)
{
    return x * grid.cellwidth * modeinfo.xdpi / OSUNITS - ostodevx(view().xscroll);
}

int32_t celly(int32_t y)
{
    return y * grid.cellheight * modeinfo.ydpi / OSUNITS + ostodevy(view().yscroll);
}

driveplace cell(int32_t x, int32_t y)
{
    return driveclient(gridwindow, (cellx(x) + cellx(x + 1)) / 2, (celly(y) + celly(y + 1)) / 2);
}

// A pointer that comes into the window ends what is held, as far as the system
// of the tests knows, so it is there before.
void click(int32_t x, int32_t y, drivebutton button = DRIVELEFT, int held = 0)
{
    driveplace place = cell(x, y);
    drivemove(place.x, place.y);
    driveclick(place.x, place.y, button, held);
    drivemove(2, 2);
}

// What the window shows, with the pointer elsewhere.
drivepicture look()
{
    drivemove(2, 2);
    return drivelook(gridwindow);
}

drivepicture drawnafresh()
{
    gridredraw();
    drivepump();
    return look();
}

void randomdocument(uint32_t seed)
{
    std::mt19937 draw(seed);
    gridclear();
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            grid.letters[x][y] = static_cast<uint8_t>(draw() % 3 ? 'A' + draw() % 26 : ' ');
            grid.flags[x][y] = static_cast<uint8_t>(draw() % 3);
            if (draw() % 3 == 0) grid.flags[x][y] |= BARLEFT;
            if (draw() % 3 == 0) grid.flags[x][y] |= BARTOP;
        }
    grid.flags[grid.cursorx][grid.cursory] &= static_cast<uint8_t>(~CELLKIND);
}

std::string field(int32_t icon)
{
    return drivetext(buttonwindow, icon);
}

} // namespace

TEST_CASE("a square has a frame, a bar is two pixels inside it, colours tell its kind")
{
    documentbegin("#...\n....\n....\n\nleft 1,1\ntop 2,1\n");
    grid.flags[3][0] |= CELLMARKED;
    grid.flags[3][1] |= CELLMARKED;
    grid.cursorx = 3;
    grid.cursory = 1;
    grid.fillcolour = 0x0000FF00; // red
    grid.gridcolour = 0xFF000000; // blue
    cursorcolour = 0x00FFFF00;    // yellow
    selectedcolour = 0x00FF0000;  // green
    drivepicture p = drawnafresh();

    const uint32_t red = 0xFF0000, blue = 0x0000FF, green = 0x00FF00, white = 0xFFFFFF;
    for (int32_t x = 0; x <= 4; x++)
        for (int32_t y = 0; y <= celly(3); y++)
            REQUIRE(p.at(cellx(x), y) == blue);
    for (int32_t y = 0; y <= 3; y++)
        for (int32_t x = 0; x <= cellx(4); x++)
            REQUIRE(p.at(x, celly(y)) == blue);
    CHECK(p.at(cellx(4) + 1, 5) == white);
    CHECK(p.at(5, celly(3) + 1) == white);

    CHECK(p.at(1, 1) == red);
    CHECK(p.at(cellx(1) - 1, celly(1) - 1) == red);
    CHECK(p.at(cellx(3) + 5, 5) == green);
    CHECK(p.at(cellx(3) + 5, celly(1) + 5) == green); // the mark goes before the cursor
    CHECK(p.at(cellx(1) + 5, 5) == white);

    int32_t middle = celly(1) + 9;
    CHECK(p.at(cellx(1) + 1, middle) == blue);
    CHECK(p.at(cellx(1) + 2, middle) == blue);
    CHECK(p.at(cellx(1) + 3, middle) == white);
    CHECK(p.at(cellx(1) - 1, middle) == white);
    CHECK(p.at(cellx(2) + 9, celly(1) + 2) == blue);
    CHECK(p.at(cellx(2) + 9, celly(1) + 3) == white);

    cursorcolour = CURSORCOLOURDEFAULT;
    selectedcolour = SELECTEDCOLOURDEFAULT;
}

TEST_CASE("a part is painted as the whole, at any place of the view")
{
    begin();
    randomdocument(1);
    SUBCASE("as it comes") {}
    SUBCASE("letters larger than their squares, on a colour")
    {
        grid.gridfont.height = 300;
        grid.backcolour = 0xCCEEFF00;
    }
    SUBCASE("scrolled")
    {
        grid.width = grid.height = 40;
        randomdocument(2);
        gridextent();
        setscrollx(gridwindow, 101);
        setscrolly(gridwindow, 203);
    }
    drivepicture whole = drawnafresh();
    std::mt19937 draw(7);
    auto coordinate = [&] { return static_cast<int32_t>(draw() % 600); };
    for (int i = 0; i < 20; i++) {
        CAPTURE(i);
        int32_t x = coordinate(), y = coordinate();
        REQUIRE_FALSE(forceredraw(gridwindow, x, -y - coordinate(), x + coordinate(), -y));
        drivepump(5);
        REQUIRE(differences(look(), whole) == 0);
    }
    for (int i = 0; i < 20; i++) {
        CAPTURE(i);
        auto one = [&] { return static_cast<int32_t>(draw() % 16); };
        int32_t left = one(), top = one(), right = left + one() / 2, bottom = top + one() / 2;
        griddocument kept = grid;
        for (int32_t x = left; x <= right; x++)
            for (int32_t y = top; y <= bottom; y++)
                grid.flags[x][y] ^= CELLBLOCK | BARTOP;
        gridcellsredraw(left, top, right, bottom);
        grid = kept;
        gridcellsredraw(left, top, right, bottom);
        REQUIRE(differences(look(), whole) == 0);
    }
}

TEST_CASE("scrolling by squares shows what a redraw would")
{
    begin();
    grid.width = grid.height = 60;
    randomdocument(3);
    gridextent();
    drawnafresh();
    click(5, 5);
    for (int key : {KEYRIGHT, KEYDOWN, KEYRIGHT, KEYDOWN, KEYDOWN, KEYLEFT, KEYUP}) {
        drivekey(key, DRIVESHIFT);
        REQUIRE(undrawn() == 0);
    }
    CHECK(view().xscroll == grid.cellwidth);
    CHECK(view().yscroll == -2 * grid.cellheight);
    CHECK(grid.cursorx == 5);
}

TEST_CASE("typing fills a word, arrows move, and the view follows")
{
    documentbegin("......\n.#####\n......\n");
    click(0, 0);
    CHECK(undrawn() == 0);
    drivetype("cat");
    CHECK(grid.cursorx == 0); // a crossing: nowhere yet
    CHECK(documentpicture() == "t.....\n.#####\n......\n");
    drivekey(KEYRIGHT);
    drivetype("Ox*5");
    CHECK(documentpicture() == "tOx*..\n.#####\n......\n");
    CHECK(grid.cursorx == 4);
    drivekey(KEYBACKSPACE);
    drivekey(KEYDELETE);
    CHECK(documentpicture() == "tOx...\n.#####\n......\n");
    CHECK(grid.cursorx == 2);
    drivekey(KEYDOWN);
    CHECK(grid.cursory == 2);
    CHECK(undrawn() == 0);

    grid.width = 60;
    gridextent();
    for (int i = 0; i < 45; i++)
        drivekey(KEYRIGHT);
    CHECK(grid.cursorx == 47);
    int width, height;
    drivesize(gridwindow, &width, &height);
    CHECK(cellx(48) <= width);
    CHECK(cellx(47) >= 0);
    CHECK(undrawn() == 0);
}

TEST_CASE("keys come from the main window too, but not from the bar")
{
    documentbegin("...\n");
    click(0, 0);
    REQUIRE_FALSE(focuswindow(mainwindow));
    drivetype("a");
    CHECK(grid.letters[0][0] == 'a');
    REQUIRE_FALSE(caretatend(buttonwindow, BARLETTERS));
    drivetype("b");
    CHECK(documentpicture() == "a..\n");
    CHECK(field(BARLETTERS) == "b");
    seticontext(buttonwindow, BARLETTERS, "");
    drivekey(KEYESCAPE);
}

TEST_CASE("function keys reflect, in a Wordsquare too")
{
    documentbegin("#....\n.....\n");
    click(1, 0);
    drivekey(KEYF1 + 5);
    CHECK(documentpicture() == "#...#\n.....\n");
    grid.kind = GRIDWORDSQUARE;
    drivekey(KEYF1 + 7);
    CHECK(documentpicture() == "#...#\n#...#\n");
    CHECK(undrawn() == 0);
}

TEST_CASE("the right button makes blocks and bars")
{
    documentbegin("ab..\n....\n....\n");
    click(1, 0, DRIVERIGHT);
    click(2, 1, DRIVERIGHT, DRIVESHIFT);
    click(1, 1, DRIVERIGHT, DRIVECTRL);
    CHECK(documentpicture() == "a#..\n....\n....\n\nleft 2,1\ntop 1,1\n");
    click(1, 0, DRIVERIGHT);
    CHECK(documentpicture() == "a...\n....\n....\n\nleft 2,1\ntop 1,1\n");
    CHECK(undrawn() == 0);
    CHECK(drivetext(mainwindow).back() == '*');
}

TEST_CASE("a drag marks, its length shows; a press ends the mark, Ctrl keeps it")
{
    documentbegin(".....\n..#..\n.....\n");
    drivedrag({cell(0, 0), cell(3, 2), cell(3, 0)});
    CHECK(grid.markright == 3);
    CHECK(grid.markbottom == 0);
    CHECK(grid.flags[3][0] == CELLMARKED);
    CHECK(grid.flags[0][1] == CELLOPEN);
    CHECK(grid.cursorx == -1);
    CHECK(field(BARMARKLENGTH) == "4");

    drivemove(cell(4, 2).x, cell(4, 2).y);
    drivedrag({cell(4, 2), cell(4, 0)}, DRIVELEFT, DRIVECTRL);
    CHECK(grid.markright == 4);
    CHECK(grid.markbottom == 2);
    CHECK(field(BARMARKLENGTH) == "5");
    click(0, 2, DRIVERIGHT);
    CHECK(grid.flags[0][2] == CELLMARKED);
    CHECK(undrawn() == 0);

    click(1, 1);
    CHECK(grid.markleft == -1);
    CHECK(grid.flags[0][2] == CELLOPEN);
    CHECK(grid.cursorx == 1);
    CHECK(field(BARMARKLENGTH) == "");
    CHECK(undrawn() == 0);
}

TEST_CASE("a press with a twitch is a press")
{
    documentbegin("...\n...\n");
    driveplace at = cell(2, 1);
    drivedrag({at, {at.x + 2, at.y + 1}});
    CHECK(grid.cursorx == 2);
    CHECK(grid.cursory == 1);
    CHECK(grid.markleft == -1);
    CHECK(grid.flags[2][1] == CELLOPEN);
    CHECK(undrawn() == 0);
}

TEST_CASE("a drag to the window's edge scrolls on")
{
    begin();
    grid.width = grid.height = 40;
    gridextent();
    drawnafresh();
    int width, height;
    drivesize(gridwindow, &width, &height);
    driveplace corner = driveclient(gridwindow, width - 4, height - 4);
    std::vector<driveplace> places = {cell(2, 2)};
    for (int i = 0; i < 10; i++)
        places.push_back({corner.x + i % 2, corner.y});
    drivedrag(places);
    CHECK(view().xscroll >= 8 * grid.cellwidth);
    CHECK(view().yscroll <= -8 * grid.cellheight);
    CHECK(grid.markleft == 2);
    CHECK(cellx(grid.markright + 2) >= width - 2); // the mark came along
    CHECK(undrawn() == 0);
}

TEST_CASE("during a search the cells are the search's")
{
    documentbegin("a.b\n...\n");
    click(1, 0);
    searchbegin();
    drivetype("x");
    drivekey(KEYDELETE);
    drivekey(KEYF1 + 4);
    drivekey(KEYRIGHT);
    click(0, 0);
    click(2, 0, DRIVERIGHT);
    drivedrag({cell(0, 0), cell(2, 1)});
    CHECK(documentpicture() == "a.b\n...\n");
    CHECK(grid.cursorx == 1);
    CHECK(grid.markleft == -1);
    CHECK(search.stopflag == 0);
    drivekey(KEYESCAPE);
    CHECK(search.stopflag == 1);
    searchend();
    drivetype("x");
    CHECK(grid.letters[1][0] == 'x');
}

TEST_CASE("a grid is dropped on the grid, a word list on a Wordsquare's alone")
{
    documentbegin("ab#\n..c\n\nleft 1,1\n");
    std::string before = documentpicture(), path = scratchfolder() + "\\dropped.qmg";
    std::string words = scratchfolder() + "\\words.txt";
    REQUIRE_FALSE(gridwrite(path.c_str()));
    std::ofstream(words) << "apple\npear\n";

    documentbegin("....\n");
    drivedrop(gridwindow, {words}, cell(1, 0));
    CHECK(grid.filename[0] == 0);
    CHECK(solutions.count == 0);
    drivedrop(gridwindow, {path}, cell(1, 0));
    CHECK(documentpicture() == before);
    CHECK(drivetext(mainwindow) == "Quillmere - dropped.qmg");
    CHECK(grid.cursorx == -1);
    CHECK(undrawn() == 0);

    REQUIRE_FALSE(commandrun(40031));
    drivepump();
    drivedrop(gridwindow, {words}, cell(1, 0));
    CHECK(solutions.count == 2);
    CHECK(drivetext(mainwindow) == "Quillmere - words.txt");
}

TEST_CASE("the dialog for the size")
{
    constexpr int32_t MENUSIZE = 40008, WIDTH = 1008, HEIGHT = 1010, HEIGHTARROWS = 1009;
    documentbegin("abc\n...\n");
    click(1, 1);
    REQUIRE_FALSE(commandrun(MENUSIZE));
    drivepump();
    window dialog = drivewaitwindow("Grid Size");
    REQUIRE(dialog);
    CHECK(drivetext(dialog, WIDTH) == "3");
    CHECK(drivetext(dialog, HEIGHT) == "2");
    REQUIRE_FALSE(commandrun(MENUSIZE)); // again: the same one
    click(0, 0);                         // the grid takes nothing meanwhile
    CHECK(grid.cursorx == 1);
    CHECK(drivefind("Grid Size") == dialog);

    SUBCASE("typed over and taken by Return")
    {
        drivetype("7");
        drivekey(KEYTAB);
        drivetype("128"); // too large: as it was
        drivekey(KEYRETURN);
        CHECK(grid.width == 7);
        CHECK(grid.height == 2);
        CHECK(gridsunsaved() == 1);
        CHECK(undrawn() == 0);
    }
    SUBCASE("by the arrows and OK")
    {
        driveplace arrows = driveicon(dialog, HEIGHTARROWS);
        driveclick(arrows.x, arrows.y - 3);
        driveclick(arrows.x, arrows.y - 3);
        driveiconclick(dialog, 1);
        CHECK(grid.width == 3);
        CHECK(grid.height == 4);
    }
    SUBCASE("dropped by Cancel")
    {
        drivetype("9");
        driveiconclick(dialog, 2);
        CHECK(grid.width == 3);
    }
    SUBCASE("dropped by the close box")
    {
        drivetype("9");
        drivekey(KEYF1 + 3, DRIVEALT);
        CHECK(grid.width == 3);
    }
    CHECK_FALSE(drivefind("Grid Size"));
    click(0, 0);
    CHECK(grid.cursorx == 0);
}

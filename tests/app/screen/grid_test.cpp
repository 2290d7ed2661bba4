// The grid's window: what it shows, and what mouse and keys do in it.
#include "app/mainwindow.h"
#include "desktop/windows.h"
#include "find/findwindow.h"
#include "graphics/modeinfo.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/script.h"

#include <doctest/doctest.h>

#include <random>

namespace
{

// Where a cell's frame begins, in pixels of the window. Drawing drops fractions.
int32_t cellx(int32_t x)
{
    return x * grid.cellwidth * modeinfo.xdpi / OSUNITS;
}

int32_t celly(int32_t y)
{
    return y * grid.cellheight * modeinfo.ydpi / OSUNITS;
}

drivepicture look()
{
    drivepump(5);
    drivemove(2, 2);
    return drivelook(gridwindow);
}

void randomdocument(uint32_t seed, int32_t size)
{
    std::mt19937 draw(seed);
    gridclear();
    grid.width = grid.height = size;
    for (int32_t x = 0; x < size; x++)
        for (int32_t y = 0; y < size; y++) {
            grid.letters[x][y] = static_cast<uint8_t>(draw() % 3 ? 'A' + draw() % 26 : ' ');
            grid.flags[x][y] = static_cast<uint8_t>(draw() % 2);
            if (draw() % 3 == 0) grid.flags[x][y] |= BARLEFT;
            if (draw() % 3 == 0) grid.flags[x][y] |= BARTOP;
        }
    gridextent();
    CHECK_FALSE(scrollto(gridwindow, 0, 0));
    gridredraw();
    drivepump();
}

// A view that is wider than the window.
void wide(int32_t size)
{
    randomdocument(3, size);
    play({{click, "5,5"}, {undrawn, "0"}});
}

} // namespace

TEST_CASE("a square has a frame, a bar is two pixels inside it, colours tell its kind")
{
    play({{crossword, "#.../..../....//left 1,1/top 2,1"}});
    grid.flags[3][0] |= CELLMARKED;
    grid.flags[3][1] |= CELLMARKED;
    grid.cursorx = 3;
    grid.cursory = 1;
    grid.fillcolour = 0x0000FF00; // red
    grid.gridcolour = 0xFF000000; // blue
    cursorcolour = 0x00FFFF00;    // yellow
    selectedcolour = 0x00FF0000;  // green
    gridredraw();
    drivepicture p = look();

    const uint32_t red = 0xFF0000, blue = 0x0000FF, green = 0x00FF00, white = 0xFFFFFF;
    for (int32_t x = 0; x <= 4; x++)
        for (int32_t y = 0; y <= celly(3); y++)
            REQUIRE(p.at(cellx(x), y) == blue);
    for (int32_t y = 0; y <= 3; y++)
        for (int32_t x = 0; x <= cellx(4); x++)
            REQUIRE(p.at(x, celly(y)) == blue);
    int32_t middle = celly(1) + 9;
    const struct {
        int32_t x, y;
        uint32_t colour;
    } dots[] = {
        {cellx(4) + 1, 5, white},
        {5, celly(3) + 1, white},
        {1, 1, red},
        {cellx(1) - 1, celly(1) - 1, red},
        {cellx(3) + 5, 5, green},
        {cellx(3) + 5, celly(1) + 5, green}, // the mark goes before the cursor
        {cellx(1) + 5, 5, white},
        {cellx(1) + 1, middle, blue},
        {cellx(1) + 2, middle, blue},
        {cellx(1) + 3, middle, white},
        {cellx(1) - 1, middle, white},
        {cellx(2) + 9, celly(1) + 2, blue},
        {cellx(2) + 9, celly(1) + 3, white},
    };
    for (const auto &dot : dots) {
        CAPTURE(dot.x);
        CAPTURE(dot.y);
        CHECK(p.at(dot.x, dot.y) == dot.colour);
    }
}

TEST_CASE("a part is painted as the whole, at any place of the view")
{
    SUBCASE("as it comes")
    {
        randomdocument(1, 16);
    }
    SUBCASE("letters larger than their squares, on a colour, scrolled")
    {
        randomdocument(2, 40);
        grid.gridfont.height = 300;
        grid.backcolour = 0xCCEEFF00;
        setscrollx(gridwindow, 101);
        setscrolly(gridwindow, 203);
        gridredraw();
    }
    drivepicture whole = look();
    std::mt19937 draw(7);
    auto to = [&](uint32_t end) { return static_cast<int32_t>(draw() % end); };
    for (int i = 0; i < 20; i++) {
        CAPTURE(i);
        int32_t x = to(600), y = to(600);
        REQUIRE_FALSE(forceredraw(gridwindow, x, -y - to(600), x + to(600), -y));
        REQUIRE(drivediffer(look(), whole) == 0);
        int32_t left = to(16), top = to(16), right = left + to(8), bottom = top + to(8);
        griddocument before = grid;
        for (int32_t column = left; column <= right; column++)
            for (int32_t row = top; row <= bottom; row++)
                grid.flags[column][row] ^= CELLBLOCK | BARTOP;
        gridcellsredraw(left, top, right, bottom);
        grid = before;
        gridcellsredraw(left, top, right, bottom);
        REQUIRE(drivediffer(look(), whole) == 0);
    }
}

// The rows of a script are lines.
// clang-format off

TEST_CASE("scrolling by squares shows what a redraw would")
{
    wide(60);
    for (int code : {VK_RIGHT, VK_DOWN, VK_RIGHT, VK_DOWN, VK_DOWN, VK_LEFT, VK_UP})
        play({{key, SHIFT | code}, {undrawn, "0"}});
    play({{scrolled, "1,2"}, {cursor, "5,5"}});
}

TEST_CASE("typing fills a word, arrows move, and the view follows")
{
    play({
        {crossword, "....../.#####/......"}, {click, "0,0"}, {undrawn, "0"},
        // a crossing: nowhere yet
        {type, "cat"}, {cursor, "0,0"}, {document, "t...../.#####/......"},
        {key, VK_RIGHT}, {type, "Ox*5"}, {document, "tOx*../.#####/......"}, {cursor, "4,0"},
        {key, VK_BACK}, {key, VK_DELETE}, {document, "tOx.../.#####/......"}, {cursor, "2,0"},
        {key, VK_DOWN}, {cursor, "2,2"}, {undrawn, "0"},
    });
    // With Ctrl onto blocks, where the cursor is a frame; Insert opens them. With Shift
    // too the arrows mark.
    play({
        {key, CTRL | VK_UP}, {cursor, "2,1"}, {colour, cell(2, 1), "000000"}, {undrawn, "0"},
        {key, VK_INSERT}, {document, "tOx.../.#.###/......"}, {colour, cell(2, 1), "00bbff"},
        {key, SHIFT | VK_INSERT}, {document, "tOx.../.#.###/......//left 2,1"},
        {key, SHIFT | VK_INSERT}, {key, VK_INSERT}, {document, "tOx.../.#####/......"},
        {key, CTRL | VK_DOWN}, {key, CTRL | SHIFT | VK_RIGHT}, {mark, "2,2 3,2"}, {undrawn, "0"},
        {key, CTRL | SHIFT | VK_LEFT}, {mark, "none"}, {cursor, "2,2"},
    });
    grid.width = 60;
    gridextent();
    play({{key, VK_RIGHT, "45"}, {cursor, "47,2"}, {undrawn, "0"}});
    CHECK(scrolled(0, "") != "0,0");
}

TEST_CASE("keys come from the main window too, but not from the bar")
{
    play({
        {crossword, "..."}, {click, "0,0"}, {front}, {type, "a"}, {document, "a.."},
        {press, BARLETTERS}, {type, "b"}, {document, "a.."}, {text, BARLETTERS, "b"},
        {key, VK_BACK},
    });
}

TEST_CASE("function keys and the menu reflect, in a Wordsquare by the keys too")
{
    const char *first = "#..#../...#../.##.../..#..#/....../.#....//left 1,1 3,2/top 4,1";
    const struct {
        int32_t id, key;
    } ways[] = {{COMMANDREFLECTVERTICAL, VK_F5},
                {COMMANDREFLECTHORIZONTAL, VK_F6},
                {COMMANDREFLECTRISING, VK_F7},
                {COMMANDREFLECTFALLING, VK_F8}};
    for (const auto &way : ways) {
        play({
            {crossword, first}, {click, "1,0"}, {key, way.key}, {title, "Quillmere*"},
            {undrawn, "0"},
        });
        std::string keyed = document(0, "");
        CHECK(keyed != first);
        play({{another, first}, {menu, way.id}, {document, keyed}, {title, "Quillmere*"}});
    }
    play({
        {another, "#..../....."}, {click, "1,0"}, {key, VK_F6}, {document, "#...#/....."},
        {menu, COMMANDWORDSQUARE}, {another, "#...#/....."}, {setting, 1, "kind"}, {click, "1,0"},
        {key, VK_F8}, {document, "#...#/#...#"}, {undrawn, "0"},
    });
}

TEST_CASE("the right button makes blocks and bars")
{
    play({
        {crossword, "ab../..../...."}, {click, RIGHT, "1,0"}, {click, RIGHT | SHIFT, "2,1"},
        {click, RIGHT | CTRL, "1,1"}, {document, "a#../..../....//left 2,1/top 1,1"},
        {click, RIGHT, "1,0"}, {document, "a.../..../....//left 2,1/top 1,1"}, {undrawn, "0"},
        {click, RIGHT, "3,0 3,0"}, {document, "a.../..../....//left 2,1/top 1,1"}, // at once
        {title, "Quillmere*"},
    });
}

TEST_CASE("a drag marks, its length shows; a press ends the mark, Ctrl keeps it")
{
    play({
        {crossword, "...../..#../....."}, {drag, "0,0 3,2 3,0"}, {mark, "0,0 3,0"}, {marked, "4"},
        {cursor, "-1,-1"}, {text, BARMARKLENGTH, "4"}, {document, "...../..#../....."},
        {drag, CTRL, "4,2 4,0"}, {text, BARMARKLENGTH, "5"}, {marked, "7"},
        {click, RIGHT, "0,2"}, {marked, "8"}, {undrawn, "0"},
        {click, "1,1"}, {mark, "none"}, {marked, "0"}, {cursor, "1,1"}, {text, BARMARKLENGTH, ""},
        {undrawn, "0"},
        {twitch, "3,1"}, {cursor, "3,1"}, {mark, "none"}, {undrawn, "0"}, // a press
    });
}

TEST_CASE("a drag to the window's edge scrolls on")
{
    play({{crossword, "..."}});
    grid.width = grid.height = 40;
    gridextent();
    gridredraw();
    drivepump();
    int width, height;
    drivesize(gridwindow, &width, &height);
    driveplace corner = driveclient(gridwindow, width - 4, height - 4);
    driveplace from = driveclient(gridwindow, cellx(2) + 9, celly(2) + 9);
    std::vector<driveplace> places = {from};
    for (int i = 0; i < 10; i++)
        places.push_back({corner.x + i % 2, corner.y});
    drivedrag(places);
    CHECK(grid.markleft == 2);
    CHECK(grid.markright >= 7 + width / cellx(1)); // the mark came along
    CHECK(grid.markbottom >= 7 + height / celly(1));
    CHECK(scrolled(0, "") != "0,0");
    play({{undrawn, "0"}});
}

TEST_CASE("during a search the cells are the search's")
{
    play({{crossword, "a.b/..."}, {click, "1,0"}});
    searchbegin();
    play({
        {type, "x"}, {key, VK_DELETE}, {key, VK_F5}, {key, VK_RIGHT}, {click, "0,0"},
        {click, RIGHT, "2,0"}, {drag, "0,0 2,1"}, {document, "a.b/..."}, {cursor, "1,0"},
        {mark, "none"}, {value, "stopping", "0"},
        {key, VK_ESCAPE}, {value, "stopping", "1"},
    });
    searchend();
    play({{type, "x"}, {document, "axb/..."}});
}

TEST_CASE("the dialog for the size")
{
    play({
        {crossword, "abc/..."}, {click, "1,1"}, {menu, COMMANDSIZE}, {infront, "Grid Size"},
        {text, SIZEWIDTH, "3"}, {text, SIZEHEIGHT, "2"},
        {command, COMMANDSIZE}, {click, "0,0"}, {cursor, "1,1"}, // the grid takes nothing meanwhile
        {front, "Grid Size"}, {focus, SIZEWIDTH, "yes"},
        {type, "7"}, {key, VK_TAB}, {type, "128"}, {key, VK_RETURN}, // too large: as it was
        {value, "size", "7,2"}, {value, "unsaved", "1"}, {undrawn, "0"}, {shown, "Grid Size", "no"},
        {menu, COMMANDSIZE}, {infront, "Grid Size"},
        {press, SIZEHEIGHTARROWS, "high"}, {press, SIZEHEIGHTARROWS, "high"},
        {press, SIZEWIDTHARROWS, "low"}, {press, DIALOGOK}, {value, "size", "6,4"},
        {menu, COMMANDSIZE}, {infront, "Grid Size"},
        {type, "9"}, {press, DIALOGCANCEL}, {shown, "Grid Size", "no"},
        {menu, COMMANDSIZE}, {infront, "Grid Size"},
        {type, "9"}, {key, ALT | VK_F4}, {shown, "Grid Size", "no"}, {value, "size", "6,4"},
        {click, "0,0"}, {cursor, "0,0"},
    });
}

TEST_CASE("the first window shows the first grid whole")
{
    play({
        {value, "whole", "yes"}, {resize, "360,320"}, {value, "whole", "no"},
        {resize, "max"}, {value, "whole", "yes"}, {undrawn, "0"},
    });
}

TEST_CASE("the splitter is dragged within its limits, and the panes follow the window")
{
    play({
        {crossword, "ab./..."}, {layout, "right"},
        {split, 500}, {layout, "right"}, {value, "split", "500"}, {undrawn, "0"},
        {split, 1}, {value, "splitlimit", "least"}, {layout, "right"},
        {split, 999}, {value, "splitlimit", "most"}, {layout, "right"}, {undrawn, "0"},
        {split, 333}, {layout, "right"}, {value, "unsaved", "0"},
        {resize, "500,500"}, {layout, "right"}, {undrawn, "0"},
        {resize, "120,300"}, {layout, "right"}, {undrawn, "0"},
        {resize, "30,30"}, {resize, "700,700"}, {layout, "right"}, {undrawn, "0"},
        {resize, "max"}, {layout, "right"}, {undrawn, "0"},
        {resize, "min"}, {resize, "back"}, {resize, "back"}, {layout, "right"}, {undrawn, "0"},
    });
}

TEST_CASE("each kind of grid has its bar, and a text typed there stays with it")
{
    play({
        {crossword, "ab./..."}, {there, BARSOLVE, "yes"},
        {press, BARLETTERS}, {type, "letters"}, {menu, COMMANDWORDSQUARE}, {value, "kind", "1"},
        {document, ".../..."}, {title, "Quillmere"}, {there, BARSOLVE, "no"},
        {there, BARWORD, "yes"}, {there, BARDELETE, "yes"}, {there, BARMAKE, "yes"},
        {there, BARSQUARESOLVE, "yes"}, {there, BARNEW, "yes"}, {layout, "right"}, {undrawn, "0"},
        {menu, COMMANDCROSSWORD}, {text, BARLETTERS, "letters"}, {value, "kind", "0"},
        {fill, BARLETTERS, ""}, {layout, "right"},
    });
}

TEST_CASE("cases are ticked, exclude each other, and take the letters along")
{
    play({
        {crossword, "aB#"}, {menu, COMMANDUPPERCASE}, {document, "AB#"},
        {click, "0,0"}, {type, "x"}, {document, "XB#"},
        {entries, MENUATGRID, "Grid Type, Size..., Reflect, +Upper Case, Lower Case, Customise..."},
        {menu, COMMANDLOWERCASE}, {document, "xb#"},
        {entries, MENUATGRID, "Grid Type, Size..., Reflect, Upper Case, +Lower Case, Customise..."},
        {menu, COMMANDLOWERCASE}, {document, "xb#"}, {undrawn, "0"},
        {entries, MENUATGRID, "Grid Type, Size..., Reflect, Upper Case, Lower Case, Customise..."},
    });
}

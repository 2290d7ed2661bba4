// Editing by keys and by the mouse, and the commands that change the whole grid: a
// picture, what is done, and what there is then.
#include "grid/gridpress.h"
#include "grid/gridreflect.h"
#include "grid/gridshape.h"
#include "grid/gridtype.h"
#include "grid/gridwindow.h"
#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace
{

using numbers = const int32_t *;

// By the act's name; numbers that aren't written are 0.
const std::map<std::string, void (*)(numbers n)> acts = {
    {"to", [](numbers n) { cursorto(n[0], n[1]); }},
    {"move", [](numbers n) { cursormove(n[0], n[1]); }},
    {"erase", [](numbers) { griderase(); }},
    {"left", [](numbers n) { gridleftpress(n[0], n[1], n[2]); }},            // ctrl
    {"right", [](numbers n) { gridrightpress(n[0], n[1], n[2], n[3]); }},    // shift, ctrl
    {"start", [](numbers n) { CHECK(griddragstart(n[0], n[1]) == !n[2]); }}, // whether refused
    {"step", [](numbers n) { griddragstep(n[0], n[1]); }},
    {"end", [](numbers) { griddragend(); }},
    {"drag", // from, to, ctrl
     [](numbers n) {
         gridleftpress(n[0], n[1], n[4]);
         REQUIRE(griddragstart(n[0], n[1]));
         griddragstep(n[2], n[3]);
         griddragend();
     }},
    {"go", [](numbers n) { gridstep(n[0], n[1]); }},
    {"mark", [](numbers n) { gridmarkstep(n[0], n[1]); }},
    {"insert", [](numbers n) { gridcursoredit(n[0], n[1]); }}, // shift, ctrl
    {"reflect", [](numbers n) { gridreflect(n[0]); }},
    {"size", [](numbers n) { gridsize(n[0], n[1]); }},
    {"kind", [](numbers n) { gridsetkind(n[0]); }},
    {"square", [](numbers) { grid.kind = GRIDWORDSQUARE; }},
    {"case", [](numbers n) { gridcaseswitch(n[0]); }},
    {"new", [](numbers) { gridnew(); }},
    {"newwords", [](numbers) { gridnewwords(); }},
};

void act(const std::string &line)
{
    std::istringstream words(line);
    std::string verb, text;
    int32_t n[5] = {};
    words >> verb >> std::ws;
    if (verb == "type") {
        std::getline(words, text);
        for (char ch : text)
            gridtype(static_cast<uint8_t>(ch));
        return;
    }
    for (int32_t &number : n)
        words >> number;
    acts.at(verb)(n);
}

// Rows of the picture parted by "/", marked cells as "m", and what isn't 0 or none.
std::string look()
{
    std::string all = gridtext();
    for (int32_t y = 0; y < grid.height; y++)
        for (int32_t x = 0; x < grid.width; x++)
            if ((grid.flags[x][y] & CELLKIND) == CELLMARKED)
                all[static_cast<size_t>(y * (grid.width + 1) + x)] = 'm';
    std::ranges::replace(all, '\n', '/');
    auto add = [&](const char *name, int32_t value) {
        if (value) all += name + std::to_string(value);
    };
    if (grid.cursorx >= 0)
        all += " @" + std::to_string(grid.cursorx) + "," + std::to_string(grid.cursory);
    add(" length ", headless.marklength + 1 ? headless.marklength : 0);
    add(" beeps ", headless.beeps);
    add(" changes ", grid.changed);
    add(" drops ", headless.resultsdropped);
    return all;
}

struct editrow {
    std::string picture, acts, look;
};

void edited(std::initializer_list<editrow> rows)
{
    for (const editrow &row : rows) {
        CAPTURE(row.acts);
        gridreset();
        std::string picture = row.picture;
        std::ranges::replace(picture, '/', '\n');
        gridset(picture);
        headlessreset();
        gridunchanged();
        gridredraw();
        std::istringstream lines(row.acts);
        for (std::string line; std::getline(lines, line, ';');)
            act(line);
        CHECK(headlessdrawn());
        CHECK(look() == row.look);
    }
}

} // namespace

TEST_CASE("typing goes the only way that is open, and then on in it")
{
    edited({
        // Across or down, over a crossing, to the end.
        {"..../##.#/##.#", "to 0 0; type Caf\xE9", "Caf\xE9/##.#/##.#/ @3,0 beeps 1 changes 4"},
        {".##/.../.##", "to 0 0; type abc", "a##/b../c##/ @0,2 beeps 1 changes 3"},
        // At a crossing after a click, or after a jump: nowhere. After a move: on.
        {"../..", "to 0 0; type a", "a./../ @0,0 beeps 1 changes 1"},
        {".#../....", "to 0 0; move 1 0; type a", ".#a./..../ @2,0 beeps 1 changes 1"},
        {".../.../.../...", "to 1 0; move 0 1; move 0 1; type a",
         ".../.../.a./.../ @1,3 changes 1"},
        // Not across a bar, but along it.
        {"../..//left 1,0/top 0,1", "to 0 0; type a",
         "a./..//left 1,0/top 0,1/ @0,0 beeps 1 changes 1"},
        // What can be typed, and in which case.
        {"......", "to 0 0; type a1?\r\t*\xDFz ", "a*\xDFz../ @5,0 changes 5"},
        {"...", "case 1; to 0 0; type q\xE9", "Q\xE9./ @2,0 changes 3 drops 1"},
        // Without a cursor in the grid nothing.
        {"abc", "type x; erase; move 1 0; to 3 0; type x; erase; move -1 0", "abc/ @3,0"},
    });
}

TEST_CASE("erasing steps back, over bars but not over blocks, and arrows jump over these")
{
    edited({
        {"abc//left 1,0 2,0", "to 2 0; erase; erase", "a..//left 1,0 2,0/ @0,0 changes 2"},
        {"ab", "to 0 0; erase", ".b/ @0,0 beeps 1 changes 1"},
        {"#a./bc./#d.", "to 1 2; erase; erase", "#a./b../#../ @1,0 changes 2"}, // the only way: up
        {".../...", "to 0 1; move 1 0; erase", ".../.../ @1,1 beeps 1 changes 1"}, // after a move
        {".##./#...", "to 0 0; move 1 0; move 1 0", ".##./#.../ @3,0"},
        {".##./#...", "to 3 1; move -1 0; move -1 0; move -1 0; move 0 -1", ".##./#.../ @1,1"},
    });
    CHECK((headless.shownx == 1 && headless.showny == 1)); // the view has followed
}

TEST_CASE("a left press moves the cursor, a right press makes blocks and bars")
{
    edited({
        {".../#..", "left 1 1; left 0 1; left 3 0; left 0 -1 1", ".../#../ @1,1 beeps 3"},
        {"ab", "right 1 0 1 1", "ab//left 1,0/ changes 1"}, // Shift wins
        {"ab", "right 1 0 1; right 1 0 0 1; right 1 0 1", "ab//top 1,0/ changes 3"},
        {"ab//top 1,0", "right 1 0; right 1 0 1; right 2 0", "a./ beeps 1 changes 2"}, // all away
        // While there is a mark it marks single cells.
        {".../..#", "drag 0 0 1 0; right 2 0; right 2 1", "mmm/..#/ length 3 changes 1 drops 1"},
        {".../..#", "drag 0 0 1 0; right 1 0; right 0 0 1; right 2 0",
         "..#/..#/ changes 3 drops 2"}, // the mark is gone
        // A Wordsquare has a cursor, and neither marks nor blocks by hand.
        {"../..", "start 2 1 1; square; left 1 1; start 1 1 1; right 0 0; right 0 1 1",
         "../../ @1,1"},
    });
}

TEST_CASE("a drag marks a rectangle, and back again")
{
    edited({
        {"..../.#../....", "left 0 0; start 0 0; step 0 0", "..../.#../..../ @0,0"},
        {"..../.#../....", "drag 0 0 2 1", "mmm./m#m./..../ length 3"},
        {"..../.#../....", "left 0 0; start 0 0; step 1 7", "mm../m#../mm../ length 2"}, // beyond
        {"..../.#../....", "left 0 0; start 0 0; step 1 2; step -3 0; end", "..../.#../..../ @0,0"},
        // From a block: the cursor keeps off it.
        {"#../...", "left 2 1; left 0 0; start 0 0; step 1 0; step 0 0; end", "#../.../ beeps 1"},
        // With Ctrl it adds to the mark, but what both share; without it begins anew.
        {"..../..../....", "drag 3 0 2 0; drag 2 0 2 2 1", "...m/..m./..m./ length 2"},
        {".../...", "drag 0 0 1 0; drag 2 1 2 1 1", "mm./..m/ length 3"}, // a single cell too
        {".../...", "drag 0 0 1 0; drag 0 1 1 1", ".../mm./ length 2 drops 1"},
    });
}

TEST_CASE("keys go onto blocks, make blocks and bars there, and mark as a drag does")
{
    edited({
        // The first step brings the cursor; none leaves the grid.
        {".#./...", "go 1 0; go 0 -1; go 1 0", ".#./.../ @1,0"},
        {".#./...", "go 1 0; insert; go 1 0; insert 0 1; go 1 0; insert 1; go 0 1; insert 0 1",
         "#../...//left 2,0/top 2,1/ @2,1 changes 4"},
        // Without a cursor and in a Wordsquare nothing but that.
        {"...", "insert; mark 1 0; square; go 1 0; mark 1 0; insert; go 1 0", ".../ @1,0 beeps 2"},
        // From the cell where the mark began, and back to it; not from a block.
        {".#../....", "to 0 0; mark 1 0; mark 1 0; mark 0 1; mark 0 1",
         "m#m./mmm./ length 3 drops 3"},
        {".#../....", "to 3 1; mark -1 0; mark 0 -1; mark 1 0; mark 0 1",
         ".#../..../ @3,1 drops 3"},
        {"#..", "to 0 0; mark 1 0", "#../ @0,0 beeps 1"},
        // Of a mark of the mouse as well, and of one that was changed from its first cell.
        {"..../....", "drag 3 1 2 1; mark -1 0", "..../.mmm/ length 3 drops 1"},
        {"..../....", "drag 3 1 2 1; right 2 0; mark -1 0",
         "..m./..m./ length 2 changes 1 drops 2"},
        {".#../....", "drag 3 1 2 1; insert; go 0 1", ".#../..../ @2,1 beeps 1 drops 1"},
    });
}

TEST_CASE("a half is reflected onto the other: blocks, and bars to the edges they turn to")
{
    edited({
        {"a#..b/..#cd/#....//left 1,0/top 1,1", "reflect 0",
         "a#.#b/..#cd/#...#//left 1,0 4,0/top 1,1 3,1/ changes 1 drops 1"},
        {"##..../#.#.##", "reflect 0", "##..##/#.#..#/ changes 1 drops 1"}, // an even middle stays
        {"...../.....//left 3,1", "reflect 0", "...../.....//left 3,0 3,1/ changes 1 drops 1"},
        {"a#./.#./.../..#/b..//left 1,0/top 0,1", "reflect 1",
         "a#./.#./.../.#./b#.//left 1,0 1,4/top 0,1 0,4/ changes 1 drops 1"},
        {"#../.../..#//left 1,0/top 0,1", "reflect 2",
         "#../.../..#//left 1,0 2,2/top 0,1 2,2/ changes 1 drops 1"},
        {"a.#/.../#.b//left 2,0/top 2,1", "reflect 3",
         "a.#/.../#.b//left 2,0 1,2/top 2,1 0,2/ changes 1 drops 1"},
        // The first bar lands behind the last cell, and no mark is copied.
        {"...//left 0,0", "reflect 0; size 4 1", "....//left 0,0 3,0/ changes 2 drops 2"},
        {"./././/top 0,0", "reflect 1; size 1 4", "././././/top 0,0 0,3/ changes 2 drops 2"},
        {"...", "drag 0 0 1 0; reflect 0", ".../ changes 1 drops 1"},
    });
}

TEST_CASE("size, kind and case, New Grid and New Words")
{
    edited({
        {"abc/def", "to 2 0; size 2 1; size 3 2", "abc/def/ @2,0 changes 2 drops 2"},
        {"ab", "size 1 128; size 2 1", "ab/ changes 2 drops 2"},
        {"ab", "kind 0", "ab/"}, // the same is none, another is another document
        {"a#//left 1,0", "to 0 0; kind 1", "../ drops 1"},
        {"q#Q", "case 1", "Q#Q/ changes 1 drops 1"}, // each switches the other off
        {"qQ", "case 1; case 2; case 2; to 0 0; type Z", "Zq/ @1,0 changes 4 drops 3"},
        {"a#.", "drag 0 0 1 0; case 1", "A#./ changes 1 drops 1"},
        {"ab#//left 1,0", "drag 0 0 1 0; newwords", "..#//left 1,0/ changes 1 drops 1"},
        {"ab#//left 1,0", "drag 0 0 1 0; new", ".../ drops 1"},
    });
    CHECK(grid.filename[0] == 0);
}

// The searches of a Wordsquare, stopped in the middle, and the list that they
// fill or that is typed.
#include "app/buttons.h"
#include "app/mainwindow.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridshape.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/screen.h"
#include "tests/app/screen/searchhands.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

bool squarefilled()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if (grid.letters[x][y] < 'a' || grid.letters[x][y] > 'z') return false;
    return true;
}

// The words hidden in the grid, told simply: from each cell, each way, the
// longest that is known.
list hidden(const list &known, size_t least)
{
    list found;
    for (int32_t at = 0; at < grid.width * grid.height * 9; at++) {
        int32_t x = at / 9 % grid.width, y = at / 9 / grid.width;
        int32_t dx = at % 3 - 1, dy = at % 9 / 3 - 1;
        if (!dx && !dy) continue;
        std::string line, best;
        for (; gridinside(x, y); x += dx, y += dy) {
            line += static_cast<char>(grid.letters[x][y]);
            if (line.size() >= least && std::find(known.begin(), known.end(), line) != known.end())
                best = line;
        }
        if (!best.empty()) found.push_back(best);
    }
    std::sort(found.begin(), found.end());
    return found;
}

int cellsmarked()
{
    int count = 0;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            count += (grid.flags[x][y] & CELLKIND) == CELLMARKED;
    return count;
}

} // namespace

TEST_CASE("words are typed into a Wordsquare's list, selected there, and deleted")
{
    squarebegin(9);
    bartype(BARWORD, "stare");
    drivekey(VK_RETURN);
    CHECK(drivetext(buttonwindow, BARWORD) == "");
    for (const char *word : {"tea", "Rat", "toolongtofitinhere"}) {
        drivetype(word);
        drivekey(VK_RETURN);
    }
    CHECK(listrows() == list{"stare", "tea", "Rat", "toolongtofitinhere"});
    CHECK(undrawn() == 0);

    rowclick(3);
    barpress(BARDELETE);
    CHECK(listrows() == list{"stare", "tea", "Rat"});
    searchrun(BARMAKE);
    CHECK(squarefilled());
    CHECK(listrows() == list{"stare", "tea", "Rat"});
    for (int32_t i = 0; i < 3; i++)
        CHECK(wordplaced(*solword(i)));
    CHECK(drivetext(mainwindow).back() == '*');
    CHECK(undrawn() == 0);

    drivepicture plain = drivelook(gridwindow);
    rowclick(0);
    CHECK(cellsmarked() == 5);
    CHECK(differences(plain, drivelook(gridwindow)) > 0);
    CHECK(undrawn() == 0);
    rowclick(1);
    CHECK(cellsmarked() == 3);
    rowclick(1); // the only one selected: it stays so
    CHECK(cellsmarked() == 3);
    rowclick(2, DRIVELEFT, DRIVECTRL);
    rowclick(0, DRIVERIGHT);
    CHECK(solselected() == 3);
    CHECK(undrawn() == 0);
    drivepicture p = drivelook(solutionswindow);
    int y = ostodevy(solutions.rowheight / 2);
    CHECK(p.at(ostodevx(solutions.listwidth) - 8, y) == 0);
    CHECK(p.at(p.width - 1, ostodevy(solutions.rowheight * 3) + y) == 0xFFFFFF);
    rowclick(1, DRIVERIGHT);
    rowclick(5, DRIVERIGHT); // below the last
    CHECK(solselected() == 2);
    barpress(BARDELETE);
    CHECK(listrows() == list{"tea"});
    CHECK(cellsmarked() == 0);
    CHECK(differences(plain, drivelook(gridwindow)) == 0);
    CHECK(undrawn() == 0);
    barpress(BARDELETE); // nothing is selected
    CHECK(listrows() == list{"tea"});
}

TEST_CASE("Solve finds the words in a Wordsquare, and New hides some")
{
    squarebegin(12);
    grid.minwordlength = 3;
    searchrun(BARNEW);
    CHECK(squarefilled());
    CHECK(solutions.count == 0);
    CHECK(drivetext(mainwindow).back() == '*');
    searchrun(BARSQUARESOLVE);
    CHECK(listrows() == hidden(WORDS, 3));
    CHECK(listrows().size() > 4);
    for (int32_t i = 0; i < solutions.count; i++)
        CHECK(wordplaced(*solword(i)));
    CHECK(undrawn() == 0);
    grid.minwordlength = 5;
    searchrun(BARSQUARESOLVE);
    CHECK(listrows() == hidden(WORDS, 5));
    CHECK(undrawn() == 0);
}

TEST_CASE("a Make that finds no end is stopped with what it has")
{
    squarebegin(10);
    bool escape = false;
    SUBCASE("by the button") {}
    SUBCASE("by Escape")
    {
        escape = true;
    }
    // One more than lie beside each other, and all letters differ where they'd cross.
    list crowd;
    for (char first = 'a'; first < 'a' + 11; first++)
        crowd.push_back(std::string(9, first) + static_cast<char>(first + 11));
    for (const std::string &word : crowd)
        REQUIRE_FALSE(soladdtyped(word.c_str()));
    std::string said, progress;
    bool painted = false;
    searchrun(BARMAKE, [&] {
        Sleep(300);
        progress = drivetext(buttonwindow, BARPROGRESS);
        painted = repaints(solutionswindow);
        said = stopandread(escape);
    });
    CHECK(painted);
    CHECK(shownprogress(progress));
    int fitted = 0;
    while (fitted < solutions.count && solword(fitted)->x >= 0)
        fitted++;
    REQUIRE(fitted > 0);
    REQUIRE(fitted < 11);
    CHECK(said == "Fitted " + std::to_string(fitted) + " words, up to " +
                      crowd[static_cast<size_t>(fitted)]);
    for (int32_t i = 0; i < 11; i++)
        CHECK((i < fitted ? wordplaced(*solword(i)) : solword(i)->x == -1));
    CHECK(squarefilled());
    CHECK(undrawn() == 0);
}

TEST_CASE("a New without end is stopped, and its square filled")
{
    screenstart();
    dictionariesbegin({{"short", {"cat", "dog"}}}); // which fit over themselves for ever
    REQUIRE_FALSE(dictuse(0));
    gridsetkind(GRIDWORDSQUARE);
    drivepump();
    searchrun(BARNEW, [] {
        Sleep(100);
        stoppress();
    });
    CHECK_FALSE(drivefind("", "#32770"));
    CHECK(solutions.count == 0);
    CHECK(squarefilled());
    CHECK(undrawn() == 0);
}

TEST_CASE("a long Solve of a Wordsquare is stopped with what it has")
{
    squarebegin(127);
    if (!dictionarylarge()) return;
    grid.minwordlength = 2;
    gridfillrandom();
    gridredraw();
    drivepump();
    searchrun(BARSQUARESOLVE);
    list all = listrows();
    searchrun(BARSQUARESOLVE, [] { stoppress(); });
    list some = listrows();
    CHECK(some.size() < all.size());
    auto blind = [](const std::string &a, const std::string &b) { return a < b; };
    CHECK(std::is_sorted(some.begin(), some.end(), blind));
    CHECK(std::includes(all.begin(), all.end(), some.begin(), some.end()));
    CHECK(undrawn() == 0);
}

// The searches of a Crossword, stopped in the middle, and the list that they fill.
#include "app/buttons.h"
#include "app/commands.h"
#include "app/mainwindow.h"
#include "base/chars.h"
#include "desktop/icons.h"
#include "desktop/windows.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "find/solve.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridview.h"
#include "resources/identifiers.h"
#include "tests/app/screen/boxhands.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/menuhands.h"
#include "tests/app/screen/searchhands.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

int dark(const drivepicture &p, int left, int top, int right, int bottom)
{
    int count = 0;
    for (int y = std::max(top, 0); y < std::min(bottom, p.height); y++)
        for (int x = std::max(left, 0); x < std::min(right, p.width); x++)
            count += (p.at(x, y) & 0xFF) < 0x60;
    return count;
}

} // namespace

TEST_CASE("Solve lists what fits, and a press on a row writes it into the grid")
{
    crosswordbegin("c.t..\n..###\n..###\n");
    markdrag(0, 0, 2, 0);
    searchrun(BARSOLVE);
    CHECK(listrows() == list{"cat", "cot"});
    CHECK(undrawn() == 0);
    rowclick(2); // below the last
    CHECK(documentpicture() == "c.t..\n..###\n..###\n");
    rowclick(1, DRIVERIGHT);
    CHECK(documentpicture() == "c.t..\n..###\n..###\n");
    rowclick(1);
    CHECK(documentpicture() == "cot..\n..###\n..###\n");
    CHECK(drivetext(mainwindow) == "Quillmere*");
    driveplace first = rowplace(0);
    drivedouble(first.x, first.y);
    CHECK(documentpicture() == "cat..\n..###\n..###\n");
    CHECK(listrows() == list{"cat", "cot"});
    CHECK(undrawn() == 0);

    // Another mark, and the rows are gone.
    drivepicture full = drivelook(solutionswindow);
    cellclick(4, 0);
    CHECK(solutions.count == 0);
    CHECK(differences(full, drivelook(solutionswindow)) > 0);
    CHECK(undrawn() == 0);
}

TEST_CASE("words that cross are solved together, and shown as they lie")
{
    crosswordbegin("....\n.###\n.###\n");
    markdrag(0, 0, 2, 2);
    searchrun(BARSOLVE);
    list pairs;
    for (const std::string &across : WORDS)
        for (const std::string &down : WORDS)
            if (across.size() == 3 && down.size() == 3 && across[0] == down[0])
                pairs.push_back(across + " " + down);
    CHECK(listrows() == pairs);
    REQUIRE(solutions.slotcount == 2);

    // Each picture has letters along its top and its left, and none in its middle.
    drivemove(2, 2);
    drivepicture p = drivelook(solutionswindow);
    int left = ostodevx(6), height = ostodevy(solutions.textheight),
        width = ostodevx(solutions.charwidth), top = ostodevy(10);
    for (int32_t at = 0; at < 2; at++) {
        int y = ostodevy(at * solutions.rowheight) + top;
        for (int i = 0; i < 3; i++) {
            CHECK(dark(p, left + i * width, y, left + (i + 1) * width, y + height) > 0);
            CHECK(dark(p, left, y + i * height, left + width, y + (i + 1) * height) > 0);
        }
        CHECK(dark(p, left + width + 1, y + height + 1, left + 3 * width, y + 3 * height) == 0);
    }

    // A row further down, after the wheel.
    int32_t last = solutions.count - 1;
    drivemove(drivemiddle(solutionswindow).x, drivemiddle(solutionswindow).y);
    for (int i = 0; i < 60; i++)
        drivewheel(-120);
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(solutionswindow, &state));
    CHECK(state.yscroll < 0);
    rowclick(last);
    std::string across = wordtext(solref(last, 0));
    CHECK(documentpicture().substr(0, 4) == across + ".");
    CHECK(undrawn() == 0);

    // A phrase is shown as it is written into the grid, closed up.
    crosswordbegin("c...\n.###\n.###\n");
    REQUIRE_FALSE(dictadd("c at", &dicts[dictset.numbers[0]].dict));
    markdrag(0, 0, 2, 2);
    searchrun(BARSOLVE);
    REQUIRE(listrows()[0] == "c at c at");
    drivemove(2, 2);
    p = drivelook(solutionswindow);
    for (int i = 0; i < 3; i++)
        CHECK(dark(p, left + i * width, top, left + (i + 1) * width, top + height) > 0);
    rowclick(0);
    CHECK(documentpicture() == "cat.\na###\nt###\n");
}

TEST_CASE("what Solve and Anagram can't do is said")
{
    crosswordbegin("....\n.###\n");
    CHECK(complaint([] { barpress(BARSOLVE); }) == "Need marked word!");
    CHECK(complaint([] { barpress(BARANAGRAM); }) == "Need marked word!");
    grid.flags[3][0] |= CELLMARKED;
    markrescan();
    CHECK(complaint([] { barpress(BARSOLVE); }) == "Nothing to solve!");
    markdrag(0, 0, 3, 1);
    CHECK(complaint([] { barpress(BARANAGRAM); }) == "An anagram must be a single marked word!");
    cellclick(1, 0);
    markdrag(0, 0, 3, 0);
    CHECK(complaint([] { barpress(BARANAGRAM); }) == "Can't have space in anagram");
    bartype(BARLETTERS, "tea");
    CHECK(
        complaint([] { drivekey(VK_RETURN); }) ==
        "The marked area of grid must have the same number of characters as in the anagram text.");
    REQUIRE_FALSE(dictunuse(0));
    CHECK(complaint([] { barpress(BARSOLVE); }) == "No dictionaries loaded!");
    CHECK_FALSE(barsolving());
    seticontext(buttonwindow, BARLETTERS, "");
}

TEST_CASE("Anagram takes the typed letters, by button and Return, or those of the grid")
{
    crosswordbegin("...t\n....\n");
    markdrag(0, 0, 2, 0);
    bartype(BARLETTERS, "tac");
    drivekey(VK_RETURN);
    drivepump(250);
    CHECK(listrows() == list{"act", "cat"});
    CHECK(drivetext(buttonwindow, BARLETTERS) == "tac");
    caretrecord caret;
    REQUIRE_FALSE(getcaret(&caret));
    CHECK(caret.self == buttonwindow);
    CHECK(caret.icon == BARLETTERS);
    CHECK(drivetext(buttonwindow, BARMARKLENGTH) == "3");
    drivekey(VK_BACK);
    drivetype("*");
    searchrun(BARANAGRAM);
    CHECK(listrows() == list{"act", "art", "bat", "cat", "oat", "rat", "tar", "tea"});
    rowclick(2);
    CHECK(documentpicture() == "batt\n....\n");
    CHECK(undrawn() == 0);

    barpress(BARLETTERS);
    drivekey('A', DRIVECTRL);
    drivekey(VK_DELETE);
    searchrun(BARANAGRAM); // "bat" itself
    CHECK(listrows() == list{"bat"});
}

TEST_CASE("a long Solve counts, repaints and stops, and the bar comes back as it was")
{
    crosswordbegin(".....\n.####\n.####\n.####\n.####\n");
    if (!dictionarylarge()) return;
    solutions.maxsolutions = 1000000;
    markdrag(0, 0, 4, 4);
    bartype(BARLETTERS, "keep me");
    bool stopper = false, counted = false, right = true, painted = false;
    bool escape = false;
    SUBCASE("by the button") {}
    SUBCASE("by Escape")
    {
        escape = true;
    }
    DWORD stoppedat = 0;
    searchrun(BARSOLVE, [&] {
        stopper = drivewait([] { return drivecontrol(buttonwindow, BARSTOP) != 0; });
        counted = drivewait([&] {
            std::string text = drivetext(buttonwindow, BARPROGRESS);
            right = right && (text.empty() || shownprogress(text));
            return text.size() >= 3;
        });
        painted = repaints(gridwindow);
        stoppedat = GetTickCount();
        if (escape)
            drivekey(VK_ESCAPE);
        else
            stoppress();
    });
    CHECK(stopper);
    CHECK(counted);
    CHECK(right);
    CHECK(painted);
    CHECK(GetTickCount() - stoppedat < 3000);
    CHECK(solutions.count >= 100);
    CHECK(solutions.slotcount == 2);
    CHECK(drivetext(buttonwindow, BARLETTERS) == "keep me");
    caretrecord caret;
    REQUIRE_FALSE(getcaret(&caret));
    CHECK(caret.self == buttonwindow);
    CHECK(caret.icon == BARSOLVE); // which was pressed

    int crossed = 0;
    for (int32_t at = 0; at < solutions.count; at++) {
        std::string across = wordtext(solref(at, 0)), down = wordtext(solref(at, 1));
        crossed +=
            charlower(static_cast<uint8_t>(across[0])) == charlower(static_cast<uint8_t>(down[0]));
    }
    CHECK(crossed == solutions.count);
    rowclick(0);
    drivepump();
    CHECK(undrawn() == 0);
    seticontext(buttonwindow, BARLETTERS, "");
}

TEST_CASE("a command in the middle of a search ends it first")
{
    crosswordbegin("......\n......\n......\n......\n......\n......\n");
    if (!dictionarylarge()) return;
    markdrag(0, 0, 5, 5);
    bool ticked = false;
    menupath upper = menufindpath(40013);
    searchrun(BARSOLVE, [&] {
        menupress(upper);
        ticked = drivewait([] { return grid.casemode == CASEUPPER; });
    });
    CHECK(ticked);
    CHECK(solutions.count == 0);
    CHECK(grid.markleft == -1);
    CHECK(drivecontrol(buttonwindow, BARSOLVE));
    CHECK(undrawn() == 0);
}

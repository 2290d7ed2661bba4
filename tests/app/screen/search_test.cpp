// The searches from their buttons, stopped in the middle, and the list that they
// fill.
#include "app/buttons.h"
#include "app/commands.h"
#include "app/mainwindow.h"
#include "base/chars.h"
#include "base/text.h"
#include "desktop/icons.h"
#include "desktop/windows.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "find/solve.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "grid/gridshape.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/companion.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/menuhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

// The long one fits nowhere: without it New could lay the others over themselves
// for ever.
const list WORDS = {"act",   "art", "bat", "cat",  "cot", "ease", "incomprehensibly", "oat", "rat",
                    "stare", "tar", "tea", "teas", "toe", "tsar"};

HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

void document(const std::string &picture)
{
    REQUIRE_FALSE(picturetextread(picture.data(), static_cast<int32_t>(picture.size())));
    gridunchanged();
    settitlefromgrid();
    drivepump();
}

void begin(const std::string &picture)
{
    screenstart();
    dictionariesbegin({{"words", WORDS}});
    REQUIRE_FALSE(dictuse(0));
    REQUIRE_FALSE(scrollto(gridwindow, 0, 0));
    document(picture);
}

// A Wordsquare of so many cells each way, with no letters.
void square(int32_t size)
{
    screenstart();
    dictionariesbegin({{"words", WORDS}});
    REQUIRE_FALSE(dictuse(0));
    gridsetkind(GRIDWORDSQUARE);
    gridsize(size, size);
    drivepump();
}

std::string written()
{
    std::string text;
    picturetextwrite(&text);
    return text;
}

driveplace cell(int32_t x, int32_t y)
{
    return driveclient(gridwindow, ostodevx(x * grid.cellwidth + grid.cellwidth / 2),
                       ostodevy(y * grid.cellheight + grid.cellheight / 2));
}

void mark(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    drivedrag({cell(left, top), cell(right, top), cell(right, bottom)});
}

void press(int control)
{
    driveplace at = driveicon(buttonwindow, control);
    driveclick(at.x, at.y);
}

// A press, and all that follows from it until no search runs; meanwhile the
// script, on its own thread, once the bar with Stop is there.
void run(int control, const std::function<void()> &script = nullptr)
{
    driveaside(
        [&] {
            press(control);
            drivepump(250);
        },
        [&] {
            if (!script || !drivewait([] { return barsolving(); })) return;
            script();
        });
    drivewait([] { return !searchunderway(); }, 20000);
    drivepump();
    CHECK_FALSE(barsolving());
}

// Where Stop is, once it is to be seen there: its bar comes in while the search
// begins.
driveplace stopplace()
{
    driveplace at = {};
    auto seen = [&] {
        at = driveicon(buttonwindow, BUTTONSTOP);
        return WindowFromPoint({at.x, at.y}) == handle(drivecontrol(buttonwindow, BUTTONSTOP));
    };
    drivewait(seen);
    return at;
}

// For scripts.
void pressstop()
{
    Sleep(50);
    driveplace at = stopplace();
    driveclick(at.x, at.y);
}

// The same, and what the box says that comes up then.
std::string stopandread(bool escape)
{
    if (escape)
        drivekey(VK_ESCAPE);
    else
        pressstop();
    window box = drivewaitwindow("", "#32770");
    Sleep(100);
    std::string said = drivetext(box, 0xFFFF);
    PostMessageA(handle(box), WM_COMMAND, IDCANCEL, 0);
    drivewait([] { return !drivefind("", "#32770"); });
    return said;
}

std::string complaint(const std::function<void()> &work)
{
    std::string text = drivebox(IDOK, work);
    drivepump();
    return text;
}

// What a row of the list says.
std::string row(int32_t at)
{
    if (grid.kind == GRIDWORDSQUARE) return solword(at)->text;
    std::string text;
    for (int32_t slot = 0; slot < solutions.slotcount; slot++)
        text += (slot ? " " : "") + std::string(wordtext(solref(at, slot)));
    return text;
}

list rows()
{
    list all;
    for (int32_t i = 0; i < solutions.count; i++)
        all.push_back(row(i));
    return all;
}

// A row's middle, in the list as it is scrolled.
driveplace rowplace(int32_t at)
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(solutionswindow, &state));
    return driveclient(
        solutionswindow, 12,
        ostodevy(at * solutions.rowheight + solutions.rowheight / 2 + state.yscroll));
}

void clickrow(int32_t at, drivebutton button = DRIVELEFT, int held = 0)
{
    driveplace place = rowplace(at);
    drivemove(place.x, place.y);
    driveclick(place.x, place.y, button, held);
    drivemove(2, 2);
}

int differences(const drivepicture &a, const drivepicture &b)
{
    int count = a.pixels.size() != b.pixels.size();
    for (size_t i = 0; i < a.pixels.size() && i < b.pixels.size(); i++)
        count += a.pixels[i] != b.pixels[i];
    return count;
}

// Whether the screen shows something else than a redraw would.
int undrawn()
{
    drivemove(2, 2);
    drivepicture before = drivelook(mainwindow);
    RedrawWindow(handle(mainwindow), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    drivepump();
    return differences(before, drivelook(mainwindow));
}

int dark(const drivepicture &p, int left, int top, int right, int bottom)
{
    int count = 0;
    for (int y = std::max(top, 0); y < std::min(bottom, p.height); y++)
        for (int x = std::max(left, 0); x < std::min(right, p.width); x++)
            count += (p.at(x, y) & 0xFF) < 0x60;
    return count;
}

bool shownprogress(const std::string &text)
{
    int n = text.empty() ? 0 : std::stoi(text);
    return n == 1 || (n <= 100 && n % 10 == 0) || (n > 100 && (n - 10) % 100 == 0);
}

// In a script: a window is painted over, and drawn again by the search's own poll.
bool repaints(window w)
{
    drivepicture before = drivelook(w);
    HDC dc = GetDC(handle(w));
    RECT all = {0, 0, before.width, before.height};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(DKGRAY_BRUSH)));
    ReleaseDC(handle(w), dc);
    GdiFlush();
    bool covered = drivewait([&] { return differences(drivelook(w), before) > 1000; });
    InvalidateRect(handle(w), nullptr, TRUE);
    return covered && drivewait([&] { return differences(drivelook(w), before) < 200; });
}

void type(int field, const std::string &text)
{
    press(field);
    drivetype(text);
}

bool placed(const wsentry &entry)
{
    for (int i = 0; entry.text[i]; i++) {
        int32_t x = entry.x + i * entry.dx, y = entry.y + i * entry.dy;
        if (!gridinside(x, y) ||
            grid.letters[x][y] != charlower(static_cast<uint8_t>(entry.text[i])))
            return false;
    }
    return true;
}

bool filled()
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

int marked()
{
    int count = 0;
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            count += (grid.flags[x][y] & CELLKIND) == CELLMARKED;
    return count;
}

} // namespace

TEST_CASE("Solve lists what fits, and a press on a row writes it into the grid")
{
    begin("c.t..\n..###\n..###\n");
    mark(0, 0, 2, 0);
    run(BUTTONSOLVE);
    CHECK(rows() == list{"cat", "cot"});
    CHECK(undrawn() == 0);
    clickrow(2); // below the last
    CHECK(written() == "c.t..\n..###\n..###\n");
    clickrow(1, DRIVERIGHT);
    CHECK(written() == "c.t..\n..###\n..###\n");
    clickrow(1);
    CHECK(written() == "cot..\n..###\n..###\n");
    CHECK(drivetext(mainwindow) == "Quillmere*");
    driveplace first = rowplace(0);
    drivedouble(first.x, first.y);
    CHECK(written() == "cat..\n..###\n..###\n");
    CHECK(rows() == list{"cat", "cot"});
    CHECK(undrawn() == 0);

    // Another mark, and the rows are gone.
    drivepicture full = drivelook(solutionswindow);
    driveclick(cell(4, 0).x, cell(4, 0).y);
    CHECK(solutions.count == 0);
    CHECK(differences(full, drivelook(solutionswindow)) > 0);
    CHECK(undrawn() == 0);
}

TEST_CASE("words that cross are solved together, and shown as they lie")
{
    begin("....\n.###\n.###\n");
    mark(0, 0, 2, 2);
    run(BUTTONSOLVE);
    list pairs;
    for (const std::string &across : WORDS)
        for (const std::string &down : WORDS)
            if (across.size() == 3 && down.size() == 3 && across[0] == down[0])
                pairs.push_back(across + " " + down);
    CHECK(rows() == pairs);
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
    clickrow(last);
    std::string across = wordtext(solref(last, 0));
    CHECK(written().substr(0, 4) == across + ".");
    CHECK(undrawn() == 0);
}

TEST_CASE("what Solve and Anagram can't do is said")
{
    begin("....\n.###\n");
    CHECK(complaint([] { press(BUTTONSOLVE); }) == "Need marked word!");
    CHECK(complaint([] { press(BUTTONANAGRAM); }) == "Need marked word!");
    grid.flags[3][0] |= CELLMARKED;
    markrescan();
    CHECK(complaint([] { press(BUTTONSOLVE); }) == "Nothing to solve!");
    mark(0, 0, 3, 1);
    CHECK(complaint([] { press(BUTTONANAGRAM); }) == "An anagram must be a single marked word!");
    driveclick(cell(1, 0).x, cell(1, 0).y);
    mark(0, 0, 3, 0);
    CHECK(complaint([] { press(BUTTONANAGRAM); }) == "Can't have space in anagram");
    type(FIELDANAGRAM, "tea");
    CHECK(
        complaint([] { drivekey(VK_RETURN); }) ==
        "The marked area of grid must have the same number of characters as in the anagram text.");
    REQUIRE_FALSE(dictunuse(0));
    CHECK(complaint([] { press(BUTTONSOLVE); }) == "No dictionaries loaded!");
    CHECK_FALSE(barsolving());
    seticontext(buttonwindow, FIELDANAGRAM, "");
}

TEST_CASE("Anagram takes the typed letters, by button and Return, or those of the grid")
{
    begin("...t\n....\n");
    mark(0, 0, 2, 0);
    type(FIELDANAGRAM, "tac");
    drivekey(VK_RETURN);
    drivepump(250);
    CHECK(rows() == list{"act", "cat"});
    CHECK(drivetext(buttonwindow, FIELDANAGRAM) == "tac");
    caretrecord caret;
    REQUIRE_FALSE(getcaret(&caret));
    CHECK(caret.self == buttonwindow);
    CHECK(caret.icon == FIELDANAGRAM);
    CHECK(drivetext(buttonwindow, FIELDMARKLENGTH) == "3");
    drivekey(VK_BACK);
    drivetype("*");
    run(BUTTONANAGRAM);
    CHECK(rows() == list{"act", "art", "bat", "cat", "oat", "rat", "tar", "tea"});
    clickrow(2);
    CHECK(written() == "batt\n....\n");
    CHECK(undrawn() == 0);

    press(FIELDANAGRAM);
    drivekey('A', DRIVECTRL);
    drivekey(VK_DELETE);
    run(BUTTONANAGRAM); // "bat" itself
    CHECK(rows() == list{"bat"});
}

TEST_CASE("a long Solve counts, repaints and stops, and the bar comes back as it was")
{
    begin(".....\n.####\n.####\n.####\n.####\n");
    if (!dictionarylarge()) return;
    solutions.maxsolutions = 1000000;
    mark(0, 0, 4, 4);
    type(FIELDANAGRAM, "keep me");
    bool stopper = false, counted = false, right = true, painted = false;
    bool escape = false;
    SUBCASE("by the button") {}
    SUBCASE("by Escape")
    {
        escape = true;
    }
    DWORD stoppedat = 0;
    run(BUTTONSOLVE, [&] {
        stopper = drivewait([] { return drivecontrol(buttonwindow, BUTTONSTOP) != 0; });
        counted = drivewait([&] {
            std::string text = drivetext(buttonwindow, FIELDPROGRESS);
            right = right && (text.empty() || shownprogress(text));
            return text.size() >= 3;
        });
        painted = repaints(gridwindow);
        stoppedat = GetTickCount();
        if (escape)
            drivekey(VK_ESCAPE);
        else
            pressstop();
    });
    CHECK(stopper);
    CHECK(counted);
    CHECK(right);
    CHECK(painted);
    CHECK(GetTickCount() - stoppedat < 3000);
    CHECK(solutions.count >= 100);
    CHECK(solutions.slotcount == 2);
    CHECK(drivetext(buttonwindow, FIELDANAGRAM) == "keep me");
    caretrecord caret;
    REQUIRE_FALSE(getcaret(&caret));
    CHECK(caret.self == buttonwindow);
    CHECK(caret.icon == BUTTONSOLVE); // which was pressed

    int crossed = 0;
    for (int32_t at = 0; at < solutions.count; at++) {
        std::string across = wordtext(solref(at, 0)), down = wordtext(solref(at, 1));
        crossed +=
            charlower(static_cast<uint8_t>(across[0])) == charlower(static_cast<uint8_t>(down[0]));
    }
    CHECK(crossed == solutions.count);
    clickrow(0);
    drivepump();
    CHECK(undrawn() == 0);
    seticontext(buttonwindow, FIELDANAGRAM, "");
}

TEST_CASE("a command in the middle of a search ends it first")
{
    begin("......\n......\n......\n......\n......\n......\n");
    if (!dictionarylarge()) return;
    mark(0, 0, 5, 5);
    bool ticked = false;
    menupath upper = menufindpath(40013);
    run(BUTTONSOLVE, [&] {
        menupress(upper);
        ticked = drivewait([] { return grid.casemode == CASEUPPER; });
    });
    CHECK(ticked);
    CHECK(solutions.count == 0);
    CHECK(grid.markleft == -1);
    CHECK(drivecontrol(buttonwindow, BUTTONSOLVE));
    CHECK(undrawn() == 0);
}

TEST_CASE("words are typed into a Wordsquare's list, selected there, and deleted")
{
    square(9);
    type(FIELDWORD, "stare");
    drivekey(VK_RETURN);
    CHECK(drivetext(buttonwindow, FIELDWORD) == "");
    for (const char *word : {"tea", "Rat", "toolongtofitinhere"}) {
        drivetype(word);
        drivekey(VK_RETURN);
    }
    CHECK(rows() == list{"stare", "tea", "Rat", "toolongtofitinhere"});
    CHECK(undrawn() == 0);

    clickrow(3);
    press(BUTTONDELETE);
    CHECK(rows() == list{"stare", "tea", "Rat"});
    run(BUTTONMAKE);
    CHECK(filled());
    CHECK(rows() == list{"stare", "tea", "Rat"});
    for (int32_t i = 0; i < 3; i++)
        CHECK(placed(*solword(i)));
    CHECK(drivetext(mainwindow).back() == '*');
    CHECK(undrawn() == 0);

    drivepicture plain = drivelook(gridwindow);
    clickrow(0);
    CHECK(marked() == 5);
    CHECK(differences(plain, drivelook(gridwindow)) > 0);
    CHECK(undrawn() == 0);
    clickrow(1);
    CHECK(marked() == 3);
    clickrow(1); // the only one selected: it stays so
    CHECK(marked() == 3);
    clickrow(2, DRIVELEFT, DRIVECTRL);
    clickrow(0, DRIVERIGHT);
    CHECK(solselected() == 3);
    CHECK(undrawn() == 0);
    drivepicture p = drivelook(solutionswindow);
    int y = ostodevy(solutions.rowheight / 2);
    CHECK(p.at(ostodevx(solutions.listwidth) - 8, y) == 0);
    CHECK(p.at(p.width - 1, ostodevy(solutions.rowheight * 3) + y) == 0xFFFFFF);
    clickrow(1, DRIVERIGHT);
    clickrow(5, DRIVERIGHT); // below the last
    CHECK(solselected() == 2);
    press(BUTTONDELETE);
    CHECK(rows() == list{"tea"});
    CHECK(marked() == 0);
    CHECK(differences(plain, drivelook(gridwindow)) == 0);
    CHECK(undrawn() == 0);
    press(BUTTONDELETE); // nothing is selected
    CHECK(rows() == list{"tea"});
}

TEST_CASE("Solve finds the words in a Wordsquare, and New hides some")
{
    square(12);
    grid.minwordlength = 3;
    run(BUTTONNEW);
    CHECK(filled());
    CHECK(solutions.count == 0);
    CHECK(drivetext(mainwindow).back() == '*');
    run(BUTTONSQUARESOLVE);
    CHECK(rows() == hidden(WORDS, 3));
    CHECK(rows().size() > 4);
    for (int32_t i = 0; i < solutions.count; i++)
        CHECK(placed(*solword(i)));
    CHECK(undrawn() == 0);
    grid.minwordlength = 5;
    run(BUTTONSQUARESOLVE);
    CHECK(rows() == hidden(WORDS, 5));
    CHECK(undrawn() == 0);
}

TEST_CASE("a Make that finds no end is stopped with what it has")
{
    square(10);
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
    run(BUTTONMAKE, [&] {
        Sleep(300);
        progress = drivetext(buttonwindow, FIELDPROGRESS);
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
        CHECK((i < fitted ? placed(*solword(i)) : solword(i)->x == -1));
    CHECK(filled());
    CHECK(undrawn() == 0);
}

TEST_CASE("a New without end is stopped, and its square filled")
{
    screenstart();
    dictionariesbegin({{"short", {"cat", "dog"}}}); // which fit over themselves for ever
    REQUIRE_FALSE(dictuse(0));
    gridsetkind(GRIDWORDSQUARE);
    drivepump();
    run(BUTTONNEW, [] {
        Sleep(100);
        pressstop();
    });
    CHECK_FALSE(drivefind("", "#32770"));
    CHECK(solutions.count == 0);
    CHECK(filled());
    CHECK(undrawn() == 0);
}

TEST_CASE("a long Solve of a Wordsquare is stopped with what it has")
{
    square(127);
    if (!dictionarylarge()) return;
    grid.minwordlength = 2;
    gridfillrandom();
    gridredraw();
    drivepump();
    run(BUTTONSQUARESOLVE);
    list all = rows();
    run(BUTTONSQUARESOLVE, [] { pressstop(); });
    list some = rows();
    CHECK(some.size() < all.size());
    auto blind = [](const std::string &a, const std::string &b) { return a < b; };
    CHECK(std::is_sorted(some.begin(), some.end(), blind));
    CHECK(std::includes(all.begin(), all.end(), some.begin(), some.end()));
    CHECK(undrawn() == 0);
}

TEST_CASE("Solve lists what the companion finds in the same file, in both kinds of grid")
{
    begin("c.t.a\n..###\n.e###\n.....\n");
    if (!dictionarylarge()) return;
    REQUIRE_FALSE(dictunuse(static_cast<uint32_t>(dictnamefind("words"))));
    std::string file = dictionaryplace("searched.qmg");
    std::string dictionary =
        " --dictionaries \"" + std::string(dictdirectory) + "\" --dict MainDict";
    auto said = [&](const std::string &asked) {
        list lines = companion(asked + dictionary);
        for (std::string &line : lines)
            line = line.substr(0, line.find('\t')); // behind it is the word's place
        return lines;
    };
    auto sorted = [](list words) {
        std::sort(words.begin(), words.end());
        return words;
    };
    REQUIRE_FALSE(gridsave(file.c_str()));
    mark(0, 0, 4, 0);
    run(BUTTONSOLVE);
    CHECK(solutions.count > 0);
    CHECK(sorted(rows()) == sorted(said("solve \"" + file + "\" --mark 0,0,4,0")));

    gridsetkind(GRIDWORDSQUARE);
    gridsize(20, 20);
    grid.minwordlength = 4;
    gridfillrandom();
    REQUIRE_FALSE(gridsave(file.c_str()));
    gridredraw();
    drivepump();
    run(BUTTONSQUARESOLVE);
    CHECK(solutions.count > 0);
    CHECK(sorted(rows()) == sorted(said("find \"" + file + "\" --min 4")));
}

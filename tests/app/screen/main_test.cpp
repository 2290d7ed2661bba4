// The main window: its title, its panes and what parts them, its menus.
#include "app/buttons.h"
#include "app/mainwindow.h"
#include "base/platform.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "graphics/modeinfo.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridpicture.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/menuhands.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace
{

constexpr int32_t NEWGRID = 40001, NEWWORDS = 40002, OPEN = 40022, SAVE = 40028,
                  DEFAULTSAVE = 40006, CROSSWORD = 40030, WORDSQUARE = 40031, VERTICAL = 40009,
                  HORIZONTAL = 40010, RISING = 40023, FALLING = 40011, UPPER = 40013, LOWER = 40014;

std::string title()
{
    return drivetext(mainwindow);
}

void choose(int32_t id)
{
    menuchoose(menufindpath(id));
}

HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

// A window's place in the client area of the main window.
RECT placed(window w)
{
    RECT r;
    GetWindowRect(handle(w), &r);
    MapWindowPoints(nullptr, handle(mainwindow), reinterpret_cast<POINT *>(&r), 2);
    return r;
}

// The bar on top, below it the list and the grid with the gap of 4 between.
void checklayout()
{
    int width, height;
    drivesize(mainwindow, &width, &height);
    RECT bar = placed(buttonwindow), list = placed(solutionswindow), cells = placed(gridwindow);
    CHECK(bar.left == 0);
    CHECK(bar.top == 0);
    CHECK(bar.right == width);
    CHECK(list.left == 0);
    CHECK(list.top == bar.bottom);
    CHECK(list.bottom == height);
    CHECK(cells.left == list.right + 4);
    CHECK(cells.top == bar.bottom);
    CHECK(cells.right == width);
    CHECK(cells.bottom == height);
    CHECK(list.right == static_cast<int>(int64_t{width} * grid.splitfraction / 65536) - 2);
}

void dragsplitter(int to)
{
    RECT list = placed(solutionswindow);
    int y = static_cast<int>(list.top) + 60, x = static_cast<int>(list.right) + 2;
    driveplace from = driveclient(mainwindow, x, y), end = driveclient(mainwindow, to, y + 20);
    drivedrag({from, {(from.x + end.x) / 2, from.y}, end});
    drivemove(2, 2);
}

void framesize(int *width, int *height)
{
    RECT r;
    GetWindowRect(handle(mainwindow), &r);
    *width = static_cast<int>(r.right - r.left);
    *height = static_cast<int>(r.bottom - r.top);
}

} // namespace

TEST_CASE("the title tells the document and whether it is changed")
{
    documentbegin("...\n...\n");
    gridunchanged();
    settitlefromgrid();
    CHECK(title() == "Quillmere");
    cellclick(0, 0);
    CHECK(title() == "Quillmere");
    drivetype("a");
    CHECK(title() == "Quillmere*");

    std::string path = scratchfolder() + "\\named.qmg";
    menuchoose(menufindpath(40004), [&] {
        window box = drivewaitwindow("", "#32770");
        Sleep(200);
        SetDlgItemTextA(handle(box), 0x480, path.c_str());
        SetDlgItemTextA(handle(box), 0x47C, path.c_str());
        PostMessageA(handle(box), WM_COMMAND, IDOK, 0);
        drivewait([] { return !drivefind("", "#32770"); });
    });
    CHECK(title() == "Quillmere - named.qmg");
    cellclick(1, 0);
    drivetype("b");
    CHECK(title() == "Quillmere - named.qmg*");
    drivekey('S', DRIVECTRL);
    CHECK(title() == "Quillmere - named.qmg");
    cellclick(2, 0);
    drivetype("c");
    choose(SAVE);
    CHECK(title() == "Quillmere - named.qmg");
    choose(NEWGRID);
    CHECK(title() == "Quillmere");
    CHECK(documentpicture() == "...\n...\n");
    cellclick(0, 0);
    REQUIRE_FALSE(picturetextread("ab#\n.*.\n", 8));
    choose(NEWWORDS);
    CHECK(documentpicture() == "..#\n...\n");
    CHECK(title() == "Quillmere*");
    CHECK(undrawn() == 0);
}

TEST_CASE("the splitter is dragged within its limits, and the panes follow")
{
    documentbegin("ab.\n...\n");
    gridunchanged();
    checklayout();
    int width, height;
    drivesize(mainwindow, &width, &height);
    RECT list = placed(solutionswindow);
    driveplace gap =
        driveclient(mainwindow, static_cast<int>(list.right) + 1, static_cast<int>(list.top) + 90);
    drivemove(gap.x, gap.y);
    CHECK(GetCursor() == LoadCursorA(GetModuleHandleA(nullptr), "splith"));

    dragsplitter(width / 2);
    CHECK(std::abs(static_cast<int>(grid.splitfraction) - 32768) < 3 * 65536 / width);
    checklayout();
    CHECK(undrawn() == 0);
    dragsplitter(1);
    CHECK(grid.splitfraction == SPLITMIN);
    checklayout();
    dragsplitter(width - 1);
    CHECK(grid.splitfraction == SPLITMAX);
    checklayout();
    CHECK(undrawn() == 0);
    dragsplitter(width / 3);
    checklayout();
    CHECK(gridsunsaved() == 0);
}

TEST_CASE("the panes follow the size of the window")
{
    documentbegin("ab.\n...\n");
    for (int size : {500, 120, 30, 700}) {
        CAPTURE(size);
        SetWindowPos(handle(mainwindow), nullptr, 0, 0, size, size, SWP_NOMOVE | SWP_NOZORDER);
        drivepump(50);
        int width, height;
        drivesize(mainwindow, &width, &height);
        if (height < 100) continue; // no room for the bar
        checklayout();
        CHECK(undrawn() == 0);
    }
    ShowWindow(handle(mainwindow), SW_MAXIMIZE);
    drivepump(100);
    checklayout();
    CHECK(undrawn() == 0);
    ShowWindow(handle(mainwindow), SW_MINIMIZE);
    drivepump(100);
    ShowWindow(handle(mainwindow), SW_RESTORE);
    drivepump(100);
    ShowWindow(handle(mainwindow), SW_RESTORE);
    drivepump(100);
    checklayout();
    CHECK(undrawn() == 0);
}

TEST_CASE("each kind of grid has its bar, and a text typed there stays with it")
{
    documentbegin("ab.\n...\n");
    CHECK(drivecontrol(buttonwindow, BARSOLVE));
    driveiconclick(buttonwindow, BARLETTERS);
    drivetype("letters");
    choose(WORDSQUARE);
    CHECK(grid.kind == GRIDWORDSQUARE);
    CHECK(documentpicture() == "...\n...\n");
    CHECK(title() == "Quillmere");
    CHECK_FALSE(drivecontrol(buttonwindow, BARSOLVE));
    for (int control : {BARWORD, BARDELETE, BARMAKE, BARSQUARESOLVE, BARNEW})
        CHECK(drivecontrol(buttonwindow, control));
    checklayout();
    CHECK(undrawn() == 0);
    window bar = buttonwindow;
    choose(WORDSQUARE); // the one it is
    CHECK(buttonwindow == bar);
    choose(CROSSWORD);
    CHECK(drivetext(buttonwindow, BARLETTERS) == "letters");
    CHECK(grid.kind == GRIDCROSSWORD);
    seticontext(buttonwindow, BARLETTERS, "");
    checklayout();
}

TEST_CASE("reflections from the menu are those of the keys")
{
    struct {
        int32_t id;
        int key;
    } ways[] = {{VERTICAL, VK_F5}, {HORIZONTAL, VK_F6}, {RISING, VK_F7}, {FALLING, VK_F8}};
    const std::string first =
        "#..#..\n...#..\n.##...\n..#..#\n......\n.#....\n\nleft 1,1 3,2\ntop 4,1\n";
    for (auto &way : ways) {
        CAPTURE(way.key);
        documentbegin(first);
        cellclick(1, 0);
        drivekey(way.key);
        std::string keyed = documentpicture();
        CHECK(keyed != first);
        CHECK(undrawn() == 0);
        documentbegin(first);
        choose(way.id);
        CHECK(documentpicture() == keyed);
        CHECK(title().back() == '*');
    }
}

TEST_CASE("cases are ticked, exclude each other, and take the letters along")
{
    auto ticks = [] {
        std::string text;
        for (const menuentry &entry : menulook({2}))
            if (entry.ticked) text += entry.text;
        return text;
    };
    documentbegin("aB#\n");
    CHECK(ticks() == "");
    choose(UPPER);
    CHECK(ticks() == "Upper Case");
    CHECK(documentpicture() == "AB#\n");
    cellclick(0, 0);
    drivetype("x");
    CHECK(documentpicture() == "XB#\n");
    choose(LOWER);
    CHECK(ticks() == "Lower Case");
    CHECK(documentpicture() == "xb#\n");
    choose(LOWER);
    CHECK(ticks() == "");
    CHECK(documentpicture() == "xb#\n");
    CHECK(undrawn() == 0);
}

TEST_CASE("a default grid keeps size, kind, looks and window for the next start")
{
    documentbegin("ab#\n...\n");
    char directory[PATHSIZE], login[256];
    REQUIRE_FALSE(platformprogramdirectory(directory, sizeof directory));
    REQUIRE_FALSE(platformloginname(login, sizeof login));
    std::filesystem::path folder = std::filesystem::path(directory) / "Default";
    std::filesystem::path file = folder / (std::string(login) + ".qmg");
    std::filesystem::remove(file);
    choose(WORDSQUARE);
    grid.fillcolour = 0x0000FF00;
    SetWindowPos(handle(mainwindow), nullptr, 0, 0, 620, 410, SWP_NOMOVE | SWP_NOZORDER);
    drivepump();
    int width, height;
    framesize(&width, &height);
    dragsplitter(300);
    uint32_t split = grid.splitfraction;
    cellclick(0, 0);
    drivetype("a");
    choose(DEFAULTSAVE);
    CHECK(std::filesystem::exists(file));
    CHECK(title() == "Quillmere*"); // the document itself isn't saved

    gridreset();
    gridkindapply(GRIDCROSSWORD);
    SetWindowPos(handle(mainwindow), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    drivepump();
    CHECK_FALSE(gridloaddefault());
    drivepump();
    int again, high;
    framesize(&again, &high);
    CHECK(std::abs(again - width) <= 1);
    CHECK(std::abs(high - height) <= 1);
    CHECK(grid.kind == GRIDWORDSQUARE);
    CHECK(grid.width == 3);
    CHECK(grid.fillcolour == 0x0000FF00);
    CHECK(grid.splitfraction == split);
    checklayout();
    CHECK(undrawn() == 0);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

TEST_CASE("a dropped grid brings its window size along; what is no grid is told of")
{
    documentbegin("ab#\n...\n");
    std::string good = scratchfolder() + "\\sized.qmg", bad = scratchfolder() + "\\bad.qmg";
    SetWindowPos(handle(mainwindow), nullptr, 0, 0, 560, 420, SWP_NOMOVE | SWP_NOZORDER);
    drivepump();
    int width, height;
    framesize(&width, &height);
    REQUIRE_FALSE(gridwrite(good.c_str()));
    std::ofstream(bad) << "zebra\n";
    SetWindowPos(handle(mainwindow), nullptr, 0, 0, 400, 300, SWP_NOMOVE | SWP_NOZORDER);
    documentbegin("....\n");
    for (window target : {mainwindow, solutionswindow}) {
        drivedrop(target, {good}, drivemiddle(target));
        CHECK(documentpicture() == "ab#\n...\n");
        CHECK(title() == "Quillmere - sized.qmg");
        int again, high;
        framesize(&again, &high);
        CHECK(std::abs(again - width) <= 1);
        CHECK(std::abs(high - height) <= 1);
        checklayout();
        documentbegin("....\n");
    }
    std::string said =
        drivebox(IDOK, [&] { drivedrop(mainwindow, {bad}, drivemiddle(mainwindow)); });
    CHECK(said == "Corruption in file.");
    CHECK(documentpicture() == "....\n");
    drivedrop(mainwindow, {scratchfolder() + "\\missing.qmg"}, drivemiddle(mainwindow));
    CHECK(documentpicture() == "....\n");
}

TEST_CASE("an edited grid is asked about before the program ends")
{
    documentbegin("...\n");
    cellclick(0, 0);
    drivetype("a");
    auto stays = [](const std::function<void()> &quit) {
        CHECK(drivebox(IDNO, quit) == "Grid edited and not saved. Continue?");
        drivepump();
        CHECK(IsWindow(handle(mainwindow)));
        CHECK(documentpicture() == "a..\n");
        CHECK(title() == "Quillmere*");
    };
    stays([] { drivekey(VK_F4, DRIVEALT); });
    stays([] { SendMessageA(handle(mainwindow), WM_CLOSE, 0, 0); });
    std::string said;
    menuchoose(menufindpath(40007), [&] {
        window box = drivewaitwindow("", "#32770");
        Sleep(100);
        said = drivetext(box, 0xFFFF);
        drivetype("n");
        drivewait([] { return !drivefind("", "#32770"); });
    });
    CHECK(said == "Grid edited and not saved. Continue?");
    CHECK(IsWindow(handle(mainwindow)));
}

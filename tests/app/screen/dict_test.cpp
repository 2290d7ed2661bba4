// The dictionary's windows, with a user's hands and eyes.
#include "app/commands.h"
#include "app/mainwindow.h"
#include "base/flex.h"
#include "base/platform.h"
#include "desktop/hourglass.h"
#include "desktop/icons.h"
#include "dict/dicteditwindow.h"
#include "dict/dictmenu.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "resources/identifiers.h"
#include "tests/app/screen/boxhands.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/screen.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using list = std::vector<std::string>;

constexpr int32_t FIELD = 1017, COUNT = 1015, ADD = 1005, DELETEWORD = 1013, KEEP = 1012,
                  CANCEL = 2;
constexpr uint32_t BLACK = 0, WHITE = 0xFFFFFF;

void filewrite(const std::string &path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string fileread(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A directory of its own with "mine", which holds these words, and "other".
void begin(const list &words)
{
    screenstart();
    if (editor.self) SendMessageA(reinterpret_cast<HWND>(editor.self), WM_CLOSE, 0, 0);
    dictionariesbegin({{"mine", words}, {"other", {"else"}}});
}

// w000 to w199: more than the list shows.
list many()
{
    list words;
    for (int i = 0; i < 200; i++)
        words.push_back("w" + std::to_string(1000 + i).substr(1));
    return words;
}

uint32_t mine()
{
    return static_cast<uint32_t>(dictnamefind("mine"));
}

void edit(const list &words)
{
    begin(words);
    REQUIRE_FALSE(commanddictionary(MENUATEDIT, DICTMENUFIRST + static_cast<int32_t>(mine())));
    drivepump();
    REQUIRE(editor.self);
    drivefront(editor.self);
}

void press(int32_t icon)
{
    driveiconclick(editor.self, icon);
}

void fieldtype(const std::string &text)
{
    press(FIELD);
    drivekey('A', DRIVECTRL);
    drivekey(VK_DELETE);
    drivetype(text);
}

std::string field()
{
    return drivetext(editor.self, FIELD);
}

std::string count()
{
    return drivetext(editor.self, COUNT);
}

int32_t focus()
{
    caretrecord caret;
    REQUIRE_FALSE(getcaret(&caret));
    return caret.self == editor.view.pane ? -1 : caret.self == editor.self ? caret.icon : -2;
}

int32_t rowheight()
{
    return ostodevy(wordmetrics.rowheight);
}

// A row's top in pixels of the pane as it stands.
int32_t rowtop(int32_t row)
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(editor.view.pane, &state));
    return ostodevy(row * wordmetrics.rowheight + state.yscroll);
}

void rowclick(int32_t row)
{
    driveplace at = driveclient(editor.view.pane, 20, rowtop(row) + rowheight() / 2);
    driveclick(at.x, at.y);
}

// The colour of a row right of its word, inside any outline.
uint32_t rowcolour(int32_t row)
{
    drivepicture picture = drivelook(editor.view.pane);
    int y = rowtop(row) + rowheight() / 2;
    REQUIRE(y >= 0);
    REQUIRE(y < picture.height);
    return picture.at(picture.width - 6, y);
}

bool rowseen(int32_t row)
{
    int width, height;
    drivesize(editor.view.pane, &width, &height);
    return rowtop(row) >= 0 && rowtop(row + 1) <= height + 1;
}

// Dots of a row's outline, down its left edge.
int rowdots(int32_t row)
{
    drivepicture picture = drivelook(editor.view.pane);
    uint32_t ground = rowcolour(row);
    int dots = 0;
    for (int y = rowtop(row) + 2; y < rowtop(row) + rowheight() - 3; y++)
        dots += picture.at(0, y) != ground;
    return dots;
}

// What this program has worked so far, in milliseconds: others may be busy too.
int64_t worked()
{
    FILETIME made, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
    auto units = [](FILETIME t) { return int64_t{t.dwHighDateTime} << 32 | t.dwLowDateTime; };
    return (units(kernel) + units(user)) / 10000;
}

// "mine" is a dictionary of the size that people have; false, and said, without
// one.
bool largebegin()
{
    std::string file = datafile("MainDict.dic");
    if (shaken() || file.empty() || !std::filesystem::exists(file)) {
        MESSAGE("skipped: it needs a large dictionary, and its time");
        return false;
    }
    begin({});
    std::filesystem::remove(dictionaryplace("mine.dic"));
    std::filesystem::copy_file(file, dictionaryplace("mine.dic"));
    return true;
}

} // namespace

TEST_CASE("typing scrolls the words to the place, and selects the very word")
{
    edit(many());
    CHECK(drivetext(editor.self) == "Edit (mine)");
    CHECK(count() == "200");
    CHECK(focus() == FIELD);
    CHECK(editor.view.rowsel == -1);
    drivetype("w15");
    CHECK(rowseen(149)); // the last below it
    CHECK(editor.view.rowsel == -1);
    drivetype("0");
    CHECK(editor.view.rowsel == 150);
    CHECK(rowseen(150));
    CHECK(rowcolour(150) == BLACK);
    CHECK(rowcolour(149) == WHITE);
    drivetype("x");
    CHECK(editor.view.rowsel == -1);
    CHECK(rowcolour(150) == WHITE);
    fieldtype("W003"); // another case
    CHECK(editor.view.rowsel == -1);
    CHECK(rowseen(3));
    fieldtype("");
    CHECK(rowseen(0));
}

TEST_CASE("a press on a row takes its word, and below the last one none")
{
    edit({"ant", "bee", "cow"});
    rowclick(1);
    CHECK(field() == "bee");
    CHECK(editor.view.rowsel == 1);
    CHECK(focus() == -1);
    CHECK(rowcolour(1) == BLACK);
    CHECK(rowdots(1) > 0); // the outline, white on black
    rowclick(0);
    CHECK(rowcolour(1) == WHITE);
    CHECK(rowdots(1) == 0);
    rowclick(2);
    CHECK(field() == "cow");
    rowclick(4);
    CHECK(field() == "");
    CHECK(editor.view.rowsel == -1);
}

TEST_CASE("arrows walk the list, and Tab leads in and out of it")
{
    edit(many());
    rowclick(0);
    drivekey(VK_UP);
    CHECK(field() == "w000");
    drivekey(VK_DOWN);
    CHECK(field() == "w001");
    for (int i = 0; i < 30; i++)
        drivekey(VK_DOWN);
    CHECK(field() == "w031");
    CHECK(rowseen(31));
    CHECK_FALSE(rowseen(0));
    fieldtype("w199");
    drivekey(VK_TAB);
    CHECK(focus() == -1);
    CHECK(editor.view.rowcaret == 199); // what is selected
    drivekey(VK_DOWN);
    CHECK(field() == "w199");
    drivekey(VK_TAB);
    CHECK(focus() == ADD);
    CHECK(editor.view.rowcaret == -1);
    CHECK(rowdots(199) == 0);
    drivekey(VK_TAB, DRIVESHIFT);
    CHECK(focus() == -1);
    drivekey(VK_TAB, DRIVESHIFT);
    CHECK(focus() == FIELD);

    // With nothing selected the outline stands in the middle.
    fieldtype("v");
    drivekey(VK_TAB);
    int32_t middle = editor.view.rowcaret;
    CHECK(middle > 2);
    CHECK(rowseen(middle));
    CHECK(rowcolour(middle) == WHITE);
    CHECK(rowdots(middle) > 0);
    drivekey(VK_UP);
    CHECK(editor.view.rowsel == middle - 1);
}

TEST_CASE("words come and go by button and by Return")
{
    edit({"ant", "bee", "cow"});
    fieldtype("bat");
    drivekey(VK_RETURN);
    CHECK(count() == "4");
    CHECK(field() == "bat");
    CHECK(editor.view.rowsel == 1);
    CHECK(dicts[mine()].changed);
    fieldtype("Cow"); // takes the place of the other form
    press(ADD);
    CHECK(count() == "4");
    CHECK(editor.view.rowsel == 3);
    CHECK(dictword(3, &dicts[mine()].dict) == std::string("Cow"));
    fieldtype("ant");
    press(DELETEWORD);
    CHECK(count() == "3");
    CHECK(editor.view.rowsel == -1);
    CHECK(rowcolour(0) == WHITE);
    press(DELETEWORD); // nothing is selected
    CHECK(count() == "3");
    rowclick(2);
    drivekey(VK_RETURN); // adds what is there
    CHECK(count() == "3");
    fieldtype("zoo");
    drivekey(VK_TAB);
    CHECK(rowdots(2) > 0);
    drivekey(VK_RETURN);
    CHECK(editor.view.rowsel == 3);
    drivekey(VK_DOWN);
    CHECK(rowdots(2) == 0);
    CHECK(rowdots(3) > 0);
}

TEST_CASE("what is no word changes nothing")
{
    edit({"ant"});
    drivekey(VK_RETURN);
    fieldtype(std::string(32, 'a'));
    press(ADD);
    press(DELETEWORD);
    CHECK(count() == "1");
    CHECK(editor.view.rowsel == -1);
    CHECK_FALSE(dicts[mine()].changed);
    std::string before = fileread(dictionaryplace("mine.dic"));
    std::filesystem::remove(dictionaryplace("mine.dic"));
    press(KEEP); // nothing to write
    CHECK_FALSE(editor.self);
    CHECK_FALSE(std::filesystem::exists(dictionaryplace("mine.dic")));
    filewrite(dictionaryplace("mine.dic"), before);
}

TEST_CASE("a word of 31 letters is found, and a longer one is not it")
{
    std::string longest(31, 'a');
    edit({longest});
    fieldtype(longest);
    CHECK(editor.view.rowsel == 0);
    drivetype("a");
    CHECK(editor.view.rowsel == -1);
}

TEST_CASE("OK saves, Cancel and Escape read again, and the frame decides nothing")
{
    edit({"ant"});
    std::string before = fileread(dictionaryplace("mine.dic"));
    for (int32_t way : {CANCEL, FIELD, -1}) {
        fieldtype("bee");
        drivekey(VK_RETURN);
        CHECK(count() == "2");
        if (way == CANCEL) {
            press(CANCEL);
        } else {
            if (way == -1) rowclick(0);
            drivekey(VK_ESCAPE);
        }
        CHECK_FALSE(editor.self);
        CHECK(dictcount(&dicts[mine()].dict) == 1);
        CHECK_FALSE(dictanychanges());
        CHECK(fileread(dictionaryplace("mine.dic")) == before);
        REQUIRE_FALSE(dictedit(mine()));
        drivepump();
    }
    fieldtype("bee");
    drivekey(VK_RETURN);
    drivekey(VK_F4, DRIVEALT);
    CHECK_FALSE(editor.self);
    CHECK(dicts[mine()].changed);
    CHECK(fileread(dictionaryplace("mine.dic")) == before);
    REQUIRE_FALSE(dictedit(mine()));
    drivepump();
    CHECK(count() == "2");
    press(KEEP);
    CHECK_FALSE(editor.self);
    CHECK_FALSE(dictanychanges());
    CHECK(fileread(dictionaryplace("mine.dic")) != before);
}

TEST_CASE("a word that doesn't fit into memory is told of, and isn't marked")
{
    edit({"ant"});
    fieldtype("bee");
    std::string text = complaint([] {
        flexfailafter(0);
        drivekey(VK_RETURN);
    });
    flexfailafter(-1);
    CHECK(text == "Not enough memory.");
    CHECK_FALSE(dicts[mine()].changed);
    CHECK(editor.self);
    press(FIELD); // the box may have left nobody with the keys
    drivekey(VK_ESCAPE);
    CHECK_FALSE(editor.self);
}

TEST_CASE("a dictionary that can't be read again is told of, and the editor closes")
{
    edit({"ant"});
    fieldtype("bee");
    drivekey(VK_RETURN);
    std::filesystem::remove(dictionaryplace("mine.dic"));
    CHECK(complaint([] { press(CANCEL); }) != "");
    CHECK_FALSE(editor.self);
    CHECK_FALSE(dicts[mine()].loaded);
}

TEST_CASE("a new dictionary is asked for in front of a main window that waits")
{
    begin({"ant"});
    REQUIRE_FALSE(commandrun(40020));
    drivepump();
    window box = drivewaitwindow("Create New Dictionary");
    REQUIRE(box);
    auto main = reinterpret_cast<HWND>(mainwindow);
    CHECK_FALSE(IsWindowEnabled(main));
    drivetype("next");
    drivekey(VK_RETURN);
    CHECK(IsWindowEnabled(main));
    CHECK_FALSE(drivefind("Create New Dictionary"));
    CHECK(dictnamefind("next") == 1);
    CHECK(dicts[1].loaded);
    CHECK_FALSE(dictinset(1));
    CHECK(std::filesystem::exists(dictionaryplace("next.dic")));
    for (int way = 0; way < 3; way++) {
        REQUIRE_FALSE(commandrun(40020));
        drivepump();
        drivetype("never");
        box = drivewaitwindow("Create New Dictionary");
        driveplace at = driveicon(box, 2);
        if (way == 0) driveclick(at.x, at.y);
        if (way == 1) drivekey(VK_ESCAPE);
        if (way == 2) drivekey(VK_F4, DRIVEALT);
        CHECK(IsWindowEnabled(main));
        CHECK_FALSE(drivefind("Create New Dictionary"));
        CHECK(dictnamefind("never") == -1);
    }
    REQUIRE_FALSE(commandrun(40020));
    drivepump();
    drivetype("NEXT");
    CHECK(complaint([] { drivekey(VK_RETURN); }) == "Dictionary already exists.");
    REQUIRE_FALSE(commandrun(40020));
    drivepump();
    drivetype("no*name"); // for a file
    CHECK(complaint([] { drivekey(VK_RETURN); }) != "");
    CHECK(ndicts == 3);
}

TEST_CASE("the editor follows its dictionary when others come and go")
{
    edit({"ant"});
    fieldtype("bee");
    drivekey(VK_RETURN);
    REQUIRE_FALSE(dictcreate("first"));
    CHECK(editor.number == 1);
    fieldtype("cow");
    drivekey(VK_RETURN);
    CHECK(count() == "3");
    CHECK(dictcount(&dicts[0].dict) == 0);
    REQUIRE_FALSE(commanddictionary(MENUATDELETE, DICTMENUFIRST));
    CHECK(editor.number == 0);
    CHECK(dictword(2, editor.view.wordrows) == std::string("cow"));

    // In use and out of it: what is open stays.
    REQUIRE_FALSE(dictuse(0));
    REQUIRE_FALSE(dictunuse(0));
    CHECK(dictcount(editor.view.wordrows) == 3);
    REQUIRE_FALSE(commanddictionary(MENUATDELETE, DICTMENUFIRST));
    CHECK_FALSE(editor.self);
    CHECK(ndicts == 1);
}

TEST_CASE("a second dictionary comes into the open editor at its next redraw")
{
    edit({"ant", "bee"});
    window before = editor.self;
    rowclick(1);
    REQUIRE_FALSE(dictedit(static_cast<uint32_t>(dictnamefind("other"))));
    drivepump();
    CHECK(editor.self == before);
    CHECK(drivetext(editor.self) == "Edit (mine)");
    CHECK(editor.view.rowsel == -1);
    fieldtype("else");
    CHECK(editor.view.rowsel == 0);
}

TEST_CASE("files of words are dropped on the list")
{
    edit({"ant"});
    fieldtype("bee");
    filewrite(dictionaryplace("words.txt"),
              "cow\r\nBEE\nd-o-g\n\n" + std::string(40, 'x') + "\nlast");
    drivedrop(editor.view.pane, {dictionaryplace("words.txt")}, {10, 10});
    CHECK(count() == "6");
    CHECK_FALSE(hourglassforce());   // it is off again
    CHECK(editor.view.rowsel == -1); // "Bee" has come
    CHECK(dictword(3, &dicts[mine()].dict) == std::string("dog"));
    CHECK(dicts[mine()].changed);
    filewrite(dictionaryplace("grid.qmg"), "eel\n");
    drivedrop(editor.view.pane, {dictionaryplace("grid.qmg")}, {10, 10});
    CHECK(count() == "6");
    press(CANCEL);
    CHECK(dictcount(&dicts[mine()].dict) == 1);
}

TEST_CASE("a selected word stays selected when others come in before it")
{
    edit({"m"});
    rowclick(0);
    filewrite(dictionaryplace("words.txt"), "a\nb\n");
    drivedrop(editor.view.pane, {dictionaryplace("words.txt")}, {10, 10});
    CHECK(editor.view.rowsel == 2);
    CHECK(rowcolour(2) == BLACK);
    CHECK(rowcolour(0) == WHITE);
}

TEST_CASE("words go out and in through the list's menu")
{
    edit({"Ant", "bee's", "cow"});
    auto choose = [](int entry) {
        driveplace at = drivemiddle(editor.view.pane);
        driveclick(at.x, at.y, DRIVERIGHT);
        for (int i = 0; i < entry; i++)
            drivekey(VK_DOWN);
        drivekey(VK_RETURN);
    };
    std::string path = dictionaryplace("out.txt");
    CHECK(drivefilebox(path, 0, true,
                       [&] { driveaside([] { drivepump(400); }, [&] { choose(2); }); }));
    CHECK(fileread(path) == "Ant\r\nbee's\r\ncow\r\n");
    press(CANCEL);
    REQUIRE_FALSE(dictedit(static_cast<uint32_t>(dictnamefind("other"))));
    drivepump();
    CHECK(drivefilebox(path, 0, true,
                       [&] { driveaside([] { drivepump(400); }, [&] { choose(1); }); }));
    CHECK(count() == "4");
    CHECK(dictword(1, editor.view.wordrows) == std::string("bees"));
    CHECK(drivefilebox(path, 0, false, [] { editimportbox(); })); // cancelled
    CHECK(count() == "4");
}

TEST_CASE("files that can't be had are told of")
{
    edit({"ant"});
    std::string gone = dictionaryplace("gone.txt");
    filewrite(gone, "bee\n");
    CHECK(complaint([&] {
              std::filesystem::remove(gone);
              drivedrop(editor.view.pane, {gone}, {10, 10});
          }) != "");
    CHECK(count() == "1");
    CHECK_FALSE(dicts[mine()].changed);
    filewrite(dictionaryplace("empty.txt"), "");
    drivedrop(editor.view.pane, {dictionaryplace("empty.txt")}, {10, 10});
    CHECK_FALSE(dicts[mine()].changed);
}

TEST_CASE("a large dictionary opens, scrolls and follows typing at once")
{
    if (!largebegin()) return;
    int64_t start = worked();
    REQUIRE_FALSE(dictedit(mine()));
    drivepump();
    CHECK(worked() - start < 500);
    CHECK(count().size() == 6);
    start = worked();
    drivetype("zebra");
    CHECK(worked() - start < 200);
    CHECK(rowcolour(editor.view.rowsel) == BLACK);
    start = worked();
    rowclick(editor.view.rowsel);
    for (int i = 0; i < 20; i++)
        drivekey(VK_UP);
    CHECK(worked() - start < 400);
}

TEST_CASE("a word that is added under a search waits for the search's end")
{
    if (!largebegin()) return;
    REQUIRE_FALSE(dictuse(mine()));
    std::string open = "......\n......\n......\n......\n......\n......\n"; // takes for ever
    documentread(open);
    for (int x = 0; x < 6; x++)
        for (int y = 0; y < 6; y++)
            grid.flags[x][y] |= CELLMARKED;
    markrescan();
    REQUIRE_FALSE(dictedit(mine()));
    drivepump();
    fieldtype("zzyzx");
    uint32_t before = dictcount(editor.view.wordrows);
    bool searched = false;
    auto added = [&] { return dictcount(editor.view.wordrows) == before + 1; };
    driveaside(
        [&] {
            CHECK_FALSE(solvestart());
            CHECK(drivewait(added, 20000));
        },
        [&] {
            searched = drivewait([] { return search.running != 0; });
            press(ADD);
        });
    CHECK(searched);
    CHECK_FALSE(search.running);
    CHECK(drivetext(editor.self, COUNT) == std::to_string(before + 1));
    CHECK(solutions.count == 0); // they would be other words now
}

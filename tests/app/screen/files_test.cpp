// The File menu and its boxes, with a user's hands and eyes.
#include "app/buttons.h"
#include "app/commands.h"
#include "app/mainwindow.h"
#include "find/solutionsview.h"
#include "grid/grid.h"
#include "grid/gridpicture.h"
#include "grid/gridview.h"
#include "tests/app/screen/gridhands.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace
{

constexpr int32_t OPEN = 40022, SAVE = 40028, SAVEAS = 40004, SAVECLUES = 40005;

std::string at(const std::string &leaf)
{
    return scratchfolder() + "\\" + leaf;
}

std::string bytes(const std::string &leaf)
{
    std::ifstream in(at(leaf), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A command, and its box answered.
void boxed(int32_t command, const std::string &path, int row, bool ok)
{
    CHECK(drivefilebox(path, row, ok, [&] { CHECK_FALSE(commandrun(command)); }));
    drivepump();
}

} // namespace

TEST_CASE("a grid is saved under a typed name, and opened again")
{
    documentbegin("ab#\n...\n");
    boxed(SAVEAS, at("first"), 0, true);
    CHECK(bytes("first.qmg").starts_with("Quillmere Grid"));
    CHECK(grid.filename == at("first.qmg"));
    CHECK_FALSE(grid.changed);

    REQUIRE_FALSE(picturetextread("x\n", 2));
    boxed(OPEN, at("first.qmg"), 0, false);
    CHECK(documentpicture() == "x\n");
    boxed(OPEN, at("first.qmg"), 0, true);
    CHECK(documentpicture() == "ab#\n...\n");

    // An extension in another case stays, and Save asks nothing.
    boxed(SAVEAS, at("second.QMG"), 1, true);
    CHECK(grid.filename == at("second.QMG"));
    std::filesystem::remove(at("second.QMG"));
    CHECK_FALSE(commandrun(SAVE));
    CHECK(bytes("second.qmg").starts_with("Quillmere Grid"));
}

TEST_CASE("a type of picture makes a picture, and leaves the document its name")
{
    documentbegin("ab#\n...\n");
    std::string named = grid.filename;
    boxed(SAVEAS, at("picture"), 2, true);
    CHECK(bytes("picture.emf").substr(0, 4) == std::string("\1\0\0\0", 4));
    boxed(SAVEAS, at("picture.qmg"), 3, true);
    CHECK(bytes("picture.wmf").substr(0, 4) == std::string("\1\0\t\0", 4));
    std::filesystem::remove(at("picture.wmf"));
    boxed(SAVEAS, at("picture.wmf"), 4, true);
    CHECK(bytes("picture.wmf").substr(0, 4) == "\xD7\xCD\xC6\x9A");
    CHECK(grid.filename == named);
    boxed(SAVEAS, at("nothing"), 2, false);
    CHECK_FALSE(std::filesystem::exists(at("nothing.emf")));
}

TEST_CASE("clues are saved as text")
{
    documentbegin("ab#\n...\n");
    boxed(SAVECLUES, at("clues"), 0, true);
    CHECK(bytes("clues.txt").find("Clues across.") != std::string::npos);
}

TEST_CASE("the system offers dropped files to the windows that take them")
{
    documentbegin("ab#\n...\n");
    auto offered = [](window w) {
        return (GetWindowLongA(reinterpret_cast<HWND>(w), GWL_EXSTYLE) & WS_EX_ACCEPTFILES) != 0;
    };
    CHECK(offered(mainwindow));
    CHECK(offered(gridwindow));
    CHECK(offered(solutionswindow));
    CHECK_FALSE(offered(buttonwindow));
}

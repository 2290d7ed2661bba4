#include "base/errors.h"
#include "base/platform.h"
#include "grid/gridfile.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/runner.h"

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

namespace
{

std::string scratch(const std::string &leaf)
{
    return scratchfolder() + "/" + leaf;
}

// The folder of default grids lies beside the test program, which may run
// twice at once: whoever makes the folder has it. One left behind by a run that
// was stopped is taken over after a while.
struct defaultfolder {
    std::filesystem::path folder;

    defaultfolder()
    {
        char directory[PATHSIZE];
        REQUIRE_FALSE(platformprogramdirectory(directory, sizeof directory));
        directory[strlen(directory) - 1] = 0; // its separator
        folder = std::filesystem::path(directory) / "Default";
        for (int wait = 0; wait < 200; wait++) {
            if (std::filesystem::create_directory(folder)) return;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    }
    ~defaultfolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    std::filesystem::path file() const
    {
        char login[256];
        REQUIRE_FALSE(platformloginname(login, sizeof login));
        return folder / (std::string(login) + ".qmg");
    }
};

} // namespace

TEST_CASE("Save needs a name, and saving gives one")
{
    errorblock *err = gridsavecommand();
    REQUIRE(err);
    CHECK(err->code == 532);

    std::string path = scratch("named.qmg");
    gridchange();
    CHECK_FALSE(gridsaveto(path.c_str()));
    CHECK(std::string(grid.filename) == path);
    CHECK(gridsunsaved() == 0);
    CHECK(headless.titles == 2);

    gridchange();
    grid.letters[0][0] = 'q';
    CHECK_FALSE(gridsavecommand());
    CHECK(std::string(grid.filename) == path);
    CHECK(gridsunsaved() == 0);
    CHECK(headless.titles == 4);
    grid.letters[0][0] = ' ';
    CHECK_FALSE(gridload(path.c_str()));
    CHECK(grid.letters[0][0] == 'q');
}

TEST_CASE("a save that failed is silent, and the document goes on as saved")
{
    std::string path = scratch("no/such/folder.qmg");
    gridchange();
    CHECK_FALSE(gridsaveto(path.c_str()));
    CHECK(std::string(grid.filename) == path);
    CHECK(gridsunsaved() == 0);
}

TEST_CASE("opening a grid, then a list of words")
{
    std::string path = scratch("square.qmg");
    grid.kind = GRIDWORDSQUARE;
    REQUIRE_FALSE(gridsave(path.c_str()));
    grid.kind = GRIDCROSSWORD;
    gridchange();

    CHECK_FALSE(gridload(path.c_str()));
    CHECK(grid.kind == GRIDCROSSWORD); // a load alone leaves name, mark and kind
    CHECK(gridsunsaved() == 1);
    CHECK_FALSE(gridopened(path.c_str(), FILETYPEGRID));
    CHECK(grid.kind == GRIDWORDSQUARE);
    CHECK(gridsunsaved() == 0);
    CHECK(std::string(grid.filename) == path);

    // A word list bears the document's name away, and the kind of the grid
    // file read last comes back.
    grid.kind = GRIDCROSSWORD;
    gridchange();
    int dropped = headless.resultsdropped;
    CHECK_FALSE(gridopened("words.txt", FILETYPETEXT));
    CHECK(headless.wordlists == 1);
    CHECK(headless.resultsdropped == dropped + 1); // a Crossword's
    CHECK(std::string(grid.filename) == "words.txt");
    CHECK(gridsunsaved() == 0);
    CHECK(headless.kindsapplied == 2);
    CHECK(grid.kind == GRIDWORDSQUARE);

    CHECK_FALSE(gridopened("words.txt", FILETYPETEXT));
    CHECK(headless.resultsdropped == dropped + 1); // its words are unmarked first
    grid.kind = GRIDCROSSWORD;
    CHECK_FALSE(gridopened(scratch("nowhere.qmg").c_str(), FILETYPEGRID));
    CHECK(headless.resultsdropped == dropped + 2);
    CHECK(grid.kind == GRIDWORDSQUARE);
}

TEST_CASE("a window takes grids, and a Wordsquare's lists of words")
{
    for (int32_t kind : {GRIDCROSSWORD, GRIDWORDSQUARE}) {
        grid.kind = kind;
        CHECK(gridaccepts(FILETYPEGRID) == 1);
        CHECK(gridaccepts(FILETYPETEXT) == (kind == GRIDWORDSQUARE));
        CHECK((gridaccepts(256) == 0 && gridaccepts(257) == 0));
    }
}

TEST_CASE("the user's default grid")
{
    defaultfolder folder;

    SUBCASE("none, or one that is no grid: the factory's appearance")
    {
        for (int loads : {1, 2}) {
            grid.gridfont.height = 999;
            grid.letters[1][1] = 'q';
            CHECK_FALSE(gridloaddefault());
            CHECK((grid.gridfont.height == 128 && grid.cellwidth == 36));
            CHECK(grid.letters[1][1] == 'q');
            CHECK((headless.kindsapplied == loads && headless.kind == GRIDCROSSWORD));
            std::ofstream(folder.file()) << "no grid";
        }
    }
    SUBCASE("saved, it lasts for the rest of the run and the next")
    {
        grid.kind = GRIDWORDSQUARE;
        grid.gridfont.height = 256;
        grid.textcolour = 0x12345600;
        gridsetfilename("mine.qmg");
        gridchange();
        CHECK_FALSE(gridsavedefault());
        CHECK(std::filesystem::exists(folder.file()));
        CHECK(gridsunsaved() == 1);
        CHECK(std::string(grid.filename) == "mine.qmg");

        gridnew();
        grid.gridfont.height = 0;
        gridsetdefaults();
        CHECK((grid.gridfont.height == 256 && grid.textcolour == 0x12345600));

        modulesreset();
        CHECK_FALSE(gridloaddefault());
        CHECK((grid.gridfont.height == 256 && grid.cellwidth == 72));
        CHECK(grid.kind == GRIDWORDSQUARE);
        CHECK(grid.filename[0] == 0);
        grid.gridfont.height = 0;
        gridsetdefaults();
        CHECK(grid.gridfont.height == 256);
    }
}

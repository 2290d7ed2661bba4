#include "app/choices.h"

#include "base/errors.h"
#include "base/platform.h"
#include "find/solutions.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

namespace
{

fontrecord font(const char *face, int32_t height)
{
    fontrecord made = {};
    made.height = height;
    strcpy(made.face, face);
    made.charset = 2;
    made.weight = 700;
    made.italic = 1;
    return made;
}

choicesrecord mine()
{
    return {
        .dictfont = font("Courier New", 160),
        .solfont = font("Times", 192),
        .cursorcolour = 0x01020300,
        .selectedcolour = 0xA0B0C000,
        .splitfraction = 0x8000,
        .maxsolutions = 777,
    };
}

bool same(const choicesrecord &a, const choicesrecord &b)
{
    return !memcmp(&a, &b, sizeof a); // which has no padding
}

std::string bytesof(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string &path, const std::string &bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

// A file of choices, as it was written; what a read of it makes of the record.
std::string saved()
{
    std::string path = scratchfolder() + "/choices.dat";
    choicesset(mine());
    REQUIRE_FALSE(choiceswrite(path.c_str()));
    return bytesof(path);
}

errorblock *readback(const std::string &bytes, choicesrecord *choices)
{
    std::string path = scratchfolder() + "/read.dat";
    write(path, bytes);
    return choicesread(path.c_str(), choices);
}

std::string word(uint32_t value)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

// The folder of choices beside the test program, which may run twice at once.
struct choicesfolder {
    std::filesystem::path folder;

    choicesfolder()
    {
        char directory[PATHSIZE];
        REQUIRE_FALSE(platformprogramdirectory(directory, sizeof directory));
        directory[strlen(directory) - 1] = 0; // its separator
        folder = std::filesystem::path(directory) / "Choices";
        for (int wait = 0; wait < 200 && !std::filesystem::create_directory(folder); wait++)
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ~choicesfolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    std::string file() const
    {
        char login[256];
        REQUIRE_FALSE(platformloginname(login, sizeof login));
        return (folder / (std::string(login) + ".dat")).string();
    }
};

} // namespace

TEST_CASE("what the factory has chosen")
{
    choicesrecord choices;
    choicesget(&choices);
    CHECK(choices.dictfont.height == 128);
    CHECK(std::string(choices.dictfont.face) == "Arial");
    CHECK(choices.dictfont.weight == 400);
    CHECK(choices.solfont.height == 128);
    CHECK(choices.cursorcolour == 0xFFBB0000);
    CHECK(choices.selectedcolour == 0xBBEEEE00);
    CHECK(choices.splitfraction == 0x5000);
    CHECK(choices.maxsolutions == 1000);
}

TEST_CASE("the bytes of the choices file")
{
    auto fontbytes = [](const char *face, uint32_t height) {
        std::string name = face;
        name.resize(64);
        return word(height) + word(0) + name + word(2) + word(700) + word(1);
    };
    std::string bytes = saved();
    CHECK(bytes.size() == 184);
    CHECK(bytes == fontbytes("Courier New", 160) + fontbytes("Times", 192) + word(0x01020300) +
                       word(0xA0B0C000) + word(0x8000) + word(777));
}

TEST_CASE("a file cut anywhere leaves the fields that it doesn't tell whole")
{
    // Where each field ends.
    const size_t ends[] = {84, 168, 172, 176, 180, 184};
    std::string bytes = saved();
    modulesreset();
    for (size_t length = 0; length <= bytes.size(); length++) {
        choicesrecord choices, expected, told = mine();
        choicesget(&choices);
        expected = choices;
        if (length >= ends[0]) expected.dictfont = told.dictfont;
        if (length >= ends[1]) expected.solfont = told.solfont;
        if (length >= ends[2]) expected.cursorcolour = told.cursorcolour;
        if (length >= ends[3]) expected.selectedcolour = told.selectedcolour;
        if (length >= ends[4]) expected.splitfraction = told.splitfraction;
        if (length >= ends[5]) expected.maxsolutions = told.maxsolutions;
        errorblock *err = readback(bytes.substr(0, length), &choices);
        CHECK((err != nullptr) == (length < bytes.size()));
        CHECK(same(choices, expected));
    }
}

TEST_CASE("a damaged file gives values that can be gone by")
{
    for (char damage : {'\0', '\x7F', '\x80', '\xFF'}) {
        choicesrecord choices = {};
        CHECK_FALSE(readback(std::string(184, damage), &choices));
        CHECK(choices.dictfont.height >= 0);
        CHECK(choices.dictfont.height <= 0x7FFF);
        CHECK(choices.solfont.width <= 0x7FFF);
        CHECK(strlen(choices.solfont.face) < sizeof choices.solfont.face);
        CHECK(choices.splitfraction >= SPLITMIN);
        CHECK(choices.splitfraction <= SPLITMAX);
        CHECK(choices.maxsolutions >= 20);
        CHECK(choices.maxsolutions <= 1000000);
    }
}

TEST_CASE("the limit of solutions has a range")
{
    choicesrecord choices = mine();
    const struct {
        int32_t set, after;
    } rows[] = {{5, 20}, {20, 20}, {-1, 20}, {1000000, 1000000}, {1000001, 1000000}};
    for (const auto &row : rows) {
        choices.maxsolutions = row.set;
        choicesset(choices);
        CHECK(solutions.maxsolutions == row.after);
    }
}

TEST_CASE("a save that fails leaves the old file")
{
    std::string path = scratchfolder() + "/choices.dat", before = saved();
    grid.splitfraction = SPLITMAX;
    for (int failing = 0;; failing++) {
        flexfailafter(failing);
        errorblock *err = choiceswrite(path.c_str());
        flexfailafter(-1);
        if (!err) break;
        CHECK(bytesof(path) == before);
    }
    CHECK(bytesof(path) != before);
}

TEST_CASE("the user's choices last until the next start")
{
    choicesfolder folder;
    choicesload();
    CHECK(solutions.maxsolutions == 1000); // there is no file
    CHECK(headless.metrics == 1);

    choicesset(mine());
    CHECK_FALSE(std::filesystem::exists(folder.file())); // only a save writes it
    CHECK_FALSE(choicessave());
    CHECK(std::filesystem::exists(folder.file()));
    modulesreset();

    choicesrecord choices;
    choicesload();
    choicesget(&choices);
    CHECK(same(choices, mine()));
    CHECK(headless.metrics == 1);
    gridsetdefaults(); // a start without a default grid, or an old document
    choicesget(&choices);
    CHECK(same(choices, mine()));

    modulesreset();
    write(folder.file(), "no choices");
    choicesload();
    choicesget(&choices);
    CHECK(choices.dictfont.height == 128);
    CHECK(choices.maxsolutions == 1000);
}

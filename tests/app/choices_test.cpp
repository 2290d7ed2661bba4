#include "app/choices.h"

#include "base/errors.h"
#include "find/solutions.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "tests/support/testfiles.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstring>

namespace
{

const choicesrecord mine = {
    .dictfont = {160, 0, "Courier New", 2, 700, 1},
    .solfont = {192, 0, "Times", 2, 700, 1},
    .cursorcolour = 0x01020300,
    .selectedcolour = 0xA0B0C000,
    .splitfraction = 0x8000,
    .maxsolutions = 777,
};

bool same(const choicesrecord &a, const choicesrecord &b)
{
    return !memcmp(&a, &b, sizeof a); // which has no padding
}

choicesrecord now()
{
    choicesrecord choices;
    choicesget(&choices);
    return choices;
}

errorblock *readback(const std::string &bytes, choicesrecord *choices)
{
    std::string path = scratch("read.dat");
    putfile(path, bytes);
    return choicesread(path.c_str(), choices);
}

} // namespace

TEST_CASE("the choices file is written to the byte, and one cut anywhere is read as far as it goes")
{
    std::string path = scratch("choices.dat");
    choicesset(mine);
    REQUIRE_FALSE(choiceswrite(path.c_str()));
    std::string bytes = getfile(path), image(sizeof mine, 0);
    memcpy(image.data(), &mine, sizeof mine); // the record is the file's image
    CHECK(bytes == image);
    modulesreset();
    for (size_t length = 0; length <= bytes.size(); length++) {
        choicesrecord choices = now(), expected = now();
        if (length >= 84) expected.dictfont = mine.dictfont;
        if (length >= 168) expected.solfont = mine.solfont;
        if (length >= 172) expected.cursorcolour = mine.cursorcolour;
        if (length >= 176) expected.selectedcolour = mine.selectedcolour;
        if (length >= 180) expected.splitfraction = mine.splitfraction;
        if (length >= 184) expected.maxsolutions = mine.maxsolutions;
        CHECK((readback(bytes.substr(0, length), &choices) != nullptr) == (length < 184));
        CHECK(same(choices, expected));
    }

    // A save that fails leaves the old file.
    bool failed = true;
    for (int32_t n = 0; failed; n++) {
        flexfailafter(n);
        failed = choiceswrite(path.c_str());
        flexfailafter(-1);
        CHECK((getfile(path) == bytes) == failed);
    }
}

TEST_CASE("values that no command could have set are brought into range")
{
    for (char damage : {'\0', '\x7F', '\xFF'}) {
        choicesrecord choices = {};
        CHECK_FALSE(readback(std::string(184, damage), &choices));
        CHECK((choices.dictfont.height >= 0 && choices.dictfont.height <= 0x7FFF));
        CHECK(choices.solfont.width <= 0x7FFF);
        CHECK(strlen(choices.solfont.face) < sizeof choices.solfont.face);
        CHECK((choices.splitfraction >= SPLITMIN && choices.splitfraction <= SPLITMAX));
        CHECK((choices.maxsolutions >= 20 && choices.maxsolutions <= 1000000));
    }
    choicesrecord choices = mine;
    const std::pair<int32_t, int32_t> rows[] = {{19, 20}, {20, 20}, {1000001, 1000000}};
    for (auto [set, after] : rows) {
        choices.maxsolutions = set;
        choicesset(choices);
        CHECK(solutions.maxsolutions == after);
    }
}

TEST_CASE("the user's choices, or the factory's, last until the next start")
{
    userfolder folder("Choices");
    for (const char *bytes : {"", "no choices"}) { // no file, and one that is none
        modulesreset();
        if (*bytes) putfile(folder.file(".dat"), bytes);
        choicesload();
        CHECK(headless.metrics == 1);
        choicesrecord choices = now();
        CHECK((choices.dictfont.height == 128 && choices.solfont.height == 128));
        CHECK((std::string(choices.dictfont.face) == "Arial" && choices.dictfont.weight == 400));
        CHECK((choices.cursorcolour == 0xFFBB0000 && choices.selectedcolour == 0xBBEEEE00));
        CHECK((choices.splitfraction == 0x5000 && choices.maxsolutions == 1000));
        choicesset(mine); // only a save writes it
    }
    CHECK(getfile(folder.file(".dat")) == "no choices");
    CHECK_FALSE(choicessave());
    modulesreset();
    choicesload();
    CHECK(same(now(), mine));
    gridsetdefaults(); // a start without a default grid, or an old document
    CHECK(same(now(), mine));
}

#include "grid/gridpicture.h"

#include "base/errors.h"
#include "tests/grid/gridlooks.h"

#include <cstring>

namespace
{

// What was read, as it is written, or the error.
std::string readback(const std::string &text)
{
    errorblock *err = picturetextread(text.data(), static_cast<int32_t>(text.size()));
    if (err) CHECK(err->code == 283);
    return err ? err->text : gridtext();
}

} // namespace

TEST_CASE("a picture becomes the document, of which nothing is left, and is written again")
{
    gridsetfilename("old.qmg");
    memset(grid.letters, 'q', sizeof grid.letters);
    memset(grid.flags, CELLBLOCK | BARTOP, sizeof grid.flags);
    grid.kind = GRIDWORDSQUARE;
    CHECK(readback("ca.\r\n#\xE9*\r\n\r\n\r\n  top  0,1  \r\n\r\nleft\nleft 1,0 2,1\nleft 0,0") ==
          "ca.\n#\xE9*\n\nleft 0,0 1,0 2,1\ntop 0,1\n");
    CHECK((grid.width == 3 && grid.height == 2 && grid.kind == GRIDWORDSQUARE));
    CHECK((grid.letters[2][0] == ' ' && grid.letters[0][1] == ' '));
    CHECK(grid.flags[0][1] == (CELLBLOCK | BARTOP));
    CHECK((grid.letters[3][0] == ' ' && grid.flags[0][2] == 0 && grid.filename[0] == 0));
    CHECK((gridsunsaved() == 1 && cursorat(-1, -1)));
    CHECK((headless.extents == 1 && headless.resultsdropped == 1));

    std::string largest;
    for (int y = 0; y < GRIDMAX; y++)
        largest += std::string(GRIDMAX, '#') + '\n';
    CHECK(readback(largest) == largest);

    // What a picture can't hold, and what lies outside it.
    gridset("...\n...");
    memcpy(grid.letters[0], "c.", 2);
    memcpy(grid.letters[1], "#\0", 2);
    memcpy(grid.letters[2], "\x1f\x7f", 2);
    memset(grid.flags, VISITEDBOTH | CELLMARKED, sizeof grid.flags);
    grid.flags[1][1] |= BARLEFT | BARTOP;
    grid.flags[3][0] = grid.flags[0][2] = BARLEFT;
    CHECK(gridtext() == "c??\n?.?\n\nleft 1,1\ntop 1,1\n");
}

TEST_CASE("what is no picture is told by its line, and the document stays")
{
    readback("old\n\ntop 1,0\n");
    griddocument before = grid;
    std::string high;
    for (int i = 0; i < 128; i++)
        high += "a\n";
    const struct {
        std::string picture, fault;
    } rows[] = {
        {"", "Line 1: the picture has no rows."},
        {"ab\nabc\n", "Line 2: the row has 3 cells, those above have 2."},
        {std::string(128, 'a'), "Line 1: a row has at most 127 cells."},
        {high, "Line 128: a grid has at most 127 rows."},
        {"ab\nc\t", "Line 2: character 2 is a control character."},
        {"ab\n\nleftmost 0,0\n", "Line 3: neither \"left\" nor \"top\"."},
        {"ab\n\n\ntop 0,0 2,0\n", "Line 4: \"2,0\" is not a cell of the grid."},
        {"ab\n\ntop 0,1\n", "Line 3: \"0,1\" is not a cell of the grid."},
    };
    for (const auto &row : rows)
        CHECK(readback(row.picture) == row.fault);
    for (std::string place : {"0", "0,", ",0", "-1,0", "+0,0", "0,0,0", "4294967296,0", "0,0\t"})
        CHECK(readback("ab\n\nleft 0,0 " + place) ==
              "Line 3: \"" + place + "\" is not a cell of the grid.");
    CHECK(memcmp(&before, &grid, sizeof grid) == 0);
}

#include "grid/gridpicture.h"

#include "base/errors.h"
#include "tests/grid/gridlooks.h"

#include <cstring>
#include <random>

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

    // What a picture can't hold, and what lies outside it.
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
        {"\nab\n", "Line 1: the picture has no rows."},
        {"ab\nabc\n", "Line 2: the row has 3 cells, those above have 2."},
        {std::string(128, 'a'), "Line 1: a row has at most 127 cells."},
        {high, "Line 128: a grid has at most 127 rows."},
        {"ab\nc\t", "Line 2: character 2 is a control character."},
        {"a\rb\n", "Line 1: character 2 is a control character."},
        {std::string("a\0", 2), "Line 1: character 2 is a control character."},
        {"ab\n\nleftmost 0,0\n", "Line 3: neither \"left\" nor \"top\"."},
        {"ab\n\n\ntop 0,0 2,0\n", "Line 4: \"2,0\" is not a cell of the grid."},
        {"ab\n\ntop 0,1\n", "Line 3: \"0,1\" is not a cell of the grid."},
    };
    for (const auto &row : rows)
        CHECK(readback(row.picture) == row.fault);
    for (std::string place : {"0", ",", "0,", ",0", "-1,0", "+0,0", "0,0,0", "0x0,0", "a,b",
                              "4294967296,0", "99999999999999999999,0", "0,0\t"})
        CHECK(readback("ab\n\nleft 0,0 " + place) ==
              "Line 3: \"" + place + "\" is not a cell of the grid.");
    CHECK(memcmp(&before, &grid, sizeof grid) == 0);
}

TEST_CASE("grids of all sizes are read back as they were, and no text is more than refused")
{
    std::minstd_rand draw(11);
    auto drawn = [&](const std::string &from) { return from[draw() % from.size()]; };
    const std::string letters = "abcXYZ  *?!~\xE9\xFF.";
    for (int round = 0; round < 3000; round++) {
        std::string text;
        size_t width = round ? draw() % 9 + 1 : 127, height = round ? draw() % 9 + 1 : 127;
        for (size_t y = 0; y < height; y++) {
            for (size_t x = 0; x < width; x++)
                text += drawn(letters + "##");
            text += '\n';
        }
        for (char &ch : text)
            if (ch == ' ') ch = '.';
        CHECK(readback(text) == text);
        for (unsigned n = draw() % 9; n; n--)
            text[draw() % text.size()] = drawn("ab#.,\n\r 019left top\xFF\t");
        std::string once = readback(text);
        if (!once.starts_with("Line ")) CHECK(readback(once) == once);
    }
}

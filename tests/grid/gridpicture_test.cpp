#include "grid/gridpicture.h"

#include "base/errors.h"
#include "tests/grid/gridlooks.h"

#include <cstring>
#include <random>

namespace
{

errorblock *readpicture(const std::string &text)
{
    return picturetextread(text.data(), static_cast<int32_t>(text.size()));
}

std::string fault(const std::string &text)
{
    errorblock *err = readpicture(text);
    if (!err) return "none";
    return err->code == 283 ? err->text : "another code";
}

bool samecells(const griddocument &a, const griddocument &b)
{
    for (int32_t x = 0; x < a.width; x++)
        if (memcmp(a.letters[x], b.letters[x], static_cast<size_t>(a.height)) ||
            memcmp(a.flags[x], b.flags[x], static_cast<size_t>(a.height)))
            return false;
    return a.width == b.width && a.height == b.height;
}

} // namespace

TEST_CASE("a picture becomes the document")
{
    gridsetfilename("old.qmg");
    memset(grid.letters, 'q', sizeof grid.letters);
    memset(grid.flags, CELLBLOCK | BARTOP, sizeof grid.flags);
    grid.kind = GRIDWORDSQUARE;

    CHECK_FALSE(readpicture("ca.\r\n#\xE9*\r\n\r\nleft 1,0 2,1\r\ntop 0,1\r\n"));
    CHECK((grid.width == 3 && grid.height == 2 && grid.kind == GRIDWORDSQUARE));
    CHECK((grid.letters[0][0] == 'c' && grid.letters[2][0] == ' ' && grid.letters[0][1] == ' '));
    CHECK((grid.letters[1][1] == 0xE9 && grid.letters[2][1] == '*'));
    CHECK((grid.flags[0][0] == 0 && grid.flags[1][0] == BARLEFT && grid.flags[2][1] == BARLEFT));
    CHECK(grid.flags[0][1] == (CELLBLOCK | BARTOP));

    // Nothing of the document before is left.
    CHECK((grid.letters[3][0] == ' ' && grid.flags[0][2] == 0));
    CHECK(grid.filename[0] == 0);
    CHECK(gridsunsaved() == 1);
    CHECK(cursorat(-1, -1));
    CHECK((headless.extents == 1 && headless.resultsdropped == 1));
}

TEST_CASE("what is written")
{
    grid.width = 3;
    grid.height = 2;
    memcpy(grid.letters[0], "c.", 2);
    memcpy(grid.letters[1], "#\0", 2);
    memcpy(grid.letters[2], "\x1f\x7f", 2);
    CHECK(gridtext() == "c??\n?.?\n");

    grid.flags[0][0] = CELLMARKED | VISITEDBOTH;
    grid.flags[1][0] = CELLBLOCK;
    grid.flags[1][1] = BARTOP | BARLEFT;
    grid.flags[0][1] = BARLEFT;
    grid.flags[3][0] = grid.flags[0][2] = BARLEFT; // outside
    CHECK(gridtext() == "c#?\n?.?\n\nleft 0,1 1,1\ntop 1,1\n");
}

TEST_CASE("lines end in LF or CR LF, the last in nothing too")
{
    CHECK_FALSE(readpicture("ab\ncd"));
    CHECK(gridtext() == "ab\ncd\n");
    CHECK_FALSE(readpicture("ab\r\ncd\r\n\r\n\r\n  top  1,1  \r\n\r\nleft\nleft 0,0"));
    CHECK(gridtext() == "ab\ncd\n\nleft 0,0\ntop 1,1\n");
}

TEST_CASE("what is no picture is told by its line, and the document stays")
{
    REQUIRE_FALSE(readpicture("old\n\ntop 1,0\n"));
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
        {"ab\na\n", "Line 2: the row has 1 cells, those above have 2."},
        {std::string(128, 'a'), "Line 1: a row has at most 127 cells."},
        {high, "Line 128: a grid has at most 127 rows."},
        {"ab\nc\t", "Line 2: character 2 is a control character."},
        {"a\rb\n", "Line 1: character 2 is a control character."},
        {std::string("a\0", 2), "Line 1: character 2 is a control character."},
        {"ab\n\nright 0,0\n", "Line 3: neither \"left\" nor \"top\"."},
        {"ab\n\nleftmost 0,0\n", "Line 3: neither \"left\" nor \"top\"."},
        {"ab\n\n\ntop 0,0 2,0\n", "Line 4: \"2,0\" is not a cell of the grid."},
        {"ab\n\ntop 0,1\n", "Line 3: \"0,1\" is not a cell of the grid."},
    };
    for (const auto &row : rows)
        CHECK(fault(row.picture) == row.fault);
    for (std::string place : {"0", ",", "0,", ",0", "-1,0", "+0,0", "0,0,0", "0x0,0", "a,b",
                              "4294967296,0", "99999999999999999999,0", "0,0\t"})
        CHECK(fault("ab\n\nleft 0,0 " + place) ==
              "Line 3: \"" + place + "\" is not a cell of the grid.");

    CHECK(memcmp(&before, &grid, sizeof grid) == 0);
}

TEST_CASE("grids of all sizes are read back as they were")
{
    std::minstd_rand draw(11);
    for (int round = 0; round < 200; round++) {
        grid.width = round < 2 ? 127 : static_cast<int32_t>(draw() % 30) + 1;
        grid.height = round % 2 ? 127 : static_cast<int32_t>(draw() % 30) + 1;
        for (int32_t x = 0; x < grid.width; x++)
            for (int32_t y = 0; y < grid.height; y++) {
                bool block = draw() % 4 == 0;
                uint8_t letter = static_cast<uint8_t>(32 + draw() % 224);
                bool unheld = letter == '#' || letter == '.' || letter == 127;
                grid.letters[x][y] = block || unheld ? ' ' : letter;
                grid.flags[x][y] = block ? CELLBLOCK : CELLOPEN;
                if (draw() % 5 == 0) grid.flags[x][y] |= BARLEFT;
                if (draw() % 5 == 0) grid.flags[x][y] |= BARTOP;
            }
        griddocument before = grid;
        gridset(gridtext());
        CHECK(samecells(before, grid));
    }
}

TEST_CASE("no text is more than refused")
{
    std::minstd_rand draw(13);
    const std::string bytes = "ab#.,\n\r 019left top\xFF\t";
    int taken = 0;
    for (int round = 0; round < 3000; round++) {
        std::string text;
        for (unsigned n = draw() % 40; n; n--)
            text += bytes[draw() % bytes.size()];
        if (readpicture(text)) continue;
        taken++;
        std::string once = gridtext();
        REQUIRE_FALSE(readpicture(once));
        CHECK(gridtext() == once);
    }
    CHECK(taken > 20);
}

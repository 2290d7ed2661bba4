#include "output/cluelist.h"

#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridpicture.h"
#include "output/numbering.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <fstream>
#include <iterator>

namespace
{

void picture(const std::string &text)
{
    REQUIRE(picturetextread(text.data(), static_cast<int32_t>(text.size())) == nullptr);
}

std::string written(errorblock *(*write)(const char *))
{
    std::string path = scratchfolder() + "/clues.txt";
    CHECK(write(path.c_str()) == nullptr);
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST_CASE("the clue list of a block grid, numbered by hand")
{
    picture("CAT#.\n"
            "A#O..\n"
            "B.P#x\n");
    const char *expected = "Clues across.\r\n1. CAT\n4. O  \n5. B P\n\n"
                           "Clues down.\n\n1. CAB\n2. TOP\n3.   x\n";
    CHECK(written(cluelist) == expected);
    CHECK(written(cluelist) == expected); // the bits that a run leaves mean nothing
    grid.letters[3][1] = 0;
    CHECK(written(cluelist) == expected); // a cell without a letter is a blank
}

TEST_CASE("the clue list of a bar grid, numbered by hand")
{
    picture("ABC\n"
            "DEF\n"
            "GHI\n"
            "\n"
            "left 2,0\n"
            "top 1,1\n");
    CHECK(written(cluelist) == "Clues across.\r\n1. AB\n3. DEF\n5. GHI\n\n"
                               "Clues down.\n\n1. ADG\n2. CFI\n4. EH\n");
}

TEST_CASE("a bar on a word's first cell doesn't end it")
{
    picture("AB\nCD\n\nleft 1,0 1,1\ntop 0,1 1,1\n");
    CHECK(written(cluelist) == ""); // four cells, all divided off
    picture("ABC\n\nleft 1,0\n");
    CHECK(written(cluelist) == "Clues across.\r\n1. BC\n\n");
}

TEST_CASE("headings stand only over words")
{
    picture("a\nb\n");
    CHECK(written(cluelist) == "Clues down.\n\n1. ab\n");
    picture("ab\n");
    CHECK(written(cluelist) == "Clues across.\r\n1. ab\n\n");
    picture("a\n");
    CHECK(written(cluelist) == "");
    picture("##\n##\n");
    CHECK(written(cluelist) == "");
}

TEST_CASE("the largest grid has a word for each row and column")
{
    std::string row(GRIDMAX, 'w');
    std::string all;
    for (int32_t y = 0; y < GRIDMAX; y++)
        all += row + "\n";
    picture(all);
    std::string text = written(cluelist);
    CHECK(text.rfind("Clues across.\r\n1. " + row + "\n128. " + row + "\n", 0) == 0);
    CHECK(text.find("\n\nClues down.\n\n1. " + row + "\n2. " + row + "\n") != std::string::npos);
    CHECK(text.size() > 2 * GRIDMAX * (GRIDMAX + 4));
}

TEST_CASE("a Wordsquare's list is its words")
{
    CHECK(written(wordlistsave) == "");
    REQUIRE(soladdword(-1, -1, -1, -1, "otter") == nullptr);
    REQUIRE(soladdword(0, 0, 1, 0, "\xE9lan") == nullptr);
    CHECK(written(wordlistsave) == "otter\n\xE9lan\n");
    solreset();
}

TEST_CASE("a list that can't be written is not told of")
{
    picture("ab\n");
    std::string path = scratchfolder() + "/missing/clues.txt";
    CHECK(cluelist(path.c_str()) == nullptr);
    CHECK(wordlistsave(path.c_str()) == nullptr);
    CHECK_FALSE(std::ifstream(path).good());
}

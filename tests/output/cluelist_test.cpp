#include "output/cluelist.h"

#include "find/solutions.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/testfiles.h"

namespace
{

std::string written(errorblock *(*write)(const char *))
{
    std::string path = scratch("clues.txt");
    CHECK(write(path.c_str()) == nullptr);
    return getfile(path);
}

} // namespace

TEST_CASE("the clue list of a block grid, numbered by hand")
{
    gridset("CAT#.\n"
            "A#O..\n"
            "B.P#x\n");
    const char *expected = "Clues across.\r\n1. CAT\n4. O  \n5. B P\n\n"
                           "Clues down.\n\n1. CAB\n2. TOP\n3.   x\n";
    CHECK(written(cluelist) == expected);
    CHECK(written(cluelist) == expected); // the bits that a run leaves mean nothing
    grid.letters[3][1] = 0;
    CHECK(written(cluelist) == expected); // a cell without a letter is a blank
}

TEST_CASE("bars end words, but not on a word's first cell; headings stand only over words")
{
    const struct {
        const char *picture, *clues;
    } rows[] = {
        {"ABC\nDEF\nGHI\n\nleft 2,0\ntop 1,1\n",
         "Clues across.\r\n1. AB\n3. DEF\n5. GHI\n\nClues down.\n\n1. ADG\n2. CFI\n4. EH\n"},
        {"AB\nCD\n\nleft 1,0 1,1\ntop 0,1 1,1\n", ""}, // all divided off
        {"ABC\n\nleft 1,0\n", "Clues across.\r\n1. BC\n\n"},
        {"a\nb\n", "Clues down.\n\n1. ab\n"},
        {"a\n", ""},
        {"##\n##\n", ""},
    };
    for (auto [picture, clues] : rows) {
        gridset(picture);
        CHECK(written(cluelist) == clues);
    }
}

TEST_CASE("the largest grid has a word for each row and column")
{
    std::string row(GRIDMAX, 'w'), all;
    for (int32_t y = 0; y < GRIDMAX; y++)
        all += row + "\n";
    gridset(all);
    std::string text = written(cluelist);
    CHECK(text.starts_with("Clues across.\r\n1. " + row + "\n128. " + row + "\n"));
    CHECK(text.find("\n\nClues down.\n\n1. " + row + "\n2. " + row + "\n") != std::string::npos);
    CHECK(text.size() > 2 * GRIDMAX * (GRIDMAX + 4));
}

TEST_CASE("a Wordsquare's list is its words")
{
    CHECK(written(wordlistsave) == "");
    REQUIRE(soladdword(-1, -1, -1, -1, "otter") == nullptr);
    REQUIRE(soladdword(0, 0, 1, 0, "\xE9lan") == nullptr);
    CHECK(written(wordlistsave) == "otter\n\xE9lan\n");
}

TEST_CASE("a list that can't be written is not told of")
{
    gridset("ab\n");
    std::string path = scratch("missing/clues.txt");
    CHECK(cluelist(path.c_str()) == nullptr);
    CHECK(wordlistsave(path.c_str()) == nullptr);
    CHECK_FALSE(std::ifstream(path).good());
}

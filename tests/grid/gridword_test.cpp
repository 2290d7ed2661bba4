#include "grid/grid.h"

#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <tuple>
#include <vector>

namespace
{

std::vector<std::string> allwords()
{
    std::vector<std::string> words;
    char word[GRIDSTRIDE];
    for (int32_t n = 0; gridword(word, n); n++)
        words.push_back(word);
    return words;
}

// The rule told another way: a line of cells is cut before each bar and at each
// block; pieces of two cells and more are words, in the order of their first
// cells, across first.
std::vector<std::string> wordsretold()
{
    std::vector<std::tuple<int32_t, int32_t, bool, std::string>> found;
    auto line = [&](int32_t x, int32_t y, bool down) {
        int32_t length = down ? grid.height : grid.width;
        std::string piece;
        int32_t start = 0;
        for (int32_t i = 0; i <= length; i++) {
            int32_t cx = down ? x : i, cy = down ? i : y;
            uint8_t flags = i < length ? grid.flags[cx][cy] : CELLBLOCK;
            bool block = (flags & CELLKIND) == CELLBLOCK;
            if (block || (flags & (down ? BARTOP : BARLEFT))) {
                if (piece.size() >= 2)
                    found.emplace_back(down ? start : y, down ? x : start, down, piece);
                piece.clear();
            }
            if (block) continue;
            if (piece.empty()) start = i;
            piece += static_cast<char>(grid.letters[cx][cy]);
        }
    };
    for (int32_t y = 0; y < grid.height; y++)
        line(0, y, false);
    for (int32_t x = 0; x < grid.width; x++)
        line(x, 0, true);
    std::sort(found.begin(), found.end());
    std::vector<std::string> words;
    for (auto &word : found)
        words.push_back(std::get<3>(word));
    return words;
}

// What lies outside the grid is random too: nothing may look at it.
void randomgrid(std::minstd_rand &draw, int32_t limit)
{
    grid.width = static_cast<int32_t>(draw() % static_cast<unsigned>(limit)) + 1;
    grid.height = static_cast<int32_t>(draw() % static_cast<unsigned>(limit)) + 1;
    unsigned blocks = draw() % 100, bars = draw() % 100;
    for (int32_t x = 0; x < GRIDSTRIDE; x++)
        for (int32_t y = 0; y < GRIDSTRIDE; y++) {
            uint8_t flags = draw() % 2 ? VISITEDACROSS : VISITEDDOWN;
            if (draw() % 100 < blocks)
                flags |= CELLBLOCK;
            else if (draw() % 4 == 0)
                flags |= CELLMARKED;
            if (draw() % 100 < bars) flags |= BARLEFT;
            if (draw() % 100 < bars) flags |= BARTOP;
            grid.flags[x][y] = flags;
            grid.letters[x][y] = static_cast<uint8_t>("abc E\xE9*"[draw() % 7]);
        }
}

} // namespace

TEST_CASE("gridword agrees with the rule told another way")
{
    std::minstd_rand draw(7);
    size_t words = 0;
    for (int round = 0; round < 300; round++) {
        randomgrid(draw, 14);
        auto expected = wordsretold();
        CHECK(allwords() == expected);
        words += expected.size();
    }
    CHECK(words > 2000); // the grids were not all blocks
}

TEST_CASE("the longest word fits its buffer, and one is all there is")
{
    grid.width = 127;
    grid.height = 1;
    char word[GRIDSTRIDE];
    memset(grid.letters, 'x', sizeof grid.letters);
    CHECK(gridword(word, 0) == 1);
    CHECK(std::string(word) == std::string(127, 'x'));
    CHECK(gridword(word, 1) == 0);
    grid.letters[2][0] = 0; // a search may leave it
    CHECK(gridword(word, 0) == 1);
    CHECK(std::string(word) == "xx " + std::string(124, 'x'));
}

TEST_CASE("bars and blocks end words, blanks don't, and a lone cell is none")
{
    const struct {
        const char *picture;
        std::vector<std::string> words;
    } rows[] = {
        {"abcde\n\nleft 0,0\ntop 0,0\n", {"abcde"}}, // a first cell's bar is no end
        {"abcde\n\nleft 2,0\n", {"ab", "cde"}},
        {"a#cde\n\nleft 4,0\n", {"cd"}},
        {"ab.de\n", {"ab de"}},
        {"#####\n", {}},
    };
    for (const auto &[picture, words] : rows) {
        gridset(picture);
        CHECK(allwords() == words);
    }
}

TEST_CASE("gridvisitreset sets up every cell of the grid and no other")
{
    grid.width = grid.height = 2;
    memset(grid.flags, VISITEDACROSS | BARTOP, sizeof grid.flags);
    grid.flags[1][0] = CELLBLOCK;
    gridvisitreset();
    CHECK(grid.flags[0][0] == BARTOP);
    CHECK(grid.flags[1][0] == (CELLBLOCK | VISITEDBOTH));
    CHECK(grid.flags[2][0] == (VISITEDACROSS | BARTOP));
    CHECK(grid.flags[0][2] == (VISITEDACROSS | BARTOP));
}

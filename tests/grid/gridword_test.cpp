#include "grid/grid.h"

#include "tests/grid/gridlooks.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <tuple>
#include <vector>

namespace
{

using wordlist = std::vector<std::string>;

wordlist allwords()
{
    wordlist words;
    char word[GRIDSTRIDE];
    for (int32_t n = 0; gridword(word, n); n++)
        words.push_back(word);
    return words;
}

// The rule told another way: a line of cells is cut before each bar and at each
// block; pieces of two cells and more are words, in the order of their first
// cells, across first.
wordlist wordsretold()
{
    std::vector<std::tuple<int32_t, int32_t, bool, std::string>> found;
    auto line = [&](int32_t x, int32_t y, bool down) {
        std::string piece;
        int32_t start = 0, length = down ? grid.height : grid.width;
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
    wordlist words;
    for (auto &word : found)
        words.push_back(std::get<3>(word));
    return words;
}

} // namespace

TEST_CASE("gridword agrees with the rule told another way")
{
    std::minstd_rand draw(7);
    size_t words = 0;
    for (int round = 0; round < 300; round++) {
        grid.width = static_cast<int32_t>(draw() % 14) + 1;
        grid.height = static_cast<int32_t>(draw() % 14) + 1;
        unsigned blocks = draw() % 100, bars = draw() % 100;
        // What lies outside the grid is random too: nothing may look at it.
        for (int32_t x = 0; x < GRIDSTRIDE; x++)
            for (int32_t y = 0; y < GRIDSTRIDE; y++) {
                unsigned flags = draw() % 2 ? VISITEDACROSS : VISITEDDOWN;
                flags |= draw() % 100 < blocks ? CELLBLOCK : draw() % 4 ? CELLOPEN : CELLMARKED;
                if (draw() % 100 < bars) flags |= BARLEFT;
                if (draw() % 100 < bars) flags |= BARTOP;
                grid.flags[x][y] = static_cast<uint8_t>(flags);
                grid.letters[x][y] = static_cast<uint8_t>("abc E\xE9*"[draw() % 7]);
            }
        wordlist expected = wordsretold();
        CHECK(allwords() == expected);
        words += expected.size();
    }
    CHECK(words > 2000); // the grids were not all blocks
}

TEST_CASE("the longest word there can be, and one with a cell as a search may leave it")
{
    gridset(std::string(GRIDMAX, 'x'));
    CHECK(allwords() == wordlist{std::string(GRIDMAX, 'x')});
    gridset("abc\n");
    grid.letters[1][0] = 0;
    CHECK(allwords() == wordlist{"a c"});
}

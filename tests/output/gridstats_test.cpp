#include "output/gridstats.h"

#include "tests/grid/gridlooks.h"

TEST_CASE("the symmetries of blocks and of bars")
{
    constexpr uint32_t HALF = 1, QUARTER = 2, ACROSS = 4, UPDOWN = 8, DIAGONAL = 16;
    const struct {
        const char *picture;
        uint32_t symmetries;
    } rows[] = {
        {"...\n...\n...\n", HALF | QUARTER | ACROSS | UPDOWN | DIAGONAL},
        {"...\n...\n", HALF | ACROSS | UPDOWN}, // not a square
        {"#..\n...\n..#\n", HALF | DIAGONAL},
        {".#..\n...#\n#...\n..#.\n", HALF | QUARTER},
        {"#.#\n...\n", ACROSS},
        {"#..\n...\n#..\n", UPDOWN},
        {"...\n...\n\nleft 1,0 2,1\n", HALF},
        {"...\n...\n\nleft 1,0 2,0\n", ACROSS},
        {"...\n...\n\nleft 1,0 1,1\ntop 2,1\n", UPDOWN},
        {"..\n..\n\nleft 1,0\ntop 0,1\n", DIAGONAL},
        {"..\n..\n\nleft 1,1\ntop 0,1\n", 0},
    };
    for (auto [picture, symmetries] : rows) {
        INFO(picture);
        gridset(picture);
        gridstats stats;
        gridstatsread(&stats);
        CHECK(stats.symmetries == symmetries);
    }
}

TEST_CASE("cells, words and pieces are counted")
{
    const struct {
        const char *picture;
        std::vector<int32_t>
            counts; // open, blocks, bars, filled, checked, unchecked, pieces, A, across, down
        std::string same;
    } rows[] = {
        {"cat#\na.a#\nt#t.\nx..y\n\nleft 1,2 3,3 0,0\ntop 0,3 1,1 2,3 3,3\n",
         {13, 3, 6, 9, 5, 7, 3, 3, 4, 2},
         "CAT "},
        {"aza\nZZ.\nAzA\nzzz\n", {12, 0, 0, 11, 12, 0, 1, 4, 4, 3}, "AZA "},
        {"a#\n#a\n", {2, 2, 0, 2, 0, 0, 2, 2, 0, 0}, ""},
        {".\n.\n.\n", {3, 0, 0, 0, 0, 3, 1, 0, 0, 1}, ""},
    };
    for (const auto &[picture, counts, same] : rows) {
        INFO(picture);
        gridset(picture);
        gridstats s;
        gridstatsread(&s);
        CHECK(std::vector<int32_t>{s.open, s.blocks, s.bars, s.filled, s.checked, s.unchecked,
                                   s.pieces, s.letters['A'], s.across, s.down} == counts);
        std::string twice;
        for (const std::string &word : s.same)
            twice += word + ' ';
        CHECK(twice == same);
    }
}

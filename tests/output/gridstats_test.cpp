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

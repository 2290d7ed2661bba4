#include "graphics/dragboxstate.h"

#include "graphics/modeinfo.h"

#include <doctest/doctest.h>

#include <array>
#include <set>
#include <utility>

namespace
{

using four = std::array<int32_t, 4>;

// A box's left, top, right and bottom.
four drawnat(int32_t x, int32_t y)
{
    dragpixels box = dragstatebox({x, y});
    return {box.left, box.top, box.right, box.bottom};
}

four resulting()
{
    dragresult result = dragstateresult();
    return {result.x0, result.y0, result.x1, result.y1};
}

void begin(int32_t type, int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    modeinfoset({96, 96, 800, 600, 32, 0, 0, 0, -1});
    dragbox box = {77, type, x0, y0, x1, y1, 0, 0, 0, 0};
    dragstatestart(&box, 10, 20, 100, 100);
}

// What the screen shows: places that were drawn an odd number of times.
struct screen {
    std::set<std::pair<int32_t, int32_t>> places;

    void draw(dragmovement at)
    {
        if (!places.insert({at.x, at.y}).second) places.erase({at.x, at.y});
    }
    void move(int32_t x, int32_t y)
    {
        dragmovement at[2];
        int32_t count = dragstatemove(x, y, at);
        for (int32_t i = 0; i < count; i++)
            draw(at[i]);
    }
    bool justat(int32_t x, int32_t y) const
    {
        return places.size() == 1 && places.contains({x, y});
    }
};

} // namespace

TEST_CASE("a rubber box and bars: where they are drawn, and what they result in")
{
    begin(DRAGRUBBER, 180, 180, 360, 540);
    CHECK(drawnat(5, -7) == four{91, 285, 187, 477});
    dragstatetoggle();
    screen rubber, vertical, horizontal;
    rubber.move(148, 52);
    CHECK(resulting() == four{270, 270, 450, 630});

    begin(DRAGBAR, 180, 180, 180, 540); // collapses onto its line
    CHECK(drawnat(6, 50) == four{92, 292, 96, 484});
    vertical.draw(dragstatetoggle());
    vertical.move(148, 300);
    CHECK(vertical.justat(48, 200));
    CHECK(resulting() == four{270, 180, 270, 540});

    begin(DRAGBAR, 180, 180, 360, 190);
    CHECK(drawnat(50, 6) == four{86, 485, 182, 489}); // 600 - 101 - 20 + 6
    horizontal.draw(dragstatetoggle());
    horizontal.move(300, 148);
    CHECK(horizontal.justat(0, 0)); // it stays, and only the result follows
    CHECK(resulting() == four{180, 90, 360, 90});
    horizontal.draw(dragstatetoggle());
    horizontal.draw(dragstatetoggle());
    CHECK(horizontal.justat(200, 48)); // until the next toggle
}

TEST_CASE("whatever happens in a drag, one box is on the screen or none")
{
    for (auto [type, x1] : {std::pair{DRAGRUBBER, 400}, {DRAGBAR, 100}, {DRAGBAR, 400}}) {
        begin(type, 100, 100, x1, 300);
        screen s;
        s.draw(dragstatetoggle());
        uint32_t draws = 12345;
        for (int step = 0; step < 500; step++) {
            draws = draws * 1103515245 + 12345;
            int32_t x = draws >> 20 & 255, y = draws >> 8 & 255;
            draws >> 16 & 3 ? s.move(x, y) : s.draw(dragstatetoggle());
            CHECK(s.places.size() == (dragstate.shown ? 1 : 0));
        }
    }
}

#include "graphics/dragboxstate.h"

#include "graphics/modeinfo.h"
#include "graphics/plot.h"

#include <doctest/doctest.h>

#include <map>
#include <utility>

namespace
{

void begin(int32_t type, int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    modeinfoset({96, 96, 800, 600, 32, 0, 0, 0, -1});
    dragbox box = {77, type, x0, y0, x1, y1, 0, 0, 0, 0};
    dragstatestart(&box, 10, 20, 100, 100);
}

// What the screen shows: places that were drawn an odd number of times.
struct screen {
    std::map<std::pair<int32_t, int32_t>, int> places;

    void draw(dragmovement at)
    {
        places[{at.x, at.y}] ^= 1;
    }
    void toggle()
    {
        draw(dragstatetoggle());
    }
    void move(int32_t x, int32_t y)
    {
        dragmovement at[2];
        int32_t count = dragstatemove(x, y, at);
        for (int32_t i = 0; i < count; i++)
            draw(at[i]);
    }
    int shown() const
    {
        int count = 0;
        for (auto &place : places)
            count += place.second;
        return count;
    }
    bool shownat(int32_t x, int32_t y) const
    {
        auto found = places.find({x, y});
        return found != places.end() && found->second;
    }
};

} // namespace

TEST_CASE("where a rubber box is drawn, and what it results in")
{
    begin(DRAGRUBBER, 180, 180, 360, 540);
    dragpixels box = dragstatebox({0, 0});
    CHECK(box.left == 96 - 10);
    CHECK(box.right == 192 - 10);
    CHECK(box.top == 600 - 288 - 20);
    CHECK(box.bottom == 600 - 96 - 20);
    box = dragstatebox({5, -7});
    CHECK(box.left == 91);
    CHECK(box.bottom == 477);

    screen s;
    s.toggle();
    s.move(148, 52);
    dragresult result = dragstateresult();
    CHECK(result.x0 == 270);
    CHECK(result.x1 == 450);
    CHECK(result.y0 == 270);
    CHECK(result.y1 == 630);
}

TEST_CASE("bars are a band at their corner, and collapse onto their line")
{
    SUBCASE("vertical")
    {
        begin(DRAGBAR, 180, 180, 180, 540);
        CHECK_FALSE(dragstatehorizontal());
        dragpixels box = dragstatebox({6, 50});
        CHECK(box.left == 92);
        CHECK(box.right == 96);
        CHECK(box.top == 292);
        CHECK(box.bottom == 484);
        screen s;
        s.toggle();
        s.move(148, 300);
        CHECK(s.shownat(48, 200));
        dragresult result = dragstateresult();
        CHECK(result.x0 == 270);
        CHECK(result.x1 == 270);
        CHECK(result.y0 == 180);
        CHECK(result.y1 == 540);
    }
    SUBCASE("horizontal")
    {
        begin(DRAGBAR, 180, 180, 360, 190);
        CHECK(dragstatehorizontal());
        dragpixels box = dragstatebox({50, 6});
        CHECK(box.left == 86);
        CHECK(box.right == 182);
        CHECK(box.top == 600 - 101 - 20 + 6);
        CHECK(box.bottom == box.top + 4);
        screen s;
        s.toggle();
        s.move(300, 148);
        CHECK(s.shownat(0, 0)); // it stays, and only the result follows
        dragresult result = dragstateresult();
        CHECK(result.x0 == 180);
        CHECK(result.x1 == 360);
        CHECK(result.y0 == 90);
        CHECK(result.y1 == 90);
        s.toggle();
        s.toggle();
        CHECK(s.shownat(200, 48)); // until the next toggle
        CHECK(s.shown() == 1);
    }
}

TEST_CASE("whatever happens in a drag, one box is on the screen or none")
{
    int32_t type = 0, x1 = 0;
    SUBCASE("rubber")
    {
        type = DRAGRUBBER;
        x1 = 400;
    }
    SUBCASE("vertical bar")
    {
        type = DRAGBAR;
        x1 = 100;
    }
    SUBCASE("horizontal bar")
    {
        type = DRAGBAR;
        x1 = 400;
    }
    begin(type, 100, 100, x1, 300);
    screen s;
    s.toggle();
    uint32_t draws = 12345;
    for (int step = 0; step < 500; step++) {
        draws = draws * 1103515245 + 12345;
        if (draws >> 16 & 3)
            s.move(static_cast<int32_t>(draws >> 20 & 255), static_cast<int32_t>(draws >> 8 & 255));
        else
            s.toggle();
        CHECK(s.shown() == (dragstate.shown ? 1 : 0));
    }
    if (dragstate.shown) s.toggle();
    CHECK(s.shown() == 0);
}

TEST_CASE("the ring of points")
{
    CHECK(plotlast(0).x == 0);
    CHECK(plotlast(3).y == 0);
    for (int32_t i = 1; i <= 6; i++)
        plotenter({i, -i});
    for (int32_t back = 0; back < 4; back++) {
        CHECK(plotlast(back).x == 6 - back);
        CHECK(plotlast(back).y == back - 6);
    }
}

#include "desktop/windowplace.h"

#include "graphics/modeinfo.h"

#include <doctest/doctest.h>

#include <cstring>
#include <initializer_list>

namespace
{

void screen(int32_t dpi)
{
    modefacts facts = {};
    facts.xdpi = facts.ydpi = dpi;
    facts.widthpx = 1024;
    facts.heightpx = 768;
    facts.bitspixel = 32;
    modeinfoset(facts);
}

windowstaterecord stateof(int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    windowstaterecord state = {};
    state.x0 = x0, state.y0 = y0, state.x1 = x1, state.y1 = y1;
    return state;
}

bool is(const pixelbox &box, const pixelbox &other)
{
    return !memcmp(&box, &other, sizeof box);
}

} // namespace

TEST_CASE("a state's rectangle in pixels, in the frame that it has, and back to the very pixel")
{
    screen(96);
    CHECK(is(placeclient(stateof(180, 360, 540, 900)), {96, 288, 288, 576}));
    for (int32_t dpi : {72, 96, 120, 144, 192, 288}) { // units may be larger than pixels
        screen(dpi);
        for (int32_t at = -50; at < 500; at++) {
            windowgeometry held = {{at, at, 2 * at + 210, 3 * at + 431},
                                   {at + 4, at + 26, 2 * at + 206, 3 * at + 427}};
            windowstaterecord state = {};
            placestate(held.client, &state);
            REQUIRE((dpi > 180 || is(placeclient(state), held.client)));
            REQUIRE(is(placeframe(state, held), held.frame));
        }
    }
}

TEST_CASE("a frame larger than its screen, or beside it, is kept to the work area")
{
    constexpr pixelbox work = {10, 20, 810, 620};
    const struct {
        pixelbox frame, kept;
    } rows[] = {{{-5, -9, 95, 91}, {10, 20, 110, 120}},
                {{800, 600, 900, 700}, {710, 520, 810, 620}},
                {{-400, 300, 34000, 35000}, work}};
    for (const auto &row : rows)
        CHECK(is(placeinside(row.frame, work), row.kept));
}

TEST_CASE("windows are centred, and a cascade of them drifts apart")
{
    const struct {
        int32_t dpi, n, x, y; // on a screen of 1920 by 1440 or 1280 by 960 units
    } rows[] = {{96, 0, 760, 570}, {96, 1, 800, 530}, {96, 5, 800, 570}, {144, 19, 560, 170}};
    for (const auto &row : rows) {
        screen(row.dpi);
        windowstaterecord state = stateof(7, 9, 407, 309);
        centrestate(&state, row.n);
        CHECK((state.x0 == row.x && state.x1 == row.x + 400));
        CHECK((state.y0 == row.y && state.y1 == row.y + 300));
    }
}

TEST_CASE("a box of the work area covers each pixel that drawing in it falls on")
{
    screen(90); // of two units to the pixel
    CHECK(is(placework({0, -4, 4, 0}, 0, 0), {0, 0, 2, 2}));
    CHECK(is(placework({2, -5, 5, -2}, 0, 0), {1, 1, 3, 3}));
    CHECK(is(placework({100, -140, 120, -120}, 100, -100), {0, 10, 10, 20}));
    for (int32_t dpi : {192, 240, 288}) {
        screen(dpi);
        for (int32_t at = 1; at < 300; at++) {
            pixelbox box = placework({0, -at, at, 0}, 0, 0);
            CHECK(box.right == at * dpi / OSUNITS); // where drawing up to it ends
            CHECK(box.bottom == box.right);
        }
    }
}

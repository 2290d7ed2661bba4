// grid/wsentry.h - a placed word of a Wordsquare's list.
#pragma once

#include <cstdint>

struct wsentry {
    int32_t x, y;   // the first letter's cell, -1 if not placed
    int32_t dx, dy; // step, -1, 0 or 1; -1 too if not placed
    int32_t selected;
    char text[36];
};
static_assert(sizeof(wsentry) == 56);

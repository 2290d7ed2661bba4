// tests/grid/gridlooks.h - the document set up from a picture, and looked at, for
// tests of all that works on it.
#pragma once

#include "grid/grid.h"
#include "grid/gridpicture.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <string>

inline void gridset(const std::string &picture)
{
    REQUIRE_FALSE(picturetextread(picture.data(), static_cast<int32_t>(picture.size())));
}

inline std::string gridtext()
{
    std::string text;
    picturetextwrite(&text);
    return text;
}

inline void markset(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    grid.markleft = left;
    grid.marktop = top;
    grid.markright = right;
    grid.markbottom = bottom;
}

inline bool markis(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    return grid.markleft == left && grid.marktop == top && grid.markright == right &&
           grid.markbottom == bottom;
}

inline bool nomark()
{
    return markis(-1, -1, -1, -1);
}

inline bool cursorat(int32_t x, int32_t y)
{
    return grid.cursorx == x && grid.cursory == y;
}

// Whether the last cells drawn were these.
inline bool drawn(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    return headless.cells[0] == left && headless.cells[1] == top && headless.cells[2] == right &&
           headless.cells[3] == bottom;
}

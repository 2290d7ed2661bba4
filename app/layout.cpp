#include "app/layout.h"

#include "grid/grid.h"

#include <algorithm>

panelayout layoutpanes(const pixelbox &area, int32_t barheight, uint32_t fraction, int32_t gap)
{
    int32_t width = std::max(area.right - area.left, 0);
    int32_t under = area.top + std::max(barheight, 0);
    int32_t split = area.left + static_cast<int32_t>(int64_t{width} * fraction >> 16);
    int32_t listright = std::max(split - gap / 2, area.left);
    int32_t gridleft = std::min(split + gap / 2, area.left + width);
    return {
        .bar = {area.left, area.top, area.left + width, under},
        .list = {area.left, under, listright, std::max(area.bottom, under)},
        .grid = {gridleft, under, area.left + width, std::max(area.bottom, under)},
    };
}

int32_t layoutwidth(int32_t gridwidth, uint32_t fraction, int32_t gap)
{
    int64_t right = int64_t{std::max(gridwidth, 1)} + gap / 2; // of the splitter's middle
    int64_t share = 65536 - int64_t{std::min(fraction, SPLITMAX)};
    return static_cast<int32_t>(std::min<int64_t>((right - 1) * 65536 / share + 1, INT32_MAX));
}

uint32_t layoutfraction(int32_t left, int32_t right, int32_t x)
{
    if (right <= left) return SPLITDEFAULT;
    int64_t fraction = (int64_t{x} - left) * 65536 / (int64_t{right} - left);
    return static_cast<uint32_t>(std::clamp<int64_t>(fraction, SPLITMIN, SPLITMAX));
}

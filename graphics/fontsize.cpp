#include "graphics/fontsize.h"

#include <algorithm>

int32_t fontpixels(int32_t size, int32_t dpi)
{
    // Sizes come from files; one that no device has is as good as the largest,
    // and can be negated.
    constexpr int64_t most = INT32_MAX;
    return static_cast<int32_t>(std::clamp(int64_t{size} * dpi / FONTUNITS, -most, most));
}

int32_t fontangle(int32_t angle)
{
    return static_cast<int32_t>(int64_t{angle} * 10 / 65536);
}

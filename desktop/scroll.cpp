#include "desktop/scroll.h"

#include <algorithm>
#include <cstdlib>

int32_t scrolllimit(const scrollbar &bar, int32_t position, bool centred)
{
    int32_t range = bar.maximum - bar.minimum;
    if (centred && bar.page > range) return bar.minimum - (bar.page - range) / 2;
    return std::max(std::min(position, bar.maximum - bar.page), bar.minimum);
}

int32_t scrollstep(const scrollbar &bar, int32_t code, int32_t thumb)
{
    int32_t line = std::max(bar.page / 10, 1);
    switch (code) {
    case SCROLLLINEBACK:
        return bar.position - line;
    case SCROLLLINEON:
        return bar.position + line;
    case SCROLLPAGEBACK:
        return bar.position - bar.page;
    case SCROLLPAGEON:
        return bar.position + bar.page;
    case SCROLLTHUMB:
    case SCROLLTHUMBTRACK:
        return thumb;
    case SCROLLFIRST:
        return bar.minimum;
    case SCROLLLAST:
        return bar.maximum;
    default:
        return bar.position;
    }
}

int32_t scrollwheel(int32_t delta, int32_t *remainder, int32_t *direction)
{
    int32_t sign = delta < 0 ? -1 : 1;
    if (sign != *direction) *remainder = 0;
    *direction = sign;
    *remainder += std::abs(delta);
    int32_t lines = *remainder / WHEELLINE;
    *remainder %= WHEELLINE;
    return lines * sign;
}

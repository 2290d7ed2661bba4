#include "graphics/metafile.h"

#include "graphics/surface.h"

surface *metasurface;

int32_t metaframe(int32_t length, int32_t mm, int32_t pixels)
{
    return muldiv64(length, mm * 100, pixels);
}

int32_t metaframeold(int32_t length, int32_t dpi)
{
    return muldiv64(length, 2540, dpi);
}

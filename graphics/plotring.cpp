#include "graphics/plot.h"

static struct {
    plotpoint points[4];
    uint32_t last;
} ring;

void plotenter(plotpoint point)
{
    ring.last = (ring.last + 1) % 4;
    ring.points[ring.last] = point;
}

plotpoint plotlast(int32_t back)
{
    return ring.points[(ring.last - static_cast<uint32_t>(back)) % 4];
}

void plotreset()
{
    ring = {};
}

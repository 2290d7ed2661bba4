#include "graphics/placeable.h"

namespace
{

uint8_t *put16(uint8_t *out, uint32_t value)
{
    out[0] = static_cast<uint8_t>(value);
    out[1] = static_cast<uint8_t>(value >> 8);
    return out + 2;
}

uint8_t *put32(uint8_t *out, uint32_t value)
{
    return put16(put16(out, value), value >> 16);
}

} // namespace

void placeableheader(const placeablebox &box, uint8_t *out)
{
    out = put32(out, PLACEABLEKEY);
    out = put16(out, 0); // the handle, of use in memory only
    const int16_t fields[] = {box.left, box.top, box.right, box.bottom, box.inch};
    for (int16_t value : fields)
        out = put16(out, static_cast<uint16_t>(value));
    out = put32(out, 0);
    put16(out, 0); // the checksum
}

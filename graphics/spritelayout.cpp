#include "graphics/spritelayout.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "graphics/spritemode.h"

namespace
{

constexpr int32_t WORDBYTES = 4, WORDBITS = 32;
constexpr int32_t WIDEST = 1 << 24; // words of a row, whose bits 32 bits can count

// Whether bytes at an offset behind the head lie inside the sprite.
bool inside(const sprite *s, int32_t offset, int64_t bytes)
{
    return offset >= static_cast<int32_t>(sizeof *s) && offset % WORDBYTES == 0 &&
           offset + bytes <= s->next;
}

bool isbit(int32_t bit)
{
    return bit >= 0 && bit < WORDBITS;
}

int64_t rowbytes(const sprite *s)
{
    return (static_cast<int64_t>(s->width) + 1) * WORDBYTES;
}

// What can be told with no knowledge of the mode.
bool headholds(const sprite *s)
{
    if (s->next < static_cast<int32_t>(sizeof *s) || s->next % WORDBYTES != 0) return false;
    if (s->width < 0 || s->height < 0 || !isbit(s->firstbit) || !isbit(s->lastbit)) return false;
    if (s->width >= WIDEST) return false;
    return inside(s, s->image, rowbytes(s) * (int64_t{s->height} + 1)) && inside(s, s->mask, 0);
}

// A mask of one bit a pixel has rows as short as its words allow.
spriterows masklay(const sprite *s, const spritemode &mode, const spritelayout *layout)
{
    const uint8_t *bytes = reinterpret_cast<const uint8_t *>(s) + s->mask;
    if (s->mask == s->image || s->mode & SPRITEMODENOMASK) return {};
    if (mode.old) return {bytes, layout->image.rowbytes, s->firstbit, mode.bpp};
    int32_t words = (layout->width + WORDBITS - 1) / WORDBITS;
    return {bytes, words * WORDBYTES, 0, 1};
}

} // namespace

errorblock *spritelay(const sprite *s, spritelayout *layout)
{
    if (!headholds(s)) return makeerror(ECR);
    spritemode mode;
    errorblock *err = spritemoderead(s->mode, &mode);
    if (err) return err;

    const uint8_t *start = reinterpret_cast<const uint8_t *>(s);
    int64_t bits = rowbytes(s) * 8 - s->firstbit - (WORDBITS - 1 - s->lastbit);
    spritelayout out = {};
    out.width = static_cast<int32_t>(bits / mode.bpp);
    out.height = s->height + 1;
    out.image = {start + s->image, static_cast<int32_t>(rowbytes(s)), s->firstbit, mode.bpp};
    out.mask = masklay(s, mode, &out);
    out.palette = start + sizeof *s;
    out.palettecount = (s->image - static_cast<int32_t>(sizeof *s)) / SPRITECOLOURSIZE;
    if (out.width < 1) return makeerror(ECR);
    if (!inside(s, s->mask, static_cast<int64_t>(out.mask.rowbytes) * out.height))
        return makeerror(ECR);
    *layout = out;
    return nullptr;
}

// A pixel may begin at any bit, and reach into the next byte.
uint32_t spritepixel(const spriterows *rows, int32_t x, int32_t y)
{
    int64_t bit = rows->firstbit + static_cast<int64_t>(x) * rows->bpp;
    const uint8_t *byte = rows->bytes + static_cast<int64_t>(y) * rows->rowbytes + bit / 8;
    int32_t shift = static_cast<int32_t>(bit % 8);
    uint64_t value = 0;
    for (int32_t read = 0; read * 8 < shift + rows->bpp; read++)
        value |= static_cast<uint64_t>(byte[read]) << (read * 8);
    return static_cast<uint32_t>(value >> shift & ((uint64_t{1} << rows->bpp) - 1));
}

bool spriteshows(const spritelayout *layout, int32_t x, int32_t y)
{
    return !layout->mask.bytes || spritepixel(&layout->mask, x, y);
}

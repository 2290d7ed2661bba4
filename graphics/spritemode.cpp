#include "graphics/spritemode.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/numbers.h"
#include "graphics/modeinfo.h"

namespace
{

constexpr int32_t PLAINDPI = 90; // what a resolution of 0 stands for
constexpr uint32_t DPIBITS = 0x1FFF;
constexpr int32_t XDPISHIFT = 1, YDPISHIFT = 14, TYPESHIFT = 27;
constexpr uint32_t TYPEBITS = 15;

// A number without a row of its own has the last one. Every number that
// spritemodeword gives has a row of the depth that it was asked for.
struct oldmode {
    uint8_t number, xeig, yeig, log2bpp, colours;
};
const oldmode oldmodes[] = {
    {0, 2, 4, 0, 1},    {4, 2, 4, 1, 3},   {12, 2, 4, 2, 15}, {15, 2, 4, 3, 255},
    {20, 2, 2, 2, 15},  {25, 2, 2, 0, 1},  {26, 2, 2, 1, 3},  {27, 2, 2, 2, 15},
    {28, 2, 2, 3, 255}, {82, 1, 1, 2, 15}, {127, 1, 1, 0, 1},
};

struct newmode {
    uint8_t bpp;
    uint32_t colours;
};
const newmode newmodes[] = {
    {0, 0}, // no type
    {1, 1},       {2, 3},         {4, 15},          {8, 255},
    {16, 0x7FFF}, {32, 0xFFFFFF}, {32, 0xFFFFFFFF}, {24, 0xFFFFFF},
};

const oldmode &oldrow(uint32_t number)
{
    const oldmode *row = oldmodes;
    while (row->number != number && row->number != 127)
        row++;
    return *row;
}

spritemode oldread(uint32_t mode)
{
    const oldmode &row = oldrow(mode & 127);
    return {.xeig = row.xeig,
            .yeig = row.yeig,
            .xdpi = OSUNITS / row.xeig,
            .ydpi = OSUNITS / row.yeig,
            .bpp = 1 << row.log2bpp,
            .colours = row.colours,
            .old = true};
}

int32_t dpifrom(uint32_t bits)
{
    return bits ? static_cast<int32_t>(bits) : PLAINDPI;
}

// Fine resolutions have pixels below one unit; none has no size at all.
int32_t eigof(int32_t dpi)
{
    int32_t eig = muldiv(OSUNITS, 1, dpi);
    return eig > 0 ? eig : 1;
}

uint32_t dpibits(int32_t size)
{
    return size > 0 ? static_cast<uint32_t>(OSUNITS / size) : 0;
}

} // namespace

errorblock *spritemoderead(uint32_t mode, spritemode *out)
{
    *out = {};
    if (!(mode >> TYPESHIFT)) {
        *out = oldread(mode);
        return nullptr;
    }
    uint32_t type = mode >> TYPESHIFT & TYPEBITS;
    if (!(mode & 1) || type == 0 || type >= sizeof newmodes / sizeof *newmodes)
        return makeerror(EMODE);
    out->xdpi = dpifrom(mode >> XDPISHIFT & DPIBITS);
    out->ydpi = dpifrom(mode >> YDPISHIFT & DPIBITS);
    out->xeig = eigof(out->xdpi);
    out->yeig = eigof(out->ydpi);
    out->bpp = newmodes[type].bpp;
    out->colours = newmodes[type].colours;
    return nullptr;
}

errorblock *spriteeig(uint32_t mode, int32_t *x, int32_t *y)
{
    spritemode read;
    errorblock *err = spritemoderead(mode, &read);
    if (err) return err;
    if (x) *x = read.xeig;
    if (y) *y = read.yeig;
    return nullptr;
}

errorblock *spritedepth(uint32_t mode, int32_t *bpp, uint32_t *colours)
{
    spritemode read;
    errorblock *err = spritemoderead(mode, &read);
    if (err) return err;
    if (bpp) *bpp = read.bpp;
    if (colours) *colours = read.colours;
    return nullptr;
}

uint32_t spritemodeword(int32_t bpp, int32_t xsize, int32_t ysize)
{
    if (bpp > 8) {
        uint32_t type = bpp == 16 ? 5 : 6;
        return type << TYPESHIFT | (dpibits(ysize) & DPIBITS) << YDPISHIFT |
               (dpibits(xsize) & DPIBITS) << XDPISHIFT | 1;
    }
    bool square = xsize == ysize;
    if (bpp == 8) return square ? 28 : 15;
    if (bpp == 4) return square ? 27 : 12;
    if (bpp == 2) return square ? 26 : 4;
    return square ? 25 : 0;
}

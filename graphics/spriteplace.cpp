#include "graphics/spriteplace.h"

#include "base/errors.h"
#include "graphics/spritemode.h"
#include "graphics/surface.h"

#include <algorithm>

namespace
{

constexpr int32_t FAR = 1 << 29; // beyond any device, and sums stay inside 32 bits
constexpr int32_t FINESHIFT = 8; // of a warp's steps
constexpr int32_t FINE = 1 << FINESHIFT;
constexpr int32_t HALF = FINE / 2;

bool isfar(int64_t v)
{
    return v < -FAR || v > FAR;
}

// The span from a start over a length of either sign.
void span(int32_t start, int32_t length, int32_t *low, int32_t *high)
{
    *low = std::min(start, start + length);
    *high = std::max(start, start + length);
}

int32_t sample(int32_t at, int32_t length, int32_t sourcelength)
{
    return static_cast<int32_t>((2 * int64_t{at} + 1) * sourcelength / (2 * int64_t{length}));
}

// The first pixel whose middle isn't before an edge.
int32_t edgepixel(int32_t fine)
{
    return (fine + HALF - 1) >> FINESHIFT;
}

spritebox wholeof(const spritelayout *layout)
{
    return {0, 0, layout->width, layout->height};
}

// A coordinate in 1/256 OS units to 1/256 device pixels, by the surface's rule.
int32_t finedevice(int64_t at, int32_t shift, int32_t scale, int32_t unit, int32_t deviceshift)
{
    if (!unit) return 0;
    int64_t moved = at - int64_t{shift} * FINE;
    int64_t device = isfar(moved) ? moved : moved * scale / unit + int64_t{deviceshift} * FINE;
    return static_cast<int32_t>(std::clamp<int64_t>(device, -FAR - 1, FAR + 1));
}

spritepoint devicepoint(int64_t x, int64_t y, const surface *s)
{
    return {finedevice(x, s->shiftx, s->scalex, s->unitx, s->deviceshiftx),
            finedevice(y, s->shifty, s->scaley, -s->unity, s->deviceshifty)};
}

struct vector {
    int64_t x, y;
};

vector from(const spritepoint &a, const spritepoint &b)
{
    return {int64_t{b.x} - a.x, int64_t{b.y} - a.y};
}

int64_t cross(const vector &a, const vector &b)
{
    return a.x * b.y - a.y * b.x;
}

// Where part / whole of a length falls, for 0 <= part < whole. Bits that there is
// no room for to multiply with are too fine to matter.
int32_t fraction(int64_t part, int64_t whole, int32_t length)
{
    while (whole > INT64_MAX / length) {
        part >>= 1;
        whole >>= 1;
    }
    return static_cast<int32_t>(std::min<int64_t>(part * length / whole, length - 1));
}

} // namespace

bool spriteboxempty(const spritebox &box)
{
    return box.left >= box.right || box.top >= box.bottom;
}

spritebox spriteboxmeet(const spritebox &a, const spritebox &b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

spriteplace spriteplaceat(const spritelayout *layout, int32_t x, int32_t y,
                          const spritefactors *factors)
{
    int64_t width = layout->width, height = layout->height;
    if (factors && (!factors->xdiv || !factors->ydiv)) return {};
    if (factors) {
        width = width * factors->xmul / factors->xdiv;
        height = height * factors->ymul / factors->ydiv;
    }
    if (isfar(x) || isfar(y) || isfar(width) || isfar(height)) return {};
    spriteplace place = {{}, wholeof(layout), width < 0, height < 0};
    span(x, static_cast<int32_t>(width), &place.box.left, &place.box.right);
    span(y, static_cast<int32_t>(-height), &place.box.top, &place.box.bottom);
    return place;
}

int32_t spriteplacex(const spriteplace *place, int32_t x)
{
    const spritebox &box = place->box, &source = place->source;
    int32_t at = place->flipx ? box.right - 1 - x : x - box.left;
    return source.left + sample(at, box.right - box.left, source.right - source.left);
}

int32_t spriteplacey(const spriteplace *place, int32_t y)
{
    const spritebox &box = place->box, &source = place->source;
    int32_t at = place->flipy ? box.bottom - 1 - y : y - box.top;
    return source.top + sample(at, box.bottom - box.top, source.bottom - source.top);
}

errorblock *spritewarpmatrix(const sprite *s, const spritelayout *layout, const spritebox &source,
                             const plotmatrix *matrix, const surface *scale, spritewarp *out)
{
    int32_t xeig, yeig;
    errorblock *err = spriteeig(s->mode, &xeig, &yeig);
    if (err) return err;
    const spritepoint pixels[4] = {{source.left, source.top},
                                   {source.right, source.top},
                                   {source.right, source.bottom},
                                   {source.left, source.bottom}};
    out->source = source;
    for (int n = 0; n < 4; n++) {
        int64_t x = int64_t{pixels[n].x} * xeig;
        int64_t y = (int64_t{layout->height} - pixels[n].y) * yeig;
        int64_t tox = (matrix->a * x + matrix->c * y) / (MATRIXONE / FINE);
        int64_t toy = (matrix->b * x + matrix->d * y) / (MATRIXONE / FINE);
        out->corners[n] =
            devicepoint(tox + int64_t{matrix->e} * FINE, toy + int64_t{matrix->f} * FINE, scale);
    }
    return nullptr;
}

void spritewarpcorners(const spritepoint *corners, const spritebox &source, const surface *scale,
                       spritewarp *out)
{
    out->source = source;
    for (int n = 0; n < 4; n++)
        out->corners[n] = devicepoint(corners[n].x, corners[n].y, scale);
}

bool spritewarpupright(const spritewarp *warp, spriteplace *place)
{
    const spritepoint *c = warp->corners;
    if (c[0].y != c[1].y || c[2].y != c[3].y || c[0].x != c[3].x || c[1].x != c[2].x) return false;
    *place = {{}, warp->source, c[0].x > c[1].x, c[0].y > c[3].y};
    if (isfar(c[0].x) || isfar(c[0].y) || isfar(c[2].x) || isfar(c[2].y)) return true;
    place->box = {edgepixel(std::min(c[0].x, c[1].x)), edgepixel(std::min(c[0].y, c[3].y)),
                  edgepixel(std::max(c[0].x, c[1].x)), edgepixel(std::max(c[0].y, c[3].y))};
    return true;
}

spritebox spritewarpbox(const spritewarp *warp)
{
    const spritepoint *c = warp->corners;
    spritebox fine = {c[0].x, c[0].y, c[0].x, c[0].y};
    for (int n = 0; n < 4; n++) {
        if (isfar(c[n].x) || isfar(c[n].y)) return {};
        fine = {std::min(fine.left, c[n].x), std::min(fine.top, c[n].y),
                std::max(fine.right, c[n].x), std::max(fine.bottom, c[n].y)};
    }
    if (!cross(from(c[0], c[1]), from(c[0], c[3]))) return {};
    return {edgepixel(fine.left), edgepixel(fine.top), edgepixel(fine.right),
            edgepixel(fine.bottom)};
}

bool spritewarpfind(const spritewarp *warp, int32_t x, int32_t y, spritepoint *found)
{
    const spritepoint *c = warp->corners;
    const vector across = from(c[0], c[1]), down = from(c[0], c[3]);
    const vector to = from(c[0], {x * FINE + HALF, y * FINE + HALF});
    int64_t whole = cross(across, down);
    int64_t partx = cross(to, down), party = cross(across, to);
    if (whole < 0) {
        whole = -whole;
        partx = -partx;
        party = -party;
    }
    if (partx < 0 || partx >= whole || party < 0 || party >= whole) return false;
    const spritebox &source = warp->source;
    *found = {source.left + fraction(partx, whole, source.right - source.left),
              source.top + fraction(party, whole, source.bottom - source.top)};
    return true;
}

#include "graphics/spritebits.h"

#include "base/errors.h"
#include "base/flex.h"
#include "graphics/spriterow.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr uint32_t BLACK = 0, WHITE = 0xFFFFFF;

// How pixels go over: by their own values, by the colours they stand for, and
// what stands where the mask hides them.
struct recipe {
    const spritelayout *layout;
    bool tocolour; // the bitmap holds colours where the sprite has numbers
    bool greyed;
    uint32_t hidden;
    const uint32_t *table;
};

uint8_t *rowat(void *rows, int32_t rowbytes, int32_t height, int32_t y)
{
    return static_cast<uint8_t *>(rows) + static_cast<int64_t>(height - 1 - y) * rowbytes;
}

uint32_t valueof(const recipe &r, int32_t x, int32_t y)
{
    const spriterows &image = r.layout->image;
    uint32_t pixel = spritepixel(&image, x, y);
    if (image.bpp <= 8) return r.tocolour ? r.table[pixel] : pixel;
    uint32_t colour = spritedeepcolour(pixel, image.bpp);
    if (r.greyed) return spritegreyed(colour);
    if (image.bpp != 16) return colour;
    return (colour >> 9 & 31 << 10) | (colour >> 6 & 31 << 5) | (colour >> 3 & 31);
}

// The colours, and the depth that has a value for hidden pixels: one that is
// there already, or one more, for which the depth must grow if it is full.
void tablehidden(spritebitmap *out, recipe *r)
{
    uint32_t wanted = r->hidden, *end = out->table + out->colours;
    r->hidden = static_cast<uint32_t>(std::find(out->table, end, wanted) - out->table);
    if (r->hidden < static_cast<uint32_t>(out->colours)) return;
    if (out->colours == 1 << out->bpp) out->bpp = out->bpp == 1 ? 4 : out->bpp == 4 ? 8 : 24;
    out->table[out->colours++] = wanted;
    if (out->bpp == 24) {
        r->tocolour = true;
        r->hidden = wanted;
        out->colours = 0;
    }
}

// Sets the depth and the table of the bitmap. What is greyed needs more shades
// than 16 bits have.
recipe plan(const spritelayout *layout, const spritelook &look, bool masked, spritebitmap *out)
{
    int32_t bpp = layout->image.bpp;
    recipe r = {layout, false, look.greyed, look.greyed ? WHITE : BLACK, out->table};
    out->bpp = bpp == 16 && look.greyed ? 24 : spriterowdepth(bpp);
    if (bpp > 8) return r;
    out->colours = spritecolours(layout, look.pixtrans, look.greyed, out->table);
    if (masked) tablehidden(out, &r);
    return r;
}

// A bitmap for a box, all zeros.
errorblock *make(const spritebox &box, bool masked, spritebitmap *out)
{
    out->x = box.left;
    out->y = box.top;
    out->width = box.right - box.left;
    out->height = box.bottom - box.top;
    int64_t rowbytes = spriterowbytes(out->width, out->bpp);
    if (rowbytes > INT32_MAX / out->height) return makeerror(ERRORMEMORY);
    out->rowbytes = static_cast<int32_t>(rowbytes);
    out->maskrowbytes = static_cast<int32_t>(spriterowbytes(out->width, 1));
    errorblock *err = heap_alloc(&out->rows, out->rowbytes * out->height);
    if (!err && masked) err = heap_alloc(&out->mask, out->maskrowbytes * out->height);
    if (err) spritebitsfree(out);
    return err;
}

void putpixel(const recipe &r, spritebitmap *out, int32_t x, int32_t y, const spritepoint *from)
{
    uint8_t *row = rowat(out->rows, out->rowbytes, out->height, y);
    bool shows = from && spriteshows(r.layout, from->x, from->y);
    spriterowput(row, out->bpp, x, shows ? valueof(r, from->x, from->y) : r.hidden);
    if (out->mask && shows)
        spriterowput(rowat(out->mask, out->maskrowbytes, out->height, y), 1, x, 1);
}

// Rows that come from the same row of the sprite are alike.
void copyrow(spritebitmap *out, int32_t y)
{
    memcpy(rowat(out->rows, out->rowbytes, out->height, y),
           rowat(out->rows, out->rowbytes, out->height, y - 1), static_cast<size_t>(out->rowbytes));
    if (out->mask)
        memcpy(rowat(out->mask, out->maskrowbytes, out->height, y),
               rowat(out->mask, out->maskrowbytes, out->height, y - 1),
               static_cast<size_t>(out->maskrowbytes));
}

void scaledrows(const recipe &r, const spriteplace *place, spritebitmap *out)
{
    int32_t before = -1;
    for (int32_t y = 0; y < out->height; y++) {
        spritepoint from = {0, spriteplacey(place, out->y + y)};
        if (from.y == before) {
            copyrow(out, y);
            continue;
        }
        before = from.y;
        for (int32_t x = 0; x < out->width; x++) {
            from.x = spriteplacex(place, out->x + x);
            putpixel(r, out, x, y, &from);
        }
    }
}

// Whether the sprite's own rows are the bitmap's.
bool isplain(const spritelayout *layout, const spritelook &look, const spriteplace *place)
{
    const spritebox &box = place->box, &source = place->source;
    return !layout->mask.bytes && !layout->image.firstbit && !place->flipx && !place->flipy &&
           !(look.greyed && layout->image.bpp > 8) && source.left == 0 &&
           source.right == layout->width && box.right - box.left == layout->width &&
           box.bottom - box.top == source.bottom - source.top;
}

void plainrows(const spritelayout *layout, const spriteplace *place, spritebitmap *out)
{
    for (int32_t y = 0; y < out->height; y++)
        spriterowconvert(layout, spriteplacey(place, out->y + y),
                         rowat(out->rows, out->rowbytes, out->height, y));
}

} // namespace

errorblock *spritebitsplace(const spritelayout *layout, const spritelook &look,
                            const spriteplace *place, const spritebox &clip, spritebitmap *out)
{
    *out = {};
    spritebox box = spriteboxmeet(place->box, clip);
    if (spriteboxempty(box) || spriteboxempty(place->source)) return nullptr;
    bool masked = layout->mask.bytes, plain = isplain(layout, look, place);
    if (plain) {
        box.left = place->box.left;
        box.right = place->box.right;
    }
    recipe r = plan(layout, look, masked, out);
    errorblock *err = make(box, masked, out);
    if (err) return err;
    if (plain)
        plainrows(layout, place, out);
    else
        scaledrows(r, place, out);
    return nullptr;
}

errorblock *spritebitswarp(const spritelayout *layout, const spritelook &look,
                           const spritewarp *warp, const spritebox &clip, spritebitmap *out)
{
    *out = {};
    spritebox box = spriteboxmeet(spritewarpbox(warp), clip);
    if (spriteboxempty(box) || spriteboxempty(warp->source)) return nullptr;
    recipe r = plan(layout, look, true, out);
    errorblock *err = make(box, true, out);
    if (err) return err;
    for (int32_t y = 0; y < out->height; y++)
        for (int32_t x = 0; x < out->width; x++) {
            spritepoint from;
            bool inside = spritewarpfind(warp, out->x + x, out->y + y, &from);
            putpixel(r, out, x, y, inside ? &from : nullptr);
        }
    return nullptr;
}

void spritebitsfree(spritebitmap *bitmap)
{
    heap_free(&bitmap->rows);
    heap_free(&bitmap->mask);
}

// Sprites, on a ground of lines that shows where they let it through.

#include "graphics/sprites.h"

#include "base/errors.h"
#include "graphics/clip.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "graphics/spriteplot.h"
#include "tools/gallerysheets/depths.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <algorithm>
#include <iterator>

namespace
{

void ground(int32_t x, int32_t y, int32_t width, int32_t height)
{
    setcolour(0xE8F4FF00);
    fillbox(x, y, width, height);
    setcolour(0xC0D8F000);
    for (int32_t i = 0; i < width; i += 8)
        fillbox(x + i, y, 2, height);
}

struct lookrow {
    const char *name;
    bool masked;
    uint32_t action;
    int32_t x, y; // from the cell's lower left
    spritefactors factors;
    bool translated;
};
const lookrow looks[] = {
    {"plain", false, 0, 25, 25, {1, 1, 1, 1}, false},
    {"masked", true, 0, 25, 25, {1, 1, 1, 1}, false},
    {"greyed", false, SPRITEGREYED, 25, 25, {1, 1, 1, 1}, false},
    {"masked, greyed", true, SPRITEGREYED, 25, 25, {1, 1, 1, 1}, false},
    {"2 by 3/2", true, 0, 1, 13, {2, 3, 1, 2}, false},
    {"1/2 by 2/3", true, 0, 37, 34, {1, 2, 2, 3}, false},
    {"flipped in x", true, 0, 73, 25, {-1, 1, 1, 1}, false},
    {"flipped in y", true, 0, 25, 73, {1, -1, 1, 1}, false},
    {"both, by 2", false, 0, 97, 97, {-2, -2, 1, 1}, false},
    {"translated", true, 0, 25, 25, {1, 1, 1, 1}, true},
};
constexpr int32_t STEP = 108;

errorblock *drawcell(const void *area, const lookrow &look, int32_t bpp, int32_t x, int32_t y)
{
    uint32_t table[256];
    for (uint32_t i = 0; i < 256; i++)
        table[i] = i * 0x9E3779B1u & 0xFFFFFF00;
    bool translated = look.translated && bpp <= 8;
    std::string name = (look.masked ? "round" : "wheel") + std::to_string(bpp);
    ground(x, y, STEP - 10, STEP - 10);
    errorblock *err = spriteplot(area, spritenamed(name.c_str()), look.action, x + look.x,
                                 y + look.y, &look.factors, translated ? table : nullptr);
    mark(x + look.x, y + look.y);
    return err;
}

errorblock *depthrows(const void *area)
{
    errorblock *err = nullptr;
    for (size_t i = 0; i < std::size(looks); i++)
        label(110 + static_cast<int32_t>(i) * STEP, -54, looks[i].name);
    for (size_t j = 0; j < std::size(DEPTHS); j++) {
        int32_t y = -60 - static_cast<int32_t>(j + 1) * STEP;
        labelf(20, y + 50, "%d %s", DEPTHS[j], DEPTHS[j] == 1 ? "bit" : "bits");
        for (size_t i = 0; !err && i < std::size(looks); i++)
            err = drawcell(area, looks[i], DEPTHS[j], 110 + static_cast<int32_t>(i) * STEP, y);
    }
    return err;
}

struct warprow {
    const char *name;
    plotmatrix matrix; // its origin from the cell's lower left
};
constexpr int32_t ONE = MATRIXONE;
const warprow warps[] = {
    {"upright", {ONE, 0, 0, ONE, 50, 50}},
    {"turned by 45", {46341, 46341, -46341, 46341, 100, 30}},
    {"turned by 90", {0, ONE, -ONE, 0, 150, 50}},
    {"sheared", {ONE, 0, ONE / 2, ONE, 30, 50}},
    {"mirrored, halved", {-ONE / 2, 0, 0, ONE / 2, 120, 70}},
    {"upside down", {ONE, 0, 0, -ONE, 50, 150}},
};
constexpr int32_t WARPSTEP = 215;

errorblock *matrixcell(const void *area, const warprow &warp, const char *name, uint32_t flags,
                       const spritebox *source, int32_t x, int32_t y)
{
    ground(x, y, 200, 200);
    spritetransform t = {};
    t.matrix = warp.matrix;
    t.matrix.e += x;
    t.matrix.f += y;
    errorblock *err = spriteplottransformed(area, spritenamed(name), flags, &t, source, nullptr);
    mark(t.matrix.e, t.matrix.f);
    return err;
}

errorblock *cornercell(const void *area, const char *name, const spritepoint *corners,
                       const spritebox *source, int32_t x, int32_t y)
{
    ground(x, y, 200, 200);
    spritetransform t = {};
    for (int32_t i = 0; i < 4; i++)
        t.corners[i] = {(x + corners[i].x) * 256, (y + corners[i].y) * 256};
    errorblock *err =
        spriteplottransformed(area, spritenamed(name), SPRITECORNERS, &t, source, nullptr);
    for (int32_t i = 0; i < 4; i++)
        mark(x + corners[i].x, y + corners[i].y);
    return err;
}

errorblock *matrixrows(const void *area)
{
    const spritebox part = {8, 8, 32, 48};
    errorblock *err = nullptr;
    for (int32_t i = 0; !err && i < static_cast<int32_t>(std::size(warps)); i++) {
        int32_t x = 20 + i * WARPSTEP;
        label(x, -60, warps[i].name);
        err = matrixcell(area, warps[i], "wheel8", 0, nullptr, x, -270);
        if (!err) err = matrixcell(area, warps[i], "round32", 0, nullptr, x, -480);
        if (!err) err = matrixcell(area, warps[i], "round4", SPRITEGREYED, &part, x, -690);
    }
    return err;
}

errorblock *cornerrows(const void *area)
{
    const spritepoint shapes[][4] = {
        {{20, 180}, {180, 180}, {180, 20}, {20, 20}},
        {{20, 100}, {100, 180}, {180, 100}, {100, 20}},
        {{180, 180}, {20, 180}, {20, 20}, {180, 20}},
        {{60, 180}, {190, 150}, {140, 20}, {10, 50}},
    };
    const spritebox part = {0, 0, 24, 24};
    errorblock *err = nullptr;
    for (int32_t i = 0; !err && i < 4; i++)
        err = cornercell(area, "round16", shapes[i], nullptr, 20 + i * WARPSTEP, -940);
    if (!err) err = cornercell(area, "wheel24", shapes[0], &part, 20 + 4 * WARPSTEP, -940);
    return err ? err : cornercell(area, "wheel1", shapes[1], &part, 20 + 5 * WARPSTEP, -940);
}

// With the sprites of depthsfile in an area of its own, of a file.
errorblock *withdepths(errorblock *(*draw)(const void *area))
{
    flexptr area;
    errorblock *err = spriteinit(&area);
    if (err) return err;
    err = addsprites(depthsfolder.c_str(), "depths.spr", &area, 0);
    if (!err) err = draw(area);
    flex_free(&area);
    return err;
}

errorblock *transformedrows(const void *area)
{
    errorblock *err = matrixrows(area);
    heading(20, -720, "By four corners; the last two the top left quarter only");
    return err ? err : cornerrows(area);
}

} // namespace

errorblock *drawsprites(const page *)
{
    heading(20, -30, "Sprites of every depth; the crosses are the positions told");
    return withdepths(depthrows);
}

errorblock *drawtransformed(const page *)
{
    heading(20, -30, "By a matrix: 8 bits; masked, 32 bits; a part of one, greyed");
    return withdepths(transformedrows);
}

namespace
{

constexpr int32_t CELL = 230;

// Where a sprite is larger than its cell, its middle shows.
errorblock *shippedcell(const sprite *s, uint32_t colour, uint32_t action, int32_t size, int32_t x,
                        int32_t y)
{
    int32_t width, height;
    spritefactors factors = {size, size, 1, 1};
    errorblock *err = spritesize(s, &width, &height, nullptr);
    setcolour(FAINT);
    fillbox(x - 1, y - 1, CELL + 2, CELL + 2);
    setcolour(colour);
    fillbox(x, y, CELL, CELL);
    if (!err) err = clipbox(x, y, x + CELL, y + CELL);
    if (!err)
        err = spriteplot(spritepool, spriteitself(s), action, x + (CELL - width * size) / 2,
                         y + (CELL - height * size) / 2, &factors, nullptr);
    return err ? err : clipreset();
}

errorblock *shippedrow(const sprite *s, int32_t y)
{
    int32_t width, height, bpp;
    errorblock *err = spritesize(s, &width, &height, &bpp);
    if (err) return err;
    labelf(20, y + 240, "%.12s, %d by %d pixels of %d %s", s->name, width, height, bpp,
           bpp == 1 ? "bit" : "bits");
    int32_t most = std::max(6, 210 / std::max(width, height));
    uint32_t grey = modeinfo.desktopcolours[1], dark = modeinfo.desktopcolours[6];
    err = shippedcell(s, WHITE, 0, 1, 20, y);
    if (!err) err = shippedcell(s, WHITE, 0, most, 260, y);
    if (!err) err = shippedcell(s, grey, 0, most, 500, y);
    if (!err) err = shippedcell(s, grey, SPRITEGREYED, most, 740, y);
    return err ? err : shippedcell(s, dark, 0, most, 980, y);
}

} // namespace

errorblock *drawshipped(const page *)
{
    heading(20, -30, "The program's sprites");
    errorblock *err = initsprites();
    if (err) return err;
    err = addspritesshared(nullptr, "Sprites.spr");
    const spritearea *area = static_cast<const spritearea *>(spritepool);
    int32_t offset = area->first;
    if (!err && !area->count) err = makeerrortext(ERRORNOTFOUND, "The program has no sprites");
    for (int32_t i = 0; !err && i < area->count; i++) {
        const void *at = static_cast<const uint8_t *>(spritepool) + offset;
        const sprite *s = static_cast<const sprite *>(at);
        err = shippedrow(s, -310 - i * 270);
        offset += s->next;
    }
    endsprites();
    return err;
}

// Sprite files: any bytes as one, from a file and from a resource, which must
// agree. What was kept can be found, measured, plotted at any size through any
// matrix, and saved and read back.

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "graphics/spritebits.h"
#include "graphics/spritemode.h"
#include "graphics/surface.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <cstring>

namespace
{

std::string resource;

constexpr int32_t CLIPSIZE = 24;

const spritearea *headof(const void *area)
{
    return static_cast<const spritearea *>(area);
}

std::string used(const void *area)
{
    return {static_cast<const char *>(area) + 4, static_cast<size_t>(headof(area)->free) - 4};
}

int32_t drawnumber(fuzzfeed *feed, int32_t range)
{
    int32_t value = fuzzbyte(feed) << 8;
    value |= fuzzbyte(feed);
    return static_cast<int32_t>(int64_t{value - 0x8000} * range / 0x8000);
}

void checkbitmap(spritebitmap *bitmap)
{
    if (bitmap->rows) {
        FUZZCHECK(bitmap->width > 0 && bitmap->height > 0 && bitmap->height <= CLIPSIZE);
        FUZZCHECK(bitmap->colours <= SPRITETABLESIZE);
    }
    spritebitsfree(bitmap);
}

// Draws the numbers of two plots from the feed; the clip bounds the work.
void plot(const sprite *s, const spritelayout &layout, fuzzfeed *feed)
{
    const spritebox clip = {0, 0, CLIPSIZE, CLIPSIZE};
    spritelook look = {nullptr, (fuzzbyte(feed) & 1) != 0};
    spritefactors factors = {drawnumber(feed, 900), drawnumber(feed, 900), drawnumber(feed, 50),
                             drawnumber(feed, 50)};
    spriteplace place =
        spriteplaceat(&layout, drawnumber(feed, 90), drawnumber(feed, 90), &factors);
    spritebitmap bitmap;
    FUZZCHECK(!spritebitsplace(&layout, look, &place, clip, &bitmap));
    checkbitmap(&bitmap);

    plotmatrix matrix = {drawnumber(feed, 300000), drawnumber(feed, 300000),
                         drawnumber(feed, 300000), drawnumber(feed, 300000),
                         drawnumber(feed, 90),     drawnumber(feed, 90)};
    surface scale = {};
    scale.unitx = scale.unity = 180;
    scale.scalex = scale.scaley = 96;
    spritewarp warp;
    FUZZCHECK(
        !spritewarpmatrix(s, &layout, {0, 0, layout.width, layout.height}, &matrix, &scale, &warp));
    FUZZCHECK(!spritebitswarp(&layout, look, &warp, clip, &bitmap));
    checkbitmap(&bitmap);
}

void checksaved(const sprite *s, const void *area)
{
    flexptr again = nullptr;
    FUZZCHECK(!spritesave(s, fuzzpath("saved.spr").c_str()));
    FUZZCHECK(!spriteinit(&again));
    FUZZCHECK(!addsprites(fuzzfolder().c_str(), "saved.spr", &again, 0));
    FUZZCHECK(headof(again)->count == 1);
    FUZZCHECK(!std::memcmp(static_cast<char *>(again) + sizeof(spritearea), s,
                           static_cast<size_t>(s->next)));
    FUZZCHECK(static_cast<const char *>(area) < reinterpret_cast<const char *>(s));
    flex_free(&again);
}

void walk(const void *area, fuzzfeed feed)
{
    int32_t count = 0;
    for (int32_t at = headof(area)->first; at < headof(area)->free; count++) {
        const sprite *s = reinterpret_cast<const sprite *>(static_cast<const char *>(area) + at);
        char name[sizeof s->name + 1] = {};
        std::memcpy(name, s->name, sizeof s->name);
        FUZZCHECK(spritefind(area, name) && spritefind(area, name) <= s);
        spritelayout layout;
        errorblock *err = spritelay(s, &layout);
        FUZZCHECK(!err || err->code == EMODE);
        if (!err) plot(s, layout, &feed);
        if (count == 0) checksaved(s, area);
        at += s->next;
    }
    FUZZCHECK(count == headof(area)->count);
}

} // namespace

errorblock *spriteresource(intptr_t, const char *, const void **data, int32_t *size)
{
    *data = resource.data();
    *size = static_cast<int32_t>(resource.size());
    return nullptr;
}

void fuzztarget(fuzzfeed feed)
{
    flexptr fromfile = nullptr, fromresource = nullptr;
    resource.assign(reinterpret_cast<const char *>(feed.data), feed.size);
    fuzzwrite(fuzzpath("any.spr"), feed);
    FUZZCHECK(!spriteinit(&fromfile) && !spriteinit(&fromresource));

    bool refused = addsprites(fuzzfolder().c_str(), "any.spr", &fromfile, 0);
    FUZZCHECK(refused == (addsprites(nullptr, "any", &fromresource, 0) != nullptr));
    FUZZCHECK(used(fromfile) == used(fromresource));
    FUZZCHECK(!refused || headof(fromfile)->count == 0);

    // The end of the input, which plotting numbers are drawn from, is free to be
    // no part of any sprite.
    size_t numbers = std::min<size_t>(feed.size, 64);
    walk(fromfile, {feed.data + feed.size - numbers, numbers});
    flex_free(&fromfile);
    flex_free(&fromresource);
}

#include "graphics/sprites.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/text.h"
#include "graphics/spritelayout.h"
#include "graphics/spritemode.h"

namespace
{

constexpr int32_t EMPTYSIZE = 256; // bytes of a new area
constexpr int32_t HEADSIZE = sizeof(sprite);

} // namespace

flexptr spritepool;

errorblock *spriteinit(flexptr *area)
{
    errorblock *err = flex_alloc(area, EMPTYSIZE);
    if (err) return err;
    constexpr int32_t start = sizeof(spritearea);
    *static_cast<spritearea *>(*area) = {EMPTYSIZE, 0, start, start};
    return nullptr;
}

errorblock *initsprites()
{
    endsprites();
    return spriteinit(&spritepool);
}

void endsprites()
{
    flex_free(&spritepool);
}

errorblock *addspritesshared(const char *directory, const char *name)
{
    return addsprites(directory, name, &spritepool, 0);
}

const sprite *spritefind(const void *area, const char *name)
{
    if (!area) return nullptr;
    const spritearea *head = static_cast<const spritearea *>(area);
    const char *start = static_cast<const char *>(area);
    for (int32_t at = head->first; at < head->free;) {
        const sprite *s = reinterpret_cast<const sprite *>(start + at);
        if (!cstrnicmp(s->name, name, sizeof s->name)) return s;
        at += s->next;
    }
    return nullptr;
}

errorblock *spriteresolve(const void *area, spritereference reference, const sprite **s)
{
    *s = nullptr;
    if (!area) return nullptr;
    if (reference.mark == SPRITEMARK)
        *s = static_cast<const sprite *>(reference.pointer);
    else
        *s = spritefind(area, static_cast<const char *>(reference.pointer));
    return nullptr;
}

errorblock *spritesize(const sprite *s, int32_t *width, int32_t *height, int32_t *bpp)
{
    spritelayout layout;
    errorblock *err = spritelay(s, &layout);
    if (err) return err;
    if (width) *width = layout.width;
    if (height) *height = layout.height;
    if (bpp) *bpp = layout.image.bpp;
    return nullptr;
}

errorblock *spritedpi(const sprite *s, int32_t *x, int32_t *y, int32_t *bpp)
{
    spritemode mode;
    errorblock *err = spritemoderead(s->mode, &mode);
    if (err) return err;
    if (x) *x = mode.xdpi;
    if (y) *y = mode.ydpi;
    if (bpp) *bpp = mode.bpp;
    return nullptr;
}

// The sizes written count a head more than there is, and zeros stand for it:
// readers that go by the sizes find what they expect, and those that go by the
// count never see it.
errorblock *spritesave(const sprite *s, const char *path)
{
    constexpr uint32_t start = sizeof(spritearea);
    const char padding[HEADSIZE] = {};
    spritelayout layout;
    errorblock *err = spritelay(s, &layout);
    if (err && err->code != EMODE) return err;
    bfile file;
    err = bopen(path, "w", BFILEBUFFER, &file);
    if (!err) err = bwrite32(&file, 1);
    if (!err) err = bwrite32(&file, start);
    if (!err) err = bwrite32(&file, start + static_cast<uint32_t>(s->next) + HEADSIZE);
    if (!err) err = bwriteall(&file, s, s->next);
    if (!err) err = bwriteall(&file, padding, HEADSIZE);
    return bclose(&file, err);
}

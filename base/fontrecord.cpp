#include "base/fontrecord.h"

#include "base/bfile.h"

#include <algorithm>

static errorblock *readsigned(bfile *file, int32_t *value)
{
    uint32_t word;
    errorblock *err = bread32(file, &word);
    if (!err) *value = static_cast<int32_t>(word);
    return err;
}

// Heights become pixels by a product that must not overflow.
errorblock *fontread(bfile *file, fontrecord *font)
{
    constexpr int32_t FONTMAX = 0x7fff; // sixteenths; 2000 points and more
    errorblock *err = readsigned(file, &font->height);
    if (!err) err = readsigned(file, &font->width);
    if (!err) err = breadall(file, font->face, sizeof font->face);
    if (!err) err = readsigned(file, &font->charset);
    if (!err) err = readsigned(file, &font->weight);
    if (!err) err = readsigned(file, &font->italic);
    font->height = std::clamp(font->height, 0, FONTMAX);
    font->width = std::clamp(font->width, 0, FONTMAX);
    font->face[sizeof font->face - 1] = 0;
    return err;
}

errorblock *fontwrite(bfile *file, const fontrecord &font)
{
    errorblock *err = bwrite32(file, static_cast<uint32_t>(font.height));
    if (!err) err = bwrite32(file, static_cast<uint32_t>(font.width));
    if (!err) err = bwriteall(file, font.face, sizeof font.face);
    if (!err) err = bwrite32(file, static_cast<uint32_t>(font.charset));
    if (!err) err = bwrite32(file, static_cast<uint32_t>(font.weight));
    if (!err) err = bwrite32(file, static_cast<uint32_t>(font.italic));
    return err;
}

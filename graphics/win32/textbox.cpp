#include "graphics/textmeasure.h"

#include "graphics/cmap.h"
#include "graphics/win32/textcontext.h"

#include <algorithm>

namespace
{

constexpr MAT2 UNCHANGED = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};

bool narrowmetrics(UINT character, UINT how, GLYPHMETRICS *metrics)
{
    return GetGlyphOutlineA(textcontext(), character, GGO_METRICS | how, metrics, 0, nullptr,
                            &UNCHANGED) != GDI_ERROR;
}

bool widemetrics(UINT character, GLYPHMETRICS *metrics)
{
    return GetGlyphOutlineW(textcontext(), character, GGO_METRICS, metrics, 0, nullptr,
                            &UNCHANGED) != GDI_ERROR;
}

void metricsout(const GLYPHMETRICS &metrics, glyphextent *box, int32_t *advancex, int32_t *advancey)
{
    const POINT &origin = metrics.gmptGlyphOrigin;
    if (box) {
        box->left = origin.x;
        box->right = origin.x + static_cast<int32_t>(metrics.gmBlackBoxX);
        box->top = origin.y;
        box->bottom = origin.y - static_cast<int32_t>(metrics.gmBlackBoxY);
    }
    if (advancex) *advancex = metrics.gmCellIncX;
    if (advancey) *advancey = metrics.gmCellIncY;
}

// Widens a box to a further character's height; the first sets it.
void boxadd(glyphextent *box, bool first, const glyphextent &glyph)
{
    box->bottom = first ? glyph.bottom : std::min(box->bottom, glyph.bottom);
    box->top = first ? glyph.top : std::max(box->top, glyph.top);
}

} // namespace

errorblock *glyphbox(uint8_t character, glyphextent *box, int32_t *advancex, int32_t *advancey)
{
    GLYPHMETRICS metrics = {};
    if (!narrowmetrics(character, 0, &metrics)) metrics = {};
    metricsout(metrics, box, advancex, advancey);
    return nullptr;
}

errorblock *glyphboxw(char16_t character, glyphextent *box, int32_t *advancex, int32_t *advancey)
{
    GLYPHMETRICS metrics = {};
    if (!widemetrics(character, &metrics))
        return glyphboxmapped(character, box, advancex, advancey);
    metricsout(metrics, box, advancex, advancey);
    return nullptr;
}

errorblock *glyphboxmapped(char16_t character, glyphextent *box, int32_t *advancex,
                           int32_t *advancey)
{
    if (character < 256) return glyphbox(static_cast<uint8_t>(character), box, advancex, advancey);
    GLYPHMETRICS metrics = {};
    uint16_t glyph = cmapglyph(currentsurface->dc, character);
    if (!glyph || !narrowmetrics(glyph, GGO_GLYPH_INDEX, &metrics)) metrics = {};
    metricsout(metrics, box, advancex, advancey);
    return nullptr;
}

errorblock *textbox(const char *text, glyphextent *box)
{
    SIZE size = {};
    GetTextExtentPoint32A(textcontext(), text, lstrlenA(text), &size);
    *box = {.left = 0, .bottom = 0, .right = size.cx, .top = 0};
    for (const char *at = text; *at; at++) {
        glyphextent glyph;
        glyphbox(static_cast<uint8_t>(*at), &glyph, nullptr, nullptr);
        boxadd(box, at == text, glyph);
    }
    return nullptr;
}

errorblock *textboxw(const char16_t *text, glyphextent *box)
{
    SIZE size = {};
    GetTextExtentPoint32W(textcontext(), widetext(text), lstrlenW(widetext(text)), &size);
    *box = {.left = 0, .bottom = 0, .right = size.cx, .top = 0};
    for (const char16_t *at = text; *at; at++) {
        glyphextent glyph;
        glyphboxw(*at, &glyph, nullptr, nullptr);
        boxadd(box, at == text, glyph);
    }
    return nullptr;
}

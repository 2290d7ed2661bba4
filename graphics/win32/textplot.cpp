#include "graphics/textplot.h"

#include "base/errors.h"
#include "graphics/cmap.h"
#include "graphics/win32/textcontext.h"

#include <algorithm>
#include <cstring>

namespace
{

// One call of the system, made at any place under any mapping. Either text or
// wide is set. The simple call makes the smaller record in a picture.
struct textcall {
    bool simple; // narrow, with no clip and no spacing
    const char *text;
    const char16_t *wide;
    int32_t length;
    UINT options;
    const textclip *clip; // 0 for none
    const int32_t *spacing;
    uint32_t flags;
};

void textout(const textcall &call, int32_t x, int32_t y, const RECT *clip)
{
    UINT options = call.options | (clip ? ETO_CLIPPED : 0);
    UINT length = static_cast<UINT>(call.length);
    static_assert(sizeof(INT) == sizeof(int32_t));
    const INT *spacing = reinterpret_cast<const INT *>(call.spacing);
    if (call.simple)
        TextOutA(textcontext(), x, y, call.text, call.length);
    else if (call.wide)
        ExtTextOutW(textcontext(), x, y, options, clip, widetext(call.wide), length, spacing);
    else
        ExtTextOutA(textcontext(), x, y, options, clip, call.text, length, spacing);
}

RECT clipdevice(const textclip &clip, uint32_t flags)
{
    int32_t x0, y0, x1, y1;
    textdevice(flags, clip.x0, clip.y0, &x0, &y0);
    textdevice(flags, clip.x1, clip.y1, &x1, &y1);
    return {std::min(x0, x1), std::min(y0, y1), std::max(x0, x1), std::max(y0, y1)};
}

errorblock *plotplain(const textcall &call, int32_t x, int32_t y)
{
    RECT clip = {};
    textdevice(call.flags, x, y, &x, &y);
    if (call.clip) clip = clipdevice(*call.clip, call.flags);
    textout(call, x, y, call.clip ? &clip : nullptr);
    return nullptr;
}

// Under a mapping the system would map the clip too: it is set before.
int clipenter(const textcall &call)
{
    if (!call.clip) return 0;
    RECT clip = clipdevice(*call.clip, call.flags);
    int saved = SaveDC(textcontext());
    IntersectClipRect(textcontext(), clip.left, clip.top, clip.right, clip.bottom);
    return saved;
}

void clipleave(int saved)
{
    if (saved) RestoreDC(textcontext(), saved);
}

// A scale of 16.16 as the extent that stands for 256.
int32_t scaleextent(int32_t scale)
{
    return static_cast<int32_t>(int64_t{scale} * 256 / MATRIXONE);
}

errorblock *plotscaled(const textcall &call, int32_t x, int32_t y, int32_t scalex, int32_t scaley)
{
    if (scalex == MATRIXONE && scaley == MATRIXONE) return plotplain(call, x, y);
    int32_t extentx = scaleextent(scalex), extenty = scaleextent(scaley);
    if (!extentx || !extenty) return nullptr;
    int saved = clipenter(call);
    textdevice(call.flags, x, y, &x, &y);
    // In its plain mode the system scales letters by their height alone.
    int mode = SetGraphicsMode(textcontext(), GM_ADVANCED);
    surfacemap(256, extentx, 256, extenty, 0, 0, x, y);
    textout(call, 0, 0, nullptr);
    surfacemap(1, 1, 1, 1, 0, 0, 0, 0);
    SetGraphicsMode(textcontext(), mode);
    clipleave(saved);
    return nullptr;
}

// The system's y runs down, which turns the signs of b and c round.
XFORM transformof(const plotmatrix &m, int32_t x, int32_t y)
{
    constexpr FLOAT one = MATRIXONE;
    return {static_cast<FLOAT>(m.a) / one,
            static_cast<FLOAT>(-int64_t{m.b}) / one,
            static_cast<FLOAT>(-int64_t{m.c}) / one,
            static_cast<FLOAT>(m.d) / one,
            static_cast<FLOAT>(x),
            static_cast<FLOAT>(y)};
}

errorblock *plotmatrixed(const textcall &call, int32_t x, int32_t y, const plotmatrix *matrix)
{
    if (!matrixkind(matrix)) return plotplain(call, x, y);
    HDC dc = textcontext();
    int32_t parts = call.flags & TEXTOSUNITS ? 1 : MILLIPOINTS;
    int32_t devicex, devicey;
    textdevice(call.flags, x + int64_t{matrix->e} * parts, y + int64_t{matrix->f} * parts, &devicex,
               &devicey);
    int saved = clipenter(call);
    XFORM transform = transformof(*matrix, devicex, devicey), before;
    int mode = SetGraphicsMode(dc, GM_ADVANCED);
    GetWorldTransform(dc, &before);
    SetWorldTransform(dc, &transform);
    textout(call, 0, 0, nullptr);
    SetWorldTransform(dc, &before);
    SetGraphicsMode(dc, mode);
    clipleave(saved);
    return nullptr;
}

int32_t lengthof(const char *text)
{
    return static_cast<int32_t>(strlen(text));
}

textcall narrowcall(const char *text, int32_t length, uint32_t flags, const textclip *clip,
                    const int32_t *spacing)
{
    return {.simple = false,
            .text = text,
            .wide = nullptr,
            .length = length,
            .options = 0,
            .clip = clip,
            .spacing = spacing,
            .flags = flags};
}

textcall widecall(char16_t *text, int32_t length, uint32_t flags, const textclip *clip,
                  const int32_t *spacing)
{
    for (int32_t i = 0; flags & TEXTGLYPHS && i < length; i++)
        text[i] = cmapglyph(currentsurface->dc, text[i]);
    return {.simple = false,
            .text = nullptr,
            .wide = text,
            .length = length,
            .options = flags & TEXTGLYPHS ? UINT{ETO_GLYPH_INDEX} : 0,
            .clip = clip,
            .spacing = spacing,
            .flags = flags};
}

} // namespace

errorblock *plottext(const char *text, uint32_t flags, int32_t x, int32_t y)
{
    return plottextn(text, lengthof(text), flags, x, y);
}

errorblock *plottextw(const char16_t *text, uint32_t flags, int32_t x, int32_t y)
{
    textdevice(flags, x, y, &x, &y);
    TextOutW(textcontext(), x, y, widetext(text), lstrlenW(widetext(text)));
    return nullptr;
}

errorblock *plottextn(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y)
{
    textdevice(flags, x, y, &x, &y);
    TextOutA(textcontext(), x, y, text, length);
    return nullptr;
}

errorblock *plottextm(const char *text, uint32_t flags, int32_t x, int32_t y,
                      const plotmatrix *matrix)
{
    textcall call = narrowcall(text, lengthof(text), flags, nullptr, nullptr);
    call.simple = true;
    return plotmatrixed(call, x, y, matrix);
}

errorblock *plottextx(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                      const textclip *clip, const int32_t *spacing)
{
    return plotplain(narrowcall(text, length, flags, clip, spacing), x, y);
}

errorblock *plottextxs(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                       const textclip *clip, const int32_t *spacing, int32_t scalex, int32_t scaley)
{
    return plotscaled(narrowcall(text, length, flags, clip, spacing), x, y, scalex, scaley);
}

errorblock *plottextxm(const char *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                       const textclip *clip, const int32_t *spacing, const plotmatrix *matrix)
{
    return plotmatrixed(narrowcall(text, length, flags, clip, spacing), x, y, matrix);
}

errorblock *plottextxw(char16_t *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                       const textclip *clip, const int32_t *spacing)
{
    return plotplain(widecall(text, length, flags, clip, spacing), x, y);
}

errorblock *plottextxsw(char16_t *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                        const textclip *clip, const int32_t *spacing, int32_t scalex,
                        int32_t scaley)
{
    return plotscaled(widecall(text, length, flags, clip, spacing), x, y, scalex, scaley);
}

errorblock *plottextxmw(char16_t *text, int32_t length, uint32_t flags, int32_t x, int32_t y,
                        const textclip *clip, const int32_t *spacing, const plotmatrix *matrix)
{
    return plotmatrixed(widecall(text, length, flags, clip, spacing), x, y, matrix);
}

errorblock *plottexttab(const char *text, uint32_t flags, int32_t x, int32_t y, int32_t nstops,
                        const int32_t *stops)
{
    textdevice(flags, x, y, &x, &y);
    TabbedTextOutA(textcontext(), x, y, text, lengthof(text), nstops,
                   reinterpret_cast<const INT *>(stops), x);
    return nullptr;
}

#include "graphics/fonts.h"

#include "base/text.h"
#include "graphics/fontsize.h"
#include "graphics/win32/textcontext.h"

namespace
{

// What CreateFont is told, in pixels and tenths of a degree. A height above 0
// would ask the system for that of the line.
struct fontorder {
    const char *name;
    int32_t width, height, angle;
    int32_t weight, italic;
    int32_t charset, pitchandfamily;
    DWORD precision, clipping;
};

// Whose name alone says which characters it has.
constexpr int32_t CHARSETANY = DEFAULT_CHARSET;

errorblock *fontmake(const fontorder &order, fonthandle *font)
{
    // The system refuses a longer name.
    char face[LF_FACESIZE];
    strcopyn(face, order.name, LF_FACESIZE);
    HFONT made = CreateFontA(-order.height, order.width, order.angle, order.angle, order.weight,
                             order.italic != 0, FALSE, FALSE, static_cast<DWORD>(order.charset),
                             order.precision, order.clipping, DEFAULT_QUALITY,
                             static_cast<DWORD>(order.pitchandfamily), face);
    *font = reinterpret_cast<fonthandle>(made);
    return nullptr;
}

// A plain order of a size in sixteenths of a point.
fontorder orderscaled(const char *name, int32_t width, int32_t height)
{
    return {.name = name,
            .width = fontpixels(width, currentsurface->scalex),
            .height = fontpixels(height, currentsurface->scaley),
            .angle = 0,
            .weight = FW_NORMAL,
            .italic = 0,
            .charset = CHARSETANY,
            .pitchandfamily = DEFAULT_PITCH | FF_DONTCARE,
            .precision = OUT_DEFAULT_PRECIS,
            .clipping = CLIP_DEFAULT_PRECIS};
}

// One of a size in pixels.
fontorder orderpixels(const char *name, int32_t width, int32_t height, int32_t angle)
{
    return {.name = name,
            .width = width,
            .height = height,
            .angle = angle,
            .weight = FW_NORMAL,
            .italic = 0,
            .charset = CHARSETANY,
            .pitchandfamily = DEFAULT_PITCH | FF_DONTCARE,
            .precision = OUT_SCREEN_OUTLINE_PRECIS,
            .clipping = CLIP_EMBEDDED};
}

void fontgiveback(surface *s)
{
    if (s->savedfont) SelectObject(textcontext(s), reinterpret_cast<HGDIOBJ>(s->savedfont));
    s->font = s->savedfont = 0;
}

void fontselect(surface *s, fonthandle font)
{
    HGDIOBJ displaced = SelectObject(textcontext(s), reinterpret_cast<HGDIOBJ>(font));
    if (!displaced) return;
    if (!s->savedfont) s->savedfont = reinterpret_cast<intptr_t>(displaced);
    s->font = font;
}

COLORREF systemcolourof(uint32_t word)
{
    return word >> 8;
}

} // namespace

errorblock *fontfind(const fontrecord *record, fonthandle *font)
{
    fontorder order = orderscaled(record->face, record->width, record->height);
    order.charset = record->charset;
    order.weight = record->weight;
    order.italic = record->italic;
    return fontmake(order, font);
}

errorblock *fontfindsize(const char *name, int32_t width, int32_t height, int32_t, int32_t,
                         fonthandle *font)
{
    return fontmake(orderscaled(name, width, height), font);
}

errorblock *fontfindangle(const char *name, int32_t width, int32_t height, int32_t angle,
                          fonthandle *font)
{
    fontorder order = orderscaled(name, width, height);
    order.angle = fontangle(angle);
    return fontmake(order, font);
}

errorblock *fontfindpixel(const char *name, int32_t width, int32_t height, int32_t angle,
                          fonthandle *font)
{
    return fontmake(orderpixels(name, width, height, angle), font);
}

errorblock *fontfindset(const char *name, int32_t charset, int32_t width, int32_t height,
                        int32_t angle, fonthandle *font)
{
    fontorder order = orderpixels(name, width, height, angle);
    order.charset = charset;
    return fontmake(order, font);
}

errorblock *fontfindall(const char *name, int32_t charset, int32_t weight, int32_t italic,
                        int32_t family, int32_t pitch, int32_t width, int32_t height, int32_t angle,
                        fonthandle *font)
{
    fontorder order = orderpixels(name, width, height, angle);
    order.charset = charset;
    order.weight = weight;
    order.italic = italic;
    order.pitchandfamily = pitch + family * 16;
    order.precision = OUT_DEFAULT_PRECIS;
    order.clipping = CLIP_DEFAULT_PRECIS;
    return fontmake(order, font);
}

errorblock *fontlose(fonthandle font)
{
    // A font that is selected anywhere can't be deleted. No font is selected
    // nowhere: surfaces without one aren't looked for.
    if (!font) return nullptr;
    for (surface *s = surfaces; s; s = s->next)
        if (s->font == font) fontgiveback(s);
    DeleteObject(reinterpret_cast<HGDIOBJ>(font));
    return nullptr;
}

errorblock *fontset(fonthandle font, uint32_t background, uint32_t foreground, int32_t)
{
    HDC dc = textcontext();
    if (font) fontselect(currentsurface, font);
    fontcolour(foreground);
    SetBkMode(dc, background == FONTCLEAR ? TRANSPARENT : OPAQUE);
    if (background != FONTCLEAR) SetBkColor(dc, systemcolourof(background));
    return nullptr;
}

errorblock *fontcolour(uint32_t foreground)
{
    SetTextColor(textcontext(), systemcolourof(foreground));
    return nullptr;
}

errorblock *fontalign(uint32_t flags)
{
    UINT align = flags & FONTRIGHT ? TA_RIGHT : flags & FONTCENTRE ? TA_CENTER : TA_LEFT;
    align |= flags & FONTTOP ? TA_TOP : flags & FONTBOTTOM ? TA_BOTTOM : TA_BASELINE;
    if (flags & FONTCURSOR) align |= TA_UPDATECP;
    SetTextAlign(textcontext(), align);
    return nullptr;
}

errorblock *textjustify(int32_t extra, int32_t breaks)
{
    return textjustifyon(currentsurface, extra, breaks);
}

errorblock *textjustifyon(surface *s, int32_t extra, int32_t breaks)
{
    SetTextJustification(textcontext(s), extra, breaks);
    return nullptr;
}

errorblock *textspacing(int32_t extra)
{
    return textspacingon(currentsurface, extra);
}

errorblock *textspacingon(surface *s, int32_t extra)
{
    SetTextCharacterExtra(textcontext(s), extra);
    return nullptr;
}

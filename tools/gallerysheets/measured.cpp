// Measurements of text, drawn round the text that they are of.

#include "base/errors.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <cstring>

namespace
{

constexpr int32_t LEFT = 40;
const fontrecord large = {40 * 16, 0, "Times New Roman", 0, 400, 1};
const fontrecord placing = {22 * 16, 0, "Times New Roman", 0, 400, 0};
const fontrecord middle = {8 * 16, 0, "Times New Roman", 0, 400, 0};

// The font stays selected; the caller loses it.
fonthandle begin(const fontrecord &record)
{
    fonthandle font;
    fontfind(&record, &font);
    fontset(font, FONTCLEAR, INK, 0);
    fontalign(0);
    return font;
}

void box(int32_t x, int32_t y, const glyphextent &e, uint32_t colour)
{
    setcolour(colour);
    hollowbox(x + e.left, y + e.bottom, e.right - e.left, e.top - e.bottom);
}

void level(int32_t y, const char *name, int32_t value)
{
    setcolour(FAINT);
    moveto(LEFT, y);
    lineto(LEFT + 640, y);
    labelf(LEFT + 650, y - 4, "%s %d", name, value);
}

errorblock *glyphs()
{
    heading(20, -30, "glyphbox in blue, advances as ticks, textbox in red, the font's own lines");
    const char text[] = "\xC1gfj Quill";
    int32_t x = LEFT, y = -170;
    fontmetrics m;
    errorblock *err = fontinfo(&large, &m);
    if (err) return err;
    level(y + m.ascent, "ascent", m.ascent);
    level(y, "base line; height", m.height);
    level(y - m.descent, "descent", m.descent);
    fonthandle font = begin(large);
    plottext(text, TEXTOSUNITS, x, y);
    glyphextent all;
    err = textbox(text, &all);
    if (!err) box(x, y, all, RED);
    for (const char *c = text; !err && *c; c++) {
        glyphextent e;
        int32_t advance;
        err = glyphbox(static_cast<uint8_t>(*c), &e, &advance, nullptr);
        if (err) break;
        box(x, y, e, BLUE);
        setcolour(GREEN);
        x += advance;
        fillbox(x, y - 10, 1, 8);
    }
    fontlose(font);
    return err;
}

// A paragraph broken by textfit, at spaces, within two lines.
errorblock *broken(int32_t x, int32_t width)
{
    const char *text = "Words are looked up by their pattern, and each line is cut back to the "
                       "last space that it has. Averylongwordindeedstands alone.";
    setcolour(RED);
    linebox(x, -300, width, -270);
    fonthandle font = begin(middle);
    errorblock *err = nullptr;
    int32_t y = -320;
    while (!err && *text && y > -570) {
        textspan span = {text, width, 0, ' ', static_cast<int32_t>(strlen(text))};
        err = textfit(&span);
        if (err || !span.length) break;
        plottextn(text, span.length, TEXTOSUNITS, x, y);
        text += span.length;
        while (*text == ' ')
            text++;
        y -= 24;
    }
    fontlose(font);
    return err;
}

// Places of characters: plain, kerned, and those that fit.
errorblock *placed(int32_t y, const char *name, uint32_t flags, int32_t width)
{
    const char text[] = "AVAWATo LTy.";
    int32_t widths[sizeof text];
    label(LEFT, y + 46, name);
    fonthandle font = begin(placing);
    textspan span = {text, width, 0, -1, static_cast<int32_t>(strlen(text))};
    errorblock *err = textplace(&span, widths, flags);
    if (!err) plottextx(text, span.length, TEXTOSUNITS, LEFT, y, nullptr, widths);
    int32_t x = LEFT;
    setcolour(GREEN);
    for (int32_t i = 0; !err && i < span.length; i++) {
        x += widths[i];
        fillbox(x, y - 12, 1, 10);
    }
    fontlose(font);
    if (!err) labelf(LEFT + 500, y, "%d characters, %d wide", span.length, span.width);
    return err;
}

errorblock *pairs()
{
    fonthandle font = begin(large);
    int32_t count = 0;
    errorblock *err = fontkerning(nullptr, &count);
    fontlose(font);
    labelf(LEFT, -890, "The font has %d kerning pairs", count);
    return err;
}

} // namespace

errorblock *drawmeasured(const page *)
{
    errorblock *err = glyphs();
    heading(20, -280, "textfit, split at spaces");
    if (!err) err = broken(LEFT, 300);
    if (!err) err = broken(LEFT + 340, 180);
    if (!err) err = broken(LEFT + 560, 90);
    heading(20, -600, "textplace");
    if (!err) err = placed(-680, "Plain", 0, 0);
    if (!err) err = placed(-760, "Kerned", PLACEKERNED, 0);
    if (!err) err = placed(-840, "Kerned, what fits 150", PLACEKERNED | PLACEFIT, 150);
    return err ? err : pairs();
}

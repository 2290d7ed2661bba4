// The look of a list of words: its font and its rows.

#include "base/boxes.h"
#include "desktop/redraw.h"
#include "dict/dictwindow.h"
#include "dict/wordview.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"

#include <algorithm>

wordmetricsrecord wordmetrics = {.font = {}, .rowheight = 1, .listwidth = 0, .ascent = 0};

namespace
{

constexpr int32_t CHARACTERS = 32; // of a list's width

// OS units: words begin in from the left, and rows are drawn up by a little, so
// that a row's mark is as far from the letters above as below.
constexpr int32_t TEXTLEFT = 4, ROWUP = 2;

constexpr uint32_t BLACK = 0, WHITE = 0xFFFFFF00;

struct rowplace {
    int32_t top, width;
};

void rowfill(const rowplace &place)
{
    setcolour(BLACK);
    filltextbox(0, place.top - wordmetrics.rowheight, place.width, wordmetrics.rowheight,
                place.top - wordmetrics.ascent);
}

// The first row begins above the work area, where its outline would not be seen.
void rowoutline(const rowplace &place, uint32_t colour)
{
    int32_t bottom = place.top - wordmetrics.rowheight;
    setcolour(colour);
    pathdotted();
    hollowbox(0, bottom, place.width, std::min(place.top, 0) - bottom);
}

void rowpaint(const wordview *view, const dictcursor &cursor, const rowplace &place)
{
    auto row = static_cast<int32_t>(cursor.wordn);
    uint32_t ink = row == view->rowsel ? WHITE : BLACK;
    if (row == view->rowsel) rowfill(place);
    fontcolour(ink);
    plottext(cursor.word, TEXTOSUNITS, TEXTLEFT, place.top - wordmetrics.ascent);
    if (row == view->rowcaret) rowoutline(place, ink);
}

void rowspaint(const wordview *view, const redrawrecord &r)
{
    dictcursor cursor;
    rowplace place;
    int32_t row = std::max(-r.cy1 / wordmetrics.rowheight, 0);
    place.top = ROWUP - row * wordmetrics.rowheight;
    place.width = std::max(r.x1 - r.x0, wordmetrics.listwidth);
    bool more = dictseek(static_cast<uint32_t>(row), view->wordrows, &cursor);
    while (more && place.top > r.cy0) {
        rowpaint(view, cursor, place);
        place.top -= wordmetrics.rowheight;
        more = dictnext(view->wordrows, &cursor);
    }
}

errorblock *listpaint(const redrawrecord &r, intptr_t view)
{
    fonthandle font;
    errorblock *err = fontfind(&wordmetrics.font, &font);
    if (err) return err;
    fontset(font, FONTCLEAR, BLACK, 0);
    fontalign(0);
    rowspaint(reinterpret_cast<const wordview *>(view), r);
    return fontlose(font);
}

} // namespace

errorblock *wordviewredraw(window self, intptr_t)
{
    return redrawwith(self, listpaint, reinterpret_cast<intptr_t>(wordviewof(self)));
}

void dictmetricsupdate(const fontrecord *font)
{
    fontmetrics metrics = {};
    errorblock *err = fontinfo(font, &metrics);
    if (!err) {
        wordmetrics.font = *font;
        wordmetrics.rowheight = std::max(devtoosy(metrics.height + metrics.externalleading), 1);
        wordmetrics.listwidth = devtoosx(CHARACTERS * metrics.averagewidth);
        wordmetrics.ascent = devtoosy(metrics.ascent);
    }
    reporterror(err);
}

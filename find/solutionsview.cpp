#include "find/solutionsview.h"

#include "base/boxes.h"
#include "base/flex.h"
#include "desktop/handlertable.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/redraw.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "dict/dictwindow.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridkeys.h"
#include "resources/identifiers.h"

#include <algorithm>
#include <cstring>

window solutionswindow;

namespace
{

// OS units.
constexpr int32_t TEXTLEFT = 6, TEXTTOP = 2, PICTURETOP = 10, BARRIGHT = 4;

constexpr uint32_t BLACK = 0, WHITE = 0xFFFFFF00;

// A letter, or a line of a picture, as the grid's case has it.
void textcase(char *text)
{
    for (; *text; text++)
        *text = static_cast<char>(gridcase(static_cast<uint8_t>(*text)));
}

// A selected row is white on black, also where its letters go on behind the list's width.
void rowground(int32_t top, int32_t baseline, int32_t textwidth, bool selected)
{
    if (selected) {
        int32_t width = std::max(solutions.listwidth - BARRIGHT, textwidth + 2 * TEXTLEFT);
        setcolour(BLACK);
        filltextbox(0, top - TEXTTOP - solutions.rowheight, width, solutions.rowheight, baseline);
    }
    fontcolour(selected ? WHITE : BLACK);
}

errorblock *rowline(int32_t row, int32_t top)
{
    char text[sizeof wsentry::text];
    bool square = grid.kind == GRIDWORDSQUARE;
    bool selected = square ? solword(row)->selected != 0 : row == solutions.standing;
    strcpy(text, square ? solword(row)->text : wordtext(solref(row, 0)));
    textcase(text);
    int32_t down = TEXTTOP + (solutions.rowheight - solutions.textheight) / 2 + solutions.ascent;
    glyphextent extent = {};
    errorblock *err = textbox(text, &extent);
    if (err) return err;
    rowground(top, top - down, devtoosx(extent.right), selected);
    return plottext(text, TEXTOSUNITS, TEXTLEFT, top - down);
}

// The letters of a solution, in their places in the marked area: rows of the
// area, 0 where there is none.
struct boxletters {
    flexptr cells;
    int32_t width, height;
};

char *lettersrow(const boxletters &letters, int32_t line)
{
    return static_cast<char *>(letters.cells) + line * letters.width;
}

// As slotwrite has them: a phrase stands without its spaces.
void slotletters(const boxletters &letters, int32_t row, int32_t slot)
{
    const slotrec &place = search.slots[slot];
    int32_t x = place.x - search.slotbox.left, y = place.y - search.slotbox.top;
    const char *word = wordtext(solref(row, slot));
    for (; *word && x < letters.width && y < letters.height; word++) {
        if (*word == ' ') continue;
        lettersrow(letters, y)[x] = static_cast<char>(gridcase(static_cast<uint8_t>(*word)));
        if (place.direction)
            y++;
        else
            x++;
    }
}

// Each letter stands in the middle of its column.
void lettersline(const boxletters &letters, int32_t line, int32_t y)
{
    for (int32_t x = 0; x < letters.width; x++) {
        char letter = lettersrow(letters, line)[x];
        if (!letter) continue;
        int32_t middle = solutions.charwidth * x + solutions.charwidth / 2;
        plottextn(&letter, 1, TEXTOSUNITS, TEXTLEFT + middle, y);
    }
}

void rowpicture(const boxletters &letters, int32_t row, int32_t top)
{
    memset(letters.cells, 0, static_cast<size_t>(letters.width) * letters.height);
    for (int32_t slot = 0; slot < solutions.slotcount; slot++)
        slotletters(letters, row, slot);
    int32_t baseline = top - PICTURETOP - solutions.ascent;
    rowground(top, baseline, solutions.listwidth, row == solutions.standing);
    for (int32_t line = 0; line < letters.height; line++)
        lettersline(letters, line, baseline - line * solutions.textheight);
}

// The rows that meet the clip, first to behind.
struct rowrange {
    int32_t first, behind;
};

rowrange rowsinclip(const redrawrecord &r)
{
    if (solutions.rowheight <= 0) return {0, 0};
    return {std::max(-r.cy1 / solutions.rowheight, 0),
            std::min(-r.cy0 / solutions.rowheight + 1, solutions.count)};
}

errorblock *rowspaint(const redrawrecord &r)
{
    rowrange rows = rowsinclip(r);
    for (int32_t row = rows.first; row < rows.behind; row++)
        rowline(row, -row * solutions.rowheight);
    return nullptr;
}

errorblock *picturespaint(const redrawrecord &r)
{
    const cellbox &box = search.slotbox;
    boxletters letters = {nullptr, box.right - box.left + 1, box.bottom - box.top + 1};
    errorblock *err = flex_alloc(&letters.cells, letters.width * letters.height);
    if (err) return err;
    rowrange rows = rowsinclip(r);
    fontalign(FONTCENTRE);
    for (int32_t row = rows.first; row < rows.behind; row++)
        rowpicture(letters, row, -row * solutions.rowheight);
    flex_free(&letters.cells);
    return nullptr;
}

errorblock *listpaint(const redrawrecord &r, intptr_t)
{
    fonthandle font;
    errorblock *err = fontfind(&solfont, &font);
    if (err) return err;
    fontset(font, FONTCLEAR, BLACK, 0);
    fontalign(0);
    err = solutions.slotcount < 2 ? rowspaint(r) : picturespaint(r);
    fontlose(font);
    return err;
}

errorblock *listredraw(window self, intptr_t)
{
    return redrawwith(self, listpaint, 0);
}

// The row under the pointer, -1 for none.
int32_t rowat(window self, const mouserecord *mouse)
{
    windowinforecord info;
    if (windowinfo(self, &info) || solutions.rowheight <= 0) return -1;
    int32_t down = info.yorigin - static_cast<int32_t>(mouse->y) - TEXTTOP;
    int32_t row = down / solutions.rowheight;
    return row < solutions.count ? row : -1;
}

errorblock *wordclick(window self, int32_t row, intptr_t buttons)
{
    cursordrawoff();
    cursorremove();
    bool right = buttons == BUTTONRIGHT || buttons == BUTTONRIGHTDOUBLE;
    bool toggle = right || (keymodifiers() & KEYCTRL);
    dirtyreset();
    errorblock *err = nullptr;
    if (buttons == BUTTONLEFT || right) {
        if (solselect(row, toggle)) err = redrawall(self);
        solshow(row);
    }
    dirtyredraw();
    return err;
}

// Scrolls as little as shows the row; of one that is taller than the window, its
// beginning.
errorblock *rowshow(window self, int32_t row)
{
    windowstaterecord state;
    errorblock *err = windowstate(self, &state);
    if (err) return err;
    int32_t top = rowsextent(row, solutions.rowheight), page = state.y1 - state.y0;
    int32_t behind = top + solutions.rowheight + TEXTTOP;
    int32_t scroll = std::min(std::max(-state.yscroll, behind - page), top);
    return scroll == -state.yscroll ? nullptr : setscrolly(self, scroll);
}

// A search writes into the cells of its slots; it is let be.
errorblock *solutionchoose(window self, int32_t row)
{
    if (search.running) return nullptr;
    solapply(row);
    return redrawall(self);
}

errorblock *listclick(window self, intptr_t, mouserecord *mouse)
{
    int32_t row = rowat(self, mouse);
    if (grid.kind == GRIDWORDSQUARE) return wordclick(self, row, mouse->buttons);
    errorblock *err = focuswindow(self);
    if (!err && mouse->buttons == BUTTONLEFT) err = solutionchoose(self, row);
    return err;
}

// With the focus in the list, these walk through a Crossword's solutions.
errorblock *listkey(window self, intptr_t, int32_t, int32_t *code)
{
    int32_t by = *code == (KEYPRESS | KEYUP) ? -1 : *code == (KEYPRESS | KEYDOWN) ? 1 : 0;
    if (grid.kind != GRIDCROSSWORD || !solutions.count) return nullptr;
    if (!by && *code != (KEYPRESS | KEYRETURN)) return nullptr;
    *code = KEYCLAIMED;
    int32_t row = std::clamp(solutions.standing + by, 0, solutions.count - 1);
    errorblock *err = solutionchoose(self, row);
    return err ? err : rowshow(self, row);
}

// What the list has no use for is the grid's.
constexpr handlertable listhandlers = {
    {.redraw = listredraw},
    {.click = listclick},
    {.key = listkey},
    {.key = gridkey},
};

errorblock *listextent()
{
    return setextent(solutionswindow, 0, -rowsextent(solutions.count, solutions.rowheight),
                     solutions.listwidth, 0);
}

} // namespace

errorblock *solutionsopen(window parent)
{
    metricsupdate();
    errorblock *err = createchild(TEMPLATESOLUTIONS, &solutionswindow, parent);
    if (!err) err = setbackground(solutionswindow, BACKGROUNDWHITE);
    if (!err) err = addhandlers(solutionswindow, listhandlers);
    if (!err) err = setflags(solutionswindow, WINDOWNONAVIGATION, 0);
    if (!err) err = listextent();
    return err;
}

void solutionsrefresh()
{
    windowstaterecord state;
    if (!solutionswindow) return;
    errorblock *err = windowstate(solutionswindow, &state);
    if (!err && (state.wflags & STATEOPEN)) err = scrollto(solutionswindow, 0, 0);
    if (!err) err = listextent();
    if (!err) err = redrawall(solutionswindow);
    reporterror(err);
}

void metricsupdate()
{
    int32_t widest = 0;
    fontmetrics font = {};
    errorblock *err = fontmaxwidth(&solfont, &widest);
    if (!err) err = fontinfo(&solfont, &font);
    if (!err) {
        solutions.charwidth = devtoosx(widest) + 1;
        solutions.textheight = devtoosy(font.height);
        solutions.lineheight = devtoosy(font.height + font.externalleading);
        solutions.ascent = devtoosy(font.ascent);
    }
    dictmetricsupdate(&dictfont);
    reporterror(err);
}

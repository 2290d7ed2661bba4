#include "app/samples.h"

#include "desktop/icons.h"
#include "desktop/redraw.h"
#include "desktop/windows.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/modeinfo.h"
#include "graphics/pickers.h"
#include "graphics/plot.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"

#include <cstring>

namespace
{

constexpr const char *SAMPLETEXT = "ABCabc123";
constexpr int32_t TEXTLEFT = 6; // OS units from the edge
constexpr uint32_t FRAMECOLOUR = 0;
constexpr int32_t CHOSEN = 1; // the bit of a picker's result

void boxfill(const osbox &box, uint32_t colour)
{
    setcolour(colour);
    fillbox(box.x0, box.y0, box.x1 - box.x0, box.y1 - box.y0);
}

// In the middle of the box's height; of a font that is too large, as much as the
// box holds.
void textinside(const osbox &box)
{
    fontmetrics metrics = {};
    fontmetricsget(&metrics);
    int32_t above = (box.y1 - box.y0 - devtoosy(metrics.height)) / 2;
    textclip inside = {box.x0 + 1, box.y0 + 1, box.x1 - 1, box.y1 - 1};
    plottextx(SAMPLETEXT, static_cast<int32_t>(strlen(SAMPLETEXT)), TEXTOSUNITS, box.x0 + TEXTLEFT,
              box.y1 - above - devtoosy(metrics.ascent), &inside, nullptr);
}

// The frame comes last: a clip is exact to a pixel only where pixels are no larger
// than OS units.
errorblock *fontpaint(const osbox &box, const fontrecord *record, const sampleset &set)
{
    boxfill(box, *set.background);
    fonthandle font;
    errorblock *err = fontfind(record, &font);
    if (err) return err;
    fontset(font, FONTCLEAR, *set.text, 0);
    fontalign(0);
    textinside(box);
    fontlose(font);
    setcolour(FRAMECOLOUR);
    return hollowbox(box.x0, box.y0, box.x1 - box.x0, box.y1 - box.y0);
}

errorblock *samplepaint(window self, const samplerow &row, const sampleset &set)
{
    osbox box;
    errorblock *err = iconbox(self, row.sample, &box);
    if (err) return err;
    if (row.font) return fontpaint(box, row.font, set);
    boxfill(box, *row.colour);
    return nullptr;
}

// The samples of fonts are in colours of other rows.
errorblock *allredraw(window self, const sampleset &set)
{
    errorblock *err = nullptr;
    for (const samplerow &row : set.rows) {
        osbox box;
        if (!err) err = iconbox(self, row.sample, &box);
        if (!err) err = forceredraw(self, box.x0, box.y0, box.x1, box.y1);
    }
    return err;
}

errorblock *rowspaint(const redrawrecord &r, intptr_t data)
{
    const sampleset &set = *reinterpret_cast<const sampleset *>(data);
    errorblock *err = nullptr;
    for (const samplerow &row : set.rows)
        if (!err) err = samplepaint(r.self, row, set);
    return err;
}

} // namespace

errorblock *samplespaint(window self, const sampleset &set)
{
    return redrawwith(self, rowspaint, reinterpret_cast<intptr_t>(&set));
}

errorblock *sampleschoose(window self, const sampleset &set, const mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    for (const samplerow &row : set.rows) {
        if (row.sample != mouse->icon && row.button != mouse->icon) continue;
        int32_t result = 0;
        errorblock *err = row.font ? choosefont(self, 0, row.font, &result)
                                   : choosecolour(self, 0, row.colour, &result);
        return !err && (result & CHOSEN) ? allredraw(self, set) : err;
    }
    return nullptr;
}

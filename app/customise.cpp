#include "app/customise.h"

#include "app/mainwindow.h"
#include "app/numberfield.h"
#include "app/samples.h"
#include "desktop/dialogs.h"
#include "desktop/icons.h"
#include "grid/grid.h"
#include "grid/gridsettings.h"
#include "resources/identifiers.h"

#include <iterator>

namespace
{

struct {
    window self, owner;   // 0 while it isn't open
    int32_t kind;         // of the document that it was opened for
    gridsettings scratch; // what is shown
} dialog;

constexpr samplerow samplerows[] = {
    {CUSTOMGRIDSAMPLE, CUSTOMGRIDPICKER, &dialog.scratch.gridcolour, nullptr},
    {CUSTOMTEXTSAMPLE, CUSTOMTEXTPICKER, &dialog.scratch.textcolour, nullptr},
    {CUSTOMBACKSAMPLE, CUSTOMBACKPICKER, &dialog.scratch.backcolour, nullptr},
    {CUSTOMFONTSAMPLE, CUSTOMFONTPICKER, nullptr, &dialog.scratch.gridfont},
    {CUSTOMFILLSAMPLE, CUSTOMFILLPICKER, &dialog.scratch.fillcolour, nullptr},
    {CUSTOMCLUESAMPLE, CUSTOMCLUEPICKER, nullptr, &dialog.scratch.cluefont},
};

// A Wordsquare has the first rows only: no blocks and no numbers.
constexpr size_t ROWSWORDSQUARE = 4;

sampleset samples = {samplerows, &dialog.scratch.textcolour, &dialog.scratch.backcolour};

// The arrows go further down than what is taken.
constexpr numberfield SCALE = {CUSTOMSCALE, CUSTOMSCALEARROWS, 90, SQUARESCALEMIN, SQUARESCALEMAX};
constexpr numberfield LENGTH = {CUSTOMLENGTH, CUSTOMLENGTHARROWS, 1, 1, MINWORDMAX};

errorblock *customfill();
errorblock *customtake();
errorblock *customend();

constexpr dialogrecord customdialog = {
    .self = &dialog.self,
    .locked = &dialog.owner,
    .number = TEMPLATECUSTOM,
    .handlers =
        {
            {.redraw = samplesredraw<samples>},
            {.control = DIALOGOK, .press = customtake},
            {.control = DIALOGCANCEL, .press = customend},
            {.click = samplesclick<samples>},
            {.closed = customend},
        },
    .fill = customfill,
    .focus = CUSTOMSCALE,
};

// Up and down are where a word runs to, left and right where it comes from.
struct directionrow {
    int32_t box;
    uint32_t bit;
};
const directionrow directions[] = {
    {CUSTOMLEFT, 1}, {CUSTOMDOWNLEFT, 2}, {CUSTOMUPLEFT, 4},     {CUSTOMDOWN, 8},
    {CUSTOMUP, 16},  {CUSTOMRIGHT, 32},   {CUSTOMDOWNRIGHT, 64}, {CUSTOMUPRIGHT, 128},
};

errorblock *makingshow()
{
    const gridsettings &shown = dialog.scratch;
    errorblock *err = numbershow(dialog.self, LENGTH, shown.minwordlength);
    if (!err) err = seticonselected(dialog.self, CUSTOMSOLUTIONS, shown.showsolutions != 0);
    for (const directionrow &row : directions)
        if (!err)
            err = seticonselected(dialog.self, row.box, (shown.filldirections & row.bit) != 0);
    return err;
}

errorblock *makingtake()
{
    gridsettings &taken = dialog.scratch;
    errorblock *err = numbertake(dialog.self, LENGTH, &taken.minwordlength);
    bool on;
    if (!err) err = iconselected(dialog.self, CUSTOMSOLUTIONS, &on);
    if (!err) taken.showsolutions = on;
    taken.filldirections = 0;
    for (const directionrow &row : directions) {
        if (!err) err = iconselected(dialog.self, row.box, &on);
        if (!err && on) taken.filldirections |= row.bit;
    }
    return err;
}

errorblock *customfill()
{
    dialog.kind = grid.kind;
    bool square = dialog.kind == GRIDWORDSQUARE;
    samples.rows = std::span(samplerows).first(square ? ROWSWORDSQUARE : std::size(samplerows));
    gridsettingsget(&dialog.scratch);
    errorblock *err = numbershow(dialog.self, SCALE, dialog.scratch.squarescale);
    return err || !square ? err : makingshow();
}

errorblock *customtake()
{
    errorblock *err = numbertake(dialog.self, SCALE, &dialog.scratch.squarescale);
    if (!err && dialog.kind == GRIDWORDSQUARE) err = makingtake();
    if (err) return err;
    err = customend();
    gridsettingsapply(dialog.scratch);
    return err;
}

errorblock *customend()
{
    return dialogend(customdialog);
}

} // namespace

errorblock *customiseopen()
{
    bool square = grid.kind == GRIDWORDSQUARE;
    return dialogopen(customdialog, mainwindow, square ? TEMPLATECUSTOMSQUARE : TEMPLATECUSTOM);
}

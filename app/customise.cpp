#include "app/customise.h"

#include "app/mainwindow.h"
#include "app/numberfield.h"
#include "app/samples.h"
#include "base/syserr.h"
#include "desktop/dialogs.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "grid/grid.h"
#include "grid/gridsettings.h"
#include "resources/identifiers.h"

namespace
{

// The arrows go further down than what is taken.
constexpr numberfield SCALE = {CUSTOMSCALE, CUSTOMSCALEARROWS, 90, SQUARESCALEMIN, SQUARESCALEMAX};
constexpr numberfield LENGTH = {CUSTOMLENGTH, CUSTOMLENGTHARROWS, 1, 1, MINWORDMAX};

struct {
    window self;          // 0 while it isn't open
    int32_t kind;         // of the document that it was opened for
    gridsettings scratch; // what is shown
} dialog;

// A Wordsquare has the first rows only: no blocks and no numbers.
const samplerow rows[] = {
    {CUSTOMGRIDSAMPLE, CUSTOMGRIDPICKER, &dialog.scratch.gridcolour, nullptr},
    {CUSTOMTEXTSAMPLE, CUSTOMTEXTPICKER, &dialog.scratch.textcolour, nullptr},
    {CUSTOMBACKSAMPLE, CUSTOMBACKPICKER, &dialog.scratch.backcolour, nullptr},
    {CUSTOMFONTSAMPLE, CUSTOMFONTPICKER, nullptr, &dialog.scratch.gridfont},
    {CUSTOMFILLSAMPLE, CUSTOMFILLPICKER, &dialog.scratch.fillcolour, nullptr},
    {CUSTOMCLUESAMPLE, CUSTOMCLUEPICKER, nullptr, &dialog.scratch.cluefont},
};
constexpr int32_t ROWSCROSSWORD = 6, ROWSWORDSQUARE = 4;

sampleset samples()
{
    int32_t count = dialog.kind == GRIDWORDSQUARE ? ROWSWORDSQUARE : ROWSCROSSWORD;
    return {rows, count, &dialog.scratch.textcolour, &dialog.scratch.backcolour};
}

// Up and down are where a word runs to, left and right where it comes from.
struct directionrow {
    int32_t box;
    uint32_t bit;
};
const directionrow directions[] = {
    {CUSTOMLEFT, 1}, {CUSTOMDOWNLEFT, 2}, {CUSTOMUPLEFT, 4},     {CUSTOMDOWN, 8},
    {CUSTOMUP, 16},  {CUSTOMRIGHT, 32},   {CUSTOMDOWNRIGHT, 64}, {CUSTOMUPRIGHT, 128},
};

errorblock *clicked(window, intptr_t, mouserecord *mouse);
errorblock *closed(window, intptr_t);

errorblock *painted(window self, intptr_t)
{
    return samplespaint(self, samples());
}

errorblock *handlersadd()
{
    errorblock *err = addredrawhandler(painted, dialog.self, 0);
    if (!err) err = addclickhandler(clicked, dialog.self, 0);
    if (!err) err = addclosehandler(closed, dialog.self, 0);
    return err;
}

errorblock *dialogend()
{
    remclosehandler(closed, dialog.self, 0);
    remclickhandler(clicked, dialog.self, 0);
    remredrawhandler(painted, dialog.self, 0);
    return removedialog(&dialog.self, mainwindow);
}

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
    int on;
    if (!err) err = iconselected(dialog.self, CUSTOMSOLUTIONS, &on);
    if (!err) taken.showsolutions = on;
    taken.filldirections = 0;
    for (const directionrow &row : directions) {
        if (!err) err = iconselected(dialog.self, row.box, &on);
        if (!err && on) taken.filldirections |= row.bit;
    }
    return err;
}

errorblock *settingstake()
{
    errorblock *err = numbertake(dialog.self, SCALE, &dialog.scratch.squarescale);
    if (!err && dialog.kind == GRIDWORDSQUARE) err = makingtake();
    if (err) return err;
    err = dialogend();
    gridsettingsapply(dialog.scratch);
    return err;
}

errorblock *clicked(window self, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    if (mouse->icon == DIALOGOK) return settingstake();
    if (mouse->icon == DIALOGCANCEL) return dialogend();
    return sampleschoose(self, samples(), static_cast<int32_t>(mouse->icon));
}

errorblock *closed(window, intptr_t)
{
    return dialogend();
}

} // namespace

errorblock *customiseopen()
{
    if (dialog.self) return raisewindow(dialog.self, 0, nullptr);
    bool square = grid.kind == GRIDWORDSQUARE;
    errorblock *err = createwindow(square ? TEMPLATECUSTOMSQUARE : TEMPLATECUSTOM, nullptr,
                                   &dialog.self, mainwindow);
    if (err) return err;
    dialog.kind = grid.kind;
    gridsettingsget(&dialog.scratch);
    err = handlersadd();
    if (!err) err = numbershow(dialog.self, SCALE, dialog.scratch.squarescale);
    if (!err && square) err = makingshow();
    if (!err) err = opencentred(dialog.self, 0);
    if (!err) err = caretatend(dialog.self, SCALE.field);
    if (!err) return enablewindow(mainwindow, 0);
    kepterror kept = keeperror(err);
    return firsterror(kept, dialogend());
}

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

namespace
{

constexpr int32_t TEMPLATECROSSWORD = 265, TEMPLATEWORDSQUARE = 269;
constexpr int32_t BUTTONOK = 1, BUTTONCANCEL = 2;
constexpr int32_t BOXSOLUTIONS = 1032;

// The arrows go further down than what is taken.
constexpr numberfield SCALE = {1007, 1015, 90, SQUARESCALEMIN, SQUARESCALEMAX};
constexpr numberfield LENGTH = {1008, 1016, 1, 1, MINWORDMAX};

struct {
    window self;          // 0 while it isn't open
    int32_t kind;         // of the document that it was opened for
    gridsettings scratch; // what is shown
} dialog;

// A Wordsquare has the first rows only: no blocks and no numbers.
const samplerow rows[] = {
    {1009, 1010, &dialog.scratch.gridcolour, nullptr},
    {1014, 1019, &dialog.scratch.textcolour, nullptr},
    {1012, 1020, &dialog.scratch.backcolour, nullptr},
    {1013, 1018, nullptr, &dialog.scratch.gridfont},
    {1011, 1017, &dialog.scratch.fillcolour, nullptr},
    {1016, 1021, nullptr, &dialog.scratch.cluefont},
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
    {1030, 1},  // Left
    {1034, 2},  // Down+Left
    {1033, 4},  // Up+Left
    {1029, 8},  // Down
    {1028, 16}, // Up
    {1031, 32}, // Right
    {1036, 64}, // Down+Right
    {1035, 128} // Up+Right
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
    if (!err) err = seticonselected(dialog.self, BOXSOLUTIONS, shown.showsolutions != 0);
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
    if (!err) err = iconselected(dialog.self, BOXSOLUTIONS, &on);
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
    if (mouse->icon == BUTTONOK) return settingstake();
    if (mouse->icon == BUTTONCANCEL) return dialogend();
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
    errorblock *err = createwindow(square ? TEMPLATEWORDSQUARE : TEMPLATECROSSWORD, nullptr,
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

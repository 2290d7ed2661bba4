#include "app/choiceswindow.h"

#include "app/choices.h"
#include "app/mainwindow.h"
#include "app/numberfield.h"
#include "app/samples.h"
#include "base/syserr.h"
#include "desktop/dialogs.h"
#include "dict/wordview.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"

namespace
{

struct {
    window self, owner;    // 0 while it isn't open
    choicesrecord scratch; // what is shown
} dialog;

constexpr samplerow samplerows[] = {
    {CHOICESCURSORSAMPLE, CHOICESCURSORPICKER, &dialog.scratch.cursorcolour, nullptr},
    {CHOICESSELECTEDSAMPLE, CHOICESSELECTEDPICKER, &dialog.scratch.selectedcolour, nullptr},
    {CHOICESDICTSAMPLE, CHOICESDICTPICKER, nullptr, &dialog.scratch.dictfont},
    {CHOICESSOLSAMPLE, CHOICESSOLPICKER, nullptr, &dialog.scratch.solfont},
};

constexpr uint32_t BLACK = 0, WHITE = 0xFFFFFF00;
constexpr sampleset samples = {samplerows, &BLACK, &WHITE};

constexpr numberfield LIMIT = {CHOICESMAX, CHOICESMAXARROWS, MAXSOLUTIONSMIN, MAXSOLUTIONSMIN,
                               MAXSOLUTIONSMAX};

errorblock *choicesfill();
errorblock *choicestake(bool save);
errorblock *choicesend();

constexpr dialogrecord choicesdialog = {
    .self = &dialog.self,
    .locked = &dialog.owner,
    .number = TEMPLATECHOICES,
    .handlers =
        {
            {.redraw = samplesredraw<samples>},
            {.control = DIALOGOK, .press = calls<choicestake, false>},
            {.control = CHOICESSAVE, .press = calls<choicestake, true>},
            {.control = DIALOGCANCEL, .press = choicesend},
            {.click = samplesclick<samples>},
            {.closed = choicesend},
        },
    .fill = choicesfill,
    .focus = CHOICESMAX,
};

errorblock *choicesfill()
{
    choicesget(&dialog.scratch);
    return numbershow(dialog.self, LIMIT, dialog.scratch.maxsolutions);
}

// Everything that goes by the choices is measured and drawn anew.
errorblock *choicesapply()
{
    metricsupdate();
    solrelayout();
    solutionsrefresh();
    gridredraw();
    return wordviewsrefresh();
}

// The split is the splitter's: it is where it is now.
errorblock *choicestake(bool save)
{
    errorblock *err = numbertake(dialog.self, LIMIT, &dialog.scratch.maxsolutions);
    if (err) return err;
    dialog.scratch.splitfraction = grid.splitfraction;
    choicesset(dialog.scratch);
    kepterror kept = keeperror(choicesapply());
    if (save) kept = keeperror(firsterror(kept, choicessave()));
    return firsterror(kept, choicesend());
}

errorblock *choicesend()
{
    return dialogend(choicesdialog);
}

} // namespace

errorblock *choicesopen()
{
    return dialogopen(choicesdialog, mainwindow);
}

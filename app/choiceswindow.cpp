#include "app/choiceswindow.h"

#include "app/choices.h"
#include "app/mainwindow.h"
#include "app/numberfield.h"
#include "app/samples.h"
#include "base/syserr.h"
#include "desktop/dialogs.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "dict/wordview.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"

#include <iterator>

namespace
{

constexpr numberfield LIMIT = {CHOICESMAX, CHOICESMAXARROWS, MAXSOLUTIONSMIN, MAXSOLUTIONSMIN,
                               MAXSOLUTIONSMAX};
constexpr uint32_t BLACK = 0, WHITE = 0xFFFFFF00;

struct {
    window self;           // 0 while it isn't open
    choicesrecord scratch; // what is shown
} dialog;

const samplerow rows[] = {
    {CHOICESCURSORSAMPLE, CHOICESCURSORPICKER, &dialog.scratch.cursorcolour, nullptr},
    {CHOICESSELECTEDSAMPLE, CHOICESSELECTEDPICKER, &dialog.scratch.selectedcolour, nullptr},
    {CHOICESDICTSAMPLE, CHOICESDICTPICKER, nullptr, &dialog.scratch.dictfont},
    {CHOICESSOLSAMPLE, CHOICESSOLPICKER, nullptr, &dialog.scratch.solfont},
};
const sampleset samples = {rows, std::size(rows), &BLACK, &WHITE};

errorblock *clicked(window, intptr_t, mouserecord *mouse);
errorblock *closed(window, intptr_t);

errorblock *painted(window self, intptr_t)
{
    return samplespaint(self, samples);
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
    return firsterror(kept, dialogend());
}

errorblock *clicked(window self, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    switch (mouse->icon) {
    case DIALOGOK:
        return choicestake(false);
    case CHOICESSAVE:
        return choicestake(true);
    case DIALOGCANCEL:
        return dialogend();
    }
    return sampleschoose(self, samples, static_cast<int32_t>(mouse->icon));
}

errorblock *closed(window, intptr_t)
{
    return dialogend();
}

} // namespace

errorblock *choicesopen()
{
    if (dialog.self) return raisewindow(dialog.self, 0, nullptr);
    errorblock *err = createwindow(TEMPLATECHOICES, nullptr, &dialog.self, mainwindow);
    if (err) return err;
    choicesget(&dialog.scratch);
    err = handlersadd();
    if (!err) err = numbershow(dialog.self, LIMIT, dialog.scratch.maxsolutions);
    if (!err) err = opencentred(dialog.self, 0);
    if (!err) err = caretatend(dialog.self, LIMIT.field);
    if (!err) return enablewindow(mainwindow, 0);
    kepterror kept = keeperror(err);
    return firsterror(kept, dialogend());
}

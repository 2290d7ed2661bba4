#include "grid/gridsizewindow.h"

#include "base/numbers.h"
#include "base/syserr.h"
#include "desktop/dialogs.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "grid/grid.h"
#include "grid/gridshape.h"
#include "resources/identifiers.h"

namespace
{

// The arrows go one further than a grid can be; that number is then not taken.
constexpr int32_t ARROWSLOW = 2, ARROWSHIGH = 128;

struct {
    window self; // 0 while it isn't open
    window owner;
} dialog;

errorblock *clicked(window, intptr_t, mouserecord *mouse);
errorblock *closed(window, intptr_t);

errorblock *handlersadd()
{
    errorblock *err = addclickhandler(clicked, dialog.self, 0);
    if (!err) err = addclosehandler(closed, dialog.self, 0);
    return err;
}

errorblock *dialogend()
{
    remclosehandler(closed, dialog.self, 0);
    remclickhandler(clicked, dialog.self, 0);
    return removedialog(&dialog.self, dialog.owner);
}

errorblock *sizeread(int32_t field, int32_t now, int32_t *size)
{
    char text[16];
    errorblock *err = copyicontext(dialog.self, field, text, sizeof text);
    int32_t number = err ? now : numberparse(text, nullptr);
    *size = number < ARROWSLOW || number > GRIDMAX ? now : number;
    return err;
}

errorblock *sizetake()
{
    int32_t width, height;
    errorblock *err = sizeread(SIZEWIDTH, grid.width, &width);
    if (!err) err = sizeread(SIZEHEIGHT, grid.height, &height);
    if (err) return err;
    err = dialogend();
    gridsize(width, height);
    return err;
}

errorblock *clicked(window, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    if (mouse->icon == DIALOGOK) return sizetake();
    return mouse->icon == DIALOGCANCEL ? dialogend() : nullptr;
}

errorblock *closed(window, intptr_t)
{
    return dialogend();
}

errorblock *sizeshow(int32_t field, int32_t arrows, int32_t size)
{
    errorblock *err = seticonrange(dialog.self, arrows, ARROWSLOW, ARROWSHIGH);
    if (!err) err = seticontextf(dialog.self, field, "%d", size);
    return err;
}

} // namespace

errorblock *gridsizeopen(window owner)
{
    if (dialog.self) return raisewindow(dialog.self, 0, nullptr);
    errorblock *err = createwindow(TEMPLATEGRIDSIZE, nullptr, &dialog.self, owner);
    if (err) return err;
    dialog.owner = owner;
    err = handlersadd();
    if (!err) err = sizeshow(SIZEWIDTH, SIZEWIDTHARROWS, grid.width);
    if (!err) err = sizeshow(SIZEHEIGHT, SIZEHEIGHTARROWS, grid.height);
    if (!err) err = opencentred(dialog.self, 0);
    if (!err) err = focusnext(dialog.self, 0, 0);
    if (!err) return enablewindow(owner, 0);
    kepterror kept = keeperror(err);
    dialogend();
    return firsterror(kept, nullptr);
}

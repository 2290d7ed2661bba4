// The main window: a menu bar, and the log as a pane that fills it.
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/menus.h"
#include "desktop/poll.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

window demowindow;

namespace
{

errorblock *closed(window, intptr_t)
{
    postquit(0);
    return nullptr;
}

errorblock *opened(window self, intptr_t, openrecord *open)
{
    return open->state.wflags & STATEMINIMISED ? nullptr : logplace(self);
}

errorblock *handlersadd(window w)
{
    errorblock *err = addclosehandler(closed, w, 0);
    if (!err) err = addopenhandler(opened, w, 0);
    return err;
}

void handlersremove(window w)
{
    remopenhandler(opened, w, 0);
    remclosehandler(closed, w, 0);
}

} // namespace

errorblock *demoopen()
{
    errorblock *err = createwindow(TEMPLATEDEMO, "{DEMO}", &demowindow, 0);
    if (!err) err = attachmenu(demowindow, MENUBAR);
    if (!err) err = logopen(demowindow);
    if (!err) err = handlersadd(demowindow);
    if (!err) err = opencentred(demowindow, 0);
    if (!err) err = logplace(demowindow);
    if (!err) err = setactive(demowindow);
    if (!err) logline("{WELCOME}");
    return err;
}

// The parts first: some have the main window for a parent.
void demoend()
{
    workend();
    talkend();
    clipend();
    keysend();
    dragsend();
    sheetend();
    fieldsend();
    drawnend();
    logend();
    if (!demowindow) return;
    handlersremove(demowindow);
    removewindow(&demowindow);
}

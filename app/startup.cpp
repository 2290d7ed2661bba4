#include "app/startup.h"

#include "app/apperrors.h"
#include "app/choices.h"
#include "app/filetypes.h"
#include "app/mainwindow.h"
#include "app/stages.h"
#include "base/boxes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "desktop/message.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridfile.h"

static filetypenode filetypelink;

errorblock *loadappresources(const char *directory)
{
    errorblock *err = apperrors();
    if (!err) err = linktemplates(directory);
    if (!err) err = linkmenus();
    if (!err) err = addfiletypes(filetypes, &filetypelink);
    return err;
}

errorblock *initdata()
{
    errorblock *err = dictstart();
    if (err) return err;
    gridreset();
    solutionsreset();
    err = choicesload();
    if (!err) err = gridloaddefault();
    return err;
}

static bool leavesgrid()
{
    constexpr uint32_t flags = 0x10002; // an exclamation, with Yes and No
    int unsaved = gridsunsaved();
    if (unsaved == 0) return true;
    int answer;
    if (unsaved == 1)
        askbox(mainwindow, flags, &answer, "{FS10}");
    else // a program of more documents than one would count them
        askbox(mainwindow, flags, &answer, "%d {FS09}", unsaved);
    return answer == ASKYES;
}

// Words that can't be saved keep the user here: they are in memory alone.
static bool leaveswords()
{
    constexpr uint32_t flags = 0x10003; // an exclamation, with Yes, No and Cancel
    if (!dictanychanges()) return true;
    int answer;
    askbox(mainwindow, flags, &answer, "{SPKEEP}");
    if (answer == ASKNO) return true;
    if (answer != ASKYES) return false;
    errorblock *err = dictsavechanges();
    reporterror(err);
    return !err;
}

bool quitquery()
{
    return leavesgrid() && leaveswords() ? 0 : 1;
}

void quittask()
{
    sendmessage(TASKEND, 0, 0);
    modeinfoend();
    flex_end();
    leave(0);
}

errorblock *quithandler(intptr_t *, bool *)
{
    quittask();
}

void appresourcesreset()
{
    remfiletypes(&filetypelink);
}

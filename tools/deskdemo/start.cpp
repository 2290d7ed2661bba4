// The order in which a program of the library starts, and its end.
#include "base/boxes.h"
#include "base/flex.h"
#include "base/messages.h"
#include "desktop/clipboard.h"
#include "desktop/dde.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/stages.h"
#include "desktop/task.h"
#include "desktop/templates.h"
#include "tools/deskdemo/deskdemo.h"

#include <clocale>

namespace
{

templaterow templates[] = {
    {TEMPLATEDEMO, 0, nullptr, "demo"},
    {TEMPLATELOG, 0, nullptr, "demolog"},
    {TEMPLATEDRAWN, 0, nullptr, "demodrawn"},
    {TEMPLATEFIELDS, 0, nullptr, "demofields"},
    {TEMPLATESHEET, 0, nullptr, "demosheet"},
    {TEMPLATEDRAGS, 0, nullptr, "demodrags"},
    {TEMPLATEKEYS, 0, nullptr, "demokeys"},
    {TEMPLATECLIP, 0, nullptr, "democlip"},
    {TEMPLATETALK, 0, nullptr, "demotalk"},
    {TEMPLATEWORK, 0, nullptr, "demowork"},
    {0, 0, nullptr, nullptr},
};

templatelink link;

// What was copied outlives the program: the clipboard's end renders it, and so
// comes before the windows go.
errorblock *quit(intptr_t *, int *)
{
    clipboardend();
    demoend();
    ddeend();
    sendmessage(TASKEND, 0, 0);
    modeinfoend();
    flex_end();
    leave(0);
}

errorblock *services()
{
    errorblock *err = addbroadcasthandler(quit, BROADCASTQUIT);
    if (!err) err = clipboardstart(0);
    if (!err) err = ddestart("DeskDemo");
    return err;
}

} // namespace

errorblock *demostart()
{
    std::setlocale(LC_ALL, ".1252"); // texts have one code page, whatever the system's
    errorblock *err = starttask("DeskDemo", "DeskDemo", "!Quillmere", nullptr, 0, nullptr);
    if (!err) err = addtrans(nullptr, "Demo.txt");
    if (!err) err = addtemplates(nullptr, "Templates", templates, &link);
    if (!err) err = demomenus();
    if (!err) err = services();
    if (!err) sendmessage(TASKREADY, 0, 0);
    if (!err) err = demoopen();
    return err;
}

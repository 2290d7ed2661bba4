#include "app/main.h"

#include "app/mainwindow.h"
#include "app/startup.h"
#include "base/boxes.h"
#include "base/paths.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"
#include "grid/gridfile.h"

#include <clocale>

// What fails in here is missing afterwards, and nobody is told: a program with
// a broken default grid or without dictionaries is still of use.
static void startapplication()
{
    setendquery(quitquery);
    errorblock *err = loadappresources(nullptr);
    if (!err) err = addbroadcasthandler(quithandler, BROADCASTQUIT);
    if (!err) initdata();
}

// One word is a grid, whatever its extension says; of several, none is meant.
// A box for files changes the current folder, and a save later must still find the
// file that was opened.
static errorblock *namedopen(const char *name)
{
    char path[PATHSIZE];
    errorblock *err = pathabsolute(name, path, sizeof path);
    return err ? err : gridopened(path, FILETYPEGRID);
}

int mainroutine(int count, char **words)
{
    std::setlocale(LC_ALL, ".1252"); // texts have one code page, whatever the system's
    errorblock *err = starttask("Quillmere", "Quillmere", "!Quillmere", nullptr, 0, nullptr);
    if (err) {
        reporterror(err);
        return 0;
    }

    startapplication();
    sendmessage(TASKREADY, 0, 0);
    err = openmainwindow();
    if (err) {
        reporterror(err);
        quittask();
    }
    if (count == 2) reporterror(namedopen(words[1]));
    runtask();
}

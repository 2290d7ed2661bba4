#include "app/main.h"

#include "app/mainwindow.h"
#include "app/startup.h"
#include "base/boxes.h"
#include "desktop/handlers.h"
#include "desktop/message.h"
#include "desktop/task.h"
#include "grid/gridfile.h"

#include <clocale>

// What fails in here is missing afterwards, and nobody is told: a program with
// a broken default grid or without dictionaries is still of use.
static void startapplication()
{
    errorblock *err = loadappresources(nullptr);
    if (!err) err = addbroadcasthandler(quithandler, BROADCASTQUIT);
    if (!err) initdata();
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
    // One word is a grid, whatever its extension says; of several, none is meant.
    if (count == 2) reporterror(gridopened(words[1], FILETYPEGRID));
    runtask();
}

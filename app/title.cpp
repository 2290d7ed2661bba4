// The title of the main window.
#include "app/mainwindow.h"
#include "base/boxes.h"
#include "base/paths.h"
#include "base/text.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

void settitlefromgrid()
{
    if (!mainwindow) return;
    const char *star = gridsunsaved() ? "*" : "";
    char title[PATHSIZE + 16];
    if (grid.filename[0])
        xzsnprintf(sizeof title, nullptr, title, "{NAME} - %s%s", leafname(grid.filename), star);
    else
        xzsnprintf(sizeof title, nullptr, title, "{NAME}%s", star);
    reporterror(settitle(mainwindow, title));
}

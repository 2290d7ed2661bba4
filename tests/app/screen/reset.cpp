#include "app/mainwindow.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/platformfault.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "dict/wordtables.h"
#include "find/spellwindow.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/inside.h"
#include "tests/support/runner.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace
{

// An empty folder, so that no test meets the dictionaries of another.
void nodictionaries()
{
    std::string folder = scratchfolder() + "\\none";
    std::filesystem::create_directories(folder);
    dictionariesdrop(folder);
}

void begin()
{
    nodictionaries();
    if (errorblock *err = programbegin()) {
        std::printf("The program doesn't start: %s\n", err->text);
        std::exit(3);
    }
    drivepump();
    blocksatrest = flexblocks();
}

// Dialogs that a failed test has left, and those that stay open by nature. What
// they would ask about is gone.
void dialogsclose()
{
    for (dictrec &record : dicts)
        record.changed = false;
    for (window w : {editor.self, check.self, drivefind("Choices"), drivefind("Customisation"),
                     drivefind("Grid Size"), drivefind("Create New Dictionary")})
        if (w) SendMessageA(handle(w), WM_CLOSE, 0, 0);
}

} // namespace

void modulesreset()
{
    static bool started;
    flexfailafter(-1);
    platformfault = {};
    tablesoff = false;
    if (!started) {
        started = true;
        return begin();
    }
    stoprequest();
    drivepump();
    dialogsclose();
    nodictionaries();
    dictmenubuild();
    documentreset();
    for (const char *own : {"Default", "Choices"})
        std::filesystem::remove(place(own));
    mainwindowreset();
    drivefront(mainwindow);
    drivepump();
}

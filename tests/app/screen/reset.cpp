#include "app/commands.h"
#include "app/longwork.h"
#include "app/mainwindow.h"
#include "app/startup.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/platformfault.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/task.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "dict/wordtables.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "find/spellwindow.h"
#include "grid/appearance.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/inside.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

// Lines go nowhere: this process's own console is where the results are.
void tracewrite(const char *, int) {}
void tracewritew(const wchar_t *, int) {}

namespace
{

bool started;
windowstaterecord firststate;

// An empty one, so that no test meets the dictionaries of another.
void nodictionaries()
{
    static const std::string folder = [] {
        std::string made = scratchfolder() + "\\none";
        std::filesystem::create_directories(made);
        return made;
    }();
    for (dictrec &record : dicts) {
        dictfree(&record.dict);
        record = {};
    }
    ndicts = 0;
    dictset = {};
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
}

void begin()
{
    std::setlocale(LC_ALL, ".1252");
    taskinstance = reinterpret_cast<intptr_t>(GetModuleHandleA(nullptr));
    nodictionaries();
    errorblock *err = starttask("Quillmere", "Quillmere", "!Quillmere", nullptr, 0, nullptr);
    if (!err) err = loadappresources(nullptr);
    if (!err) err = initdata();
    if (!err) err = openmainwindow();
    if (!err) err = windowstate(mainwindow, &firststate);
    if (err) {
        std::printf("The program doesn't start: %s\n", err->text);
        std::exit(3);
    }
}

// Dialogs that a failed test has left, and those that stay open by nature. What
// they would ask about is gone.
void dialogsclose()
{
    for (dictrec &record : dicts)
        record.changed = false;
    for (window w : {editor.self, check.self, drivefind("Choices"), drivefind("Customisation"),
                     drivefind("Grid Size"), drivefind("Create New Dictionary")})
        if (w) SendMessageA(reinterpret_cast<HWND>(w), WM_CLOSE, 0, 0);
}

} // namespace

void documentreset()
{
    solreset();
    solutionsreset();
    gridreset();
    gridunchanged();
    metricsupdate();
    gridkindapply(GRIDCROSSWORD);
    gridextent();
    gridredraw();
    InvalidateRect(handle(solutionswindow), nullptr, TRUE);
    settitlefromgrid();
}

void modulesreset()
{
    flexfailafter(-1);
    platformfault = {};
    tablesoff = false;
    if (!started) {
        started = true;
        begin();
        drivepump();
        blocksatrest = flexblocks();
        return;
    }
    stoprequest();
    drivepump();
    dialogsclose();
    nodictionaries();
    dictmenubuild();
    documentreset();
    openwindow(&firststate);
    for (const char *own : {"Default", "Choices"})
        std::filesystem::remove(place(own));
    setactive(mainwindow);
    drivefront(mainwindow);
    drivepump();
}

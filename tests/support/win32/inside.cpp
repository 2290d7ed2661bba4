#include "tests/support/win32/inside.h"

#include "app/choices.h"
#include "app/mainwindow.h"
#include "app/startup.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/task.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "grid/appearance.h"
#include "grid/gridwindow.h"
#include "tests/support/driver.h"

#include <windows.h>

#include <atomic>
#include <clocale>

void tracewrite(const char *, int) {}
void tracewritew(const wchar_t *, int) {}

namespace
{

constexpr UINT ASKED = WM_APP, TOLD = WM_APP + 1;

windowstaterecord firststate;
choicesrecord firstchoices;
std::atomic<int> ticks;
HWND ear; // on the program's thread

// A timer's message comes only when no other is left: after two of them, all input has
// been dealt with, by whichever loop fetches messages.
LRESULT CALLBACK hear(HWND h, UINT message, WPARAM w, LPARAM l)
{
    auto *work = reinterpret_cast<std::function<void()> *>(l);
    if (message == WM_TIMER) ticks++;
    if (message == ASKED || message == TOLD) (*work)();
    if (message == TOLD) delete work;
    bool known = message == WM_TIMER || message == ASKED || message == TOLD;
    return known ? 0 : DefWindowProcA(h, message, w, l);
}

void tickpause(int)
{
    constexpr DWORD STUCK = 2000; // a search that doesn't poll, say
    int then = ticks + 2;
    for (DWORD start = GetTickCount(); ticks < then && GetTickCount() - start < STUCK;)
        Sleep(2);
}

} // namespace

errorblock *programbegin()
{
    std::setlocale(LC_ALL, ".1252");
    taskinstance = reinterpret_cast<intptr_t>(GetModuleHandleA(nullptr));
    errorblock *err = starttask("Quillmere", "Quillmere", "!Quillmere", nullptr, 0, nullptr);
    if (!err) err = loadappresources(nullptr);
    if (!err) err = initdata();
    if (!err) err = openmainwindow();
    if (!err) err = windowstate(mainwindow, &firststate);
    choicesget(&firstchoices);
    return err;
}

void documentreset()
{
    solreset();
    solutionsreset();
    appearancereset();
    gridreset();
    gridunchanged();
    choicesset(firstchoices);
    metricsupdate();
    gridkindapply(GRIDCROSSWORD);
    gridextent();
    gridredraw();
    InvalidateRect(reinterpret_cast<HWND>(solutionswindow), nullptr, TRUE);
    settitlefromgrid();
}

void dictionariesdrop(const std::string &folder)
{
    for (dictrec &record : dicts) {
        dictfree(&record.dict);
        record = {};
    }
    ndicts = 0;
    dictset = {};
    strcopyn(dictdirectory, folder.c_str(), sizeof dictdirectory);
}

void mainwindowreset()
{
    openwindow(&firststate);
    setactive(mainwindow);
}

void userhands(bool on)
{
    constexpr UINT TICK = 10; // milliseconds
    static const auto before = drivepause;
    if (!ear) {
        ear = CreateWindowExA(0, "Static", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                              nullptr);
        SetWindowLongPtrA(ear, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(hear));
        SetTimer(ear, 1, TICK, nullptr);
    }
    drivepause = on ? tickpause : before;
}

void inprogram(const std::function<void()> &work)
{
    SendMessageA(ear, ASKED, 0, reinterpret_cast<LPARAM>(&work));
}

void later(const std::function<void()> &work)
{
    PostMessageA(ear, TOLD, 0, reinterpret_cast<LPARAM>(new std::function<void()>(work)));
}

// The state between rounds, in which everything that was opened is closed: what
// the program holds then is what it held at first.
#include "app/mainwindow.h"
#include "base/boxes.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/mouse.h"
#include "desktop/poll.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "dict/dictset.h"
#include "resources/identifiers.h"
#include "tests/app/random/random.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

namespace
{

// What is made once and kept (contexts, fonts, libraries of the system) has been
// made after some rounds: from then on there may be a little more, and not more for
// ever.
constexpr uint32_t WARMROUNDS = 3;
constexpr uint32_t GDISLACK = 60, USERSLACK = 25, HANDLESLACK = 60;

struct holdings {
    int32_t flexblocks, handlers, windows, nulls, timers, nesting, boxes;
    drivecounts system;
};

holdings first;
drivecounts warm; // the highest of the first rounds
uint32_t rounds;

int32_t windowsnow()
{
    int32_t count = 0;
    for (const wdata *record = wdatas; record; record = record->next)
        count++;
    return count;
}

holdings holdingsnow()
{
    return {flexblocks(), blockcount(),  windowsnow(), nullcount(),
            timedcount(), pollnesting(), boxdepth(),   drivecountnow()};
}

// A question that closing asks is answered as any.
void windowsclose()
{
    for (int tries = 0; tries < 40; tries++) {
        while (playon()) {
        }
        // As its button does it: Wine brings the dialogs back for no other call.
        HWND main = handle(mainwindow);
        if (IsIconic(main) || IsZoomed(main)) PostMessageA(main, WM_SYSCOMMAND, SC_RESTORE, 0);
        Sleep(50);
        std::vector<window> tops = topwindows();
        if (tops.size() == 1 && tops[0] == mainwindow) return;
        for (window top : tops)
            if (drivecontrol(top, QUESTIONTEXT))
                click(pick(controls(top)));
            else if (top != mainwindow)
                PostMessageA(handle(top), WM_CLOSE, 0, 0);
        drivepause(0);
    }
    for (window top : topwindows())
        note("still open: \"%s\"", drivetext(top).c_str());
    fault("windows that don't close");
}

void bounded(const char *what, uint32_t now, uint32_t before, uint32_t slack)
{
    if (now > before + slack) fault("%s grow: %u, and at first %u", what, now, before);
}

void systemcompare(const drivecounts &now)
{
    if (rounds++ < WARMROUNDS) {
        warm = {std::max(warm.gdiobjects, now.gdiobjects),
                std::max(warm.userobjects, now.userobjects), std::max(warm.handles, now.handles)};
        return;
    }
    bounded("GDI objects", now.gdiobjects, warm.gdiobjects, GDISLACK);
    bounded("user objects", now.userobjects, warm.userobjects, USERSLACK);
    // Wine's boxes for files keep a key of the registry for each file chosen.
    bounded("handles", now.handles, warm.handles, HANDLESLACK + fileschosen);
}

void everythingdrop()
{
    driverelease(DRIVELEFT);
    driverelease(DRIVERIGHT);
    windowsclose();
    inprogram([] {
        if (OpenClipboard(nullptr)) {
            EmptyClipboard();
            CloseClipboard();
        }
        documentreset();
        scratchfill();
        dictstart();
        mainwindowreset();
    });
    Sleep(150); // searches that were about to begin
    while (playon()) {
    }
    inprogram(documentreset);
}

} // namespace

void rest()
{
    note("rest");
    everythingdrop();
    holdings now;
    inprogram([&] { now = holdingsnow(); });
    if (!steps) first = now; // after the start
    std::printf("%8llu steps, %u boxes, %u ends; blocks %d, handlers %d, windows %d; "
                "GDI %u, user %u, handles %u\n",
                static_cast<unsigned long long>(steps), boxesseen, quits,
                static_cast<int>(now.flexblocks), static_cast<int>(now.handlers),
                static_cast<int>(now.windows), now.system.gdiobjects, now.system.userobjects,
                now.system.handles);
    std::fflush(stdout);
    const struct {
        const char *what;
        int32_t now, before;
    } counts[] = {
        {"windows", now.windows, first.windows},
        {"blocks", now.flexblocks, first.flexblocks},
        {"handlers", now.handlers, first.handlers},
        {"null handlers", now.nulls, first.nulls},
        {"timed calls", now.timers, first.timers},
        {"boxes", now.boxes, first.boxes},
        {"levels of the poll", now.nesting, first.nesting},
    };
    for (const auto &[what, is, was] : counts)
        if (is != was)
            fault("%s are left behind: %d, and at first %d", what, static_cast<int>(is),
                  static_cast<int>(was));
    if (mousestate() != MOUSEIDLE) fault("a press or a drag goes on");
    systemcompare(now.system);
}

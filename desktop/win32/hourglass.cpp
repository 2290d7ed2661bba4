#include "desktop/hourglass.h"

#include "base/trace.h"
#include "desktop/stages.h"

#include <windows.h>

#include <cstdint>

struct hourglassrecord {
    HCURSOR wait, arrow, help; // the system's own, never freed
    int32_t count;
    bool helping; // help stands for wait
};
static hourglassrecord hourglass;

errorblock *hourglassinit()
{
    trace("##### hourglass init #####");
    hourglass = {LoadCursorA(nullptr, IDC_WAIT), LoadCursorA(nullptr, IDC_ARROW),
                 LoadCursorA(nullptr, IDC_HELP), 0, false};
    return nullptr;
}

static void setbusy()
{
    HCURSOR busy = hourglass.helping ? hourglass.help : hourglass.wait;
    trace("hchour %x", static_cast<unsigned>(reinterpret_cast<uintptr_t>(busy)));
    SetCursor(busy);
}

void hourglasson()
{
    hourglass.count++;
    trace("hourglass++ %d", static_cast<int>(hourglass.count));
    setbusy();
}

void hourglassoff()
{
    if (hourglass.count > 0) hourglass.count--;
    trace("hourglass-- %d", static_cast<int>(hourglass.count));
    if (hourglass.count == 0) SetCursor(hourglass.arrow);
}

int hourglasshelp(bool on)
{
    int old = hourglass.helping;
    hourglass.helping = on;
    if (hourglass.count > 0 && hourglass.helping != static_cast<bool>(old)) setbusy();
    return old;
}

bool hourglassforce()
{
    if (hourglass.count <= 0) return false;
    trace("forcing hour");
    setbusy();
    return true;
}

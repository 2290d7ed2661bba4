#include "tests/desktop/win32/eventwindow.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/mouse.h"
#include "desktop/stages.h"
#include "desktop/templates.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/taskwindows.h"

#include <doctest/doctest.h>

#include <cstdarg>
#include <cstdio>

namespace
{

std::string heard;

templaterow templates[] = {
    {EVENTCONTROLS, 0, nullptr, "EventControls"},
    {EVENTPLAIN, 0, nullptr, "EventPlain"},
    {EVENTSCROLLS, 0, nullptr, "EventScrolls"},
    {EVENTICONS, 0, nullptr, "EventIcons"},
    {0, 0, nullptr, nullptr},
};
templatelink link;

} // namespace

void said(const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    heard += text;
}

std::string taken()
{
    std::string text;
    text.swap(heard);
    return text;
}

eventlibrary::eventlibrary()
{
    REQUIRE_FALSE(inittemp());
    REQUIRE_FALSE(blockstart());
    REQUIRE_FALSE(addtemplates(nullptr, "", templates, &link));
    setdragfunctions(0, 0, nullptr);
    heard.clear();
}

eventlibrary::~eventlibrary()
{
    drivepump();
    CHECK(wdatas == nullptr);
    CHECK(blockcount() == 0);
    CHECK(timedcount() == 0);
    CHECK(nullcount() == 0);
    CHECK(mousestate() == MOUSEIDLE);
    CHECK(GetCapture() == nullptr);
    taskwindowsend();
    remtemplates(&link);
    blockend();
}

void moveto(driveplace place)
{
    drivemove(place.x, place.y);
}

void pointat(window w, int x, int y)
{
    moveto(driveclient(w, x, y));
}

window eventopen(int32_t number, int left, window parent)
{
    constexpr int TOP = 150, WIDTH = 300, HEIGHT = 200;
    window w = 0;
    REQUIRE_FALSE(createchild(number, &w, parent));
    taskopen(w, left, TOP, WIDTH, HEIGHT, BEHINDTOP);
    SetForegroundWindow(taskhandle(w));
    drivepump(50);
    return w;
}

eventwindow::eventwindow(int32_t number) : w(eventopen(number, 200)), shown(w) {}

// Handlers of events; filters and subclassed controls may be the library's own.
static bool fortests(const block &b)
{
    for (int32_t type : {EVENTFILTER, EVENTFILTERWINDOW, EVENTPOLLFILTER, EVENTSUBCLASS, EVENTHOOK})
        if (b.type == type) return false;
    return true;
}

eventwindow::~eventwindow()
{
    for (int32_t index = blockcount(); index-- > 0;) {
        block b = blockat(index);
        if (b.window == shown && fortests(b))
            remblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
    }
    if (w) CHECK_FALSE(removewindow(&w));
}

errorblock *tellclick(window, intptr_t data, mouserecord *mouse)
{
    said("%s%d on %d;", data ? std::to_string(data).c_str() : "", static_cast<int>(mouse->buttons),
         static_cast<int>(mouse->icon));
    return nullptr;
}

errorblock *tellmouse(window, intptr_t data, mouserecord *mouse)
{
    said("%dmove on %d;", static_cast<int>(data), static_cast<int>(mouse->icon));
    return nullptr;
}

errorblock *tellkey(window, intptr_t data, int32_t icon, int32_t *code)
{
    said("%s%x in %d;", data ? (std::to_string(data) + ":").c_str() : "",
         static_cast<unsigned>(*code), static_cast<int>(icon));
    return nullptr;
}

#include "tests/desktop/win32/taskwindows.h"

#include "desktop/stages.h"
#include "desktop/wdata.h"
#include "desktop/windowplace.h"
#include "graphics/modeinfo.h"

#include <doctest/doctest.h>

window taskwindow(DWORD style, window parent)
{
    REQUIRE_FALSE(inittemp());
    wdataparent = parent;
    HWND made = CreateWindowExA(0, "Task", "A window", style, 50, 60, 300, 200, taskhandle(parent),
                                nullptr, GetModuleHandleA(nullptr), nullptr);
    REQUIRE(made);
    window w = reinterpret_cast<window>(made);
    REQUIRE(wdatafind(w));
    return w;
}

void taskwindowsend()
{
    while (wdatas) {
        HWND last = taskhandle(wdatas->handle);
        wdatafree(wdatas);
        DestroyWindow(last);
    }
}

windowstaterecord taskstate(window w)
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(w, &state));
    return state;
}

void taskopen(window w, int32_t left, int32_t top, int32_t width, int32_t height, intptr_t behind)
{
    windowstaterecord state = taskstate(w);
    placestate({left, top, left + width, top + height}, &state);
    state.behind = behind;
    REQUIRE_FALSE(openwindow(&state));
}

RECT taskclient(window w)
{
    RECT client;
    GetClientRect(taskhandle(w), &client);
    POINT corner = {};
    ClientToScreen(taskhandle(w), &corner);
    OffsetRect(&client, corner.x, corner.y);
    return client;
}

SIZE tasksize(window w)
{
    RECT client = taskclient(w);
    return {client.right - client.left, client.bottom - client.top};
}

HWND taskcontrol(window w, int32_t icon)
{
    return GetDlgItem(taskhandle(w), icon);
}

errorblock *taskpaint(window w, const std::function<void(const redrawrecord &)> &part)
{
    redrawrecord r = {};
    r.self = w;
    int more;
    errorblock *err = redrawin(&r, &more);
    while (!err && more) {
        part(r);
        err = redrawnext(&r, &more);
    }
    return err;
}

static void screen(int32_t dpi)
{
    modefacts facts = {};
    facts.xdpi = facts.ydpi = dpi;
    facts.widthpx = GetSystemMetrics(SM_CXSCREEN);
    facts.heightpx = GetSystemMetrics(SM_CYSCREEN);
    facts.bitspixel = 32;
    modeinfoset(facts);
}

bothscreens::bothscreens()
{
    screen(96);
    SUBCASE("96 dpi") {}
    SUBCASE("144 dpi")
    {
        screen(144);
    }
}

bothscreens::~bothscreens()
{
    modeinfoinit();
}

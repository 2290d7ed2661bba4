// Presses, double clicks and drags of the library's own windows. Drawn controls
// have a machine of their own, in desktop/press.h.

#include "desktop/mouse.h"

#include "desktop/dispatch.h"
#include "desktop/win32/pointerplace.h"
#include "desktop/win32/procedure.h"
#include "desktop/windowplace.h"
#include "graphics/modeinfo.h"
#include "graphics/win32/windowhandle.h"

#include <windowsx.h>

#include <algorithm>

static struct {
    mousestates state;
    mouserecord press; // the remembered press
    window dragged;    // of the drag that runs
    bool limited;      // it is of a point, which stays inside these
    pixelbox limits;   // of the screen
    struct {
        window self;
        intptr_t data;
        dragendfunction end;
        dragmovefunction move;
    } told; // of drags
} mouse;

int32_t mousestate()
{
    return mouse.state;
}

void setdragfunctions2(window w, intptr_t data, dragendfunction end, dragmovefunction move)
{
    mouse.told = {w, data, end, move};
}

void setdragfunctions(window w, intptr_t data, dragendfunction end)
{
    setdragfunctions2(w, data, end, nullptr);
}

void clickdeliver(window w, mouserecord *record)
{
    dispatchfirst(EVENTCLICK, w,
                  [&](const block &b) { return handlerof<clickfunction>(b)(w, b.data, record); });
}

mouserecord placerecord(HWND self, POINT client)
{
    POINT screen = client;
    ClientToScreen(self, &screen);
    mouserecord record = {0, 0, 0, windowof(self), iconunder(self, screen)};
    placeset(&record, screen);
    return record;
}

static POINT placeof(const taskmessage &m)
{
    return {GET_X_LPARAM(m.lparam), GET_Y_LPARAM(m.lparam)};
}

// Whoever takes the capture away hears of it, which finds the state idle.
static void release(window w)
{
    if (GetCapture() == systemwindow(w)) ReleaseCapture();
}

// The state is idle before the end is told: a handler may start another drag.
static void dragended()
{
    window w = mouse.dragged;
    mouse.state = MOUSEIDLE;
    mouse.dragged = 0;
    dragresult box = {};
    dragboxend(&box);
    release(w);
    if (mouse.told.end) reporterror(mouse.told.end(mouse.told.self, mouse.told.data, &box));
}

void mouseend(window w)
{
    if (mouse.state == MOUSEDRAG && mouse.dragged == w) {
        dragended();
    } else if (mouse.state == MOUSEPRESSED && mouse.press.window == w) {
        mouse.state = MOUSEIDLE;
        release(w);
    }
}

// The pointer's place on the screen, of a point as far as its limits let it.
static POINT dragplace(POINT client)
{
    ClientToScreen(systemwindow(mouse.dragged), &client);
    if (!mouse.limited) return client;
    const pixelbox &box = mouse.limits;
    return {std::clamp<LONG>(client.x, box.left, std::max(box.left, box.right)),
            std::clamp<LONG>(client.y, box.top, std::max(box.top, box.bottom))};
}

// The button's own place may be another than that of the last movement.
static void dragto(POINT client)
{
    POINT place = dragplace(client);
    ScreenToClient(systemwindow(mouse.dragged), &place);
    dragboxmove(place.x, place.y);
}

// The system's own move of the window, as from its title bar; it runs until the
// button goes up.
static void movestart(window w)
{
    constexpr WPARAM BYPOINTER = SC_MOVE | 2;
    mouse.state = MOUSEIDLE;
    ReleaseCapture();
    SendMessageA(systemwindow(w), WM_SYSCOMMAND, BYPOINTER, 0);
}

errorblock *startdrag(const dragbox *record)
{
    if (record->type == DRAGWINDOW) {
        movestart(record->window);
        return nullptr;
    }
    mouse.state = MOUSEIDLE;
    mouse.dragged = record->window;
    mouse.limited = record->type == DRAGPOINT;
    mouse.limits = {ostodevx(record->minx), ostoscreeny(record->maxy), ostodevx(record->maxx),
                    ostoscreeny(record->miny)};
    SetCapture(systemwindow(record->window)); // ends another's press first
    dragboxstart(record);
    mouse.state = MOUSEDRAG;
    return nullptr;
}

// A pane keeps no focus: a press of it gives it back.
static void panefocus(const taskmessage &m)
{
    uint32_t flags = 0;
    if (getflags(m.self, &flags) || !(flags & WINDOWPANE)) return;
    if (GetFocus() == m.handle) SetFocus(GetParent(m.handle));
}

static void buttondown(const taskmessage &m, int32_t button)
{
    if (mouse.state == MOUSEDRAG) {
        dragended();
        return;
    }
    panefocus(m);
    if (mouse.state == MOUSEPRESSED) mouseend(mouse.press.window);
    mouserecord record = placerecord(m.handle, placeof(m));
    record.buttons = button;
    mouse.press = record;
    mouse.state = MOUSEPRESSED;
    SetCapture(m.handle);
    clickdeliver(m.self, &record);
}

static void buttonup(const taskmessage &m)
{
    if (mouse.state == MOUSEDRAG && mouse.dragged == m.self) {
        dragto(placeof(m));
        dragended();
    } else {
        mouseend(mouse.press.window);
    }
}

static void buttondouble(const taskmessage &m, int32_t buttons)
{
    if (mouse.state == MOUSEDRAG) dragended();
    mouse.state = MOUSEIDLE;
    mouserecord record = placerecord(m.handle, placeof(m));
    record.buttons = buttons;
    clickdeliver(m.self, &record);
}

// There is no threshold. The system also tells of the pointer when windows have
// moved under it, which starts nothing.
static void pressmoved(const taskmessage &m)
{
    mouserecord record = placerecord(m.handle, placeof(m));
    if (record.x == mouse.press.x && record.y == mouse.press.y) return;
    record = mouse.press;
    record.buttons = record.buttons == BUTTONLEFT ? BUTTONLEFTDRAG : BUTTONRIGHTDRAG;
    mouseend(m.self);
    clickdeliver(m.self, &record);
}

static void dragmoved(const taskmessage &m)
{
    dragto(placeof(m));
    if (!mouse.told.move) return;
    mouserecord record;
    reporterror(getpointer(&record));
    placeset(&record, dragplace(placeof(m)));
    reporterror(mouse.told.move(mouse.told.self, mouse.told.data, &record));
}

static void moved(const taskmessage &m)
{
    if (mouse.state == MOUSEPRESSED && mouse.press.window == m.self) {
        pressmoved(m);
    } else if (mouse.state == MOUSEDRAG && mouse.dragged == m.self) {
        dragmoved(m);
    } else {
        mouserecord record = placerecord(m.handle, placeof(m));
        dispatchall(EVENTMOUSE, m.self, [&](const block &b) {
            return handlerof<mousefunction>(b)(m.self, b.data, &record);
        });
    }
}

reply mousemessage(const taskmessage &m)
{
    switch (m.number) {
    case WM_LBUTTONDOWN:
        buttondown(m, BUTTONLEFT);
        break;
    case WM_RBUTTONDOWN:
        buttondown(m, BUTTONRIGHT);
        break;
    case WM_LBUTTONDBLCLK:
        buttondouble(m, BUTTONLEFTDOUBLE);
        break;
    case WM_RBUTTONDBLCLK:
        buttondouble(m, BUTTONRIGHTDOUBLE);
        break;
    case WM_MOUSEMOVE:
        moved(m);
        break;
    default:
        buttonup(m);
    }
    // Behind a right click the system asks the window for help or a menu.
    return m.number == WM_RBUTTONUP && IsWindow(m.handle) ? REPLYDEFAULT : REPLYDONE;
}

// Another has taken the capture, be it the system for a switch of windows.
reply mousecapture(const taskmessage &m)
{
    if (systemwindow(m.lparam) != m.handle) mouseend(m.self);
    return REPLYDONE;
}

// Handlers that take away themselves, their neighbours and their windows while an
// event is being delivered.
#include "desktop/blocks.h"
#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/mouse.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <functional>

namespace
{

// What the handler does when the wanted event comes, once; of clicks, those with
// the wanted buttons.
std::function<void()> act;
int32_t wantedtype;
intptr_t wantedbuttons;

errorblock *once(int32_t type, intptr_t buttons = 0)
{
    if (type != wantedtype || buttons != wantedbuttons) return nullptr;
    std::function<void()> now;
    now.swap(act);
    if (now) now();
    return nullptr;
}

// A handler of that type, whatever it is given.
template<int32_t TYPE, typename... ARGUMENTS> errorblock *on(ARGUMENTS...)
{
    return once(TYPE);
}

errorblock *onclick(window, intptr_t, mouserecord *mouse)
{
    return once(EVENTCLICK, mouse->buttons);
}

// Who doesn't paint is asked again at once.
errorblock *onredraw(window self, intptr_t)
{
    once(EVENTREDRAW);
    if (!wdatafind(self)) return nullptr;
    return taskpaint(self, [](const redrawrecord &) {});
}

errorblock *ondrop(const char *, int32_t, mouserecord *, intptr_t, int *accept)
{
    *accept = 1;
    return once(EVENTDROP);
}

errorblock *onfilter(const systemmessage *message, intptr_t, int *, intptr_t *, int *)
{
    return message->message == WM_APP ? once(EVENTFILTER) : nullptr;
}

errorblock *ondragend(window, intptr_t, const dragresult *)
{
    return once(EVENTCLICK, -1);
}

errorblock *starts(window self, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFTDRAG) return nullptr;
    int32_t x = static_cast<int32_t>(mouse->x), y = static_cast<int32_t>(mouse->y);
    dragbox record = {self, DRAGRUBBER, x, y, x + 40, y + 40, 0, 0, 9999, 9999};
    setdragfunctions(self, 0, ondragend);
    return startdrag(&record);
}

void handlers(window w)
{
    REQUIRE_FALSE(addclickhandler(onclick, w, 0));
    REQUIRE_FALSE(addkeyhandler(on<EVENTKEY>, w, 0));
    REQUIRE_FALSE(addmousehandler(on<EVENTMOUSE>, w, 0));
    REQUIRE_FALSE(addopenhandler(on<EVENTOPEN>, w, 0));
    REQUIRE_FALSE(addclosehandler(on<EVENTCLOSE>, w, 0));
    REQUIRE_FALSE(addredrawhandler(onredraw, w, 0));
    REQUIRE_FALSE(addfocushandler(on<EVENTFOCUS>, w, 0));
    REQUIRE_FALSE(addactivatehandler(on<EVENTACTIVATE>, w, 0));
    REQUIRE_FALSE(addwheelhandler(on<EVENTWHEEL>, w, 0));
    REQUIRE_FALSE(addpointerhandler(on<EVENTPOINTER>, w, 0));
    REQUIRE_FALSE(adddrophandler(w, 0, ondrop));
    REQUIRE_FALSE(addtextchangehandler(on<EVENTTEXTCHANGE>, w, 0));
    REQUIRE_FALSE(addtextfocushandler(on<EVENTTEXTFOCUS>, w, 0));
    REQUIRE_FALSE(addfilter(onfilter, WM_APP, w, 0));
    REQUIRE_FALSE(addpollfilter(on<EVENTPOLLFILTER>, WM_APP, w, 0));
}

// All blocks of the table, whatever they are.
void forget()
{
    while (blockcount()) {
        block b = blockat(0);
        remblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
    }
}

// What brings each kind of event about. Each must end whether the window goes or
// not.
struct bringrow {
    const char *what;
    int32_t type;
    intptr_t buttons;
    void (*bring)(window w);
};

driveplace middle;

void click(window w, int icon)
{
    driveiconclick(w, icon);
}

const bringrow BRINGS[] = {
    {"press", EVENTCLICK, BUTTONLEFT, [](window) { drivepress(), driverelease(); }},
    {"right press", EVENTCLICK, BUTTONRIGHT,
     [](window) { drivepress(DRIVERIGHT), driverelease(DRIVERIGHT); }},
    {"double click", EVENTCLICK, BUTTONLEFTDOUBLE, [](window) { drivedouble(middle.x, middle.y); }},
    {"drag", EVENTCLICK, BUTTONLEFTDRAG,
     [](window) {
         drivedrag({middle, {middle.x + 3, middle.y}});
     }},
    {"button", EVENTCLICK, BUTTONLEFT, [](window w) { click(w, EVENTBUTTON); }},
    {"drawn control", EVENTCLICK, BUTTONLEFT, [](window w) { click(w, EVENTDRAWN); }},
    {"dragged control", EVENTCLICK, BUTTONLEFTDRAG,
     [](window w) {
         driveplace at = driveicon(w, EVENTDRAWN);
         drivedrag({at, {at.x + 3, at.y}});
     }},
    {"key", EVENTKEY, 0, [](window) { drivetype("a"); }},
    {"Tab", EVENTKEY, 0, [](window) { drivekey(VK_TAB); }},
    {"movement", EVENTMOUSE, 0, [](window) { drivemove(middle.x + 7, middle.y + 3); }},
    {"pointer", EVENTPOINTER, 0, [](window) { drivemove(middle.x + 8, middle.y + 3); }},
    {"wheel", EVENTWHEEL, 0, [](window) { drivewheel(-120); }},
    {"open", EVENTOPEN, 0,
     [](window w) { SetWindowPos(taskhandle(w), nullptr, 333, 222, 250, 150, SWP_NOZORDER); }},
    {"hide", EVENTOPEN, 0, [](window w) { ShowWindow(taskhandle(w), SW_HIDE); }},
    {"close", EVENTCLOSE, 0, [](window w) { SendMessageA(taskhandle(w), WM_CLOSE, 0, 0); }},
    {"redraw", EVENTREDRAW, 0,
     [](window w) {
         InvalidateRect(taskhandle(w), nullptr, TRUE);
         UpdateWindow(taskhandle(w));
     }},
    {"focus", EVENTFOCUS, 0, [](window) { SetFocus(nullptr); }},
    {"caret", EVENTTEXTFOCUS, 0, [](window w) { focusicon(w, EVENTFIELD2); }},
    {"drop", EVENTDROP, 0, [](window w) { drivedrop(w, {"C:\\one.txt"}, middle); }},
    {"text", EVENTTEXTCHANGE, 0, [](window w) { seticontext(w, EVENTFIELD, "changed"); }},
    {"filter", EVENTFILTER, 0, [](window w) { SendMessageA(taskhandle(w), WM_APP, 0, 0); }},
    {"poll filter", EVENTPOLLFILTER, 0,
     [](window w) { PostMessageA(taskhandle(w), WM_APP, 0, 0); }},
};

// With the pointer on the background and the focus in the window itself.
bool acted(const bringrow &row, window w, const std::function<void()> &what)
{
    SetForegroundWindow(taskhandle(w));
    focuswindow(w);
    drivemove(middle.x, middle.y);
    wantedtype = row.type;
    wantedbuttons = row.buttons;
    act = what;
    row.bring(w);
    drivepump();
    bool did = !act;
    act = nullptr;
    return did;
}

} // namespace

// Two rounds: what the system keeps for later is there after the first. In the second
// there are events inside of the events.
TEST_CASE("a handler of any event may take away all handlers, or its window and what that holds")
{
    drivecounts before = {};
    for (bool again : {false, true}) {
        for (const bringrow &row : BRINGS)
            for (bool windowgoes : {false, true}) {
                INFO(std::string(row.what));
                CAPTURE(windowgoes);
                eventlibrary library;
                window w = eventopen(EVENTCONTROLS, 200), kept = w;
                window pane = eventopen(EVENTPLAIN, 800, w);
                middle = driveclient(w, 200, 120);
                handlers(w);
                bool did = acted(row, w, [&] {
                    if (again) drivepump(1);
                    if (windowgoes)
                        removewindow(&w);
                    else
                        forget();
                });
                CHECK(did);
                CHECK(IsWindow(taskhandle(kept)) != windowgoes);
                CHECK((wdatafind(kept) == nullptr) == windowgoes);
                CHECK((wdatafind(pane) == nullptr) == windowgoes);
                if (w) removewindow(&w);
                forget();
            }
        if (!again) before = drivecountnow();
    }
    drivecounts after = drivecountnow();
    CHECK(after.gdiobjects <= before.gdiobjects + 3);
    CHECK(after.userobjects <= before.userobjects + 3);
}

TEST_CASE("a drag, its end and a timed call may take their window away")
{
    for (bool early : {false, true}) {
        CAPTURE(early);
        eventlibrary library;
        window w = eventopen(EVENTPLAIN, 200);
        addclickhandler(starts, w, 0);
        driveplace from = driveclient(w, 100, 100);
        act = [&] { removewindow(&w); };
        wantedtype = early ? EVENTTIMED : EVENTCLICK;
        wantedbuttons = early ? 0 : -1;
        drivemove(from.x, from.y);
        drivepress();
        drivemove(from.x + 5, from.y);
        CHECK(mousestate() == MOUSEDRAG);
        if (early) { // the window goes, which ends the drag
            addtimedcall(on<EVENTTIMED>, 0, 1);
            drivewait([] { return timedcount() == 0; });
        }
        driverelease();
        CHECK(w == 0);
        CHECK(mousestate() == MOUSEIDLE);
        forget();
    }
}

TEST_CASE("a parent's end reaches all below it, which may end each other")
{
    static window *second;
    parentfunction gone = [](window self, intptr_t data) -> errorblock * {
        said("gone %d;", static_cast<int>(data));
        if (data == 0) removewindow(second);
        window w = self;
        return removewindow(&w);
    };
    parentfunction closed = [](window, intptr_t data) -> errorblock * {
        said("closed %d;", static_cast<int>(data));
        return nullptr;
    };
    eventlibrary library;
    window w = eventopen(EVENTPLAIN, 200);
    window panes[3];
    second = &panes[1];
    for (int n = 2; n >= 0; n--) { // the newest is told first
        panes[n] = eventopen(EVENTPLAIN, 600 + 20 * n, w);
        addparentdeletedhandler(gone, panes[n], n);
        addparentclosedhandler(closed, panes[n], n);
    }
    CHECK_FALSE(closewindow(w));
    CHECK(taken() == "closed 0;closed 1;closed 2;");
    CHECK_FALSE(deletewindow(w));
    CHECK(taken() == "gone 0;gone 2;");
    CHECK(wdatas == nullptr);
    forget();
}

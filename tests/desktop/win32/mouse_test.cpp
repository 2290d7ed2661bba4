// Presses, double clicks and drags with a real pointer.
#include "desktop/mouse.h"

#include "desktop/filters.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

// A window that tells of its clicks and movements.
struct mousewindow : eventwindow {
    explicit mousewindow(int32_t number = EVENTCONTROLS) : eventwindow(number)
    {
        CHECK_FALSE(addclickhandler(tellclick, w, 0));
    }
    // A place of the background, some way right of the controls.
    driveplace place(int right = 0, int down = 0)
    {
        return driveclient(w, 200 + right, 100 + down);
    }
};

} // namespace

TEST_CASE("a press is told at once, and its release not at all")
{
    mousewindow m;
    moveto(m.place());
    drivepress();
    CHECK(taken() == "4 on -1;");
    CHECK(mousestate() == MOUSEPRESSED);
    driverelease();
    CHECK(taken() == "");
    CHECK(mousestate() == MOUSEIDLE);
    drivepress(DRIVERIGHT);
    CHECK(taken() == "1 on -1;");
    driverelease(DRIVERIGHT);
    CHECK(taken() == "");
}

TEST_CASE("the least movement of a held button is a drag, from where it was pressed")
{
    static std::vector<mouserecord> seen;
    clickfunction note = [](window, intptr_t, mouserecord *mouse) -> errorblock * {
        seen.push_back(*mouse);
        return nullptr;
    };
    eventwindow e(EVENTCONTROLS);
    REQUIRE_FALSE(addclickhandler(note, e.w, 0));
    driveplace from = driveclient(e.w, 200, 100);
    for (drivebutton button : {DRIVELEFT, DRIVERIGHT}) {
        seen.clear();
        drivedrag({from, {from.x + 1, from.y}, {from.x + 9, from.y + 9}}, button);
        REQUIRE(seen.size() == 2);
        bool left = button == DRIVELEFT;
        CHECK(seen[0].buttons == (left ? BUTTONLEFT : BUTTONRIGHT));
        CHECK(seen[1].buttons == (left ? BUTTONLEFTDRAG : BUTTONRIGHTDRAG));
        for (const mouserecord &record : seen) {
            CHECK(record.x == devtoosx(from.x));
            CHECK(record.y == screentoosy(from.y));
            CHECK(record.window == e.w);
            CHECK(record.icon == -1);
        }
    }
}

TEST_CASE("a double click is a press and a double press, and drags nothing")
{
    mousewindow m;
    for (drivebutton button : {DRIVELEFT, DRIVERIGHT}) {
        driveplace at = m.place(0, button == DRIVELEFT ? 0 : 40);
        drivedouble(at.x, at.y, button);
        CHECK(taken() == (button == DRIVELEFT ? "4 on -1;1024 on -1;" : "1 on -1;256 on -1;"));
        moveto({at.x + 5, at.y + 5});
        CHECK(taken() == "");
    }
}

TEST_CASE("only the first handler of clicks hears of one, and all of movements")
{
    mousewindow m;
    addclickhandler(tellclick, m.w, 7);
    addmousehandler(tellmouse, m.w, 1);
    addmousehandler(tellmouse, m.w, 2);
    moveto(m.place());
    taken();
    moveto(m.place(3, 0));
    CHECK(taken() == "1move on -1;2move on -1;");
    drivepress();
    CHECK(taken() == "4 on -1;");
    driverelease();
    taken();
}

TEST_CASE("controls tell of their clicks by their number")
{
    mousewindow m;
    auto click = [&](int icon) {
        driveiconclick(m.w, icon);
        return taken();
    };
    CHECK(click(EVENTBUTTON) == "4 on 11;");
    CHECK(click(EVENTDRAWN) == "4 on 12;");
    CHECK(click(EVENTDISABLED) == "4 on 13;"); // falls through to the window
    CHECK(click(EVENTFIELD) == "");
    driveplace from = driveicon(m.w, EVENTDRAWN);
    drivedrag({from, {from.x + 1, from.y}, {from.x + 5, from.y}});
    CHECK(taken() == "4 on 12;64 on 12;");
}

TEST_CASE("a press ends another, and capture that is lost ends it quietly")
{
    mousewindow m;
    moveto(m.place());
    drivepress();
    drivepress(DRIVERIGHT);
    CHECK(taken() == "4 on -1;1 on -1;");
    moveto(m.place(1, 0));
    CHECK(taken() == "16 on -1;"); // of the press that counts
    driverelease(DRIVERIGHT);
    driverelease();
    drivepress();
    taken();
    SetCapture(GetDlgItem(taskhandle(m.w), EVENTBUTTON));
    CHECK(mousestate() == MOUSEIDLE);
    ReleaseCapture();
    moveto(m.place(4, 0));
    driverelease();
    CHECK(taken() == "");
}

namespace
{

int32_t dragkind;
osbox dragarea; // the limits of the pointer

errorblock *dragged(window self, intptr_t data, const dragresult *box)
{
    CHECK(mousestate() == MOUSEIDLE);
    said("%dend of %d: %d %d %d %d;", static_cast<int>(data), self != 0, box->x0, box->y0, box->x1,
         box->y1);
    return nullptr;
}

errorblock *dragmoves(window, intptr_t, mouserecord *mouse)
{
    said("at %d %d;", static_cast<int>(mouse->x), static_cast<int>(mouse->y));
    return nullptr;
}

errorblock *dragstarts(window self, intptr_t, mouserecord *mouse)
{
    said("%d;", static_cast<int>(mouse->buttons));
    if (mouse->buttons != BUTTONLEFTDRAG) return nullptr;
    int32_t x = static_cast<int32_t>(mouse->x), y = static_cast<int32_t>(mouse->y);
    int32_t thick = dragkind == DRAGRUBBER ? 40 : 0;
    dragbox record = {self, dragkind,    x,           y - thick,   x + thick,
                      y,    dragarea.x0, dragarea.y0, dragarea.x1, dragarea.y1};
    if (dragkind == DRAGBAR) record.y0 = y - 100;
    setdragfunctions2(self, 5, dragged, dragmoves);
    return startdrag(&record);
}

struct dragwindow : eventwindow {
    driveplace from;

    explicit dragwindow(int32_t kind) : eventwindow(EVENTPLAIN)
    {
        dragkind = kind;
        dragarea = {-10000, -10000, 10000, 10000};
        CHECK_FALSE(addclickhandler(dragstarts, w, 0));
        from = driveclient(w, 100, 100);
        moveto(from);
    }

    // Up to where the drag runs.
    void start()
    {
        drivepress();
        drivemove(from.x + 1, from.y);
        CHECK(taken() == "4;64;");
        CHECK(mousestate() == MOUSEDRAG);
    }
    // The box that the end tells of.
    osbox end()
    {
        driverelease();
        std::string told = taken();
        osbox box = {};
        int read =
            sscanf(told.c_str(), "5end of 1: %d %d %d %d;", &box.x0, &box.y0, &box.x1, &box.y1);
        CHECK(read == 4);
        CHECK(mousestate() == MOUSEIDLE);
        CHECK(GetCapture() == nullptr);
        return box;
    }
    std::string at(int right, int down)
    {
        return "at " + std::to_string(devtoosx(from.x + right)) + " " +
               std::to_string(screentoosy(from.y + down)) + ";";
    }
};

} // namespace

TEST_CASE("a drag tells of its moves, and ends with the box at the pointer's place")
{
    for (int32_t kind : {DRAGRUBBER, DRAGPOINT, DRAGBAR}) {
        CAPTURE(kind);
        dragwindow d(kind);
        addmousehandler(tellmouse, d.w, 0);
        d.start();
        drivemove(d.from.x + 400, d.from.y + 30); // outside the window
        CHECK(taken() == d.at(400, 30));
        drivemove(d.from.x + 30, d.from.y + 20);
        CHECK(taken() == d.at(30, 20)); // and no movement besides
        osbox box = d.end();
        // It began a pixel to the right of the press.
        CHECK(abs(box.x0 - devtoosx(d.from.x + 29)) <= 2);
        CHECK(abs(box.y1 - screentoosy(d.from.y + (kind == DRAGBAR ? 0 : 20))) <= 2);
        CHECK(box.x1 - box.x0 == (kind == DRAGRUBBER ? 40 : 0));
        CHECK(box.y1 - box.y0 == (kind == DRAGRUBBER ? 40 : kind == DRAGBAR ? 100 : 0));
    }
}

TEST_CASE("the limits of a dragged point hold it, wherever the pointer goes")
{
    dragwindow d(DRAGPOINT);
    dragarea = {devtoosx(d.from.x - 10), screentoosy(d.from.y + 10), devtoosx(d.from.x + 10),
                screentoosy(d.from.y - 10)};
    d.start();
    drivemove(d.from.x + 60, d.from.y - 60);
    CHECK(taken() == d.at(10, -10));
    drivemove(d.from.x - 5, d.from.y + 60);
    CHECK(taken() == d.at(-5, 10));
    drivemove(d.from.x + 60, d.from.y - 60);
    taken();
    osbox box = d.end();
    CHECK(abs(box.x0 - dragarea.x1) <= 4);
    CHECK(abs(box.y0 - dragarea.y1) <= 4);
}

TEST_CASE("the other button, or capture that is lost, ends a drag like its release")
{
    dragwindow d(DRAGRUBBER);
    d.start();
    SUBCASE("another press")
    {
        drivepress(DRIVERIGHT);
        driverelease(DRIVERIGHT);
    }
    SUBCASE("capture")
    {
        SetCapture(taskhandle(d.w)), ReleaseCapture();
    }
    SUBCASE("the window is closed")
    {
        CHECK_FALSE(closewindow(d.w));
    }
    CHECK(taken().find("5end") == 0);
    CHECK(mousestate() == MOUSEIDLE);
    drivemove(d.from.x + 9, d.from.y);
    driverelease();
    CHECK(taken() == "");
}

// How far the system says that it is moving the window: some window managers take
// it over then, and what they do is their own.
TEST_CASE("a drag of the window itself is the system's")
{
    static std::atomic<int> moved;
    filterfunction moving = [](const systemmessage *message, intptr_t left, int *, intptr_t *,
                               int *) -> errorblock * {
        moved = static_cast<int>(reinterpret_cast<const RECT *>(message->lparam)->left - left);
        return nullptr;
    };
    dragwindow d(DRAGWINDOW);
    RECT before;
    GetWindowRect(taskhandle(d.w), &before);
    moved = 0;
    REQUIRE_FALSE(addfilter(moving, WM_MOVING, d.w, before.left));
    driveaside([] {},
               [&] {
                   drivepress();
                   for (int step = 1; step < 200 && !moved; step += 3)
                       drivemove(d.from.x + step, d.from.y + step / 2);
                   driverelease();
                   drivekey(VK_RETURN); // ends a loop that has missed the release
               });
    CHECK(moved > 0);
    CHECK(taken() == "4;64;");
    remfilter(moving, WM_MOVING, d.w, before.left);
}

TEST_CASE("the shape of the pointer is asked for over the client area")
{
    static int wanted;
    pointerfunction handler = [](window, intptr_t data, mouserecord *mouse,
                                 int *handled) -> errorblock * {
        said("%d over %d;", static_cast<int>(data), static_cast<int>(mouse->icon));
        *handled = wanted == data;
        return wanted == data ? setpointer(POINTERCROSS, 0, nullptr) : nullptr;
    };
    eventwindow e(EVENTCONTROLS);
    addpointerhandler(handler, e.w, 1);
    addpointerhandler(handler, e.w, 2);
    wanted = 2;
    moveto(driveclient(e.w, 200, 100));
    CHECK(taken().find("1 over -1;2 over -1;") == 0);
    CHECK(GetCursor() == LoadCursorA(nullptr, IDC_CROSS));
    wanted = 0;
    moveto(driveclient(e.w, 210, 100));
    CHECK(GetCursor() == LoadCursorA(nullptr, IDC_ARROW));
}

// Handlers that take away themselves, their neighbours and their windows while an
// event is being delivered.
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/mouse.h"
#include "desktop/timed.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

namespace
{

// All blocks of the table, whatever they are.
void forget()
{
    while (blockcount()) {
        block b = blockat(0);
        remblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
    }
}

// What brings each event about, with the pointer at 200, 120 and the focus in the
// window itself. Each must end whether the window goes or not.
const struct {
    const char *event, *brings;
} ROWS[] = {
    {"click 4 -1", "press; release"},
    {"click 1 -1", "Press; Release"},
    {"click 1024 -1", "double"},
    {"click 64 -1", "press; by 3 0; release"},
    {"click 4 11", "on 11; press; release"},
    {"click 4 12", "on 12; press; release"},
    {"click 64 12", "on 12; press; by 3 0; release"},
    {"key", "type a"},
    {"key", "key Tab"},
    {"mouse", "by 7 3"},
    {"pointer", "by 8 3"},
    {"wheel", "wheel -120"},
    {"open", "size 250 150"},
    {"open", "hide"},
    {"close", "closebox"},
    {"redraw", "erase"},
    {"focus", "nofocus"},
    {"caret", "focus 14"},
    {"drop", "drop C:\\one.txt"},
    {"text", "text 10 changed"},
    {"filter1", "send app"},
    {"filter2", "post app"},
};

} // namespace

// Two rounds: what the system keeps for later is there after the first. In the second
// there are events inside of the events.
TEST_CASE("a handler of any event may take away all handlers, or its window and what that holds")
{
    drivecounts before = {};
    for (bool again : {false, true}) {
        for (const auto &r : ROWS)
            for (bool windowgoes : {false, true}) {
                INFO(std::string(r.brings));
                CAPTURE(windowgoes);
                script s(CONTROLS, "click key mouse pointer wheel open close redraw focus caret "
                                   "drop text filter1 pollfilter2");
                window pane = templatewindow(PLAIN, 800, s.w);
                s.act("front; focus -1; at 200 120");
                bool did = false;
                onheard = [&](const std::string &event) {
                    if (did || !event.starts_with(r.event)) return;
                    did = true;
                    if (again) drivepump(1);
                    if (windowgoes)
                        removewindow(&s.w);
                    else
                        forget();
                };
                s.act(r.brings);
                onheard = nullptr;
                CHECK(did);
                CHECK(IsWindow(handleof(s.shown)) != windowgoes);
                CHECK((wdatafind(s.shown) == nullptr) == windowgoes);
                CHECK((wdatafind(pane) == nullptr) == windowgoes);
                if (s.w) removewindow(&s.w);
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
    static script *dragged;
    dragendfunction removes = [](window, intptr_t, const dragresult *) -> errorblock * {
        return removewindow(&dragged->w);
    };
    timedfunction timed = [](intptr_t) -> errorblock * { return removewindow(&dragged->w); };
    for (bool early : {false, true}) {
        CAPTURE(early);
        script s(PLAIN, "calls");
        dragged = &s;
        onclick = [&](mouserecord *mouse) -> errorblock * {
            if (mouse->buttons != BUTTONLEFTDRAG) return nullptr;
            dragbox box = {s.w, DRAGRUBBER, 300, 300, 340, 340, 0, 0, 9999, 9999};
            setdragfunctions(s.w, 0, early ? nullptr : removes);
            return startdrag(&box);
        };
        CHECK(s.act("at 100 100; press; by 5 0; ?mouse") == "2;");
        if (early) { // the window goes, which ends the drag
            addtimedcall(timed, 0, 1);
            drivewait([] { return timedcount() == 0; });
        }
        CHECK(s.act("release; ?mouse") == "0;");
        CHECK(s.w == 0);
    }
}

TEST_CASE("a parent's end reaches all below it, which may end each other")
{
    static window panes[3];
    parentfunction gone = [](window self, intptr_t data) -> errorblock * {
        said("gone %d;", static_cast<int>(data));
        if (data == 0) removewindow(&panes[1]);
        return removewindow(&self);
    };
    parentfunction closed = [](window, intptr_t data) -> errorblock * {
        said("closed %d;", static_cast<int>(data));
        return nullptr;
    };
    script s(PLAIN);
    for (int n = 2; n >= 0; n--) { // the newest is told first
        panes[n] = templatewindow(PLAIN, 600 + 20 * n, s.w);
        addparentdeletedhandler(gone, panes[n], n);
        addparentclosedhandler(closed, panes[n], n);
    }
    CHECK(s.act("close") == "closed 0;closed 1;closed 2;");
    CHECK_FALSE(deletewindow(s.w));
    s.w = 0;
    CHECK(taken() == "gone 0;gone 2;");
    CHECK(wdatas == nullptr);
    forget();
}

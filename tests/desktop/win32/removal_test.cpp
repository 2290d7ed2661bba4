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

// With events inside of the event.
TEST_CASE("a handler of any event may take away all handlers, its window and what that holds")
{
    for (const auto &r : ROWS) {
        INFO(std::string(r.brings));
        script s(CONTROLS, "click key mouse pointer wheel open close redraw focus caret "
                           "drop text filter1 pollfilter2");
        window pane = templatewindow(PLAIN, 800, s.w);
        s.act("front; focus -1; at 200 120");
        bool did = false;
        onheard = [&](const std::string &event) {
            if (did || !event.starts_with(r.event)) return;
            did = true;
            drivepump(1);
            removewindow(&s.w);
            forget();
        };
        s.act(r.brings);
        onheard = nullptr;
        CHECK((did && !IsWindow(handleof(s.shown))));
        CHECK((!wdatafind(s.shown) && !wdatafind(pane)));
        if (!did) forget();
    }
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

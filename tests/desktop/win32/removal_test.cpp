// Handlers that take away themselves, their neighbours and their windows while an
// event is being delivered.
#include "desktop/blocks.h"
#include "desktop/handlers.h"
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
    {"pointer", "by 8 3"},
    {"wheel", "wheel -120"},
    {"open", "size 250 150"},
    {"open", "hide"},
    {"close", "closebox"},
    {"redraw", "erase"},
    {"focus", "nofocus"},
    {"text", "text 10 changed"},
};

} // namespace

// With events inside of the event.
TEST_CASE("a handler of any event may take away all handlers, its window and what that holds")
{
    for (const auto &r : ROWS) {
        INFO(std::string(r.brings));
        script s(CONTROLS, "click key pointer wheel open close redraw focus text");
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

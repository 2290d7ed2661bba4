// Operations on the controls of a window, whatever their kind.
#include "desktop/icons.h"

#include "base/errors.h"
#include "base/messages.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <commctrl.h>

#include <cstring>

TEST_CASE("texts of all kinds of controls, and what is ticked")
{
    const char catalogue[] = "NAME:a grid\n";
    REQUIRE_FALSE(addtranstext(catalogue, sizeof catalogue - 1));
    script s(ICONS);
    char *got, buffer[4];
    for (int32_t icon : {ICONFIELD, ICONTICK, ICONBOX, ICONDRAWN, ICONLABEL, ICONBUTTON})
        for (const char *text : {"Words", "", "C:\\a\\", "\xE9t\xE9 && more"}) {
            CAPTURE(icon);
            CHECK_FALSE(seticontext(s.w, icon, text));
            CHECK((!geticontext(s.w, icon, &got) && std::string(got) == text));
            CHECK_FALSE(copyicontext(s.w, icon, buffer, sizeof buffer));
            CHECK(std::string(buffer) == std::string(text).substr(0, 3));
        }
    for (int32_t icon : {ICONTICK, ICONDRAWN})
        for (bool on : {true, false}) {
            bool seen = !on;
            CHECK_FALSE(seticonselected(s.w, icon, on));
            CHECK((!iconselected(s.w, icon, &seen) && seen == on));
        }
    std::string over(3000, 'w');
    CHECK_FALSE(seticontext(s.w, ICONFIELD, over.c_str()));
    CHECK((!geticontext(s.w, ICONFIELD, &got) && strlen(got) == ICONTEXTSIZE - 1));
    auto change = [&] { CHECK_FALSE(seticontextifchanged(s.w, ICONFIELD, "Words")); };
    auto format = [&] { seticontextf(s.w, ICONFIELD, "%d of {NAME}%s", 12, "!"); };
    s.play({{"text 30 Words; focus 30 2", "", change},
            {"?caret; text 30 words", "30 2 2;", change}, // a set text would have lost it
            {"?text 30", "Words;", format},
            {"?text 30", "12 of a grid!;"}});
    endtrans();
}

TEST_CASE("caret, focus, limits and neighbours of controls")
{
    script s(ICONS, "click");
    for (const char *icon : {"30", "32"}) {
        std::string n = icon;
        s.play({{("text " + n + " 12345").c_str(), ""},
                {("focus " + n + " 2; ?caret").c_str(), n + " 2 2;"},
                {("end " + n + "; ?caret").c_str(), n + " 5 5;"},
                {("focus " + n + " 0; key S_CRight; key S_CRight; ?caret").c_str(), n + " 0 2;"}});
    }
    s.play({
        {"focus 31; ?caret; focus 37; ?caret; focus 39; ?caret", "31 -1 -1;37 -1 -1;39 -1 -1;"},
        {"focus -1; ?caret; focus 30; end -1; ?front", "-1 -1 -1;1;"},
        {"next 31 1; ?caret", "30 0 5;"}, // what is edited is selected
        {"next 30 0; ?caret; next 31 0; ?caret", "31 -1 -1;32 0 2;"},
        {"shade 31 1; next 30 0; ?caret", "32 0 2;"}, // passed over
        {"next 30 1; ?caret", "39 -1 -1;"},           // round from the first to the last
        {"limit 30 3; text 30; focus 30; type abcde; ?text 30", "abc;"},
        {"limit 32 2; text 32; focus 32; type abcde; ?text 32", "ab;"},
        {"text 30 as long as you like; ?text 30", "as long as you like;"},
        {"focus 30; default 39; key Return", "click 4 39;"},
    });

    // From what stands in the field, and no further than the range.
    CHECK_FALSE(seticonrange(s.w, ICONARROWS, -2, 70000));
    s.play({{"text 36 70000; on 35; by 0 -5; press; wait 60; release; ?text 36", "70000;"},
            {"text 36 5; by 0 10; press; wait 60; release; ?text 36", "4;"}});

    intptr_t behind;
    CHECK((!iconbehind(s.w, ICONFIELD, &behind) && behind == BEHINDTOP));
    CHECK((!iconbehind(s.w, ICONBOX, &behind) && behind == drivecontrol(s.w, ICONTICK)));
    s.play({{"delete 31", ""}});
    CHECK((!iconbehind(s.w, ICONBOX, &behind) && behind == drivecontrol(s.w, ICONFIELD)));
}

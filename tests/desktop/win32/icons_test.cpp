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

namespace
{

// Selected, shaded, waiting to be painted.
std::string stateof(window w, int32_t icon)
{
    bool on = 0;
    CHECK_FALSE(iconselected(w, icon, &on));
    HWND control = taskcontrol(w, icon);
    return std::to_string(on) + (IsWindowEnabled(control) ? "0" : "1") +
           (GetUpdateRect(control, nullptr, FALSE) ? "1" : "0");
}

} // namespace

TEST_CASE("texts of all kinds of controls, set whole or not at all")
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
    std::string over(3000, 'w');
    CHECK_FALSE(seticontext(s.w, ICONFIELD, over.c_str()));
    CHECK((!geticontext(s.w, ICONFIELD, &got) && strlen(got) == ICONTEXTSIZE - 1));
    auto change = [&] { CHECK_FALSE(seticontextifchanged(s.w, ICONFIELD, "Words")); };
    auto format = [&] { seticontextf(s.w, ICONFIELD, "%d of {NAME}%s", 12, "!"); };
    auto toolong = [&] { CHECK(seticontextf(s.w, ICONFIELD, "%s", over.c_str())->code == 30); };
    s.play({{"text 30 Words; focus 30 2", "", change},
            {"?caret; text 30 words", "30 2 2;", change}, // a set text would have lost it
            {"?text 30", "Words;", format},
            {"?text 30", "12 of a grid!;", toolong},
            {"?text 30", "12 of a grid!;"}});
    endtrans();
}

TEST_CASE("the state of a control is old without clear, turned by eor, and shows")
{
    script s(ICONS);
    for (int32_t icon : {ICONTICK, ICONDRAWN})
        for (uint32_t all = 0; all < 64; all += icon == ICONTICK ? 1 : 5) {
            uint32_t old = all & 3, eor = all >> 2 & 3, clear = all >> 4;
            uint32_t now = (old & ~clear) ^ eor;
            CAPTURE(icon);
            CAPTURE(all);
            CHECK_FALSE(seticonselected(s.w, icon, old & 1));
            CHECK_FALSE((old & 2 ? shadeicon : unshadeicon)(s.w, icon));
            drivepump(1);
            CHECK_FALSE(seticonstate(s.w, icon, eor * ICONSELECTED, clear * ICONSELECTED));
            CHECK(stateof(s.w, icon) == std::to_string(now & 1) + std::to_string(now >> 1) + "1");
        }
    // What can't be ticked can be shaded.
    CHECK_FALSE(seticonstate(s.w, ICONFIELD, ICONSHADED | ICONSELECTED, 0));
    CHECK(stateof(s.w, ICONFIELD).substr(0, 2) == "01");
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
    caretrecord caret;
    SetFocus(nullptr);
    CHECK((!getcaret(&caret) && caret.self == -1 && caret.icon == -1));
    CHECK(focuswindow(0x12340));

    // From what stands in the field, and no further than the range.
    CHECK_FALSE(seticonrange(s.w, ICONARROWS, -2, 70000));
    s.play({{"text 36 70000; on 35; by 0 -5; press; wait 60; release; ?text 36", "70000;"},
            {"text 36 5; by 0 10; press; wait 60; release; ?text 36", "4;"}});

    intptr_t behind;
    CHECK((!iconbehind(s.w, ICONFIELD, &behind) && behind == BEHINDTOP));
    CHECK((!iconbehind(s.w, ICONBOX, &behind) && behind == drivecontrol(s.w, ICONTICK)));
    s.play({{"delete 31", ""}});
    const errorblock *err = deleteicon(s.w, ICONTICK);
    REQUIRE(err);
    CHECK(std::string(err->text).find("(GetDlgItem)") != std::string::npos);
    CHECK((!iconbehind(s.w, ICONBOX, &behind) && behind == drivecontrol(s.w, ICONFIELD)));
}

// The pickers, answered by a timer from inside their own loop.
#include "graphics/pickers.h"

#include "base/fontrecord.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <string>

namespace
{

constexpr int REDEDIT = 0x2C2; // of the box for colours

struct answer {
    int button;  // of the box
    int control; // that is written to first, or 0
    const char *text;
} reply;

int seen; // boxes answered

BOOL CALLBACK press(HWND box, LPARAM)
{
    char kind[32] = "";
    GetClassNameA(box, kind, sizeof kind);
    if (std::strcmp(kind, "#32770") != 0) return TRUE;
    if (reply.control) SetDlgItemTextA(box, reply.control, reply.text);
    seen++;
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(reply.button), 0);
    return FALSE;
}

void CALLBACK look(HWND, UINT, UINT_PTR, DWORD)
{
    EnumThreadWindows(GetCurrentThreadId(), press, 0);
}

// A picker that is answered so, and whether it says that something was chosen.
template<typename Picker, typename Chosen> bool picked(Picker picker, Chosen *chosen, answer given)
{
    reply = given;
    seen = 0;
    UINT_PTR timer = SetTimer(nullptr, 0, 100, look);
    int32_t result = 7;
    CHECK_FALSE(picker(0, 0, chosen, &result));
    KillTimer(nullptr, timer);
    CHECK(seen >= 1);
    return result & 1;
}

} // namespace

TEST_CASE("a colour is chosen or not")
{
    uint32_t word = 0x11223345;
    CHECK_FALSE(picked(choosecolour, &word, {IDCANCEL, REDEDIT, "200"}));
    CHECK(word == 0x11223345);
    CHECK(picked(choosecolour, &word, {IDOK, 0, nullptr})); // gives it back
    CHECK(word == 0x11223300);
    CHECK(picked(choosecolour, &word, {IDOK, REDEDIT, "200"}));
    CHECK((word & 0xFFFF) == 200 << 8);
}

TEST_CASE("a font is chosen or not")
{
    const fontrecord before = {
        .height = 192, .width = 55, .face = "Arial", .charset = 0, .weight = 700, .italic = 1};
    fontrecord font = before;
    CHECK_FALSE(picked(choosefont, &font, {IDCANCEL, 0, nullptr}));
    CHECK(std::memcmp(&font, &before, sizeof font) == 0);

    CHECK(picked(choosefont, &font, {IDOK, 0, nullptr})); // gives back all but the width
    CHECK((font.height == 192 && font.width == 0 && font.weight == 700 && font.italic == 1));
    CHECK(std::string(font.face) == "Arial");

    std::memset(font.face, 'x', 63); // longer than the system's is cut
    picked(choosefont, &font, {IDOK, 0, nullptr});
    CHECK(std::strlen(font.face) < 32);
}

// The pickers, answered by a timer from inside their own loop.
#include "graphics/pickers.h"

#include "base/fontrecord.h"
#include "graphics/modeinfo.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <string>

namespace
{

constexpr int REDEDIT = 0x2C2; // of the box for colours
constexpr int HEIGHTEDIT = 0x472;

struct answer {
    int button;  // of the box
    int control; // that is written to first
    const char *text;
    int seen; // boxes answered
    std::string height;
} reply;

BOOL CALLBACK press(HWND box, LPARAM)
{
    char kind[32] = "";
    GetClassNameA(box, kind, sizeof kind);
    if (std::strcmp(kind, "#32770") != 0) return TRUE;
    if (HWND height = GetDlgItem(box, HEIGHTEDIT)) {
        char text[32] = "";
        GetWindowTextA(height, text, sizeof text);
        reply.height = text;
    }
    if (reply.control) SetDlgItemTextA(box, reply.control, reply.text);
    reply.seen++;
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(reply.button), 0);
    return FALSE;
}

void CALLBACK look(HWND, UINT, UINT_PTR, DWORD)
{
    EnumThreadWindows(GetCurrentThreadId(), press, 0);
}

struct timed {
    explicit timed(answer given)
    {
        reply = given;
        timer = SetTimer(nullptr, 0, 100, look);
    }
    ~timed()
    {
        KillTimer(nullptr, timer);
    }
    UINT_PTR timer;
};

fontrecord arial()
{
    fontrecord font = {};
    font.height = 192;
    font.width = 55;
    std::strcpy(font.face, "Arial");
    font.weight = 700;
    font.italic = 1;
    return font;
}

} // namespace

TEST_CASE("a colour is chosen or not")
{
    uint32_t word = 0x11223345;
    int32_t result = 7;
    SUBCASE("OK gives it back")
    {
        timed t({IDOK, 0, nullptr, 0, {}});
        CHECK_FALSE(choosecolour(0, 0, &word, &result));
        CHECK(reply.seen >= 1);
        CHECK((result & 1) == 1);
        CHECK(word == 0x11223300);
    }
    SUBCASE("another")
    {
        timed t({IDOK, REDEDIT, "200", 0, {}});
        CHECK_FALSE(choosecolour(0, 0, &word, &result));
        CHECK((result & 1) == 1);
        CHECK((word & 0xFF) == 0);
        CHECK((word >> 8 & 0xFF) == 200);
    }
    SUBCASE("cancel")
    {
        timed t({IDCANCEL, REDEDIT, "200", 0, {}});
        CHECK_FALSE(choosecolour(0, 0, &word, &result));
        CHECK(reply.seen >= 1);
        CHECK((result & 1) == 0);
        CHECK(word == 0x11223345);
    }
}

TEST_CASE("a font is chosen or not")
{
    REQUIRE(modeinfo.ydpi > 0);
    fontrecord font = arial();
    int32_t result = 7;
    SUBCASE("OK gives it back, but for its width")
    {
        timed t({IDOK, 0, nullptr, 0, {}});
        CHECK_FALSE(choosefont(0, 0, &font, &result));
        CHECK(reply.seen >= 1);
        CHECK((result & 1) == 1);
        CHECK(font.height == 192);
        CHECK(font.width == 0);
        CHECK(std::string(font.face) == "Arial");
        CHECK(font.weight == 700);
        CHECK(font.italic == 1);
    }
    SUBCASE("cancel")
    {
        timed t({IDCANCEL, 0, nullptr, 0, {}});
        CHECK_FALSE(choosefont(0, 0, &font, &result));
        CHECK(reply.seen >= 1);
        CHECK((result & 1) == 0);
        fontrecord before = arial();
        CHECK(std::memcmp(&font, &before, sizeof font) == 0);
    }
    SUBCASE("a face longer than the system's is cut")
    {
        std::memset(font.face, 'x', 63);
        timed t({IDOK, 0, nullptr, 0, {}});
        CHECK_FALSE(choosefont(0, 0, &font, &result));
        CHECK(reply.seen >= 1);
        CHECK(std::strlen(font.face) < 32);
    }
}

// Keys as the system knows them: what types a character, what scrolls, hot keys.
#include "desktop/keynames.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/filters.h"
#include "desktop/hotkeys.h"
#include "desktop/stages.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <string>

namespace
{

std::string seen;

errorblock *scrolled(const systemmessage *message, intptr_t letter, int *stop, intptr_t *, int *)
{
    seen += static_cast<char>(letter) + std::to_string(message->wparam) + ";";
    *stop = 1;
    return nullptr;
}

errorblock *pressed(window, int32_t id, int32_t key)
{
    seen += std::to_string(id) + " " + keyname(key) + ";";
    return nullptr;
}

errorblock *alsopressed(window, int32_t, int32_t)
{
    seen += "also;";
    return nullptr;
}

struct keywindow {
    HWND h;
    window w;
    int32_t blocks; // of the window itself

    keywindow()
    {
        REQUIRE(inittemp() == nullptr);
        REQUIRE(blockstart() == nullptr);
        h = CreateWindowA("Task", "Keys of the test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 300,
                          200, nullptr, nullptr, nullptr, nullptr);
        w = reinterpret_cast<window>(h);
        CHECK(addfilter(scrolled, WM_VSCROLL, w, 'v') == nullptr);
        CHECK(addfilter(scrolled, WM_HSCROLL, w, 'h') == nullptr);
        blocks = blockcount();
        drivepump(50);
        seen.clear();
    }
    ~keywindow()
    {
        DestroyWindow(h);
        blockend();
    }
};

} // namespace

TEST_CASE("the key that types a character")
{
    CHECK(charkeycode('a') == (KEYPRESS | 'A'));
    CHECK(charkeycode('A') == (KEYPRESS | KEYSHIFT | 'A'));
    CHECK(charkeycode('7') == (KEYPRESS | '7'));
    CHECK(charkeycode(' ') == (KEYPRESS | 0x20));
    CHECK(charkeycode(0x2260) == -1);
    CHECK(charkeycode(-1) == -1);
}

TEST_CASE("keys that scroll are claimed, by lines upright and by pages sideways")
{
    keywindow k;
    for (int32_t key = KEYPAGEUP; key <= KEYDOWN; key++) {
        int32_t code = KEYPRESS | key;
        CHECK(scrollkey(k.w, &code) == nullptr);
        CHECK(code == KEYCLAIMED);
    }
    CHECK(seen == "v2;v3;v7;v6;h2;v0;h3;v1;");
    for (int32_t other : {KEYPRESS | KEYCTRL | KEYUP, KEYDOWN, KEYPRESS | KEYINSERT}) {
        int32_t code = other;
        scrollkey(k.w, &code);
        CHECK(code == other);
    }
    CHECK(seen == "v2;v3;v7;v6;h2;v0;h3;v1;");
}

TEST_CASE("a hot key reaches its window's handlers, whoever has the focus")
{
    keywindow k;
    int32_t key = keynumber("C_F9"), other = keynumber("CS_F9");
    REQUIRE(addhotkeyhandler(pressed, k.w, 5, key) == nullptr);
    REQUIRE(addhotkeyhandler(pressed, k.w, 6, other) == nullptr);
    REQUIRE(addhotkeyhandler(alsopressed, k.w, 5, key) == nullptr);
    CHECK(addhotkeyhandler(pressed, k.w, 5, key) == nullptr); // is there already
    CHECK(blockcount() == k.blocks + 3);

    HWND front = CreateWindowA("Task", "In front", WS_POPUP | WS_VISIBLE, 400, 50, 100, 100,
                               nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(front);
    drivepump(50);
    drivekey(VK_F9, DRIVECTRL);
    CHECK(seen == "5 Ctrl+F9;also;");
    seen.clear();
    drivekey(VK_F9, DRIVECTRL | DRIVESHIFT);
    CHECK(seen == "6 Ctrl+Shift+F9;");

    seen.clear();
    remhotkeyhandler(pressed, k.w, 5, key);
    drivekey(VK_F9, DRIVECTRL);
    CHECK(seen == "also;");
    seen.clear();
    remhotkeyhandler(alsopressed, k.w, 5, key);
    drivekey(VK_F9, DRIVECTRL);
    CHECK(seen.empty());
    remhotkeyhandler(pressed, k.w, 6, other);
    CHECK(blockcount() == k.blocks);
    DestroyWindow(front);
}

TEST_CASE("a hot key that is taken, or is none, adds nothing")
{
    keywindow k;
    HWND h = CreateWindowA("Task", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    auto second = reinterpret_cast<window>(h);
    int32_t key = keynumber("C_F9");
    REQUIRE(addhotkeyhandler(pressed, k.w, 5, key) == nullptr);
    errorblock *err = addhotkeyhandler(pressed, second, 5, key);
    REQUIRE(err != nullptr);
    CHECK(std::string(err->text).find("(RegisterHotKey)") != std::string::npos);
    CHECK(addhotkeyhandler(pressed, k.w, 6, -1) != nullptr);
    CHECK(blockcount() == k.blocks + 1);
    remhotkeyhandler(pressed, k.w, 5, key);
    CHECK(addhotkeyhandler(pressed, second, 5, key) == nullptr); // it is free again
    remhotkeyhandler(pressed, second, 5, key);
    DestroyWindow(h);
}

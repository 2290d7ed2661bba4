// Keys as the system knows them: what types a character, what scrolls, hot keys.
#include "desktop/keynames.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/filters.h"
#include "desktop/hotkeys.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"

#include <doctest/doctest.h>

#include <string>

namespace
{

errorblock *scrolled(const systemmessage *message, intptr_t letter, int *stop, intptr_t *, int *)
{
    said("%c%d;", static_cast<char>(letter), static_cast<int>(message->wparam));
    *stop = 1;
    return nullptr;
}

errorblock *pressed(window, int32_t id, int32_t key)
{
    said("%d %s;", id, keyname(key));
    return nullptr;
}

errorblock *alsopressed(window, int32_t, int32_t)
{
    said("also;");
    return nullptr;
}

struct keywindow {
    window w;
    int32_t blocks; // of the window itself

    keywindow()
    {
        REQUIRE(blockstart() == nullptr);
        w = taskwindow(WS_OVERLAPPEDWINDOW | WS_VISIBLE);
        CHECK(addfilter(scrolled, WM_VSCROLL, w, 'v') == nullptr);
        CHECK(addfilter(scrolled, WM_HSCROLL, w, 'h') == nullptr);
        blocks = blockcount();
        drivepump(50);
        taken();
    }
    ~keywindow()
    {
        taskwindowsend();
        blockend();
    }
};

} // namespace

TEST_CASE("the key that types a character")
{
    CHECK(charkeycode('a') == (KEYPRESS | 'A'));
    CHECK(charkeycode('A') == (KEYPRESS | KEYSHIFT | 'A'));
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
    CHECK(taken() == "v2;v3;v7;v6;h2;v0;h3;v1;");
    for (int32_t other : {KEYPRESS | KEYCTRL | KEYUP, KEYDOWN, KEYPRESS | KEYINSERT}) {
        int32_t code = other;
        scrollkey(k.w, &code);
        CHECK(code == other);
    }
    CHECK(taken() == "");
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

    window front = taskwindow(WS_POPUP | WS_VISIBLE);
    SetForegroundWindow(taskhandle(front));
    drivepump(50);
    drivekey(VK_F9, DRIVECTRL);
    CHECK(taken() == "5 Ctrl+F9;also;");
    drivekey(VK_F9, DRIVECTRL | DRIVESHIFT);
    CHECK(taken() == "6 Ctrl+Shift+F9;");

    remhotkeyhandler(pressed, k.w, 5, key);
    drivekey(VK_F9, DRIVECTRL);
    CHECK(taken() == "also;");
    remhotkeyhandler(alsopressed, k.w, 5, key);
    drivekey(VK_F9, DRIVECTRL);
    CHECK(taken() == "");
    remhotkeyhandler(pressed, k.w, 6, other);
    CHECK(blockcount() == k.blocks);
}

TEST_CASE("a hot key that is taken, or is none, adds nothing")
{
    keywindow k;
    window second = taskwindow(WS_POPUP);
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
}

// Keys of a real keyboard: who hears of them, how the focus moves, what scrolls.
#include "desktop/keys.h"

#include "base/errors.h"
#include "desktop/handlers.h"
#include "desktop/hotkeys.h"
#include "desktop/icons.h"
#include "desktop/keynames.h"
#include "desktop/windows.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

TEST_CASE("a letter is a press and then its character, once each, wherever keys lead")
{
    for (const char *flags : {"flags 0", "flags 0x20"}) { // no navigation
        script s(CONTROLS, "key");
        s.play({{flags, ""},
                {"type A", "key 5000010 -1;key 5000041 -1;key 41 -1;"},
                {"key C_F5", "key 6000011 -1;key 6000074 -1;"},
                {"key CDown", "key 4000028 -1;"}});
    }
    // Of handlers one that claims a key is the last to hear of it.
    script s(PLAIN, "key1 key2 key3");
    s.play({{"let 65; type a", "key1 4000041 -1;key2 4000041 -1;"},
            {"type b", "key1 4000042 -1;key2 4000042 -1;key3 4000042 -1;"
                       "key1 62 -1;key2 62 -1;key3 62 -1;"},
            {"rem key1; rem key2; key A_Q", "key3 c000012 -1;key3 c000051 -1;*"}});
}

TEST_CASE("Tab moves between the controls, unless it is claimed or the window has no navigation")
{
    script s(CONTROLS, "");
    s.play({{"key Tab; ?caret", "10 0 0;"},
            {"key Tab; key Tab; ?caret", "14 0 0;"},
            {"key Tab; ?caret; key S_Tab; ?caret", "10 0 0;14 0 0;"},
            {"focus -1; add key2; let 9; key Tab; ?caret", "key2 4000009 -1;-1 -1 -1;"},
            {"let 0; flags 0x20; key Tab; ?caret", "key2 4000009 -1;key2 9 -1;-1 -1 -1;"}});
}

TEST_CASE("a field has its keys for itself, and tells of its changes")
{
    script s(CONTROLS, "key text1 text2");
    s.play({
        {"focus 10", ""},
        {"type q", "text1 10;text2 10;"},
        {"key Return; key Escape; ?text 10", "key d 10;key 1b 10;q;"},
        {"key Tab; key Tab; ?caret", "14 0 0;"},
        {"text 10 set", "text1 10;text2 10;"},
        // A change of windows leaves the focus where it was.
        {"rem text1; rem text2; another; front; ?caret", "14 0 0;"},
        {"focus -1; frontother; front; ?caret", "-1 -1 -1;"},
    });
}

TEST_CASE("a hot key reaches its window's handlers, whoever has the focus; and one takes it")
{
    hotkeyfunction pressed = [](window, int32_t id, int32_t key) -> errorblock * {
        said("%d %s;", id, keyname(key));
        return nullptr;
    };
    script s(PLAIN);
    window second = taskwindow(WS_POPUP);
    int32_t key = keynumber("C_F9");
    REQUIRE_FALSE(addhotkeyhandler(pressed, s.w, 5, key));
    CHECK(addhotkeyhandler(pressed, second, 5, key));
    s.play({{"another; key C_F9", "5 Ctrl+F9;", [&] { remhotkeyhandler(pressed, s.w, 5, key); }},
            {"key C_F9", ""}});
    CHECK_FALSE(addhotkeyhandler(pressed, second, 5, key)); // it is free again
    remhotkeyhandler(pressed, second, 5, key);
}

TEST_CASE("keys that scroll are claimed, by lines upright and by pages sideways")
{
    script s(SCROLLS);
    REQUIRE_FALSE(setextent(s.w, 0, -4000, 6000, 0));
    const struct {
        int32_t key;
        const char *view;
    } rows[] = {{KEYRIGHT, "531 0;"},     {KEYLEFT, "0 0;"},    {KEYDOWN, "0 -34;"},
                {KEYUP, "0 0;"},          {KEYEND, "0 -3656;"}, {KEYHOME, "0 0;"},
                {KEYPAGEDOWN, "0 -343;"}, {KEYPAGEUP, "0 0;"},  {KEYINSERT, nullptr}};
    for (const auto &r : rows) {
        int32_t code = KEYPRESS | r.key;
        CHECK_FALSE(scrollkey(s.w, &code));
        CHECK(code == (r.view ? KEYCLAIMED : KEYPRESS | r.key));
        if (r.view) CHECK(s.act("?view") == r.view);
    }
}

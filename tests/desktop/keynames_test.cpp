#include "desktop/keynames.h"

#include <doctest/doctest.h>

#include <map>
#include <string>
#include <utility>

TEST_CASE("every key with every modifier comes back from its code and its binding")
{
    std::map<int32_t, int32_t> seen; // by code, the number
    for (int32_t modifier = 0; modifier < 16; modifier++)
        for (int32_t key = 0; key < KEYNAMES; key++) {
            int32_t number = modifier << 8 | key;
            CAPTURE(number);
            int32_t code = keycodefromnumber(number);
            REQUIRE((code & KEYPRESS) != 0);
            int32_t first = seen.insert({code, number}).first->second;
            CHECK(keynumberfromcode(code) == first);
            std::string binding = keybinding(code);
            CHECK(keynumber(binding.c_str()) == first);
            CHECK(keycodefromname(binding.c_str()) == code);
        }
    CHECK(seen.size() == 108 * 16); // Enter is Return
    for (int32_t code : {0x40000FF, KEYCLAIMED})
        CHECK((keynumberfromcode(code) == -1 && !*keybinding(code)));
    for (int32_t number : {-1, KEYNAMES, 0xFFF, 0x1000, 0x7FFFFFFF})
        CHECK((keycodefromnumber(number) == -1 && !*keyname(number)));
}

TEST_CASE("names in any case have a number, a code and a text that is shown")
{
    const struct {
        const char *name;
        int32_t number, code;
        const char *shown;
    } rows[] = {{"K", 66, 0x400004B, "K"},
                {"k4", 71, 0x4000064, "Keypad 4"},
                {"WW", 0x828, 0x14000057, "Win+W"},
                {"WACS_F1", 0xF01, 0x1F000070, "Win+Alt+Ctrl+Shift+F1"}};
    for (const auto &row : rows) {
        CAPTURE(row.name);
        CHECK(keynumber(row.name) == row.number);
        CHECK(keycodefromname(row.name) == row.code);
        CHECK(std::string(keynamelong(row.number)) == row.shown);
    }
    CHECK(std::string(keyname(0x223)) == "Ctrl+K/"); // the short way
    for (const char *name : {"", "C_", "SC_F1", "WC_", "F25", "Spac", "Spacebar", "C_C_A", "CS_ A"})
        CHECK((keynumber(name) == -1 && keycodefromname(name) == -1));
}

TEST_CASE("keys of commands and of functions")
{
    int commands = 0, functions = 0;
    for (int32_t flags : {0, KEYSHIFT, KEYCTRL, KEYCTRL | KEYSHIFT, KEYALT})
        for (int32_t key = 0; key < 256; key++) {
            commands += iscommandkey(KEYPRESS | flags | key);
            functions += isfunctionkey(KEYPRESS | flags | key);
            CHECK((!iscommandkey(flags | key) && !isfunctionkey(flags | key))); // characters
        }
    CHECK((commands == 2 * 36 && functions == 4 * 12));
}

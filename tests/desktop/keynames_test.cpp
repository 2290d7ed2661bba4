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
}

TEST_CASE("keys and modifiers have their numbers and codes")
{
    const std::pair<const char *, int32_t> keys[] = {{"Escape", 0}, {"F12", 12}, {"0", 26},
                                                     {"Q", 39},     {"\\", 51},  {"Space", 89},
                                                     {"Enter", 95}, {"F24", 108}};
    for (auto [name, number] : keys)
        CHECK(keynumber(name) == number);
    int32_t modifier = 0;
    for (const char *prefix : {"", "S_", "C_", "A_", "CS_", "AS_", "AC_", "ACS_", "W"})
        CHECK(keynumber((std::string(prefix) + "Escape").c_str()) == modifier++ << 8);

    const std::pair<const char *, int32_t> codes[] = {
        {"Copy", 0x4000023},  {"Print", 0x400002A}, {"Enter", 0x400000D}, {"`", 0x40000DF},
        {"#", 0x40000DE},     {"K#", 0x400006C},    {"'", 0x40000C0},     {"Help", 0x400002F},
        {"CS_F4", 0x7000073}, {"WA_K4", 0x1C000064}};
    for (auto [name, code] : codes)
        CHECK(keycodefromname(name) == code);
}

TEST_CASE("names are read in any case, and what is none is refused")
{
    CHECK(keynumber("cs_pageup") == keynumber("CS_PageUp"));
    CHECK(keynumber("W") == 40); // not the prefix alone
    CHECK(keynumber("w") == 40);
    CHECK(keynumber("WW") == 0x828);
    CHECK(keynumber("S_W") == 0x128);
    for (const char *name : {"", "C_", "SC_F1", "WC_", "F25", "Spac", "Spacebar", "C_C_A", "CS_ A"})
        CHECK(keynumber(name) == -1);
    CHECK(keycodefromname("F25") == -1);
    CHECK(keynumberfromcode(0x40000FF) == -1);
    CHECK(keynumberfromcode(KEYCLAIMED) == -1);
    for (int32_t number : {-1, KEYNAMES, 0xFFF, 0x1000, 0x7FFFFFFF})
        CHECK(keycodefromnumber(number) == -1);
}

TEST_CASE("keys are shown to users")
{
    using text = std::string;
    CHECK(text(keyname(keynumber("K4"))) == "K4");
    CHECK(text(keynamelong(keynumber("K"))) == "K");
    CHECK(text(keynamelong(keynumber("CS_K/"))) == "Ctrl+Shift+Keypad /");
    CHECK(text(keynamelong(keynumber("WACS_PageDown"))) == "Win+Alt+Ctrl+Shift+PageDown");
    CHECK(text(keyname(keynumber("WEscape"))) == "Win+Escape");
    CHECK(text(keyname(-1)).empty());
    CHECK(text(keybinding(0x40000FF)).empty());
    CHECK(text(keybinding(KEYPRESS | KEYSHIFT | KEYDELETE)) == "S_Delete");
}

TEST_CASE("keys of commands and of functions")
{
    CHECK(iscommandkey(KEYPRESS | 'A') == 1);
    CHECK(iscommandkey(KEYPRESS | KEYSHIFT | '9') == 1);
    CHECK(iscommandkey('A') == 0); // the character
    CHECK(iscommandkey(KEYPRESS | KEYCTRL | 'A') == 0);
    CHECK(iscommandkey(KEYPRESS | '@') == 0);
    CHECK(iscommandkey(KEYPRESS | '[') == 0);
    CHECK(iscommandkey(KEYPRESS | KEYF1) == 0);

    int functions = 0;
    for (int32_t flags : {0, KEYSHIFT, KEYCTRL, KEYCTRL | KEYSHIFT})
        for (int32_t key = 0; key < 256; key++)
            functions += isfunctionkey(KEYPRESS | flags | key);
    CHECK(functions == 48);
    CHECK(isfunctionkey(KEYPRESS | KEYCTRL | 0x7B) == 1);
    CHECK(isfunctionkey(KEYPRESS | KEYALT | KEYF1) == 0);
    CHECK(isfunctionkey(KEYF1) == 0);
}

#include "desktop/keynames.h"

#include "base/text.h"

#include <cstdio>
#include <cstring>
#include <iterator>

struct keyrow {
    const char *name;
    uint8_t key; // the system's
};

// In the order of a keyboard's rows, then what few keyboards have.
static const keyrow keytable[] = {
    {"Escape", 0x1B}, {"F1", 0x70},     {"F2", 0x71},     {"F3", 0x72},     {"F4", 0x73},
    {"F5", 0x74},     {"F6", 0x75},     {"F7", 0x76},     {"F8", 0x77},     {"F9", 0x78},
    {"F10", 0x79},    {"F11", 0x7A},    {"F12", 0x7B},    {"Print", 0x2A},  {"SLock", 0x91},
    {"Break", 0x13},  {"`", 0xDF},      {"1", '1'},       {"2", '2'},       {"3", '3'},
    {"4", '4'},       {"5", '5'},       {"6", '6'},       {"7", '7'},       {"8", '8'},
    {"9", '9'},       {"0", '0'},       {"-", 0xBD},      {"=", 0xBB},      {"#", 0xDE},
    {"BS", 0x08},     {"Insert", 0x2D}, {"Home", 0x24},   {"PageUp", 0x21}, {"NLock", 0x90},
    {"K/", 0x6F},     {"K*", 0x6A},     {"K#", 0x6C},     {"Tab", 0x09},    {"Q", 'Q'},
    {"W", 'W'},       {"E", 'E'},       {"R", 'R'},       {"T", 'T'},       {"Y", 'Y'},
    {"U", 'U'},       {"I", 'I'},       {"O", 'O'},       {"P", 'P'},       {"[", 0xDB},
    {"]", 0xDD},      {"\\", 0xDC},     {"Delete", 0x2E}, {"Copy", 0x23},   {"PageDown", 0x22},
    {"K7", 0x67},     {"K8", 0x68},     {"K9", 0x69},     {"K-", 0x6D},     {"A", 'A'},
    {"S", 'S'},       {"D", 'D'},       {"F", 'F'},       {"G", 'G'},       {"H", 'H'},
    {"J", 'J'},       {"K", 'K'},       {"L", 'L'},       {";", 0xBA},      {"'", 0xC0},
    {"Return", 0x0D}, {"K4", 0x64},     {"K5", 0x65},     {"K6", 0x66},     {"K+", 0x6B},
    {"Z", 'Z'},       {"X", 'X'},       {"C", 'C'},       {"V", 'V'},       {"B", 'B'},
    {"N", 'N'},       {"M", 'M'},       {",", 0xBC},      {".", 0xBE},      {"/", 0xBF},
    {"CUp", 0x26},    {"K1", 0x61},     {"K2", 0x62},     {"K3", 0x63},     {"Space", 0x20},
    {"CLeft", 0x25},  {"CRight", 0x27}, {"CDown", 0x28},  {"K0", 0x60},     {"K.", 0x6E},
    {"Enter", 0x0D},  {"Help", 0x2F},   {"F13", 0x7C},    {"F14", 0x7D},    {"F15", 0x7E},
    {"F16", 0x7F},    {"F17", 0x80},    {"F18", 0x81},    {"F19", 0x82},    {"F20", 0x83},
    {"F21", 0x84},    {"F22", 0x85},    {"F23", 0x86},    {"F24", 0x87}};
static_assert(std::size(keytable) == KEYNAMES);

struct modifierrow {
    const char *prefix, *shown;
    int32_t flags;
};

// By modifier number; the second half is the first with the Windows key.
static const modifierrow modifiers[] = {
    {"", "", 0},
    {"S_", "Shift", KEYSHIFT},
    {"C_", "Ctrl", KEYCTRL},
    {"A_", "Alt", KEYALT},
    {"CS_", "Ctrl+Shift", KEYCTRL | KEYSHIFT},
    {"AS_", "Alt+Shift", KEYALT | KEYSHIFT},
    {"AC_", "Alt+Ctrl", KEYALT | KEYCTRL},
    {"ACS_", "Alt+Ctrl+Shift", KEYALT | KEYCTRL | KEYSHIFT},
    {"W", "Win", KEYWINDOWS},
    {"WS_", "Win+Shift", KEYWINDOWS | KEYSHIFT},
    {"WC_", "Win+Ctrl", KEYWINDOWS | KEYCTRL},
    {"WA_", "Win+Alt", KEYWINDOWS | KEYALT},
    {"WCS_", "Win+Ctrl+Shift", KEYWINDOWS | KEYCTRL | KEYSHIFT},
    {"WAS_", "Win+Alt+Shift", KEYWINDOWS | KEYALT | KEYSHIFT},
    {"WAC_", "Win+Alt+Ctrl", KEYWINDOWS | KEYALT | KEYCTRL},
    {"WACS_", "Win+Alt+Ctrl+Shift", KEYWINDOWS | KEYALT | KEYCTRL | KEYSHIFT},
};
constexpr int32_t MODIFIERS = 16;
static_assert(std::size(modifiers) == MODIFIERS);

constexpr int32_t MODIFIERFLAGS = KEYSHIFT | KEYCTRL | KEYALT | KEYWINDOWS;

static bool isnumbered(int32_t number)
{
    return number >= 0 && number < MODIFIERS << 8 && (number & 0xFF) < KEYNAMES;
}

static int32_t namedkey(const char *name)
{
    for (int32_t i = 0; i < KEYNAMES; i++)
        if (!cstricmp(keytable[i].name, name)) return i;
    return -1;
}

// The longest prefix comes first. One with no key behind it is none: W is a key
// and a prefix.
int32_t keynumber(const char *name)
{
    for (int32_t modifier = MODIFIERS - 1; modifier >= 0; modifier--) {
        const char *prefix = modifiers[modifier].prefix;
        if (cstrstarts(name, prefix)) continue;
        int32_t key = namedkey(name + strlen(prefix));
        if (key != -1) return modifier << 8 | key;
    }
    return -1;
}

int32_t keycodefromname(const char *name)
{
    return keycodefromnumber(keynumber(name));
}

int32_t keynumberfromcode(int32_t code)
{
    int32_t key = 0, modifier = 0;
    while (key < KEYNAMES && keytable[key].key != (code & 0xFF))
        key++;
    while (modifier < MODIFIERS && modifiers[modifier].flags != (code & MODIFIERFLAGS))
        modifier++;
    return code < 0 || key == KEYNAMES ? -1 : modifier << 8 | key;
}

int32_t keycodefromnumber(int32_t number)
{
    if (!isnumbered(number)) return -1;
    return KEYPRESS | modifiers[number >> 8].flags | keytable[number & 0xFF].key;
}

static char shown[40];

static const char *show(int32_t number, bool whole)
{
    shown[0] = 0;
    if (!isnumbered(number)) return shown;
    const char *modifier = modifiers[number >> 8].shown;
    const char *name = keytable[number & 0xFF].name;
    bool keypad = whole && name[0] == 'K' && name[1];
    snprintf(shown, sizeof shown, "%s%s%s%s", modifier, *modifier ? "+" : "",
             keypad ? "Keypad " : "", keypad ? name + 1 : name);
    return shown;
}

const char *keyname(int32_t number)
{
    return show(number, false);
}

const char *keynamelong(int32_t number)
{
    return show(number, true);
}

const char *keybinding(int32_t code)
{
    int32_t number = keynumberfromcode(code);
    shown[0] = 0;
    if (number != -1)
        snprintf(shown, sizeof shown, "%s%s", modifiers[number >> 8].prefix,
                 keytable[number & 0xFF].name);
    return shown;
}

bool iscommandkey(int32_t code)
{
    int32_t key = code & ~(KEYPRESS | KEYSHIFT);
    return code & KEYPRESS && ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'));
}

bool isfunctionkey(int32_t code)
{
    int32_t key = code & ~(KEYPRESS | KEYSHIFT | KEYCTRL);
    return code & KEYPRESS && key >= KEYF1 && key < KEYF1 + 12;
}

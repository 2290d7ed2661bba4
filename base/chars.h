// base/chars.h - character classes and case of code page 1252.
//
// The same tables on every platform: nothing here asks the runtime's locale.
#pragma once

#include <cstdint>

// Upper- and lower-case form of a character, itself if it has none. Pairs are
// a-z, 224-246 and 248-254 (32 below), 154/138, 156/140 and 255/159; every
// other character, 223 and 181 among them, is its own upper-case form.
uint8_t charupper(uint8_t ch);
uint8_t charlower(uint8_t ch);

// A letter of the code page, accented ones included.
bool charisletter(uint8_t ch);

// A letter of ASCII, and the case of those alone.
constexpr bool asciiletter(uint8_t ch)
{
    return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z');
}
constexpr uint8_t asciiupper(uint8_t ch)
{
    return ch >= 'a' && ch <= 'z' ? static_cast<uint8_t>(ch - 32) : ch;
}
constexpr uint8_t asciilower(uint8_t ch)
{
    return ch >= 'A' && ch <= 'Z' ? static_cast<uint8_t>(ch + 32) : ch;
}

// desktop/keys.h - key codes.
//
// A typed letter gives two key events: the press, with KEYPRESS set and the
// system's virtual key in the low byte, and then its character, without any
// flag. A handler tests for the form that it wants, and writes KEYCLAIMED to
// what it has used.
#pragma once

#include "desktop/events.h"

#include <cstdint>

constexpr int32_t KEYPRESS = 0x4000000;
constexpr int32_t KEYSHIFT = 0x1000000;
constexpr int32_t KEYCTRL = 0x2000000;
constexpr int32_t KEYALT = 0x8000000;
constexpr int32_t KEYWINDOWS = 0x10000000;

// Characters, and virtual keys behind KEYPRESS.
constexpr int32_t KEYBACKSPACE = 8, KEYTAB = 9, KEYRETURN = 13, KEYESCAPE = 27, KEYSPACE = 32;
constexpr int32_t KEYPAGEUP = 0x21, KEYPAGEDOWN = 0x22, KEYEND = 0x23, KEYHOME = 0x24,
                  KEYLEFT = 0x25, KEYUP = 0x26, KEYRIGHT = 0x27, KEYDOWN = 0x28, KEYINSERT = 0x2D,
                  KEYDELETE = 0x2E, KEYF1 = 0x70;

// When the last key event came, by tickcount. Changed by keydeliver.
extern uint32_t keytime;

// The state of the keys now, as flags of a key code.
int32_t keymodifiers();

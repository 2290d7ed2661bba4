// desktop/keynames.h - keys by name: bindings read from text and shown in menus.
//
// A key number is the index of a key in a table that follows the rows of a
// keyboard, with a modifier number in bits 8 to 10 and the Windows key in bit 11.
// The table's names are short and old: Copy is the End key, a K in front of
// another character means the keypad. Return and Enter are one key to the
// system; a code's number is that of Return.
//
// Codes are those of keys.h, always presses. Where there is no such key, number
// or code, a call gives -1, and a name is empty. Names stand in one static text,
// good until the next call that gives one.
#pragma once

#include "desktop/keys.h"

constexpr int32_t KEYNAMES = 109;

// What a binding says: a prefix of modifiers and a name, such as "CS_F4" or
// "WSpace", in capitals or small letters.
int32_t keynumber(const char *name);
int32_t keycodefromname(const char *name);

int32_t keynumberfromcode(int32_t code);
int32_t keycodefromnumber(int32_t number);

// For a user's eyes: "Ctrl+Shift+K4", or in full "Ctrl+Shift+Keypad 4".
const char *keyname(int32_t number);
const char *keynamelong(int32_t number);

// The form that keynumber reads.
const char *keybinding(int32_t code);

// Presses of a letter or digit, shifted or not, and of F1 to F12 with any of
// Shift and Ctrl: 1, else 0.
bool iscommandkey(int32_t code);
bool isfunctionkey(int32_t code);

// The key that types a character on this keyboard.
int32_t charkeycode(int32_t character);

// Scrolls the window by a plain press of a key that moves, and claims it. Left
// and Right go by a page, as pages are what one turns sideways; Up and Down by
// a line.
errorblock *scrollkey(window w, int32_t *code);

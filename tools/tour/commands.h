// tools/tour/commands.h - the identifiers that the tour needs: entries of the menu
// bar (resources/menus.rc) and controls (resources/templates.rc).
#pragma once

#include <cstdint>

constexpr int32_t NEWWORDS = 40002, SAVEGRIDAS = 40004, SAVECLUESAS = 40005, SIZE = 40008,
                  UPPERCASE = 40013, LOWERCASE = 40014, ABOUT = 40016, SPELLCHECK = 40017,
                  LOAD = 40018, EDITDICT = 40019, CREATE = 40020, CUSTOMISE = 40026,
                  CHOICES = 40027, WORDSQUARE = 40031;

// The bars.
constexpr int32_t SOLVE = 1001, ANAGRAM = 1002, LETTERS = 1007, MARKLENGTH = 1008;
constexpr int32_t WORD = 1027, MAKE = 1025;

// Dialogs.
constexpr int32_t OK = 1, CANCEL = 2;
constexpr int32_t WIDTH = 1008, HEIGHT = 1010; // Grid Size
constexpr int32_t CHECKCLOSE = 1026;           // Spell Check
constexpr int32_t EDITFIELD = 1017;            // Edit
constexpr int32_t NEWNAME = 1030;              // Create New Dictionary

// Of the boxes for files: rows of their types.
constexpr int32_t TYPEGRID = 1, TYPEENHANCED = 2;

// Keys.
constexpr int32_t KEYRETURN = 0x0D, KEYESCAPE = 0x1B;

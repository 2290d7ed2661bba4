// dict/dictwindow.h - what the dictionary set asks of the window side.
//
// The desktop program defines these where the comments below say; a program
// without windows links tools/headlessdict.cpp.
#pragma once

#include <cstdint>

struct errorblock;
struct Dictionary;
struct fontrecord;

// In dict/dictmenu.cpp.
void dictmenubuild(); // makes the menu of names anew
void dictmenudelete();

// Opens the editor on a loaded dictionary. In app/commands.cpp.
errorblock *dicteditopen(uint32_t number, Dictionary *dict, const char *name);

// Whether the user has the words of a dictionary open. In
// dict/dicteditwindow.cpp.
bool dictediting(uint32_t number);

// An import goes on: so many words have come so far. Whether the user wants it to end.
// Asked once in IMPORTPOLL words. In dict/dicteditfiles.cpp.
bool importpoll(int32_t words);
constexpr int32_t IMPORTPOLL = 1024;

// The lists of words take this font and measure it. Redraws nothing. In
// dict/wordpaint.cpp.
void dictmetricsupdate(const fontrecord *font);

// The document's list of dictionaries was changed by the user. In app/commands.cpp.
void dictsetchanged();

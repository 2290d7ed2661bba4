// dict/dictwindow.h - what the dictionary set asks of the window side.
//
// The desktop program defines these in its window files; a program without
// windows links tools/headlessdict.cpp.
#pragma once

#include <cstdint>

struct errorblock;
struct Dictionary;
struct fontrecord;

void dictmenubuild(); // makes the menu of names anew
void dictmenudelete();

// Opens the editor on a loaded dictionary.
errorblock *dicteditopen(uint32_t number, Dictionary *dict, const char *name);

// Whether the user has the words of a dictionary open.
bool dictediting(uint32_t number);

// The lists of words take this font and measure it. Redraws nothing.
void dictmetricsupdate(const fontrecord *font);

// The document's list of dictionaries was changed by the user.
void dictsetchanged();

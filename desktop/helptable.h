// desktop/helptable.h - the texts of controls, by template and icon, for windows
// whose help handler names a template.
//
// A table is lines of code page 1252:
//
//     Confirm,0,11:Answers the question.
//     / A line that is no entry.
//
// The name of a template, the icons that the text is for, the text. Icon 255 is
// the window itself; 254 answers for every icon that has no entry before it.
// The first entry that fits counts. A line of another form, and one of a
// template that nobody knows, is passed over.
//
//  - Entries of one template stand together, in the order of their lines, and
//    templates by their number.
#pragma once

#include <cstdint>

struct errorblock;

constexpr int32_t HELPWINDOW = 255, HELPDEFAULT = 254;

// MOVES. Adds the lines of size bytes. Errors: 2; the lines before it stay.
errorblock *helptableadd(const char *text, int32_t size);

// The text of an icon, -1 for the window, or 0. Good until the table changes.
const char *helptabletext(int32_t number, int32_t icon);

// An empty table.
void helptablereset();

// grid/appearance.h - what a document looks like until somebody says otherwise.
//
// One built-in slot holds a copy of everything that a document's appearance
// block holds, and of the fonts of the two lists. It starts as the factory has
// it; the default grid and Save As Default put the document's own in.
#pragma once

#include "grid/grid.h"

// The fonts of the solutions list and of the dictionary windows, which are the
// user's.
extern fontrecord solfont, dictfont;

// What the cursor's cell and marked cells are filled with, 0xBBGGRR00. They are
// the user's, not the document's: the choices alone change them.
constexpr uint32_t CURSORCOLOURDEFAULT = 0xFFBB0000, SELECTEDCOLOURDEFAULT = 0xBBEEEE00;
extern uint32_t cursorcolour, selectedcolour;

// The list fonts and the slot's, which whoever falls back on the slot gets.
void listfontsset(const fontrecord &solutions, const fontrecord &dictionaries);

// The slot and the user's colours as the factory has them; the document and the
// list fonts stay.
void appearancereset();

// The slot to the document and the list fonts.
void gridsetdefaults();

// The document to the slot, whose list fonts stay: those are the user's, not
// the document's.
void gridrememberdefaults();

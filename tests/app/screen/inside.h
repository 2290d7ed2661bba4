// tests/app/screen/inside.h - what deeds and sights share that know the program from
// inside; and the program's start for all scripts.
//
// It is started once and put back to a fresh start before each test: a new Crossword in
// the looks of a first start, in front, no dictionaries, no dialogs.
#pragma once

#include "dict/wordview.h"
#include "tests/app/screen/script.h"
#include "tests/support/win32/inside.h"

inline HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

// The window that a control is seen in, the front one first: 0 if in none.
window ownerof(int32_t control);

// The list of words of the editor, or else of the spell check: the one in front of two.
wordview *wordlist();

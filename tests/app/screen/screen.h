// tests/app/screen/screen.h - the program itself, started once and put back to a
// fresh start for each test: a new Crossword in the looks of a first start, no
// dictionaries, no dialogs.
#pragma once

// The main window is open, in front, and nothing is left to do.
void screenstart();

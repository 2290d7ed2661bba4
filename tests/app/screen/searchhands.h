// tests/app/screen/searchhands.h - the searches from their buttons, and the list
// that they fill.
#pragma once

#include "tests/support/driver.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct wsentry;

using list = std::vector<std::string>;

// The dictionary of these tests. The long word fits nowhere: without it New could
// lay the others over themselves for ever.
const list WORDS = {"act",   "art", "bat", "cat",  "cot", "ease", "incomprehensibly", "oat", "rat",
                    "stare", "tar", "tea", "teas", "toe", "tsar"};

// A Crossword from a picture, or an empty Wordsquare of so many cells each way.
// WORDS are in use.
void crosswordbegin(const std::string &picture);
void squarebegin(int32_t size);

// Marks the cells from a corner by dragging.
void markdrag(int32_t left, int32_t top, int32_t right, int32_t bottom);

// The bar: a press in its middle of a button, and text typed into a field.
void barpress(int control);
void bartype(int field, const std::string &text);

// A press of a button, and all that follows from it until no search runs;
// meanwhile the script, on its own thread, once the bar with Stop is there.
void searchrun(int control, const std::function<void()> &script = nullptr);

// For such scripts. Presses Stop; stops by Escape or Stop and returns what the box
// says that comes up then.
void stoppress();
std::string stopandread(bool escape);

// Whether the progress field may show this: it counts 1, then in tens, then in
// hundreds.
bool shownprogress(const std::string &text);

// For such scripts: a window is painted over, and drawn again by the search's own
// poll.
bool repaints(window w);

// What the list's rows say.
list listrows();

// A row's middle, in the list as it is scrolled, and a click there.
driveplace rowplace(int32_t row);
void rowclick(int32_t row, drivebutton button = DRIVELEFT, int held = 0);

// Whether a word lies in the grid where its entry says.
bool wordplaced(const wsentry &entry);

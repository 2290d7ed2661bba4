// tests/app/screen/script.h - what a user does with the program and then sees, as
// rows of a script.
//
//     TEST_CASE("a press on a row writes its word into the grid")
//     {
//         play({
//             {crossword, "c.t../..###"},
//             {drag, "0,0 2,0"}, {searched, BARSOLVE}, {listed, "cat, cot"},
//             {pick, 1},         {document, "cot../..###"}, {title, "Quillmere*"},
//         });
//     }
//
// A row does something, by a deed: {deed, control or number}, {deed, text} or both. Or it
// expects something, by a sight: {sight, text} or {sight, of what, text}. A deed waits
// until the program has nothing left to do; a sight is looked at until it is as
// expected, for some seconds. So no row waits for a time. A row that fails ends its
// script: its line, what was seen, and a picture of the screen are told.
//
// The user has a thread of his own, so that menus, boxes and searches can be up when
// the next row comes. The program runs on the main thread; what a new sight reads of
// the program's own it reads there, by ask. A new deed or sight is a function and a
// line here.
//
//  - A grid is its text picture, "/" for each end of a row: "ab#/...//left 1,1".
//  - A cell is "x,y"; deeds with the mouse take several: "0,0 3,0".
//  - Rows of lists count from 0, and are parted by ", ".
//  - Files are named by their leaf: those of dictionaries lie in the script's folder of
//    dictionaries, "Default" and "Choices" are the user's own, others lie in the run's
//    own. "|" is the end of a line.
//  - Controls, commands and menus are those of resources/identifiers.h; a control is
//    looked for in the front window first.
#pragma once

#include "resources/identifiers.h"
#include "tests/support/driver.h"

#include <windows.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <source_location>
#include <string>

using doing = void(int32_t on, const std::string &with);
using seeing = std::string(int32_t of, const std::string &named);
using deed = doing *;
using sight = seeing *;

struct step {
    using place = std::source_location;
    deed act = nullptr;
    sight see = nullptr;
    int32_t on = 0;
    std::string with, is;
    place at;

    step(deed d, int32_t o, const std::string &w = "", place p = place::current())
        : act(d), on(o), with(w), at(p)
    {
    }
    step(deed d, const std::string &w = "", place p = place::current()) : act(d), with(w), at(p) {}
    step(sight s, const std::string &i, place p = place::current()) : see(s), is(i), at(p) {}
    step(sight s, int32_t o, const std::string &i, place p = place::current())
        : see(s), on(o), is(i), at(p)
    {
    }
    step(sight s, int32_t o, const std::string &w, const std::string &i, place p = place::current())
        : see(s), on(o), with(w), is(i), at(p)
    {
    }
    step(sight s, const std::string &w, const std::string &i, place p = place::current())
        : see(s), with(w), is(i), at(p)
    {
    }
};

void play(std::initializer_list<step> rows);

// For deeds and sights: runs on the main thread, and the text that comes of it; a deed
// that finds no way says so, which fails its row.
std::string ask(const std::function<std::string()> &question);
void stumble(const std::string &why);
void decide(); // a sight that can't be looked at again: its row waits for no other answer
std::string place(const std::string &leaf); // the path of a file
std::string yes(bool holds);

// What stands beside a number of a deed: keys held and the other mouse button. They
// are added to a key, or alone the number of a deed with the mouse.
constexpr int32_t SHIFT = 0x100, CTRL = 0x200, ALT = 0x400, RIGHT = 0x800;
// Where something is dropped.
enum { ONMAIN, ONGRID, ONLIST, ONWORDS };
// A cell, or a dictionary's row and such, as the number of a sight.
constexpr int32_t cell(int32_t x, int32_t y)
{
    return x * 1000 + y;
}

// A menu that an entry of one in the bar opens, as the number of a sight.
constexpr int32_t UNDER = 100;
constexpr int32_t under(int32_t bar, int32_t entry)
{
    return bar + UNDER * (entry + 1);
}

// Where a script begins: a Crossword by its picture, a Wordsquare of so many cells each
// way, both with WORDS in use; dictionaries of its own, "mine: ant bee; other: else",
// in use or not (on is 1 or 0), and the shipped large one as that name, in use so many
// times, which a script must first ask for by largehere.
inline const std::string WORDS = "words: act art bat cat cot ease incomprehensibly oat rat stare "
                                 "tar tea teas toe tsar";
doing crossword, square, dictionaries, large;
bool largehere(); // false with a visible skip
doing another;    // another document, dictionaries as they are
doing setting;    // so much, of: minimum, limit, kind, directions, cursor

// The hands. With the mouse the number is what is held, or a row or a control.
doing click;           // cells, one after the other
doing drag;            // through cells
doing twitch;          // a cell, pressed, moved a little, let go
doing pick;            // a row of the solutions: "", right, ctrl, double
doing pickword;        // a row in an editor's or spell check's list
doing press;           // a control: "", right; high, low for arrows
doing fill, type, key; // a field anew; letters; a key, so many times
doing menu;            // a command by the keys; a dictionary's name
doing command;         // as a message, for preparation
doing split;           // drags the gap between the panes there, in thousandths
doing drop;            // leaves, ONMAIN and so on
doing searched;        // a control, pressed, and waited for its end
doing searchend;
doing front, aside;     // a window by its title; to the screen's corner, behind others
doing shut;             // by its system menu
doing resize;           // the main window: "500,400" at 96 dots; "max", "min", "back"
doing wheel;            // so many notches over the list
doing answer;           // a button, in a box of the system
doing choose;           // in a box for files: a row of types, from 1, 0 for none; a leaf; OK
doing retype;           // types a name there, and then chooses a row
doing pickcolour;       // a control and "200 100 50": the box it opens, OK
doing pickfont;         // a control and points
doing fresh, nextstart; // all as at a first start; reads what a start reads

// Files, and what other programs do to them.
doing put, erase;  // "words.txt cow|bee"
doing copyfile;    // "from to", cut to so many bytes; 0 for all
doing hold, letgo; // nobody else gets in, until
doing readonly;    // 1 or 0
doing nomemory;    // allocations fail after so many, -1 for no more

// The eyes.
extern const sight title, cursor, mark; // of the mark the corners, "0,0 3,0", or none
seeing document, marked;                // marked is how many cells
seeing listed;                          // the solutions
extern const sight count, selected;     // how many of them
seeing standing;                        // the solution that is shown as the grid's, or -1
seeing lying;                           // how many of them lie where they say
seeing text, ticked;                    // of a control
extern const sight there;               // a control in the bar
seeing focus;                           // a control has it; -1: a list of words
seeing box;                             // of the system: its text, or none
seeing offered;                         // of a box for files: "name row", in the run's own folder
extern const sight boxthere;            // one that says nothing, such as that for files
extern const sight shown, infront, enabled; // a title; the front one's; the main window
seeing entries;                             // of a menu of the bar, or of one under it
seeing word;                                // a list of words: its row
extern const sight wordrow, caretrow;       // the selected, the outlined one, or -1
seeing wordseen, wordink, outlined;         // the row is in view; behind it black, white; has dots
seeing words, kept;                         // of a dictionary, in memory and in its file
extern const sight inuse, known;            // dictionaries, as the grid names them; all
extern const sight changed;                 // words not saved
seeing file;                                // so many bytes of it, 0 for all; none
seeing quill;                               // its lines; "@leaf" is a path
seeing value;                               // of the model: see sights.cpp
seeing colour, sample;                      // of the middle of a cell, a control: "ffffff"
seeing inks;             // dots of a colour in the grid, or a control: none, some, many
seeing undrawn;          // pixels that a redraw changes
seeing repainted;        // painted over, it is drawn again
seeing scrolled;         // the grid, by cells: "1,2"
seeing layout;           // right: bar, list, gap and grid
bool recorded(bool now); // the folder of dictionaries in the system's records; false if it can't

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

using deed = void (*)(int32_t on, const std::string &with);
using sight = std::string (*)(int32_t of, const std::string &named);

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

// Where a script begins: a Crossword by its picture, a Wordsquare of so many cells each
// way, both with WORDS in use; dictionaries of its own, "mine: ant bee; other: else",
// in use or not (on is 1 or 0), and the shipped large one as that name, which a script
// must first ask for by largehere.
inline const std::string WORDS = "words: act art bat cat cot ease incomprehensibly oat rat stare "
                                 "tar tea teas toe tsar";
void crossword(int32_t, const std::string &picture);
void square(int32_t size, const std::string &);
void dictionaries(int32_t inuse, const std::string &listed);
void large(int32_t inuse, const std::string &name);
bool largehere();                                     // false with a visible skip
void another(int32_t, const std::string &picture);    // another document, dictionaries as they are
void setting(int32_t value, const std::string &name); // minimum, limit, show, cursor, split

// The hands.
void click(int32_t held, const std::string &cells); // one after the other
void drag(int32_t held, const std::string &cells);
void pick(int32_t row, const std::string &held);      // in the solutions: "", right, ctrl, double
void pickword(int32_t row, const std::string &);      // in an editor's or spell check's list
void press(int32_t control, const std::string &held); // "", right; high, low for arrows
void fill(int32_t field, const std::string &text);
void type(int32_t, const std::string &text);
void key(int32_t code, const std::string &times);
void menu(int32_t command, const std::string &entry);    // by the keys; a dictionary's name
void command(int32_t id, const std::string &dictionary); // as a message, for preparation
void twitch(int32_t, const std::string &celltext);       // pressed, moved a little, let go
void split(int32_t thousandths, const std::string &);    // drags the gap between the panes there
void drop(int32_t where, const std::string &leaves);
void searched(int32_t control, const std::string &); // pressed, and waited for its end
void searchend(int32_t, const std::string &);
void front(int32_t, const std::string &title);
void aside(int32_t, const std::string &title); // to the screen's corner, behind others
void shut(int32_t, const std::string &title);  // by its system menu
void resize(int32_t,
            const std::string &pixels); // of the main window, "500,400"; "max", "min", "back"
void wheel(int32_t notches, const std::string &);         // over the list
void answer(int32_t button, const std::string &);         // a box of the system
void choose(int32_t row, const std::string &leaf);        // a box for files: OK with that
void pickcolour(int32_t control, const std::string &rgb); // "200 100 50": the box it opens, OK
void pickfont(int32_t control, const std::string &points);
void fresh(int32_t, const std::string &);     // everything as at a first start
void nextstart(int32_t, const std::string &); // reads what a start reads: choices, default grid

// Files, and what other programs do to them.
void put(int32_t, const std::string &leaftext); // "words.txt cow|bee"
void erase(int32_t, const std::string &leaf);
void copyfile(int32_t bytes, const std::string &leaves); // "from to", cut to so many; 0 for all
void hold(int32_t, const std::string &leaf);             // nobody else gets in, until
void letgo(int32_t, const std::string &);
void readonly(int32_t on, const std::string &leaf);
void nomemory(int32_t after, const std::string &); // allocations fail, -1 for no more

// The eyes.
std::string title(int32_t, const std::string &);
std::string document(int32_t, const std::string &);
std::string cursor(int32_t, const std::string &);
std::string mark(int32_t, const std::string &);   // "0,0 3,0", or none
std::string marked(int32_t, const std::string &); // how many cells
std::string listed(int32_t, const std::string &);
std::string count(int32_t, const std::string &);    // of the solutions
std::string selected(int32_t, const std::string &); // how many of them
std::string lying(int32_t, const std::string &);    // how many of them lie where they say
std::string text(int32_t control, const std::string &);
std::string ticked(int32_t control, const std::string &);
std::string there(int32_t control, const std::string &); // yes or no
std::string focus(int32_t control, const std::string &); // -1: a list of words
std::string box(int32_t, const std::string &);           // of the system: its text; none
std::string boxthere(int32_t, const std::string &);
std::string shown(int32_t, const std::string &title);
std::string infront(int32_t, const std::string &);     // the front window's title
std::string enabled(int32_t, const std::string &);     // the main window
std::string entries(int32_t, const std::string &path); // of a menu, by positions: "2 0"
std::string word(int32_t row, const std::string &);    // of the list of words
std::string wordrow(int32_t, const std::string &);     // its selected row, -1
std::string caretrow(int32_t, const std::string &);    // with the outline, -1
std::string wordtall(int32_t where,
                     const std::string &); // letters of ONWORDS or ONLIST: large, small
std::string wordseen(int32_t row, const std::string &);    // the row is in view
std::string wordink(int32_t row, const std::string &);     // black, white
std::string outlined(int32_t row, const std::string &);    // has dots
std::string words(int32_t, const std::string &dictionary); // in memory
std::string kept(int32_t, const std::string &dictionary);  // in its file
std::string inuse(int32_t, const std::string &);           // dictionaries, as the grid names them
std::string known(int32_t, const std::string &);           // all
std::string changed(int32_t, const std::string &);         // yes, no: words not saved
std::string file(int32_t bytes, const std::string &leaf);  // so many of it, 0 for all; none
std::string filesize(int32_t, const std::string &leaf);    // none
std::string quill(int32_t, const std::string &words);      // its lines; "@leaf" is a path
std::string value(int32_t, const std::string &name);       // of the model: see script.cpp
std::string colour(int32_t cellat, const std::string &);   // of its middle, "ffffff"
std::string sample(int32_t control, const std::string &);  // of its middle
std::string inks(int32_t where, const std::string &rgb);   // dots in the grid, or a control: none,
                                                           // some, many
std::string framed(int32_t, const std::string &pixels);    // that is its size, within one
std::string undrawn(int32_t, const std::string &);         // pixels that a redraw changes
std::string repainted(int32_t where, const std::string &); // painted over, it is drawn again
std::string scrolled(int32_t, const std::string &);        // the grid, by cells: "1,2"
int64_t worked(); // by this program so far, in milliseconds: others may be busy too
bool recorded(
    bool now); // the folder of dictionaries, in the system's records; false if it can't be
std::string layout(int32_t, const std::string &); // right: bar, list, gap and grid

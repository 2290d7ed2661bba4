// grid/grid.h - the one document.
//
// A rectangle of cells, each with a letter, a flag byte and a use count; a
// cursor; a marked rectangle; and what else a grid file keeps. The word
// searches read and write the arrays directly. There is no undo. Nothing here
// can fail.
//
// Arrays are indexed column first, [x][y], from the top left, with a stride of
// 128: a bar lies on a cell's left or top edge, so column width and row height
// are legal places for one. Cells outside the grid keep what they held, and a
// later enlargement shows them again; operations that say "all cells" reach
// them, those that say "the grid" don't.
//
// What is marked is told by the cells; the marked rectangle is their bounding
// box, which a drag may hold with its edges in either order.
#pragma once

#include "base/fontrecord.h"

#include <cstdint>

constexpr int32_t GRIDSTRIDE = 128;
constexpr int32_t GRIDMAX = 127;

// The flag byte. Bits 16 and 32 mean nothing and pass through files unchanged.
// Visited bits mean nothing between scans: each sets them up.
constexpr uint8_t CELLKIND = 3; // the mask; no cell has kind 3
constexpr uint8_t CELLOPEN = 0;
constexpr uint8_t CELLMARKED = 1; // Crossword: marked; Wordsquare: on a selected word
constexpr uint8_t CELLBLOCK = 2;
constexpr uint8_t BARLEFT = 4; // no word across runs from the cell to the left into this
constexpr uint8_t BARTOP = 8;  // no word down runs from the cell above into this
constexpr uint8_t VISITEDACROSS = 64;
constexpr uint8_t VISITEDDOWN = 128;
constexpr uint8_t VISITEDBOTH = VISITEDACROSS | VISITEDDOWN;

constexpr int32_t GRIDCROSSWORD = 0, GRIDWORDSQUARE = 1;
constexpr int32_t CASEASTYPED = 0, CASEUPPER = 1, CASELOWER = 2;

// The split between the panes, 16.16 of the main window's width.
constexpr uint32_t SPLITMIN = 3276, SPLITMAX = 62259, SPLITDEFAULT = 0x5000;

constexpr int32_t MINWORDMAX = 12; // the longest minwordlength

struct griddocument {
    uint8_t letters[GRIDSTRIDE][GRIDSTRIDE]; // a blank is a space
    uint8_t flags[GRIDSTRIDE][GRIDSTRIDE];
    uint8_t counts[GRIDSTRIDE][GRIDSTRIDE]; // words through the cell; not saved

    int32_t width, height; // cells, 1..127
    int32_t kind;          // GRIDCROSSWORD, GRIDWORDSQUARE
    int32_t pendingkind;   // of the grid file read last; gridkindapply makes it the kind
    int32_t casemode;
    int32_t cursorx, cursory; // -1, -1 for none
    int32_t lastcursorx, lastcursory;
    int32_t markleft, markright, marktop, markbottom; // markleft -1: none; either order
    int32_t marklength;                               // as last shown; -1 for an empty field
    int32_t changed;                                  // edits since the last save
    char filename[260];                               // empty if never saved

    int32_t cellwidth, cellheight; // os units, at least 1
    int32_t squarescale;           // percent of gridfont's height
    int32_t minwordlength;         // Wordsquare, 1..12
    uint32_t filldirections;       // Wordsquare, a bit for each of 8
    int32_t showsolutions;         // Wordsquare pictures draw lines through words
    int32_t pictureupper;          // pictures show capitals; only a grid file sets it
    int32_t reserved;              // read from the file and written back
    uint32_t splitfraction;        // SPLITMIN..SPLITMAX

    fontrecord gridfont, cluefont;
    uint32_t textcolour, gridcolour, fillcolour, backcolour; // 0xBBGGRR00
};

// Written by the grid, find and output folders; kind, splitfraction and
// marklength by the windows that show them too, and by the console companion what
// its arguments say.
extern griddocument grid;

// The state of a fresh start, before the default grid is read: an empty 16 by
// 16 Crossword in the built-in appearance.
void gridreset();

// One more edit; the first since the last save shows in the title.
void gridchange();
void gridunchanged(); // leaves the title to whoever names the document next
int gridsunsaved();   // 0 or 1 documents
void gridsetfilename(const char *path);

// New Grid and New Words. The first begins a new document of the same size and
// kind; the second is an edit, which leaves blocks and bars.
void gridnew();
void gridnewwords();

void gridclear();       // all cells: letters blank, kinds and bars gone
void gridclearwords();  // all cells: letters of open cells blank
void gridclearfill();   // the grid: letters, kinds and counts
void gridclearcounts(); // all cells
void gridfillrandom();  // the grid: blanks become random lower-case letters

// A letter as casemode has it; only a to z have another case.
uint8_t gridcase(uint8_t ch);

bool gridinside(int32_t x, int32_t y);

// What a cell of the grid shows. A search may leave cells that hold nothing: they
// are blanks.
uint8_t gridletter(int32_t x, int32_t y);

void gridsquaresize(); // cellwidth and cellheight from font and scale

// The mark. markclear unmarks the rectangle's cells and forgets it; markrescan
// finds it again from the cells; marklengthshow keeps the length field: the
// width of a rectangle of more than one column, else its height.
void markclear();
void markrescan();
void marklengthshow();

void cursorremove();

// Draws the cursor's cell, as if the cursor weren't there or as it is.
void cursordrawoff();
void cursordraw();

// Scans set every cell's visited bits up: blocks get both, others none.
void gridvisitreset();

// The grid's word n, from 0: 1 and its text, or 0. buffer holds GRIDSTRIDE
// bytes. Blank cells stand as spaces. Each call scans afresh.
bool gridword(char *buffer, int32_t n);

// The changed area of a word selection, one rectangle that grows to hold each
// placed word it is given.
struct wsentry;
void dirtyreset();
void dirtyadd(const wsentry *entry);
void dirtyredraw();

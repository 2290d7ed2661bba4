// grid/grid.h - the one document.
//
// A rectangle of cells, each with a letter, a flag byte and a use count; a
// cursor; a marked rectangle; and what else a grid file keeps. The word
// searches read and write the arrays directly. There is no undo.
//
// Arrays are indexed column first, [x][y], from the top left, with a stride of
// 128: a bar lies on a cell's left or top edge, so column width and row height
// are legal places for one. Cells outside the grid keep what they held.
#pragma once

#include <cstdint>

constexpr int32_t GRIDSTRIDE = 128;
constexpr int32_t GRIDMAX = 127;

// The flag byte. Visited bits mean nothing between scans: each sets them up.
constexpr uint8_t CELLKIND = 3;
constexpr uint8_t CELLOPEN = 0;
constexpr uint8_t CELLMARKED = 1; // Crossword: marked; Wordsquare: on a selected word
constexpr uint8_t CELLBLOCK = 2;
constexpr uint8_t BARLEFT = 4;
constexpr uint8_t BARTOP = 8;
constexpr uint8_t VISITEDACROSS = 64;
constexpr uint8_t VISITEDDOWN = 128;
constexpr uint8_t VISITEDBOTH = VISITEDACROSS | VISITEDDOWN;

constexpr int32_t GRIDCROSSWORD = 0, GRIDWORDSQUARE = 1;
constexpr int32_t CASEASTYPED = 0, CASEUPPER = 1, CASELOWER = 2;

// A font, as it stands in grid and choices files.
struct fontrecord {
    int32_t height; // sixteenths of a point
    int32_t width;  // 0 for the font's own
    char face[64];
    int32_t charset;
    int32_t weight; // 400 normal
    int32_t italic;
};
static_assert(sizeof(fontrecord) == 84);

struct griddocument {
    uint8_t letters[GRIDSTRIDE][GRIDSTRIDE]; // a blank is a space
    uint8_t flags[GRIDSTRIDE][GRIDSTRIDE];
    uint8_t counts[GRIDSTRIDE][GRIDSTRIDE]; // words through the cell; not saved

    int32_t width, height; // cells, 1..127
    int32_t kind;          // GRIDCROSSWORD, GRIDWORDSQUARE
    int32_t casemode;
    int32_t cursorx, cursory; // -1, -1 for none
    int32_t lastcursorx, lastcursory;
    int32_t markleft, markright, marktop, markbottom; // markleft -1: none; either order
    int32_t changed;                                  // edits since the last save
    char filename[260];                               // empty if never saved

    int32_t cellwidth, cellheight; // os units
    int32_t squarescale;           // percent of gridfont's height
    int32_t minwordlength;         // Wordsquare, 1..12
    uint32_t filldirections;       // Wordsquare, a bit for each of 8
    int32_t showsolutions;
    int32_t pictureupper;
    int32_t reserved;       // read from the file and written back
    uint32_t splitfraction; // 16.16 of the main window's width

    fontrecord gridfont, cluefont;
    uint32_t textcolour, gridcolour, fillcolour, backcolour; // 0xBBGGRR00
};

// Written by the grid, find and output folders, and by no other.
extern griddocument grid;

// The state of a fresh start, before the default grid is read.
void gridreset();

void gridchange();
void gridunchanged();
int gridsunsaved();
void gridsetfilename(const char *path);

void gridclear();       // all cells: letters blank, kinds and bars gone
void gridclearwords();  // all cells: letters of open cells blank
void gridclearfill();   // the grid: letters, kinds and counts
void gridclearcounts(); // all cells
void gridfillrandom();  // the grid: blanks become random letters

uint8_t gridcase(uint8_t ch);

bool gridinside(int32_t x, int32_t y);
void gridsquaresize(); // cellwidth and cellheight from font and scale

void markclear();
void markrescan();
void marklengthshow();
void cursorremove();

// Scans set every cell's visited bits up: walls get both, others none.
void gridvisitreset();

// The grid's word n, from 0: 1 and its text, or 0. buffer holds GRIDSTRIDE
// bytes. Blank cells stand as spaces.
int gridword(char *buffer, int32_t n);

// The changed area of a word selection.
struct wsentry;
void dirtyreset();
void dirtyadd(const wsentry *entry);
void dirtyredraw();

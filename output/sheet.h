// output/sheet.h - a puzzle to hand out: what to solve, and the solution apart.
//
// A Crossword's sheet has the empty grid with its numbers, then a line for each clue
// with its number and how many letters the answer has; a Wordsquare's the square and
// its words in columns. The last page has the solution.
//
// A page is 210 by 279 mm, the width of A4 and the height of Letter: it prints on
// either at full size.
#pragma once

#include <string>
#include <vector>

constexpr int SHEETWIDTH = 210, SHEETHEIGHT = 279; // mm

// The document's pages, each a drawing in SVG of its own; title goes above them.
std::vector<std::string> sheetpages(const std::string &title);

// The pages in one file: below each other in a drawing, and a document that prints each
// on a sheet of paper.
std::string sheetsvg(const std::vector<std::string> &pages);
std::string sheethtml(const std::string &title, const std::vector<std::string> &pages);

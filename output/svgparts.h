// output/svgparts.h - the grid as a piece of a drawing in SVG, for the formats that
// are drawn.
#pragma once

#include <cstdint>
#include <string>

constexpr int32_t SVGSQUARE = 36; // units to a cell

constexpr uint32_t SVGLETTERS = 1;
constexpr uint32_t SVGSTRUCK = 2; // lines through the words of a Wordsquare's list

// Cells from 0,0 on, in the colours and fonts of the grid, with blocks, bars and
// numbers of a Crossword.
void svggrid(std::string *out, uint32_t parts);

// Text as it may stand in an element or an attribute, in UTF-8.
std::string svgtext(const std::string &text);

// A piece of at most 255 bytes.
[[gnu::format(printf, 2, 3)]] void svgadd(std::string *out, const char *format, ...);

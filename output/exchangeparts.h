// output/exchangeparts.h - what the formats of output/exchange.h share, and their
// operations. Nobody else includes it.
#pragma once

#include "grid/grid.h"

#include <cstdint>
#include <string>
#include <vector>

struct errorblock;

// A grid that a file tells of, until all of it is known to be good.
struct gridsketch {
    int32_t width, height;
    uint8_t letters[GRIDSTRIDE][GRIDSTRIDE]; // a blank is a space
    uint8_t flags[GRIDSTRIDE][GRIDSTRIDE];   // blocks and bars
};

// Error 283 for a size outside 1..127. All cells are blank.
errorblock *sketchstart(gridsketch *sketch, int64_t width, int64_t height);

// A letter from outside; what no key types is a blank.
void sketchletter(gridsketch *sketch, int32_t x, int32_t y, int32_t letter);

// Makes it the document. Errors: those of picturetextread.
errorblock *sketchopen(const gridsketch &sketch);

std::string toutf8(const std::string &text);

// In code page 1252, with a space for what it lacks.
std::string fromutf8(const std::string &bytes);

bool gridblock(int32_t x, int32_t y);
bool gridbars(); // a bar that isn't on the outer edge

// A part of a sentence on what is left out, with a comma before it if need be.
void leftadd(std::string *left, const char *what);

errorblock *ipuzread(const std::string &bytes, std::string *left);
void ipuzwrite(std::string *bytes, std::string *left);
errorblock *puzread(const std::string &bytes, std::string *left);
void puzwrite(std::string *bytes, std::string *left);
errorblock *csvread(const std::string &bytes, std::string *left);
void csvwrite(std::string *bytes, std::string *left);
void svgwrite(std::string *bytes, std::string *left);

// output/exchange.h - grids in the files of other programs.
//
// A format reads the whole of a file into the document, or makes the whole of a
// file from it. What it can't hold is left out and told: a grid file has no place
// for clues, a list of cells none for bars. Cell contents of several letters keep
// the first, and what code page 1252 lacks becomes a blank.
//
// ipuz, .ipuz: JSON, version 2 of the published description; crosswords with
// blocks, bars and numbers, and word searches.
// puz, .puz: the binary one that solvers' programs read, version 1.3, by the
// description that its users published; blocks only.
// txt, .txt: the text picture of grid/gridpicture.h, in UTF-8.
// csv, .csv: a cell a field (RFC 4180), in UTF-8; "#" a block.
// svg, .svg: what a saved picture shows. Written only, and so are
// pdf, .pdf and png, .png: the same, painted (paint.h).
#pragma once

#include <string>
#include <vector>

struct errorblock;

struct exchangeformat {
    const char *name; // of the format, and the ending of its files
    // left tells what was left out, or is empty. Errors of read: 283, with the
    // document as it was.
    errorblock *(*read)(const std::string &bytes, std::string *left); // 0: not read
    void (*write)(std::string *bytes, std::string *left);
    // What makes the file from the drawing that write made; 0: it is the file.
    errorblock *(*paint)(const std::vector<std::string> &pages, std::string *bytes) = nullptr;
};

// By its name, whatever its case; 0 for none.
const exchangeformat *exchangefind(const std::string &name);

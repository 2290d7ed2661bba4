// grid/gridpicture.h - a grid as plain text, to be read, typed and kept beside
// a program.
//
// A line a row, a character a cell: "#" a block, "." a blank, anything else the
// cell's letter. Behind an empty line, lines "left X,Y ..." and "top X,Y ..."
// list the cells that have a bar on that edge, columns and rows counted from 0.
// docs/formats.md has the whole of it.
//
// A picture holds size, letters, blocks and bars, and nothing else of the
// document. What it holds is read back exactly, but that a letter in a block is
// not seen, and a letter that no key types ("#", ".", control characters) is
// written as "?", or as a blank if it is 0.
#pragma once

#include <cstdint>
#include <string>

struct errorblock;

// A new document from the picture, a text of size bytes in code page 1252, with
// kind, appearance and dictionaries as they were. Error 283, which names the
// line, for a text that is no picture; the document is as it was then.
errorblock *picturetextread(const char *text, int32_t size);

// The document's picture; lines end in LF.
void picturetextwrite(std::string *text);

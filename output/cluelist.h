// output/cluelist.h - clue lists and word lists as text files.
//
// A Crossword's list has each word under its number, with its letters as they
// stand, for the setter to add the clues. A Wordsquare's is its word list.
// The line ends of the clue list differ from heading to heading; readers of
// these files expect them so.
#pragma once

struct bfile;
struct errorblock;

// The clue list of the grid as it stands, into an open stream.
void cluelistwrite(bfile *file);

// Both write path from nothing and always return 0: a file that can't be
// opened is not told of.
errorblock *cluelist(const char *path);
errorblock *wordlistsave(const char *path);

// output/picture.h - the grid as a picture for the setter's page.
//
// A picture carries what the screen does not, clue numbers, and leaves out what
// only editing needs: the cursor and the mark. Its unit is the OS unit, its rows
// run down, and its square is that of the screen.
#pragma once

#include <cstdint>

struct errorblock;

// The kinds, which are the file types.
constexpr int32_t PICTUREENHANCED = 257;
constexpr int32_t PICTUREMETAFILE = 256;
constexpr int32_t PICTUREPLACEABLE = 258;

// Sizes in OS units, worked out by picturemetrics from the document.
struct picturesizes {
    int32_t square;
    int32_t gridascent, gridheight; // of the letters' font
    int32_t clueascent;             // of the numbers' font
};

// Errors: those of measuring a font.
errorblock *picturemetrics(picturesizes *sizes);

// Paints on the current surface, whose y runs down. The first error ends it.
errorblock *picturedraw(const picturesizes *sizes);

// The document as a picture of that kind. After an error there is no file. The
// document's name and its changed mark stay. Errors: the surface's, the file's,
// 2.
errorblock *picturesave(int32_t kind, const char *path);

// base/fontrecord.h - the description of a font, as grid files and choices hold
// it and fonts are made from it.
#pragma once

#include <cstdint>

struct bfile;
struct errorblock;

struct fontrecord {
    int32_t height; // sixteenths of a point
    int32_t width;  // likewise; 0 for the font's own
    char face[64];
    int32_t charset; // the platform's number
    int32_t weight;  // 400 normal
    int32_t italic;
};
static_assert(sizeof(fontrecord) == 84);

// A font in a file. Values that no command could have set are brought into
// range as they are read, but nothing is lost of a legitimate one, the bytes
// behind the face's terminator included. A read that is cut short keeps what
// the record held of the rest. Errors: those of the stream.
errorblock *fontread(bfile *file, fontrecord *font);
errorblock *fontwrite(bfile *file, const fontrecord &font);

// graphics/sprites.h - the small pictures of the interface, kept in areas and
// found by name.
//
// An area is a movable block: a head of 16 bytes, then sprites one after the
// other, then free space. A sprite file is an area without its first word, so
// that offsets hold in both. Numbers are little-endian, as our machines are.
//
//  - Between its first sprite and its free space an area holds whole sprites,
//    as many as it counts. What comes from a file or a resource is looked over
//    once, when it is added; nobody looks again.
//  - A sprite's address dies at the next call marked MOVES on its area.
#pragma once

#include "base/flex.h"

#include <cstdint>

struct errorblock;

// A sprite, by its head. Rows run from the top down; a row holds pixels from the
// low bit of its first word up, and is a whole number of words.
struct sprite {
    int32_t next;              // the sprite's size in bytes: the step to the one behind it
    char name[12];             // padded with zeros; not terminated when 12 long
    int32_t width;             // of a row in words, less 1
    int32_t height;            // rows, less 1
    int32_t firstbit, lastbit; // used in the first and in the last word of a row
    int32_t image;             // bytes from the head to the first row
    int32_t mask;              // likewise; equal to image when there is none
    uint32_t mode;             // spritemode.h
};
static_assert(sizeof(sprite) == 44);

// Behind the head, up to the image: each colour twice, 0xBBGGRR00.
constexpr int32_t SPRITECOLOURSIZE = 8;

struct spritearea {
    int32_t size; // of the block, in bytes
    int32_t count;
    int32_t first; // offset of the first sprite
    int32_t free;  // offset of the free space
};
static_assert(sizeof(spritearea) == 16);

// MOVES. An empty area of 256 bytes; what *area held is not looked at.
errorblock *spriteinit(flexptr *area);

// The task's own area; changed by these calls alone. endsprites frees it.
extern flexptr spritepool;
errorblock *initsprites();
void endsprites();
errorblock *addspritesshared(const char *directory, const char *name); // MOVES spritepool

// MOVES. Adds the sprites of a file to the area: of the file with "22" before
// its extension if there is one, else of name itself. With a directory of 0,
// those of the resource of that name in a module (0: the program). One that is
// missing is no error. After an error no sprite was added. Errors: 283 for one
// that isn't well formed, 3 for one that is too short, 2.
errorblock *addsprites(const char *directory, const char *name, flexptr *area, intptr_t module);

// Asked of the window side (win32/spriteresource.cpp): a resource of type
// "Sprites", good for as long as the module is. data is 0, without an error, when
// there is none.
errorblock *spriteresource(intptr_t module, const char *name, const void **data, int32_t *size);

// The first sprite of that name, in any case, of which 12 bytes count; 0 for
// none or for an area of 0.
const sprite *spritefind(const void *area, const char *name);

// What a plotter is told to plot: a name, or a sprite with the mark.
struct spritereference {
    const void *pointer;
    uint32_t mark;
};
constexpr uint32_t SPRITEMARK = 0x74527053;
constexpr spritereference spritenamed(const char *name)
{
    return {name, 0};
}
constexpr spritereference spriteitself(const sprite *s)
{
    return {s, SPRITEMARK};
}

// The sprite meant; 0 when the area has none of the name, or is 0. Returns 0.
errorblock *spriteresolve(const void *area, spritereference reference, const sprite **s);

// In pixels and bits to the pixel; any address may be 0. Errors: EMODE, and 283
// for a sprite that isn't well formed.
errorblock *spritesize(const sprite *s, int32_t *width, int32_t *height, int32_t *bpp);

// In pixels to the inch. Error: EMODE.
errorblock *spritedpi(const sprite *s, int32_t *x, int32_t *y, int32_t *bpp);

// The file type of sprites, for a table of base/filetypes.h: a file's type lies in
// its name, which spritesave takes as it is given.
constexpr int32_t FILETYPESPRITE = 0xFF9;

// Writes a file of the one sprite. As many zero bytes as a head has follow it, and
// the file counts them as used.
errorblock *spritesave(const sprite *s, const char *path);

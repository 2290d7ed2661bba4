// tests/graphics/spritemade.h - sprites made up for tests, and a second, slow
// telling of what they look like.
#pragma once

#include "graphics/spriteplace.h"
#include "graphics/sprites.h"

#include <cstdint>
#include <string>
#include <vector>

struct spritemade {
    std::string name = "test";
    uint32_t mode = 25;
    int32_t width = 0, height = 0, bpp = 1;
    std::vector<uint32_t> pixels;  // from the top left, row by row
    std::vector<int> mask;         // likewise, 1 where it shows; empty for none
    std::vector<uint32_t> palette; // words, each once
    int32_t firstbit = 0;
    bool widemask = true; // of the image's depth; else of one bit a pixel
};

// Of a depth, with pixels that have each value in turn, and with a mask that
// hides a slanting band.
spritemade spritestriped(int32_t bpp, int32_t width, int32_t height, bool masked);

// A sprite's bytes, and those of a file of sprites.
std::string spritebytes(const spritemade &made);
std::string spritefile(const std::vector<std::string> &sprites);

// The sprite in some bytes, which must outlive it.
const sprite *spritein(const std::string &bytes);

// The colour 0xRRGGBB of a pixel, by the sprite's own palette or its depth; -1
// for one that is hidden or outside.
int32_t spritecolourat(const spritemade &made, int32_t x, int32_t y, bool greyed);

// What a device shows of the sprite plotted over a box: the colour of each pixel,
// -1 for what is left alone.
struct spriteshown {
    int32_t left, top, width, height; // the box, of positive size
    bool flipx, flipy, greyed;
};
int32_t spritecolourplotted(const spritemade &made, const spriteshown &shown, int32_t x, int32_t y);

// What plotting it with its lower left corner at a device pixel's edge shows.
spriteshown spriteshownat(const spritemade &made, int32_t x, int32_t y,
                          const spritefactors &factors, bool greyed);

// An area, freed at the end.
struct areamade {
    flexptr block = nullptr;
    areamade();
    ~areamade();
    const spritearea &head() const;
    std::string used() const; // as the bytes of a file
    areamade(const areamade &) = delete;
    areamade &operator=(const areamade &) = delete;
};

// Of the native tests, whose spriteresource has these bytes as the resource
// "made" of module 7.
extern std::string spriteresourcebytes;

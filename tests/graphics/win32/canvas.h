// tests/graphics/win32/canvas.h - a surface on a bitmap in memory, to be looked
// at.
#pragma once

#include "graphics/surface.h"

#include <cstdint>
#include <string>

// Pens, brushes, contexts and the like that this program holds now.
int gdiobjects();

// 32 bits a pixel, white, the current surface while it lives. At a scale of 180
// an OS unit is a pixel; y = 0 is the first row, and goes down from there.
struct canvas {
    canvas(int32_t width, int32_t height, int32_t scale = 180);
    ~canvas();
    canvas(const canvas &) = delete;
    canvas &operator=(const canvas &) = delete;

    uint32_t at(int32_t x, int32_t y) const; // the colour as the system has it
    void clear(uint32_t colour = 0xFFFFFF);
    uint32_t *row(int32_t y) const;

    // Lines of text: '.' white, '#' black, '?' any other colour.
    std::string picture() const;

    // The smallest box that holds every pixel that isn't white, its right and
    // bottom within; left > right when all are white.
    struct extent {
        int32_t left, top, right, bottom;
        bool operator==(const extent &) const = default;
    };
    extent drawn() const;
    int32_t count() const; // of pixels that aren't white
    bool blank() const;

    int32_t width, height;
    surface *drawing;

private:
    uint32_t colour(int32_t x, int32_t y) const;

    intptr_t bitmap, before;
    uint32_t *bits;
};

// A picture told row by row, in one line of the source; a space ends a row.
std::string rows(const std::string &text);

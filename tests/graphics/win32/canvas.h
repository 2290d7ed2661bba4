// tests/graphics/win32/canvas.h - a page of the gallery for one test, with its
// fonts.
#pragma once

#include "graphics/fonts.h"
#include "tools/gallerysheets/page.h"

#include <cstdint>
#include <string>

// White, the current surface while it lives. At a scale of 180 an OS unit is a
// pixel; y = 0 is the first row, and goes down from there.
struct canvas {
    canvas(int32_t width, int32_t height, int32_t scale = 180);
    ~canvas();
    canvas(const canvas &) = delete;
    canvas &operator=(const canvas &) = delete;

    uint32_t at(int32_t x, int32_t y) const; // the colour as the system has it
    void clear();

    // The smallest box that holds every pixel that isn't white, its right and
    // bottom within; left > right when all are white.
    struct extent {
        int32_t left, top, right, bottom;
        bool operator==(const extent &) const = default;
    };
    extent drawn() const;

    page paper;
    surface *drawing;
};

// A record of the face that every test machine has.
fontrecord arial(int32_t height);

// The font that is selected on a surface.
fonthandle fontselected(const surface *s);

// How far a text goes in the font on the current surface.
int32_t widthof(const std::string &text);

// A font of that record on the current surface, selected there in black on
// nothing while it lives.
struct fontshown {
    explicit fontshown(int32_t height);
    ~fontshown();
    fontshown(const fontshown &) = delete;
    fontshown &operator=(const fontshown &) = delete;

    fonthandle font;
};

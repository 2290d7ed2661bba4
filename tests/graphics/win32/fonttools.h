// tests/graphics/win32/fonttools.h - fonts and handles for tests of text.
#pragma once

#include "graphics/fonts.h"
#include "graphics/surface.h"

#include <string>

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

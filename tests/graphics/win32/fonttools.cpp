#include "tests/graphics/win32/fonttools.h"

#include <doctest/doctest.h>

fontrecord arial(int32_t height)
{
    return {
        .height = height, .width = 0, .face = "Arial", .charset = 0, .weight = 400, .italic = 0};
}

fontshown::fontshown(int32_t height)
{
    fontrecord record = arial(height);
    fontfind(&record, &font);
    REQUIRE(font);
    fontset(font, FONTCLEAR, 0, 0);
}

fontshown::~fontshown()
{
    fontlose(font);
}

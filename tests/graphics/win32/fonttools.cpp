#include "tests/graphics/win32/fonttools.h"

#include "graphics/textmeasure.h"
#include "graphics/win32/surfacecontext.h"

#include <doctest/doctest.h>

fontrecord arial(int32_t height)
{
    return {
        .height = height, .width = 0, .face = "Arial", .charset = 0, .weight = 400, .italic = 0};
}

fonthandle fontselected(const surface *s)
{
    return reinterpret_cast<fonthandle>(GetCurrentObject(surfacecontext(s), OBJ_FONT));
}

int32_t widthof(const std::string &text)
{
    glyphextent box;
    textbox(text.c_str(), &box);
    return box.right;
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

#include "tests/graphics/win32/canvas.h"

#include "graphics/textmeasure.h"
#include "graphics/win32/surfacecontext.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

canvas::canvas(int32_t width, int32_t height, int32_t scale)
{
    REQUIRE_FALSE(pageopen(&paper, width, height, scale));
    drawing = paper.drawing;
}

canvas::~canvas()
{
    pageclose(&paper);
}

uint32_t canvas::at(int32_t x, int32_t y) const
{
    bool inside = x >= 0 && y >= 0 && x < paper.width && y < paper.height;
    REQUIRE(inside);
    return pageat(&paper, x, y) >> 8;
}

void canvas::clear()
{
    at(0, 0); // after all that was drawn
    std::memset(paper.bits, 255, static_cast<size_t>(paper.rowbytes * paper.height));
}

canvas::extent canvas::drawn() const
{
    extent box = {paper.width, paper.height, -1, -1};
    for (int32_t y = 0; y < paper.height; y++)
        for (int32_t x = 0; x < paper.width; x++)
            if (at(x, y) != 0xFFFFFF)
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
                       std::max(box.bottom, y)};
    return box;
}

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

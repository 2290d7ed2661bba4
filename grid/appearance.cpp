#include "grid/appearance.h"

fontrecord solfont, dictfont;
uint32_t cursorcolour = CURSORCOLOURDEFAULT, selectedcolour = SELECTEDCOLOURDEFAULT;

namespace
{

// As the slot holds it; the list fonts are among it because they start from the
// same place.
struct appearance {
    uint32_t textcolour, gridcolour, fillcolour, backcolour;
    int32_t squarescale;
    fontrecord solfont, dictfont, cluefont, gridfont;
};

constexpr fontrecord factoryfont(int32_t height)
{
    return {
        .height = height, .width = 0, .face = "Arial", .charset = 0, .weight = 400, .italic = 0};
}

constexpr appearance FACTORY = {
    .textcolour = 0,
    .gridcolour = 0,
    .fillcolour = 0,
    .backcolour = 0xFFFFFF00,
    .squarescale = 180,
    .solfont = factoryfont(128),
    .dictfont = factoryfont(128),
    .cluefont = factoryfont(64),
    .gridfont = factoryfont(128),
};

// Starts as the factory has it, also for a program that never resets it.
appearance slot = FACTORY;

} // namespace

void appearancereset()
{
    slot = FACTORY;
    cursorcolour = CURSORCOLOURDEFAULT;
    selectedcolour = SELECTEDCOLOURDEFAULT;
}

void listfontsset(const fontrecord &solutions, const fontrecord &dictionaries)
{
    solfont = slot.solfont = solutions;
    dictfont = slot.dictfont = dictionaries;
}

void gridsetdefaults()
{
    grid.textcolour = slot.textcolour;
    grid.gridcolour = slot.gridcolour;
    grid.fillcolour = slot.fillcolour;
    grid.backcolour = slot.backcolour;
    grid.squarescale = slot.squarescale;
    solfont = slot.solfont;
    dictfont = slot.dictfont;
    grid.cluefont = slot.cluefont;
    grid.gridfont = slot.gridfont;
}

void gridrememberdefaults()
{
    slot.textcolour = grid.textcolour;
    slot.gridcolour = grid.gridcolour;
    slot.fillcolour = grid.fillcolour;
    slot.backcolour = grid.backcolour;
    slot.squarescale = grid.squarescale;
    slot.cluefont = grid.cluefont;
    slot.gridfont = grid.gridfont;
}

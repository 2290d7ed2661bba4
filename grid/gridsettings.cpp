#include "grid/gridsettings.h"

#include "grid/grid.h"
#include "grid/gridwindow.h"

#include <algorithm>

void gridsettingsget(gridsettings *settings)
{
    *settings = {
        .textcolour = grid.textcolour,
        .gridcolour = grid.gridcolour,
        .fillcolour = grid.fillcolour,
        .backcolour = grid.backcolour,
        .gridfont = grid.gridfont,
        .cluefont = grid.cluefont,
        .squarescale = grid.squarescale,
        .minwordlength = grid.minwordlength,
        .showsolutions = grid.showsolutions,
        .filldirections = grid.filldirections,
    };
}

static void looksapply(const gridsettings &settings)
{
    grid.textcolour = settings.textcolour;
    grid.gridcolour = settings.gridcolour;
    grid.fillcolour = settings.fillcolour;
    grid.backcolour = settings.backcolour;
    grid.gridfont = settings.gridfont;
    grid.cluefont = settings.cluefont;
    grid.squarescale = std::clamp(settings.squarescale, SQUARESCALEMIN, SQUARESCALEMAX);
}

static void makingapply(const gridsettings &settings)
{
    grid.minwordlength = std::clamp(settings.minwordlength, 1, MINWORDMAX);
    grid.showsolutions = settings.showsolutions;
    grid.filldirections = settings.filldirections;
}

void gridsettingsapply(const gridsettings &settings)
{
    looksapply(settings);
    if (grid.kind == GRIDWORDSQUARE) makingapply(settings);
    gridsquaresize();
    gridextent();
    gridredraw();
    gridchange();
}

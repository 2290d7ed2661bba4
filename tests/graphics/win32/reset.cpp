#include "base/errors.h"
#include "base/flex.h"
#include "graphics/colours.h"
#include "graphics/dragboxstate.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

void modulesreset()
{
    flexfailafter(-1);
    clearcurrentsurface();
    surfaceclose();
    modeinfoinit();
    plotreset();
    dragstateend();
    initerror();
    headlessreset();
}

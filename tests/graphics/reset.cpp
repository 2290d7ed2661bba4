#include "base/boxes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "graphics/colours.h"
#include "graphics/dragboxstate.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

// The system's colours of the tests: each is its own number.
uint32_t systemcolour(int32_t number)
{
    return 0x5C0000 | static_cast<uint32_t>(number);
}

void modulesreset()
{
    flexfailafter(-1);
    modeinfo = {};
    clearcurrentsurface();
    plotreset();
    dragstateend();
    endtrans();
    initerror();
    headlessreset();
}

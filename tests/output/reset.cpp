#include "base/errors.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

void modulesreset()
{
    initerror();
    taskerrors();
    headlessreset();
    gridreset();
    solreset();
}

#include "base/errors.h"
#include "base/flex.h"
#include "base/random.h"
#include "dict/dictset.h"
#include "grid/grid.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

void modulesreset()
{
    flexfailafter(-1);
    for (uint32_t i = 0; i < ndicts; i++)
        dictunload(i);
    ndicts = 0;
    dictset = {};
    gridreset();
    headlessreset();
    randomseed(1);
}

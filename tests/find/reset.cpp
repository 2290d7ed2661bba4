#include "base/errors.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "find/spell.h"
#include "grid/grid.h"
#include "tests/find/testdicts.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

void modulesreset()
{
    initerror();
    taskerrors();
    headlessreset();
    gridreset();
    solutionsreset();
    search = {};
    spellend();
    testdictsfree();
}

#include "base/flex.h"
#include "tests/support/runner.h"

void modulesreset()
{
    flexfailafter(-1);
}

#include "tools/headless.h"

headlessstate headless;

void headlessreset()
{
    headless = {};
    headless.marklength = -1;
}

errorblock *headlessrun()
{
    auto worker = headless.worker;
    headless.worker = nullptr;
    return worker ? worker(0) : nullptr;
}

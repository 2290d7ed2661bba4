#include "base/boxes.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/messages.h"
#include "base/platformfault.h"
#include "base/random.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

// One line a module, in the order of the headers above.
void modulesreset()
{
    settaskname("Quillmere", nullptr);
    setleave(nullptr);
    initerror();
    taskerrors();
    findreset();
    flexshake(shaken());
    flexfailafter(-1);
    flex_setfail(nullptr);
    endtrans();
    platformfault = {};
    randomseed(1);
    headlessreset();
}

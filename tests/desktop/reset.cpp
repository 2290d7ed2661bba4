#include "base/boxes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/helptable.h"
#include "desktop/poll.h"
#include "desktop/task.h"
#include "desktop/timed.h"
#include "tests/desktop/fake/fakesource.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

void modulesreset()
{
    flexfailafter(-1);
    blockend();
    timedreset();
    handlersreset();
    pollreset();
    taskreset();
    helptablereset();
    endtrans();
    initerror();
    setleave(fakeleave);
    headlessreset();
    fake = {};
}

#include "base/errors.h"
#include "base/flex.h"
#include "base/messages.h"
#include "base/trace.h"
#include "desktop/blocks.h"
#include "desktop/handlers.h"
#include "desktop/menupath.h"
#include "desktop/poll.h"
#include "desktop/stages.h"
#include "desktop/templatechain.h"
#include "desktop/timed.h"
#include "tests/support/runner.h"

// Lines go nowhere: this process's own console is where the results are.
void tracewrite(const char *, int) {}
void tracewritew(const wchar_t *, int) {}

void modulesreset()
{
    flexfailafter(-1);
    blockend();
    timedreset();
    handlersreset();
    pollreset();
    endtrans();
    initerror();
    modeinfoinit();
    hourglassinit();
    menustate = {};
    templatesreset();
}

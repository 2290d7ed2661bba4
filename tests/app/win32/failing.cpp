// In the place of the window classes: a start-up that fails in its middle, and
// traces what it was about.
#include "base/errors.h"
#include "base/trace.h"
#include "desktop/stages.h"

errorblock *inittemp()
{
    trace("caf\xE9");
    tracew(L"wide caf\xE9");
    return makeerrortext(1410, "No window classes to be had");
}

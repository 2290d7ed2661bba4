// In the place of the window classes: a start-up that fails in its middle.
#include "base/errors.h"
#include "desktop/stages.h"

errorblock *inittemp()
{
    return makeerrortext(1410, "No window classes to be had");
}

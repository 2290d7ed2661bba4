// The stages of a start-up that have windows behind them in the program.
#include "base/trace.h"
#include "desktop/stages.h"
#include "tests/desktop/fake/fakesource.h"

#define STAGE(name)                                                                                \
    errorblock *name()                                                                             \
    {                                                                                              \
        return fakestage(#name);                                                                   \
    }

STAGE(modeinfoinit)
STAGE(inittemp)
STAGE(initsprites)
STAGE(tasktemplates)

errorblock *hourglassinit()
{
    trace("##### hourglass init #####");
    return fakestage("hourglassinit");
}

errorblock *addspritesshared(const char *, const char *name)
{
    fake.log.push_back(name);
    return fakestage("addspritesshared");
}

void modeinfoend()
{
    fake.log.push_back("modeinfoend");
}

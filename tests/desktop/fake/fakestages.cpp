#include "base/trace.h"
#include "desktop/stages.h"
#include "tests/desktop/fake/fakesource.h"

static errorblock *stage(const char *name)
{
    fake.log.push_back(name);
    if (fake.onstage) fake.onstage(name);
    return fake.failstage == name ? fakeerror() : nullptr;
}

errorblock *modeinfoinit()
{
    return stage("modeinfoinit");
}

void modeinfoend()
{
    fake.log.push_back("modeinfoend");
}

errorblock *inittemp()
{
    return stage("inittemp");
}

errorblock *initsprites()
{
    return stage("initsprites");
}

errorblock *hourglassinit()
{
    trace("##### hourglass init #####");
    return stage("hourglassinit");
}

errorblock *addspritesshared(const char *, const char *name)
{
    fake.log.push_back(name);
    return stage("addspritesshared");
}

errorblock *tasktemplates()
{
    return stage("tasktemplates");
}

#include "dict/dictwindow.h"

#include "tools/headless.h"

void dictmenubuild()
{
    headless.menubuilds++;
}
void dictmenudelete()
{
    headless.menudeletes++;
}
void dictsetchanged()
{
    headless.setchanges++;
}

bool dictediting(uint32_t number)
{
    return headless.editing == static_cast<int>(number) + 1;
}

bool importpoll(int32_t words)
{
    return headless.importend && words >= headless.importend;
}

void dictmetricsupdate(const fontrecord *) {}

errorblock *dicteditopen(uint32_t, Dictionary *, const char *)
{
    headless.edits++;
    return nullptr;
}

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

void dictmetricsupdate(const fontrecord *) {}

errorblock *dicteditopen(uint32_t, Dictionary *, const char *)
{
    headless.edits++;
    return nullptr;
}

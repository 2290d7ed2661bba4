#include "find/findwindow.h"

#include "find/solve.h"
#include "tools/headless.h"

void solutionsrefresh()
{
    headless.refreshes++;
}
void metricsupdate()
{
    headless.metrics++;
}
void progressshow(int32_t n)
{
    headless.progress = n;
}
void searchbusy(bool on)
{
    headless.busy += on ? 1 : -1;
}

void searchbegin()
{
    search.stopflag = 0;
    headless.begins++;
}

void searchend()
{
    headless.ends++;
}

errorblock *searchlater(errorblock *(*worker)(intptr_t))
{
    headless.worker = worker;
    return nullptr;
}

bool searchpolldue()
{
    return false; // nobody waits
}

void searchpoll()
{
    headless.polls++;
    if (headless.onpoll) headless.onpoll();
}

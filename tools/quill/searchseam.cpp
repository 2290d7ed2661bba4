#include "tools/quill/searchseam.h"

#include "base/boxes.h"
#include "base/trace.h"
#include "find/findwindow.h"
#include "find/solve.h"
#include "tools/quill/console.h"
#include "tools/quill/edge.h"

namespace
{

errorblock *(*pending)(intptr_t);

} // namespace

errorblock *searchnow()
{
    auto worker = pending;
    pending = nullptr;
    return worker ? worker(0) : nullptr;
}

errorblock *searchlater(errorblock *(*worker)(intptr_t))
{
    pending = worker;
    return nullptr;
}

void searchbegin()
{
    search.stopflag = 0;
}
void searchend()
{
    countend();
}
void searchbusy(bool) {}
void solutionsrefresh() {}
void progressshow(int32_t n)
{
    countshow("so far", n);
}

void searchpoll()
{
    if (edgestopped()) search.stopflag = 1;
}

// A look whether Ctrl+C was pressed costs less than a look at the clock.
bool searchpolldue()
{
    return true;
}

// A box is a remark; the only answer that can be given is the first button.
int boxshow(intptr_t, const char *text, const char *, uint32_t)
{
    remark("%s", text);
    return 1;
}

// The diagnostic line has no console of its own here.
void tracewrite(const char *, int) {}
void tracewritew(const wchar_t *, int) {}
void tracepaint(int, const char *, int) {}

#include "tools/headless.h"

#include "base/boxes.h"
#include "base/trace.h"
#include "dict/dictwindow.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"
#include "grid/gridwindow.h"

headlessstate headless;

void headlessreset()
{
    headless = {};
    headless.marklength = -1;
}

errorblock *headlessrun()
{
    auto worker = headless.worker;
    headless.worker = nullptr;
    return worker ? worker(0) : nullptr;
}

// base

int boxshow(intptr_t, const char *text, const char *title, uint32_t flags)
{
    headless.boxes++;
    headless.boxtext = text;
    headless.boxtitle = title;
    headless.boxflags = flags;
    return headless.boxanswer;
}

void tracewrite(const char *text, int length)
{
    if (headless.keeptrace) headless.tracetext.append(text, static_cast<size_t>(length));
}

void tracewritew(const wchar_t *, int) {}
void tracepaint(int, const char *, int) {}

// dict

void dictmenubuild() { headless.menubuilds++; }
void dictmenudelete() { headless.menudeletes++; }
void dictsetchanged() { gridchange(); headless.setchanges++; }

errorblock *dicteditopen(uint32_t, Dictionary *, const char *)
{
    headless.edits++;
    return nullptr;
}

// grid

void gridredraw() { headless.redraws++; }
void gridextent() { headless.extents++; }
void settitlefromgrid() { headless.titles++; }
void marklengthfield(int32_t length) { headless.marklength = length; }

void gridcellsredraw(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    headless.cellredraws++;
    headless.cells[0] = left;
    headless.cells[1] = top;
    headless.cells[2] = right;
    headless.cells[3] = bottom;
}

void resultsdrop()
{
    headless.resultsdropped++;
    if (solutions.count) solreset();
}

void gridkindapply(int32_t kind)
{
    grid.kind = kind;
    headless.kind = kind;
    headless.kindsapplied++;
}

void mainwindowsize(int32_t *width, int32_t *height)
{
    *width = headless.windowwidth;
    *height = headless.windowheight;
}

void mainwindowresize(int32_t width, int32_t height)
{
    headless.windowwidth = width;
    headless.windowheight = height;
}

// find

void solutionsrefresh() { headless.refreshes++; }
void progressshow(int32_t n) { headless.progress = n; }
void searchbusy(bool on) { headless.busy += on ? 1 : -1; }

void searchbegin()
{
    search.stopflag = 0;
    headless.begins++;
}

void searchend() { headless.ends++; }

errorblock *searchlater(errorblock *(*worker)(intptr_t))
{
    headless.worker = worker;
    return nullptr;
}

void searchpoll()
{
    headless.polls++;
    if (headless.onpoll) headless.onpoll();
}

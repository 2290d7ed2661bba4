#include "base/boxes.h"
#include "base/trace.h"
#include "tools/headless.h"

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

#include "desktop/win32/ddeservice.h"

#include "base/boxes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/ddecommand.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <dde.h>

#include <cstring>

constexpr UINT PATIENCE = 5000; // milliseconds for a partner that doesn't listen

// Without a topic it is enough not to ask for another program.
static bool isforus(ATOM app, ATOM topic)
{
    char appname[DDENAMESIZE], topicname[DDENAMESIZE];
    ddename(app, appname);
    ddename(topic, topicname);
    if (app) trace("appatom %s", appname);
    if (topic) trace("topicatom %s", topicname);
    bool named = app && !cstricmp(appname, dde.name);
    if (!topic) return !app || named;
    return named && !cstricmp(topicname, "system");
}

// The names are the receiver's from then on.
static void acknowledge(window w, window client)
{
    trace("+ve ack client %x wnd %x", static_cast<unsigned>(client), static_cast<unsigned>(w));
    ATOM app = GlobalAddAtomA(dde.name), topic = GlobalAddAtomA("system");
    SendMessageTimeoutA(systemwindow(client), WM_DDE_ACK, static_cast<WPARAM>(w),
                        MAKELPARAM(app, topic), SMTO_ABORTIFHUNG, PATIENCE, nullptr);
}

// The client waits for its message to end: it can go on before the callback takes
// its time.
static void begin(window w, window client)
{
    if (ddefind(w, client)) return; // it has asked before
    ddeconversation *made = nullptr;
    errorblock *err = ddenew(w, client, 0, dde.callback, 0, &made);
    ReplyMessage(0);
    reporterror(err);
    if (!err) ddetell(made, DDESTARTED, nullptr, 0);
}

void ddeinitiate(window w, window client, ATOM app, ATOM topic)
{
    uint32_t flags = 0;
    if (getflags(w, &flags) || !(flags & WINDOWDDE)) return;
    if (client == w || !IsWindow(systemwindow(client)) || !isforus(app, topic)) return;
    ddesweep();
    acknowledge(w, client);
    if (dde.callback) begin(w, client);
}

// A copy with an end, whatever the block holds.
static char *textof(HGLOBAL block)
{
    auto size = static_cast<int32_t>(GlobalSize(block));
    const void *from = size > 0 && size < INT32_MAX ? GlobalLock(block) : nullptr;
    void *text = nullptr;
    if (!from) return nullptr;
    errorblock *err = heap_alloc(&text, size + 1);
    if (!err) memcpy(text, from, static_cast<size_t>(size));
    GlobalUnlock(block);
    return static_cast<char *>(text);
}

void ddeexecute(window w, window client, LPARAM packed)
{
    UINT_PTR low = 0, block = 0;
    if (!UnpackDDElParam(WM_DDE_EXECUTE, packed, &low, &block)) return;
    auto handle = reinterpret_cast<HGLOBAL>(block);
    char *text = textof(handle);
    trace("dde exec hwnd %x client %x %s", static_cast<unsigned>(w), static_cast<unsigned>(client),
          text ? text : "");
    bool done = text && ddecommand(text);
    heap_free(reinterpret_cast<void **>(&text));
    if (!ddepostpacked(client, WM_DDE_ACK, w, done ? DDEPOSITIVE : 0, block)) GlobalFree(handle);
}

#include "desktop/win32/ddeservice.h"

#include "base/boxes.h"
#include "base/errors.h"
#include "base/paths.h"
#include "base/platform.h"
#include "base/syserr.h"
#include "base/trace.h"
#include "graphics/win32/windowhandle.h"

#include <dde.h>

#include <cstdio>

constexpr UINT PATIENCE = 1000;   // milliseconds for each window that doesn't listen
constexpr DWORD STARTTIME = 5000; // for a program until it is idle

void ddeanswered(window w, window server, ATOM app, ATOM topic)
{
    GlobalDeleteAtom(app);
    GlobalDeleteAtom(topic);
    if (!IsWindow(systemwindow(server)) || ddefind(w, server)) return; // the same, twice
    ddeconversation *made = nullptr;
    errorblock *err = ddenew(server, w, DDEOURS, nullptr, 0, &made);
    reporterror(err);
    if (err) return;
    if (dde.found)
        reporterror(ddeclose(made));
    else
        dde.found = made;
}

// 0 is the empty name, which asks for anything.
static ATOM atomof(const char *name)
{
    return name && *name ? GlobalAddAtomA(name) : 0;
}

static void ask(window w, const char *topic, const char *app)
{
    trace("ddesend init");
    ATOM appatom = atomof(app), topicatom = atomof(topic);
    dde.opening = systemwindow(w);
    SendMessageTimeoutA(HWND_BROADCAST, WM_DDE_INITIATE, static_cast<WPARAM>(w),
                        MAKELPARAM(appatom, topicatom), SMTO_ABORTIFHUNG, PATIENCE, nullptr);
    dde.opening = nullptr;
    GlobalDeleteAtom(appatom);
    GlobalDeleteAtom(topicatom);
}

// The path is not searched for, and blanks in it part nothing.
static errorblock *startprogram(const char *program)
{
    char path[PATHSIZE], command[PATHSIZE + 2];
    errorblock *err = pathexpand(program, path, PATHSIZE);
    if (err) return err;
    snprintf(command, sizeof command, "\"%s\"", path);
    STARTUPINFOA how = {};
    how.cb = sizeof how;
    PROCESS_INFORMATION started = {};
    if (!CreateProcessA(path, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                        &started))
        return syserr("CreateProcess", "%s", path);
    WaitForInputIdle(started.hProcess, STARTTIME);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return nullptr;
}

errorblock *ddeopen(window w, const char *topic, const char *app, const char *program,
                    ddefunction callback, intptr_t data, ddeconversation **conversation)
{
    *conversation = nullptr;
    if (!dde.hidden || dde.opening) return nullptr;
    ddesweep();
    dde.found = nullptr;
    errorblock *err = nullptr;
    for (int pass = 0; pass < (program ? 2 : 1) && !dde.found && !err; pass++) {
        trace("pass %d", pass);
        if (pass == 1) err = startprogram(program);
        if (!err) ask(w, topic, app);
    }
    if (dde.found) {
        dde.found->callback = callback;
        dde.found->data = data;
    }
    *conversation = dde.found;
    dde.found = nullptr;
    return err;
}

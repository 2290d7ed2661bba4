#include "desktop/drop.h"

#include "base/filetypes.h"
#include "desktop/dispatch.h"

static bool accepted(window w, const char *name, int32_t filetype, mouserecord *mouse)
{
    bool accept = false;
    bool failed = false;
    dispatchfirst(
        EVENTDROP, w,
        [&](const block &b) {
            return handlerof<dropfunction>(b)(name, filetype, mouse, b.data, &accept);
        },
        &failed);
    return accept && !failed;
}

void filedrop(window w, const char *name, bool folder, mouserecord *mouse)
{
    int32_t filetype = filetypeof(name) + (folder ? DROPFOLDER : 0);
    if (!accepted(w, name, filetype, mouse)) return;
    bool failed = false;
    bool loaded = dispatchfirst(
        EVENTDROPLOAD, w,
        [&](const block &b) { return handlerof<droploadfunction>(b)(name, filetype, b.data, 0); },
        &failed);
    if (!loaded || failed) return;
    dispatchfirst(EVENTDROPDONE, w,
                  [&](const block &b) { return handlerof<dropdonefunction>(b)(b.data); });
}

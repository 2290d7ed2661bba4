#include "desktop/dialogs.h"

#include "base/syserr.h"
#include "desktop/icons.h"
#include "desktop/templates.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

errorblock *dialogopen(const dialogrecord &record, window owner, int32_t number)
{
    window *self = record.self;
    if (*self && wdatafind(*self)) return raisewindow(*self, 0, nullptr);
    if (*self) dialogend(record);
    errorblock *err = createwindow(number ? number : record.number, nullptr, self, owner);
    if (err) return err;
    err = addhandlers(*self, record.handlers);
    if (!err && record.fill) err = record.fill();
    if (!err) err = opencentred(*self, 0);
    if (!err && record.shown) err = record.shown();
    if (!err) err = record.focus ? caretatend(*self, record.focus) : focusnext(*self, 0, 0);
    if (!err && record.locked) {
        *record.locked = owner;
        err = enablewindow(owner, 0);
    }
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    return firsterror(kept, dialogend(record));
}

errorblock *dialogend(const dialogrecord &record)
{
    if (!*record.self) return nullptr;
    if (record.ending) record.ending();
    remhandlers(*record.self, record.handlers);
    if (record.locked) {
        enablewindow(*record.locked, 1);
        *record.locked = 0;
    }
    if (wdatafind(*record.self)) return removewindow(record.self);
    *record.self = 0;
    return nullptr;
}

// The call tells what the state was, not whether it worked.
errorblock *enablewindow(window w, bool on)
{
    if (w) EnableWindow(systemwindow(w), on);
    return nullptr;
}

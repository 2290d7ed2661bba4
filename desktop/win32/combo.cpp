#include "desktop/combo.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/filters.h"
#include "desktop/validation.h"
#include "desktop/win32/iconhandle.h"
#include "desktop/win32/rowpaint.h"

struct comborecord {
    window self;
    intptr_t icon;
    combofunction callback;
    intptr_t data;
};

static void combotext(const DRAWITEMSTRUCT *item, char *buffer)
{
    constexpr int FIELD = 512; // the most that the box itself shows
    if (item->itemState & ODS_COMBOBOXEDIT)
        GetWindowTextA(item->hwndItem, buffer, FIELD);
    else
        rowstring(item->hwndItem, CB_GETLBTEXTLEN, CB_GETLBTEXT, item->itemID, buffer);
}

static errorblock *combofilter(const systemmessage *message, intptr_t data, int *stop,
                               intptr_t *result, int *kind)
{
    comborecord record = *reinterpret_cast<comborecord *>(data); // the callback may end it
    int32_t icon = static_cast<int32_t>(record.icon);
    int32_t code = rowcommand(message, icon);
    if (code != -1 || rowmessage(message, icon, combotext)) {
        *stop = 1;
        *result = *kind = code == -1; // a drawing message is answered by 1
    }
    if (code != CBN_SELENDOK) return nullptr;
    HWND control = reinterpret_cast<HWND>(message->lparam);
    int32_t index = static_cast<int32_t>(SendMessageA(control, CB_GETCURSEL, 0, 0));
    return record.callback(1, record.self, record.data, index, 0);
}

errorblock *addcombo(window w, intptr_t data, int32_t icon, comborecord **record,
                     combofunction callback)
{
    void *memory = nullptr;
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = heap_alloc(&memory, sizeof(comborecord));
    if (err) return err;
    comborecord *made = static_cast<comborecord *>(memory);
    *made = {w, icon, callback, data};
    err = rowfilters(w, made, combofilter);
    if (err) {
        remcombo(made);
        return err;
    }
    // It was measured as it was made, before there was a filter.
    if (SendMessageA(control, CB_GETITEMHEIGHT, 0, 0) < ROWHEIGHT)
        SendMessageA(control, CB_SETITEMHEIGHT, 0, ROWHEIGHT);
    *record = made;
    return nullptr;
}

errorblock *remcombo(comborecord *record)
{
    void *memory = record;
    rowunfilter(record->self, record, combofilter);
    return heap_free(&memory);
}

// given is the system's answer, below 0 for a message that it couldn't do.
static errorblock *combosend(comborecord *record, UINT message, WPARAM wparam, const char *text,
                             LRESULT *given)
{
    HWND control;
    *given = CB_ERR;
    errorblock *err = iconhandle(record->self, static_cast<int32_t>(record->icon), &control);
    if (!err) *given = SendMessageA(control, message, wparam, reinterpret_cast<LPARAM>(text));
    return err;
}

errorblock *comboadd(comborecord *record, const char *text)
{
    LRESULT given;
    errorblock *err = combosend(record, CB_ADDSTRING, 0, text, &given);
    if (!err && given < 0) err = makeerror(ERRORMEMORY);
    return err;
}

errorblock *comboclear(comborecord *record)
{
    LRESULT given;
    return combosend(record, CB_RESETCONTENT, 0, nullptr, &given);
}

errorblock *comboselect(comborecord *record, int32_t index)
{
    LRESULT given;
    return combosend(record, CB_SETCURSEL, static_cast<WPARAM>(index), nullptr, &given);
}

errorblock *comboselected(comborecord *record, int32_t *index)
{
    LRESULT given;
    errorblock *err = combosend(record, CB_GETCURSEL, 0, nullptr, &given);
    *index = static_cast<int32_t>(given);
    return err;
}

#include "desktop/combo.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/filters.h"
#include "desktop/win32/iconhandle.h"
#include "desktop/win32/rowpaint.h"

struct listrecord {
    window self;
    intptr_t data;
    intptr_t icon;
    combofunction callback;
};

static constexpr int32_t LISTDOUBLE = 1, LISTSELECTED = 2;

static void listtext(const DRAWITEMSTRUCT *item, char *buffer)
{
    rowstring(item->hwndItem, LB_GETTEXTLEN, LB_GETTEXT, item->itemID, buffer);
}

static errorblock *listfilter(const systemmessage *message, intptr_t data, int *stop,
                              intptr_t *result, int *kind)
{
    listrecord record = *reinterpret_cast<listrecord *>(data); // the callback may end it
    int32_t icon = static_cast<int32_t>(record.icon);
    int32_t code = rowcommand(message, icon);
    if (code != -1 || rowmessage(message, icon, listtext)) {
        *stop = 1;
        *result = *kind = code == -1; // a drawing message is answered by 1
    }
    if (code != LBN_DBLCLK && code != LBN_SELCHANGE) return nullptr;
    HWND control = reinterpret_cast<HWND>(message->lparam);
    int32_t index = static_cast<int32_t>(SendMessageA(control, LB_GETCURSEL, 0, 0));
    return record.callback(code == LBN_DBLCLK ? LISTDOUBLE : LISTSELECTED, record.self, record.data,
                           index, 0);
}

errorblock *addlistbox(window w, intptr_t data, int32_t icon, listrecord **record,
                       combofunction callback)
{
    void *memory = nullptr;
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = heap_alloc(&memory, sizeof(listrecord));
    if (err) return err;
    listrecord *made = static_cast<listrecord *>(memory);
    *made = {w, data, icon, callback};
    err = rowfilters(w, made, listfilter);
    if (err) {
        remlistbox(made);
        return err;
    }
    SendMessageA(control, LB_SETITEMHEIGHT, 0, ROWHEIGHT);
    *record = made;
    return nullptr;
}

errorblock *remlistbox(listrecord *record)
{
    void *memory = record;
    rowunfilter(record->self, record, listfilter);
    return heap_free(&memory);
}

// given is the system's answer, below 0 for a message that it couldn't do.
static errorblock *listsend(listrecord *record, UINT message, const char *text, LRESULT *given)
{
    HWND control;
    *given = LB_ERR;
    errorblock *err = iconhandle(record->self, static_cast<int32_t>(record->icon), &control);
    if (!err) *given = SendMessageA(control, message, 0, reinterpret_cast<LPARAM>(text));
    return err;
}

errorblock *listadd(listrecord *record, const char *text)
{
    LRESULT given;
    errorblock *err = listsend(record, LB_ADDSTRING, text, &given);
    if (!err && given < 0) err = makeerror(ERRORMEMORY);
    return err;
}

errorblock *listclear(listrecord *record)
{
    LRESULT given;
    return listsend(record, LB_RESETCONTENT, nullptr, &given);
}

// Combo and list boxes, which differ in what they call the same things.
#include "desktop/combo.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/filters.h"
#include "desktop/win32/iconhandle.h"
#include "desktop/win32/rowpaint.h"
#include "graphics/win32/windowhandle.h"

struct comborecord {
    window self;
    intptr_t icon;
    combofunction callback;
    intptr_t data;
};

struct listrecord {
    window self;
    intptr_t data;
    intptr_t icon;
    combofunction callback;
};

namespace
{

struct boxkind {
    rowtexts texts;
    UINT add, clear, selected; // messages
    struct {
        int32_t code, event; // a notification, and what the callback is told; event 0 for none
    } events[2];
};

template<typename Record> constexpr boxkind KIND = {};
template<>
constexpr boxkind KIND<comborecord> = {.texts = {CB_GETLBTEXTLEN, CB_GETLBTEXT},
                                       .add = CB_ADDSTRING,
                                       .clear = CB_RESETCONTENT,
                                       .selected = CB_GETCURSEL,
                                       .events = {{CBN_SELENDOK, 1}}};
template<>
constexpr boxkind KIND<listrecord> = {.texts = {LB_GETTEXTLEN, LB_GETTEXT},
                                      .add = LB_ADDSTRING,
                                      .clear = LB_RESETCONTENT,
                                      .selected = LB_GETCURSEL,
                                      .events = {{LBN_DBLCLK, 1}, {LBN_SELCHANGE, 2}}};

template<typename Record>
errorblock *boxfilter(const systemmessage *message, intptr_t data, bool *stop, intptr_t *result,
                      int *kind)
{
    Record record = *reinterpret_cast<Record *>(data); // the callback may end it
    const boxkind &box = KIND<Record>;
    int32_t icon = static_cast<int32_t>(record.icon);
    int32_t code = rowcommand(message, icon);
    if (code != -1 || rowmessage(message, icon, box.texts)) {
        *stop = true;
        *result = *kind = code == -1; // a drawing message is answered by 1
    }
    for (const auto &row : box.events) {
        if (!row.event || row.code != code) continue;
        LRESULT index = SendMessageA(systemwindow(message->lparam), box.selected, 0, 0);
        return record.callback(row.event, record.self, record.data, static_cast<int32_t>(index), 0);
    }
    return nullptr;
}

template<typename Record> errorblock *boxrem(Record *record)
{
    void *memory = record;
    rowunfilter(record->self, record, boxfilter<Record>);
    return heap_free(&memory);
}

template<typename Record>
errorblock *boxadd(window w, intptr_t data, int32_t icon, Record **record, combofunction callback,
                   HWND *control)
{
    void *memory = nullptr;
    errorblock *err = iconhandle(w, icon, control);
    if (!err) err = heap_alloc(&memory, sizeof(Record));
    if (err) return err;
    Record *made = static_cast<Record *>(memory);
    made->self = w;
    made->icon = icon;
    made->callback = callback;
    made->data = data;
    err = rowfilters(w, made, boxfilter<Record>);
    if (err)
        boxrem(made);
    else
        *record = made;
    return err;
}

// given is the system's answer, below 0 for a message that it couldn't do.
template<typename Record>
errorblock *boxsend(const Record *record, UINT message, WPARAM wparam, const char *text,
                    LRESULT *given)
{
    HWND control;
    *given = -1;
    errorblock *err = iconhandle(record->self, static_cast<int32_t>(record->icon), &control);
    if (!err) *given = SendMessageA(control, message, wparam, reinterpret_cast<LPARAM>(text));
    return err;
}

template<typename Record> errorblock *textadd(Record *record, const char *text)
{
    LRESULT given;
    errorblock *err = boxsend(record, KIND<Record>.add, 0, text, &given);
    if (!err && given < 0) err = makeerror(ERRORMEMORY);
    return err;
}

template<typename Record> errorblock *textsclear(Record *record)
{
    LRESULT given;
    return boxsend(record, KIND<Record>.clear, 0, nullptr, &given);
}

} // namespace

errorblock *addcombo(window w, intptr_t data, int32_t icon, comborecord **record,
                     combofunction callback)
{
    HWND control;
    errorblock *err = boxadd(w, data, icon, record, callback, &control);
    // It was measured as it was made, before there was a filter.
    if (!err && SendMessageA(control, CB_GETITEMHEIGHT, 0, 0) < ROWHEIGHT)
        SendMessageA(control, CB_SETITEMHEIGHT, 0, ROWHEIGHT);
    return err;
}

errorblock *remcombo(comborecord *record)
{
    return boxrem(record);
}

errorblock *comboadd(comborecord *record, const char *text)
{
    return textadd(record, text);
}

errorblock *comboclear(comborecord *record)
{
    return textsclear(record);
}

errorblock *comboselect(comborecord *record, int32_t index)
{
    LRESULT given;
    return boxsend(record, CB_SETCURSEL, static_cast<WPARAM>(index), nullptr, &given);
}

errorblock *comboselected(comborecord *record, int32_t *index)
{
    LRESULT given;
    errorblock *err = boxsend(record, CB_GETCURSEL, 0, nullptr, &given);
    *index = static_cast<int32_t>(given);
    return err;
}

errorblock *addlistbox(window w, intptr_t data, int32_t icon, listrecord **record,
                       combofunction callback)
{
    HWND control;
    errorblock *err = boxadd(w, data, icon, record, callback, &control);
    if (!err) SendMessageA(control, LB_SETITEMHEIGHT, 0, ROWHEIGHT);
    return err;
}

errorblock *remlistbox(listrecord *record)
{
    return boxrem(record);
}

errorblock *listadd(listrecord *record, const char *text)
{
    return textadd(record, text);
}

errorblock *listclear(listrecord *record)
{
    return textsclear(record);
}

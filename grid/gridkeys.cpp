#include "grid/gridkeys.h"

#include "desktop/handlertable.h"
#include "desktop/keys.h"
#include "grid/gridfile.h"
#include "grid/gridpress.h"
#include "grid/gridreflect.h"
#include "grid/gridtype.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"

namespace
{

struct keyrow {
    int32_t code; // but KEYPRESS
    errorblock *(*function)();
    bool edits; // not during a search
};

constexpr keyrow keys[] = {
    {KEYLEFT, calls<cursormove, -1, 0>, true},
    {KEYRIGHT, calls<cursormove, 1, 0>, true},
    {KEYUP, calls<cursormove, 0, -1>, true},
    {KEYDOWN, calls<cursormove, 0, 1>, true},
    {KEYSHIFT | KEYLEFT, calls<gridviewscroll, -1, 0>, false},
    {KEYSHIFT | KEYRIGHT, calls<gridviewscroll, 1, 0>, false},
    {KEYSHIFT | KEYUP, calls<gridviewscroll, 0, -1>, false},
    {KEYSHIFT | KEYDOWN, calls<gridviewscroll, 0, 1>, false},
    {KEYCTRL | KEYLEFT, calls<gridstep, -1, 0>, true},
    {KEYCTRL | KEYRIGHT, calls<gridstep, 1, 0>, true},
    {KEYCTRL | KEYUP, calls<gridstep, 0, -1>, true},
    {KEYCTRL | KEYDOWN, calls<gridstep, 0, 1>, true},
    {KEYCTRL | KEYSHIFT | KEYLEFT, calls<gridmarkstep, -1, 0>, true},
    {KEYCTRL | KEYSHIFT | KEYRIGHT, calls<gridmarkstep, 1, 0>, true},
    {KEYCTRL | KEYSHIFT | KEYUP, calls<gridmarkstep, 0, -1>, true},
    {KEYCTRL | KEYSHIFT | KEYDOWN, calls<gridmarkstep, 0, 1>, true},
    {KEYINSERT, calls<gridcursoredit, false, false>, true},
    {KEYSHIFT | KEYINSERT, calls<gridcursoredit, true, false>, true},
    {KEYCTRL | KEYINSERT, calls<gridcursoredit, false, true>, true},
    {KEYF1 + 4, calls<gridreflect, REFLECTVERTICAL>, true},
    {KEYF1 + 5, calls<gridreflect, REFLECTHORIZONTAL>, true},
    {KEYF1 + 6, calls<gridreflect, REFLECTRISING>, true},
    {KEYF1 + 7, calls<gridreflect, REFLECTFALLING>, true},
    {KEYESCAPE, calls<stoprequest>, false},
    {KEYBACKSPACE, calls<griderase>, true},
    {KEYDELETE, calls<griderase>, true},
    {KEYCTRL | 'S', gridsaveasked, false},
};

// The row of a pressed key, 0 if none is for it.
const keyrow *pressed(int32_t code)
{
    for (const keyrow &row : keys)
        if ((row.code | KEYPRESS) == code) return &row;
    return nullptr;
}

} // namespace

errorblock *gridkey(window, intptr_t, int32_t, int32_t *code)
{
    int32_t key = *code;
    bool press = key & KEYPRESS;
    const keyrow *row = press ? pressed(key) : nullptr;
    if (press && !row) return nullptr;
    *code = KEYCLAIMED;
    if (searchunderway() && (!row || row->edits)) return nullptr;
    if (row) return row->function();
    if (key >= 0 && key <= 255) gridtype(static_cast<uint8_t>(key));
    return nullptr;
}

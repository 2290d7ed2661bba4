#include "grid/gridkeys.h"

#include "desktop/keys.h"
#include "grid/gridfile.h"
#include "grid/gridreflect.h"
#include "grid/gridtype.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"

namespace
{

errorblock *move(int32_t dx, int32_t dy)
{
    cursormove(dx, dy);
    return nullptr;
}

errorblock *reflect(int32_t which, int32_t)
{
    gridreflect(which);
    return nullptr;
}

errorblock *erase(int32_t, int32_t)
{
    griderase();
    return nullptr;
}

errorblock *stop(int32_t, int32_t)
{
    stoprequest();
    return nullptr;
}

errorblock *save(int32_t, int32_t)
{
    return gridsavecommand();
}

struct keyrow {
    int32_t code; // but KEYPRESS
    errorblock *(*function)(int32_t first, int32_t second);
    int32_t first, second;
    bool edits; // not during a search
};

const keyrow keys[] = {
    {KEYLEFT, move, -1, 0, true},
    {KEYRIGHT, move, 1, 0, true},
    {KEYUP, move, 0, -1, true},
    {KEYDOWN, move, 0, 1, true},
    {KEYSHIFT | KEYLEFT, gridviewscroll, -1, 0, false},
    {KEYSHIFT | KEYRIGHT, gridviewscroll, 1, 0, false},
    {KEYSHIFT | KEYUP, gridviewscroll, 0, -1, false},
    {KEYSHIFT | KEYDOWN, gridviewscroll, 0, 1, false},
    {KEYF1 + 4, reflect, REFLECTVERTICAL, 0, true},
    {KEYF1 + 5, reflect, REFLECTHORIZONTAL, 0, true},
    {KEYF1 + 6, reflect, REFLECTRISING, 0, true},
    {KEYF1 + 7, reflect, REFLECTFALLING, 0, true},
    {KEYESCAPE, stop, 0, 0, false},
    {KEYBACKSPACE, erase, 0, 0, true},
    {KEYDELETE, erase, 0, 0, true},
    {KEYCTRL | 'S', save, 0, 0, false},
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
    if (row) return row->function(row->first, row->second);
    if (key >= 0 && key <= 255) gridtype(static_cast<uint8_t>(key));
    return nullptr;
}

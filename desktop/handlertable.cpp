#include "desktop/handlertable.h"

#include "desktop/blocks.h"
#include "desktop/keys.h"
#include "desktop/subclass.h"

#include <cstddef>

namespace
{

errorblock *rowcall(intptr_t address)
{
    const handlerrow &row = *reinterpret_cast<const handlerrow *>(address);
    rowfunction function = row.press ? row.press : row.keyed ? row.keyed : row.closed;
    return function();
}

errorblock *rowrun(const handlerrow &row)
{
    auto address = reinterpret_cast<intptr_t>(&row);
    return row.when ? row.when(rowcall, address) : rowcall(address);
}

const handlertable &tableof(intptr_t data)
{
    return *reinterpret_cast<const handlertable *>(data);
}

errorblock *tableclick(window self, intptr_t data, mouserecord *mouse)
{
    for (const handlerrow &row : tableof(data)) {
        bool meant = mouse->buttons == BUTTONLEFT && mouse->icon == row.control;
        if (row.press && meant) return rowrun(row);
        if (row.click) return row.click(self, row.data, mouse);
    }
    return nullptr;
}

errorblock *tablekey(window self, intptr_t data, int32_t icon, int32_t *code)
{
    for (const handlerrow &row : tableof(data)) {
        int32_t given = row.code & KEYEITHER ? (*code & ~KEYPRESS) | KEYEITHER : *code;
        bool meant = given == row.code && (row.control == ANYCONTROL || row.control == icon);
        if (row.keyed && meant) {
            *code = KEYCLAIMED;
            return rowrun(row);
        }
        errorblock *err = row.key ? row.key(self, row.data, icon, code) : nullptr;
        if (err || *code == KEYCLAIMED) return err;
    }
    return nullptr;
}

errorblock *tableclosed(window, intptr_t address)
{
    return rowrun(*reinterpret_cast<const handlerrow *>(address));
}

// The block of a row. Those of all clicks of a table are equal, and so are those of
// its keys: the first one's is registered.
block blockof(const handlertable &table, const handlerrow &row, window owner)
{
    auto whole = reinterpret_cast<intptr_t>(&table);
    if (row.click || row.press) return {EVENTCLICK, 0, owner, whole, anyfunction(tableclick)};
    if (row.key || row.keyed) return {EVENTKEY, 0, owner, whole, anyfunction(tablekey)};
    if (row.closed)
        return {EVENTCLOSE, 0, owner, reinterpret_cast<intptr_t>(&row), anyfunction(tableclosed)};
    if (row.helptemplate) return {EVENTHELP, 0, owner, row.helptemplate, nullptr};

    block b = {0, 0, owner, row.data, nullptr};
    auto is = [&b](int32_t type, auto function) {
        if (!function) return;
        b.type = type;
        b.function = anyfunction(function);
    };
    is(EVENTREDRAW, row.redraw);
    is(EVENTOPEN, row.open);
    is(EVENTCLOSE, row.close);
    is(EVENTFOCUS, row.focus);
    is(EVENTMOUSE, row.mouse);
    is(EVENTACTIVATE, row.activate);
    is(EVENTPOINTER, row.pointer);
    is(EVENTTEXTCHANGE, row.textchange);
    is(EVENTTEXTFOCUS, row.textfocus);
    is(EVENTPARENTDELETED, row.parentdeleted);
    is(EVENTPARENTCLOSED, row.parentclosed);
    is(EVENTWHEEL, row.wheel);
    is(EVENTAPPCOMMAND, row.appcommand);
    is(EVENTHELP, row.help);
    is(EVENTDROP, row.drop);
    is(EVENTDROPLOAD, row.dropload);
    is(EVENTDROPDONE, row.dropdone);
    return b;
}

void rowremove(window owner, const handlertable &table, const handlerrow &row)
{
    if (row.subclass) {
        remsubclasshandler(owner, row.control, row.data, row.subclass);
        return;
    }
    block b = blockof(table, row, owner);
    bool there = findblock(b.type, b.subtype, b.window, b.data, b.function) != -1;
    if (there) remblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
}

errorblock *rowadd(window owner, const handlertable &table, const handlerrow &row)
{
    if (row.subclass) return addsubclasshandler(owner, row.control, row.data, row.subclass);
    block b = blockof(table, row, owner);
    return addblock(b.type, b.subtype, b.window, b.data, b.function, nullptr);
}

} // namespace

errorblock *addhandlers(window owner, const handlertable &table)
{
    const handlerrow *rows = table.begin();
    for (size_t n = 0; n < table.size(); n++) {
        errorblock *err = rowadd(owner, table, rows[n]);
        if (!err) continue;
        while (n-- > 0)
            rowremove(owner, table, rows[n]);
        return err;
    }
    return nullptr;
}

errorblock *remhandlers(window owner, const handlertable &table)
{
    for (size_t n = table.size(); n-- > 0;)
        rowremove(owner, table, table.begin()[n]);
    return nullptr;
}

// A dialog of the usual kind: fields, a number with arrows, a combo box, a list
// box and a check box. A new dialog starts as a copy of this.
#include "base/numbers.h"
#include "base/syserr.h"
#include "desktop/combo.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

#include <cstdio>

namespace
{

// As in the template.
constexpr int32_t ADD = 1, CLOSE = 2, CLEAR = 3;
constexpr int32_t WORD = 10, NUMBER = 11, ARROWS = 12, SHAPE = 13, UPPER = 14, FOUND = 15,
                  STATUS = 16;

constexpr int32_t WORDSIZE = 16; // with its end

// Rows of both lists: a small icon of the program, a gap, a text.
constexpr char ROWSTART[] = "\\i!Quillmere\\t4\\s";
constexpr const char *SHAPES[] = {"Square", "Circle", "Triangle"};

struct {
    window self; // 0 while it is closed
    comborecord *shapes;
    listrecord *found;
    int32_t shape;
} fields;

errorblock *shapechosen(int32_t, window, intptr_t, int32_t index, int32_t)
{
    fields.shape = index;
    logline("Shape %d: %s", static_cast<int>(index), SHAPES[index]);
    return nullptr;
}

errorblock *foundchosen(int32_t event, window, intptr_t, int32_t index, int32_t)
{
    logline(event == 1 ? "Row %d, twice" : "Row %d", static_cast<int>(index));
    return nullptr;
}

// What is in the fields becomes a row of the list.
errorblock *add()
{
    char word[WORDSIZE], number[16], row[64];
    int upper;
    errorblock *err = copyicontext(fields.self, WORD, word, sizeof word);
    if (!err) err = copyicontext(fields.self, NUMBER, number, sizeof number);
    if (!err) err = iconselected(fields.self, UPPER, &upper);
    if (err) return err;
    snprintf(row, sizeof row, "%s%s %s %s%s", ROWSTART, number, SHAPES[fields.shape], word,
             upper ? "!" : "");
    err = listadd(fields.found, row);
    if (!err) err = seticontext(fields.self, WORD, "");
    return err ? err : setcaret(fields.self, WORD, 0, 0, 0, 0);
}

errorblock *click(window, intptr_t, mouserecord *mouse)
{
    if (mouse->icon == ADD) return add();
    if (mouse->icon == CLEAR) return listclear(fields.found);
    if (mouse->icon == CLOSE) fieldsend();
    return nullptr;
}

// Return presses the default button by itself, which is a click.
errorblock *key(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    fieldsend();
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    fieldsend();
    return nullptr;
}

// The text belongs to a buffer of everyone: it is used up at once.
errorblock *changed(window self, int32_t icon, intptr_t)
{
    char *text;
    errorblock *err = geticontext(self, icon, &text);
    return err ? err
               : seticontextf(self, STATUS, "Field %d holds %s", static_cast<int>(icon), text);
}

errorblock *caretmoved(window, int32_t icon, int gained, intptr_t)
{
    logline("Field %d has %s the caret", static_cast<int>(icon), gained ? "got" : "lost");
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    if (!err) err = addtextchangehandler(changed, w, 0);
    if (!err) err = addtextfocushandler(caretmoved, w, 0);
    return err;
}

// In the reverse order. It does no harm to remove what was never added.
void handlersremove(window w)
{
    remtextfocushandler(caretmoved, w, 0);
    remtextchangehandler(changed, w, 0);
    remclosehandler(closed, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
}

errorblock *shapesfill()
{
    errorblock *err = nullptr;
    for (const char *shape : SHAPES) {
        char row[64];
        snprintf(row, sizeof row, "%s%s", ROWSTART, shape);
        if (!err) err = comboadd(fields.shapes, row);
    }
    return err ? err : comboselect(fields.shapes, fields.shape);
}

errorblock *fill(window w)
{
    errorblock *err = addcombo(w, 0, SHAPE, &fields.shapes, shapechosen);
    if (!err) err = shapesfill();
    if (!err) err = addlistbox(w, 0, FOUND, &fields.found, foundchosen);
    if (!err) err = seticonlimit(w, WORD, WORDSIZE - 1);
    if (!err) err = seticonrange(w, ARROWS, 1, 99);
    if (!err) err = seticontextf(w, NUMBER, "%d", 5);
    return err;
}

} // namespace

// The handlers come last: what is filled in has not been changed by anyone.
errorblock *fieldsopen()
{
    if (fields.self) return raisewindow(fields.self, 0, nullptr);
    fields = {};
    errorblock *err = createchild(TEMPLATEFIELDS, &fields.self, demowindow);
    if (!err) err = fill(fields.self);
    if (!err) err = handlersadd(fields.self);
    if (!err) err = opencentred(fields.self, 2);
    if (!err) err = setcaret(fields.self, WORD, 0, 0, 0, 0);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    fieldsend();
    return firsterror(kept, nullptr);
}

void fieldsend()
{
    if (!fields.self) return;
    handlersremove(fields.self);
    if (fields.found) remlistbox(fields.found);
    if (fields.shapes) remcombo(fields.shapes);
    removewindow(&fields.self);
}

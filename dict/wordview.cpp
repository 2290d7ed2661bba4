#include "dict/wordview.h"

#include "desktop/handlertable.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/templates.h"
#include "desktop/timed.h"
#include "desktop/windows.h"
#include "dict/collation.h"
#include "graphics/modeinfo.h"
#include "resources/identifiers.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int32_t FRAME = 2;      // pixels of the edge that the place draws around itself
constexpr int32_t TOGETHER = 100; // centiseconds between letters that belong together

wordview *views; // the open ones

int32_t rowcount(const wordview *view)
{
    return static_cast<int32_t>(dictcount(view->wordrows));
}

// What the pane shows: the work area's top, counted downward, and the height.
struct visiblepart {
    int32_t top, height;
};

errorblock *visible(const wordview *view, visiblepart *part)
{
    windowstaterecord state;
    errorblock *err = windowstate(view->pane, &state);
    if (!err) *part = {-state.yscroll, state.y1 - state.y0};
    return err;
}

// Where the field's text stands in the store, or would stand; -1 in an empty one.
// Only the whole word in the same case is found.
struct fieldplace {
    int32_t row;
    bool found;
};

fieldplace fieldlook(const wordview *view, const char *text)
{
    dictcursor cursor = {};
    uint32_t flags = 0;
    if (dictisempty(view->wordrows)) return {-1, false};
    int there = dictfind(text, view->wordrows, &cursor, &flags);
    bool found = there && !(flags & FINDCASEDIFFERS) && strlen(text) <= WORDLENGTH;
    return {static_cast<int32_t>(cursor.wordn), found};
}

errorblock *fieldset(wordview *view, int32_t row)
{
    return seticontext(view->owner, view->field,
                       row < 0 ? "" : dictword(static_cast<uint32_t>(row), view->wordrows));
}

// The row from which keys go on.
int32_t rownow(const wordview *view)
{
    return view->arrowscaret ? view->rowcaret : view->rowsel;
}

errorblock *rowtake(wordview *view, int32_t row)
{
    int32_t next = std::min(std::max(row, 0), rowcount(view) - 1);
    if (next == rownow(view)) return nullptr;
    errorblock *err = wordviewselect(view, next);
    if (!err) err = fieldset(view, next);
    if (!err) err = wordviewreveal(view, next);
    return err;
}

// A key that moves ends the word that was being typed.
errorblock *rowgo(wordview *view, int32_t row)
{
    view->typed[0] = 0;
    return rowtake(view, row);
}

// As many rows as are seen, but for one, which stays in view.
errorblock *pagego(wordview *view, int32_t sign)
{
    visiblepart part;
    errorblock *err = visible(view, &part);
    int32_t rows = std::max(part.height / wordmetrics.rowheight - 1, 1);
    return err ? err : rowgo(view, rownow(view) + sign * rows);
}

bool wordbegins(const char *word, const char *letters)
{
    while (*letters && collation.fold[static_cast<uint8_t>(*word)] ==
                           collation.fold[static_cast<uint8_t>(*letters)])
        word++, letters++;
    return !*letters;
}

// The first word that begins with the letters stands where they would stand as a
// word, or behind; -1 if none does.
int32_t rowbeginning(const wordview *view, const char *letters)
{
    int32_t row = fieldlook(view, letters).row;
    for (int32_t end = std::min(row + 2, rowcount(view)); row >= 0 && row < end; row++)
        if (wordbegins(dictword(static_cast<uint32_t>(row), view->wordrows), letters)) return row;
    return -1;
}

// Letters typed one soon after the other lead to a word together. One with which no
// word goes on is passed over.
errorblock *lettertyped(wordview *view, char letter)
{
    if (tickdiff(keytime, view->typedat) > TOGETHER) view->typed[0] = 0;
    view->typedat = keytime;
    size_t length = strlen(view->typed);
    if (length == WORDLENGTH) return nullptr;
    view->typed[length] = letter;
    view->typed[length + 1] = 0;
    int32_t row = rowbeginning(view, view->typed);
    if (row < 0) view->typed[length] = 0;
    return row < 0 ? nullptr : rowtake(view, row);
}

errorblock *viewkey(window pane, intptr_t, int32_t, int32_t *code)
{
    wordview *view = wordviewof(pane);
    int32_t key = *code;
    *code = KEYCLAIMED;
    switch (key) {
    case KEYPRESS | KEYUP:
        return rowgo(view, rownow(view) - 1);
    case KEYPRESS | KEYDOWN:
        return rowgo(view, rownow(view) + 1);
    case KEYPRESS | KEYPAGEUP:
        return pagego(view, -1);
    case KEYPRESS | KEYPAGEDOWN:
        return pagego(view, 1);
    case KEYPRESS | KEYHOME:
        return rowgo(view, 0);
    case KEYPRESS | KEYEND:
        return rowgo(view, rowcount(view) - 1);
    case KEYPRESS | KEYTAB:
        return focusnext(view->owner, view->pane, 0);
    case KEYPRESS | KEYSHIFT | KEYTAB:
        return focusnext(view->owner, view->pane, 1);
    }
    if (key >= ' ' && key <= 255) return lettertyped(view, static_cast<char>(key));
    *code = key;
    return nullptr;
}

errorblock *rowclick(wordview *view, const mouserecord *mouse)
{
    windowinforecord info;
    errorblock *err = windowinfo(view->pane, &info);
    if (err) return err;
    int32_t down = info.yorigin - static_cast<int32_t>(mouse->y);
    int32_t row = down < 0 ? -1 : down / wordmetrics.rowheight;
    view->typed[0] = 0;
    err = wordviewselect(view, row);
    if (!err) err = fieldset(view, row);
    if (!err) err = focuswindow(view->pane);
    return err;
}

errorblock *viewclick(window pane, intptr_t, mouserecord *mouse)
{
    wordview *view = wordviewof(pane);
    if (mouse->buttons == BUTTONLEFT) return rowclick(view, mouse);
    bool right = mouse->buttons == BUTTONRIGHT || mouse->buttons == BUTTONRIGHTDOUBLE;
    if (right && view->menu) return view->menu(view);
    return nullptr;
}

// The row that gets the outline with the focus: what is selected, or the one behind a
// word that went, or else the one in the middle of what is seen.
errorblock *caretrow(const wordview *view, int32_t *row)
{
    visiblepart part;
    *row = view->rowsel >= 0 ? view->rowsel : view->rownext;
    if (*row >= 0) return nullptr;
    errorblock *err = visible(view, &part);
    if (err) return err;
    int32_t middle = (part.top + part.height / 2) / wordmetrics.rowheight;
    *row = std::min(middle, rowcount(view) - 1);
    return nullptr;
}

errorblock *viewfocus(window pane, intptr_t, bool gained)
{
    wordview *view = wordviewof(pane);
    int32_t row = view->rowcaret;
    errorblock *err = gained ? caretrow(view, &row) : nullptr;
    view->rowcaret = gained ? row : -1;
    return err || row < 0 ? err : wordviewpaint(view, row);
}

errorblock *fieldchanged(window owner, int32_t icon, intptr_t)
{
    wordview *view = wordviewof(owner);
    return icon == view->field ? wordviewsync(view) : nullptr;
}

constexpr handlertable panehandlers = {
    {.redraw = wordviewredraw},
    {.click = viewclick},
    {.key = viewkey},
    {.focus = viewfocus},
};

constexpr handlertable ownerhandlers = {
    {.textchange = fieldchanged},
};

} // namespace

wordview *wordviewof(window w)
{
    wordview *view = views;
    while (view && view->pane != w && view->owner != w)
        view = view->next;
    return view;
}

errorblock *wordviewopen(wordview *view, window owner, int32_t field, int32_t place,
                         const Dictionary *store)
{
    view->owner = owner;
    view->pane = 0;
    view->wordrows = store;
    view->rowsel = view->rowcaret = view->rownext = -1;
    view->typed[0] = 0;
    view->field = field;
    view->place = place;
    view->next = views;
    errorblock *err = createchild(TEMPLATEPANE, &view->pane, owner);
    if (err) return err;
    views = view;
    err = setbackground(view->pane, BACKGROUNDWHITE);
    if (!err) err = addhandlers(view->pane, panehandlers);
    if (!err) err = addhandlers(owner, ownerhandlers);
    if (!err) err = wordviewextent(view);
    if (err) wordviewclose(view);
    return err;
}

// In the order of Tab the list comes where its place is, and over it.
errorblock *wordviewplace(wordview *view)
{
    pixelbox box;
    intptr_t behind;
    errorblock *err = iconpixels(view->owner, view->place, &box);
    if (!err) err = iconbehind(view->owner, view->place, &behind);
    if (err) return err;
    return openpixels(view->pane,
                      {box.left + FRAME, box.top + FRAME, box.right - FRAME, box.bottom - FRAME},
                      behind);
}

void wordviewclose(wordview *view)
{
    if (!view->pane) return;
    wordview **link = &views;
    while (*link != view)
        link = &(*link)->next;
    *link = view->next;
    remhandlers(view->owner, ownerhandlers);
    remhandlers(view->pane, panehandlers);
    removewindow(&view->pane);
}

errorblock *wordviewextent(wordview *view)
{
    return setextent(view->pane, 0, -rowsextent(rowcount(view), wordmetrics.rowheight),
                     wordmetrics.listwidth, 0);
}

// More than the row: its mark and what stands out of it are drawn a little up.
errorblock *wordviewpaint(wordview *view, int32_t row)
{
    windowstaterecord state;
    if (row < 0) return redrawall(view->pane);
    errorblock *err = windowstate(view->pane, &state);
    if (err) return err;
    int32_t pixel = devtoosy(1), width = std::max(state.x1 - state.x0, wordmetrics.listwidth);
    int32_t top = 2 * pixel + 2 - rowsextent(row, wordmetrics.rowheight);
    return forceredraw(view->pane, 0, top - wordmetrics.rowheight - 4 * pixel, width, top);
}

errorblock *wordviewcentre(wordview *view, int32_t row)
{
    visiblepart part;
    errorblock *err = visible(view, &part);
    if (err) return err;
    return setscrolly(view->pane, rowsextent(row + 1, wordmetrics.rowheight) - part.height / 2);
}

// In a pane lower than a row the row's top is what is seen.
errorblock *wordviewreveal(wordview *view, int32_t row)
{
    visiblepart part;
    errorblock *err = visible(view, &part);
    if (err) return err;
    int32_t above = rowsextent(row, wordmetrics.rowheight);
    int32_t below = above + wordmetrics.rowheight - part.height;
    int32_t top = std::min(std::max(part.top, below), above);
    return top == part.top ? nullptr : setscrolly(view->pane, top);
}

errorblock *wordviewsync(wordview *view)
{
    char *text;
    errorblock *err = geticontext(view->owner, view->field, &text);
    if (err) return err;
    fieldplace at = fieldlook(view, text);
    view->rownext = -1;
    if (at.found && at.row == view->rowsel) return nullptr;
    int32_t before = view->rowsel;
    view->rowsel = at.found ? at.row : -1;
    if (at.row >= 0) err = wordviewreveal(view, at.row);
    if (!err && before >= 0) err = wordviewpaint(view, before);
    if (!err && at.found) err = wordviewpaint(view, at.row);
    return err;
}

errorblock *wordviewselect(wordview *view, int32_t row)
{
    if (row < 0 || row >= rowcount(view)) return nullptr;
    if (row == view->rowsel && row == view->rowcaret) return nullptr;
    int32_t selected = view->rowsel, outlined = view->rowcaret;
    view->rowsel = view->rowcaret = row;
    errorblock *err = selected >= 0 ? wordviewpaint(view, selected) : nullptr;
    if (!err && outlined >= 0) err = wordviewpaint(view, outlined);
    return err ? err : wordviewpaint(view, row);
}

errorblock *wordviewschanged()
{
    errorblock *err = nullptr;
    for (wordview *view = views; view && !err; view = view->next) {
        err = view->follow ? view->follow(view) : nullptr;
        if (!err) err = wordviewextent(view);
        if (!err) err = wordviewpaint(view, -1);
        if (!err) err = wordviewsync(view);
    }
    return err;
}

errorblock *wordviewdeleted(wordview *view, int32_t row)
{
    int32_t next = std::min(row, rowcount(view) - 1);
    view->rownext = next;
    if (view->rowcaret < 0) return nullptr;
    view->rowcaret = next;
    errorblock *err = wordviewpaint(view, -1);
    return err || next < 0 ? err : wordviewreveal(view, next);
}

errorblock *wordviewsrefresh()
{
    errorblock *err = nullptr;
    for (wordview *view = views; view && !err; view = view->next) {
        err = wordviewextent(view);
        if (!err) err = wordviewpaint(view, -1);
    }
    return err;
}

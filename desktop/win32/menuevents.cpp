#include "desktop/win32/menumessages.h"

#include "base/boxes.h"
#include "desktop/menupath.h"

#include <windows.h>

static menurow *setcurrent(window w, intptr_t menu)
{
    menurow *row = menufindhandle(menu);
    if (row) {
        menustate.current = row->tag;
        menustate.owner = w;
    }
    return row;
}

// The position is where the menu was opened, as it may hang in several places.
bool menuopening(window w, intptr_t wparam, intptr_t lparam)
{
    menurow *row = setcurrent(w, wparam);
    if (!row) return false;
    const menurow *parent = row->parent ? menufind(row->parent) : nullptr;
    if (parent) row->position = menufromsystem(parent->hidden, LOWORD(lparam));

    const menurow *root = menuroot(row);
    int32_t path[MENUPATH];
    if (root && root->prepare && menupathto(row, -1, path))
        reporterror(root->prepare(path, row->tag, w));
    return true;
}

bool menustarting(window w, intptr_t wparam, intptr_t)
{
    return setcurrent(w, wparam);
}

// At its end, which comes before the command, there is no menu in the words.
bool menuselecting(window w, intptr_t, intptr_t lparam)
{
    return setcurrent(w, lparam);
}

// The keys of a dialog give commands of this form too: its window never had the
// menu.
bool menucommand(window w, intptr_t wparam, intptr_t lparam)
{
    if (lparam || HIWORD(wparam) != 0 || w != menustate.owner) return false;
    menurow *row = menufind(menustate.current);
    menurow *root = row ? menuroot(row) : nullptr;
    int32_t path[MENUPATH];
    if (!root || !root->select || !menupathto(row, LOWORD(wparam), path)) return false;
    reporterror(root->select(path, w));
    return true;
}

#include "desktop/win32/menumessages.h"

#include "base/boxes.h"
#include "base/chars.h"
#include "base/platform.h"
#include "desktop/menupath.h"

#include <windows.h>

#include <cstring>

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

// What can't be chosen now, or has an underlined letter, begins with none.
static bool begins(HMENU menu, UINT at, char letter)
{
    char text[PATHSIZE];
    if (GetMenuState(menu, at, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) return false;
    if (!GetMenuStringA(menu, at, text, sizeof text, MF_BYPOSITION)) return false;
    auto lower = [](char ch) { return charlower(static_cast<uint8_t>(ch)); };
    return !strchr(text, '&') && lower(text[0]) == lower(letter);
}

intptr_t menuletter(intptr_t wparam, intptr_t lparam)
{
    HMENU menu = reinterpret_cast<HMENU>(lparam);
    int found = 0, first = -1, next = -1;
    bool behind = false; // the chosen entry
    for (int at = 0, count = GetMenuItemCount(menu); at < count; at++) {
        auto entry = static_cast<UINT>(at);
        if (begins(menu, entry, static_cast<char>(wparam))) {
            found++;
            if (first < 0) first = at;
            if (next < 0 && behind) next = at;
        }
        if (GetMenuState(menu, entry, MF_BYPOSITION) & MF_HILITE) behind = true;
    }
    if (!found) return 0;
    return MAKELONG(next < 0 ? first : next, found == 1 ? MNC_EXECUTE : MNC_SELECT);
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

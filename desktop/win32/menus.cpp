#include "desktop/menus.h"

#include "base/syserr.h"
#include "base/trace.h"
#include "desktop/menupath.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

#include <cstring>

static HMENU handle(intptr_t menu)
{
    return reinterpret_cast<HMENU>(menu);
}

// A menu bar goes with its window, behind the table's back.
static bool alive(const menurow *row)
{
    return IsMenu(handle(row->menu));
}

// The record of a tag that has a menu.
static menurow *wanted(int32_t tag)
{
    menurow *row = menufind(tag);
    if (row && alive(row)) return row;
    trace("no menu %d", static_cast<int>(tag));
    return nullptr;
}

static HMENU submenu(HMENU menu, int32_t position)
{
    return GetSubMenu(menu, position);
}

// A menu bar that has changed is not drawn by itself. w may have it as its own.
static BOOL CALLBACK drawbar(HWND w, LPARAM menu)
{
    if (GetMenu(w) == handle(menu)) DrawMenuBar(w);
    return TRUE;
}

static void barchanged(const menurow *row)
{
    EnumThreadWindows(GetCurrentThreadId(), drawbar, row->menu);
}

static errorblock *hang(HMENU menu, int32_t position, HMENU below)
{
    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_SUBMENU;
    info.hSubMenu = below;
    return SetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info)
               ? nullptr
               : syserr("SetMenuItemInfo");
}

// Takes a menu off every entry that it hangs on, so that its end leaves none
// with a dead handle, and no menu ends twice.
static void unhang(HMENU menu, HMENU from)
{
    for (int at = GetMenuItemCount(from) - 1; at >= 0; at--)
        if (submenu(from, at) == menu) hang(from, at, nullptr);
}

static void unhangall(HMENU menu)
{
    for (menulink *link = menustate.tables; link; link = link->next)
        for (menurow *row = link->table; row->tag != -1; row++)
            if (row->menu) unhang(menu, handle(row->menu));
}

static errorblock *loadrow(menurow *row)
{
    if (row->resource) {
        row->menu = reinterpret_cast<intptr_t>(LoadMenuA(GetModuleHandleA(nullptr), row->resource));
        return row->menu ? nullptr : syserrname("LoadMenu", row->resource);
    }
    menurow *parent = row->parent ? menufind(row->parent) : nullptr;
    if (parent && parent->menu) {
        int32_t position = menutosystem(parent->hidden, row->position);
        row->menu = reinterpret_cast<intptr_t>(submenu(handle(parent->menu), position));
    }
    return nullptr;
}

errorblock *addmenus(menurow *table, menulink *link)
{
    link->table = table;
    link->next = menustate.tables;
    menustate.tables = link;

    errorblock *err = nullptr;
    for (menurow *row = table; row->tag != -1 && !err; row++)
        err = loadrow(row);
    if (err) {
        kepterror kept = keeperror(err);
        remmenus(link);
        return firsterror(kept, nullptr);
    }
    return nullptr;
}

// Roots take their parts along, and each forgets its own.
errorblock *remmenus(menulink *link)
{
    for (menurow *row = link->table; row->tag != -1; row++)
        if (row->menu) deletemenu(row->tag);
    for (menulink **at = &menustate.tables; *at; at = &(*at)->next)
        if (*at == link) {
            *at = link->next;
            break;
        }
    return nullptr;
}

errorblock *attachmenu(window w, int32_t tag)
{
    menurow *row = wanted(tag);
    if (!row) return nullptr;
    return SetMenu(systemwindow(w), handle(row->menu)) ? nullptr : syserr("SetMenu");
}

// A choice with the right button holds too, as this most often opens on one.
errorblock *popupmenu(window w, int32_t tag)
{
    menurow *row = wanted(tag);
    if (!row) return nullptr;
    menustate.current = tag;
    menustate.owner = w;
    POINT place;
    GetCursorPos(&place);
    UINT flags = TPM_RIGHTBUTTON | (row->flags & 1);
    SetLastError(0);
    return TrackPopupMenu(handle(row->menu), flags, place.x, place.y, 0, systemwindow(w), nullptr)
               ? nullptr
               : syserr("TrackPopupMenu");
}

errorblock *tickmenu(int32_t tag, int32_t id, bool on)
{
    const menurow *row = menufind(tag);
    if (row && row->menu)
        CheckMenuItem(handle(row->menu), static_cast<UINT>(id), on ? MF_CHECKED : MF_UNCHECKED);
    return nullptr;
}

errorblock *shademenu(int32_t tag, int32_t id, bool enabled)
{
    const menurow *row = menufind(tag);
    if (row && row->menu)
        EnableMenuItem(handle(row->menu), static_cast<UINT>(id), enabled ? MF_ENABLED : MF_GRAYED);
    return nullptr;
}

static bool hastext(HMENU menu, int32_t position, const char *text)
{
    char now[512];
    auto at = static_cast<UINT>(position);
    int length = GetMenuStringA(menu, at, nullptr, 0, MF_BYPOSITION);
    if (static_cast<size_t>(length) != strlen(text) || length >= static_cast<int>(sizeof now))
        return false;
    return GetMenuStringA(menu, at, now, sizeof now, MF_BYPOSITION) == length && !strcmp(now, text);
}

errorblock *menutext(int32_t tag, int32_t position, const char *text, bool *changed)
{
    if (changed) *changed = false;
    const menurow *row = wanted(tag);
    if (!row) return nullptr;
    int32_t at = menutosystem(row->hidden, position);
    if (hastext(handle(row->menu), at, text)) return nullptr;

    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = const_cast<char *>(text);
    if (!SetMenuItemInfoA(handle(row->menu), static_cast<UINT>(at), TRUE, &info))
        return syserr("SetMenuItemInfo");
    if (changed) *changed = true;
    barchanged(row);
    return nullptr;
}

// The menu is gone from the table whatever the system says.
errorblock *deletemenu(int32_t tag)
{
    menurow *row = menufind(tag);
    if (!row || !row->menu) return nullptr;
    bool there = alive(row);
    HMENU menu = handle(row->menu);
    menuforget(tag);
    row->hidden = 0;
    if (!there) return nullptr;
    unhangall(menu);
    return DestroyMenu(menu) ? nullptr : syserr("DestroyMenu");
}

static errorblock *replace(int32_t tag, HMENU (*make)(), menuselectfunction select,
                           menupreparefunction prepare)
{
    menurow *row = menufind(tag);
    if (!row) {
        trace("no menu %d", static_cast<int>(tag));
        return nullptr;
    }
    errorblock *err = deletemenu(tag);
    if (err) return err;
    row->select = select;
    row->prepare = prepare;
    row->parent = 0; // it hangs nowhere, and doesn't go with what the old one hung on
    row->menu = reinterpret_cast<intptr_t>(make());
    return row->menu ? nullptr : syserr("CreateMenu");
}

static HMENU makepopup()
{
    return CreatePopupMenu();
}

static HMENU makebar()
{
    return CreateMenu();
}

errorblock *createmenu(int32_t tag, menuselectfunction select, menupreparefunction prepare)
{
    return replace(tag, makepopup, select, prepare);
}

errorblock *createbar(int32_t tag, menuselectfunction select, menupreparefunction prepare)
{
    return replace(tag, makebar, select, prepare);
}

static errorblock *separate(menurow *row)
{
    int position = GetMenuItemCount(handle(row->menu));
    if (!AppendMenuA(handle(row->menu), MF_SEPARATOR, 0, nullptr)) return syserr("AppendMenu");
    if (position < 32) row->hidden |= 1u << position;
    return nullptr;
}

errorblock *appendmenu(int32_t tag, const char *text, uint32_t flags, int32_t id)
{
    menurow *row = wanted(tag);
    if (!row) return nullptr;
    UINT look = MF_STRING;
    if (flags & MENUTICKED) look |= MF_CHECKED;
    if (flags & MENUGREY) look |= MF_GRAYED;
    errorblock *err = nullptr;
    if (!AppendMenuA(handle(row->menu), look, static_cast<UINT_PTR>(id), text))
        err = syserr("AppendMenu");
    if (!err && flags & MENUSEPARATOR) err = separate(row);
    barchanged(row);
    return err;
}

errorblock *clearmenu(int32_t tag)
{
    menurow *row = wanted(tag);
    if (!row) return nullptr;
    intptr_t menu = row->menu;
    menuforget(tag); // whatever hung here goes with its entries
    row->menu = menu;
    row->hidden = 0;
    while (GetMenuItemCount(handle(menu)) > 0)
        if (!DeleteMenu(handle(menu), 0, MF_BYPOSITION)) return syserr("DeleteMenu");
    barchanged(row);
    return nullptr;
}

errorblock *linkmenu(int32_t tag, int32_t parent, int32_t position)
{
    menurow *row = wanted(tag);
    const menurow *above = wanted(parent);
    if (!row || !above) return nullptr;
    int32_t at = menutosystem(above->hidden, position);
    HMENU old = submenu(handle(above->menu), at);
    errorblock *err = hang(handle(above->menu), at, handle(row->menu));
    if (err) return err;
    row->parent = parent;
    row->position = position;
    if (old && !menufindhandle(reinterpret_cast<intptr_t>(old))) DestroyMenu(old);
    barchanged(above);
    return nullptr;
}

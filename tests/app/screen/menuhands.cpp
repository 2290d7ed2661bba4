#include "tests/app/screen/menuhands.h"

#include "app/mainwindow.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>

#include <windows.h>

namespace
{

HWND owner()
{
    return reinterpret_cast<HWND>(mainwindow);
}

int menusshown()
{
    int count = 0;
    for (HWND h = nullptr; (h = FindWindowExA(nullptr, h, "#32768", nullptr));)
        count += IsWindowVisible(h);
    return count;
}

// The system's own loop for menus, which outlasts those that are shown.
bool inmenus()
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(owner(), nullptr), &info);
    return info.flags & GUI_INMENUMODE;
}

// In a script: presses an entry once it is on the screen, never twice in one place:
// that would be a double click.
void press(HMENU menu, int at)
{
    RECT r = {};
    HWND holder = menu == GetMenu(owner()) ? owner() : nullptr; // a popup has its own
    drivewait([&] {
        return GetMenuItemRect(holder, menu, static_cast<UINT>(at), &r) && r.right > r.left;
    });
    static int aside = 5;
    aside = -aside;
    driveclick(static_cast<int>(r.left + r.right) / 2 + aside,
               static_cast<int>(r.top + r.bottom) / 2);
}

// In a script: opens every menu down to one: 0 if one doesn't open.
HMENU open(const menupath &path, size_t count)
{
    HMENU menu = GetMenu(owner());
    for (size_t i = 0; i < count; i++) {
        press(menu, path[i]);
        if (!drivewait([&] { return menusshown() == static_cast<int>(i) + 1; })) return nullptr;
        menu = GetSubMenu(menu, path[i]);
    }
    return menu;
}

menuentry entryat(HMENU menu, int at)
{
    char text[256] = "";
    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING | MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
    info.dwTypeData = text;
    info.cch = sizeof text;
    GetMenuItemInfoA(menu, static_cast<UINT>(at), TRUE, &info);
    bool grey = info.fState & MFS_GRAYED, ticked = info.fState & MFS_CHECKED;
    return {text, info.hSubMenu ? -1 : static_cast<int32_t>(info.wID), grey, ticked};
}

bool pathto(HMENU menu, int32_t id, menupath *path)
{
    for (int at = 0; at < GetMenuItemCount(menu); at++) {
        path->push_back(at);
        HMENU below = GetSubMenu(menu, at);
        if (below ? pathto(below, id, path) : entryat(menu, at).id == id) return true;
        path->pop_back();
    }
    return false;
}

} // namespace

std::vector<menuentry> menulook(const menupath &path)
{
    std::vector<menuentry> entries;
    driveaside([] {},
               [&] {
                   HMENU menu = open(path, path.size());
                   for (int at = 0; menu && at < GetMenuItemCount(menu); at++)
                       entries.push_back(entryat(menu, at));
                   for (int tries = 0; inmenus() && tries < 8; tries++)
                       drivekey(VK_ESCAPE);
               });
    drivepump();
    REQUIRE_FALSE(inmenus());
    return entries;
}

bool menupress(const menupath &path)
{
    HMENU menu = open(path, path.size() - 1);
    if (menu) press(menu, path.back());
    drivewait([] { return !inmenus(); });
    return menu;
}

void menuchoose(const menupath &path, const std::function<void()> &then)
{
    bool opened = false;
    driveaside([] {},
               [&] {
                   opened = menupress(path);
                   if (then) then();
               });
    drivepump();
    REQUIRE(opened);
}

menupath menufindpath(int32_t id)
{
    menupath path;
    REQUIRE(pathto(GetMenu(owner()), id, &path));
    return path;
}

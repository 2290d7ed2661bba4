// Menus as a user meets them: opened and chosen from by mouse and keys.
#include "desktop/menus.h"

#include "base/errors.h"
#include "desktop/blocks.h"
#include "desktop/menupath.h"
#include "tests/desktop/win32/eventwindow.h"
#include "tests/desktop/win32/taskwindows.h"

#include <doctest/doctest.h>

#include <string>

namespace
{

enum { BAR = 1, FILEMENU, WORDS, LISTS, POPUP, PART };

int32_t ticked, shaded; // what the preparation does

std::string told(const int32_t *path)
{
    std::string text = std::to_string(path[0]);
    for (int i = 1; path[i - 1] != -1 || i == 1; i++)
        text += "," + std::to_string(path[i]);
    return text;
}

errorblock *select(const int32_t *path, window w)
{
    CHECK(w == menustate.owner);
    said("select %s;", told(path).c_str());
    return path[0] == 99 ? makeerrortext(7, "refused") : nullptr;
}

errorblock *prepare(const int32_t *path, int32_t menu, window)
{
    said("prepare %d %d;", menu, path[0]);
    if (ticked) tickmenu(menu, ticked, 1);
    if (shaded) shademenu(menu, shaded, 0);
    return nullptr;
}

menurow row(int32_t tag, const char *resource, int32_t parent, int32_t position)
{
    menurow made = {};
    made.tag = tag;
    made.resource = resource;
    made.parent = parent;
    made.position = position;
    if (!parent) made.select = select;
    if (!parent) made.prepare = prepare;
    return made;
}

// A window with a menu bar of two menus, to one of which a third is hung twice;
// and a popup menu.
struct menuwindow {
    menurow table[7] = {row(BAR, "TestMenu", 0, 0),  row(FILEMENU, nullptr, BAR, 0),
                        row(WORDS, nullptr, BAR, 1), row(LISTS, nullptr, 0, 0),
                        row(POPUP, nullptr, 0, 0),   row(PART, nullptr, LISTS, 1),
                        row(-1, nullptr, 0, 0)};
    menulink link;
    HWND h;
    window w;

    menuwindow()
    {
        taken();
        ticked = shaded = 0;
        REQUIRE(blockstart() == nullptr);
        w = taskwindow(WS_OVERLAPPEDWINDOW);
        h = taskhandle(w);
        REQUIRE(addmenus(table, &link) == nullptr);
        table[1].hidden = 0;
        table[2].hidden = 0b10; // its separator
        CHECK(createmenu(LISTS, nullptr, nullptr) == nullptr);
        CHECK(appendmenu(LISTS, "&Adverbs", 0, 30) == nullptr);
        CHECK(appendmenu(LISTS, "&Birds", MENUTICKED | MENUSEPARATOR, 31) == nullptr);
        CHECK(appendmenu(LISTS, "&Chess", MENUGREY, 32) == nullptr);
        CHECK(linkmenu(LISTS, WORDS, 0) == nullptr);
        CHECK(linkmenu(LISTS, WORDS, 1) == nullptr);
        CHECK(createmenu(POPUP, select, prepare) == nullptr);
        CHECK(appendmenu(POPUP, "&Cut", 0, 40) == nullptr);
        CHECK(appendmenu(POPUP, "&Paste", 0, 41) == nullptr);
        CHECK(attachmenu(w, BAR) == nullptr);
        ShowWindow(h, SW_SHOW);
        SetForegroundWindow(h);
        drivepump(50);
    }
    ~menuwindow()
    {
        DestroyWindow(h);
        remmenus(&link);
        blockend();
    }
};

HMENU menuof(int32_t tag)
{
    return reinterpret_cast<HMENU>(menufind(tag)->menu);
}

// In a script: the middle of an entry that is on the screen.
driveplace entry(HWND owner, int32_t tag, int at)
{
    RECT r = {};
    drivewait([&] {
        return GetMenuItemRect(owner, menuof(tag), static_cast<UINT>(at), &r) && r.right > r.left;
    });
    return {static_cast<int>(r.left + r.right) / 2, static_cast<int>(r.top + r.bottom) / 2};
}

int menusshown()
{
    int count = 0;
    for (HWND h = nullptr; (h = FindWindowExA(nullptr, h, "#32768", nullptr));)
        count += IsWindowVisible(h);
    return count;
}

void clickentry(HWND owner, int32_t tag, int at)
{
    driveplace place = entry(owner, tag, at);
    driveclick(place.x, place.y);
}

// Opens it and stays there until count of them are shown.
void openentry(HWND owner, int32_t tag, int at, int count)
{
    clickentry(owner, tag, at);
    drivewait([&] { return menusshown() == count; });
}

void byhand(const std::function<void()> &script)
{
    driveaside([] {}, script);
    drivepump(50);
}

UINT stateof(int32_t tag, UINT id)
{
    return GetMenuState(menuof(tag), id, MF_BYCOMMAND);
}

} // namespace

TEST_CASE("a choice by mouse, and where a menu that hangs twice was opened")
{
    menuwindow m;
    byhand([&] {
        openentry(m.h, BAR, 0, 1);
        clickentry(nullptr, FILEMENU, 1);
    });
    CHECK(taken() == "prepare 2 0;select 0,11,-1;");
    byhand([&] {
        openentry(m.h, BAR, 1, 1);
        openentry(nullptr, WORDS, 0, 2); // and go on to the other
        openentry(nullptr, WORDS, 2, 2);
        drivewait([&] { return menufind(LISTS)->position == 1; });
        clickentry(nullptr, LISTS, 1);
    });
    CHECK(taken() == "prepare 3 1;prepare 4 1;prepare 4 1;select 1,1,31,-1;");
}

TEST_CASE("a choice by keys")
{
    menuwindow m;
    byhand([&] {
        drivekey('W', DRIVEALT);
        drivewait([] { return menusshown() == 1; });
        drivekey('L');
        drivewait([] { return menusshown() == 2; });
        drivekey(VK_RETURN);
    });
    CHECK(taken() == "prepare 3 1;prepare 4 1;select 1,0,30,-1;");
}

TEST_CASE("a popup at the pointer, chosen from, refused and left")
{
    menuwindow m;
    driveplace at = drivemiddle(m.w);
    drivemove(at.x, at.y);
    driveaside([&] { CHECK(popupmenu(m.w, POPUP) == nullptr); },
               [&] { clickentry(nullptr, POPUP, 1); });
    CHECK(taken() == "prepare 5 -1;select 41,-1;");
    shaded = 40;
    driveaside([&] { popupmenu(m.w, POPUP); },
               [&] {
                   clickentry(nullptr, POPUP, 0); // greyed: the menu stays
                   drivekey(VK_ESCAPE);
               });
    drivepump(50);
    CHECK(taken() == "prepare 5 -1;");
    CHECK(menusshown() == 0);
}

TEST_CASE("ticks and greys, put before the menu opens")
{
    menuwindow m;
    ticked = 10, shaded = 11;
    byhand([&] {
        openentry(m.h, BAR, 0, 1);
        CHECK((stateof(FILEMENU, 10) & MF_CHECKED) != 0);
        clickentry(nullptr, FILEMENU, 1);
        drivekey(VK_ESCAPE);
        drivekey(VK_ESCAPE);
    });
    CHECK(taken().find("select") == std::string::npos);
    CHECK((stateof(FILEMENU, 11) & MF_GRAYED) != 0);
    tickmenu(BAR, 10, 0); // found below the bar
    shademenu(BAR, 11, 1);
    CHECK((stateof(FILEMENU, 10) & MF_CHECKED) == 0);
    CHECK((stateof(FILEMENU, 11) & MF_GRAYED) == 0);

    CHECK((stateof(LISTS, 31) & MF_CHECKED) != 0);
    CHECK(tickmenu(PART, 1, 1) == nullptr); // a tag with no menu
    CHECK(tickmenu(FILEMENU, 999, 1) == nullptr);
}

TEST_CASE("commands of other windows and of controls are not a menu's")
{
    menuwindow m;
    popupmenu(0, POPUP); // fails, and yet is the one that counts
    menustate.owner = m.w;
    HWND other = taskhandle(taskwindow(WS_POPUP));
    CHECK(SendMessageA(other, WM_COMMAND, 41, 0) == 0);
    SendMessageA(m.h, WM_COMMAND, 41, reinterpret_cast<LPARAM>(other));
    SendMessageA(m.h, WM_COMMAND, MAKEWPARAM(41, 1), 0);
    CHECK(taken().find("select") == std::string::npos);
    SendMessageA(m.h, WM_COMMAND, 41, 0);
    CHECK(taken() == "select 41,-1;");
    CHECK(drivebox(IDOK, [&] { SendMessageA(m.h, WM_COMMAND, 99, 0); }) == "refused");
    SendMessageA(m.h, WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0); // closed: nothing changes
    CHECK(menustate.current == POPUP);
    DestroyWindow(other);
}

TEST_CASE("texts and entries change under positions that the task counts")
{
    menuwindow m;
    char text[32];
    int changed = 7;
    CHECK(menutext(LISTS, 2, "&Chess men", &changed) == nullptr);
    CHECK(changed == 1);
    GetMenuStringA(menuof(LISTS), 3, text, sizeof text, MF_BYPOSITION);
    CHECK(std::string(text) == "&Chess men");
    CHECK((stateof(LISTS, 32) & MF_GRAYED) != 0); // the rest of it is as it was
    menutext(LISTS, 2, "&Chess men", &changed);
    CHECK(changed == 0);
    CHECK(menutext(LISTS, 9, "beyond", &changed) != nullptr);
    CHECK(changed == 0);

    CHECK(clearmenu(LISTS) == nullptr);
    CHECK(GetMenuItemCount(menuof(LISTS)) == 0);
    CHECK(menufind(LISTS)->hidden == 0);
    appendmenu(LISTS, "alone", 0, 33);
    CHECK(GetSubMenu(menuof(WORDS), 2) == menuof(LISTS)); // still hung
}

TEST_CASE("a menu made anew, and gone with the window")
{
    uint32_t before;
    {
        menuwindow first; // what the system keeps for later is there after this
    }
    before = drivecountnow().userobjects;
    for (int round = 0; round < 5; round++) {
        menuwindow m;
        createmenu(PART, nullptr, nullptr);
        linkmenu(PART, LISTS, 0);
        HMENU old = menuof(LISTS), part = menuof(PART);
        CHECK(createmenu(LISTS, nullptr, nullptr) == nullptr);
        CHECK(menuof(LISTS) != nullptr);
        CHECK_FALSE(IsMenu(old));
        CHECK_FALSE(IsMenu(part));
        CHECK(menuof(PART) == nullptr);
        CHECK(GetSubMenu(menuof(WORDS), 0) == nullptr);
        CHECK(linkmenu(PART, LISTS, 0) == nullptr);  // nothing to hang
        CHECK(linkmenu(LISTS, WORDS, 9) != nullptr); // nothing to hang it on
        CHECK(createbar(POPUP, nullptr, nullptr) == nullptr);
        DestroyWindow(m.h);
        CHECK(deletemenu(BAR) == nullptr); // the system was first
        CHECK(menuof(FILEMENU) == nullptr);
        CHECK(deletemenu(BAR) == nullptr);
    }
    CHECK(drivecountnow().userobjects <= before);
}

TEST_CASE("a table whose menu isn't there is not linked")
{
    menurow table[] = {row(BAR, "TestMenu", 0, 0), row(POPUP, "NoSuchMenu", 0, 0),
                       row(-1, nullptr, 0, 0)};
    menulink link;
    errorblock *err = addmenus(table, &link);
    REQUIRE(err != nullptr);
    CHECK(std::string(err->text).find("NoSuchMenu") != std::string::npos);
    CHECK(menustate.tables == nullptr);
    CHECK(table[0].menu == 0);
}

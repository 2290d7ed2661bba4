// Menus as a user meets them: opened and chosen from by mouse and keys.
#include "desktop/menus.h"

#include "desktop/menupath.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

namespace
{

enum { BAR = 1, FILEMENU, WORDS, LISTS, POPUP };

int32_t shaded; // what the preparation greys

errorblock *select(const int32_t *path, window w)
{
    CHECK(w == menustate.owner);
    said("select");
    do
        said(" %d", *path);
    while (*path++ != -1);
    said(";");
    return nullptr;
}

errorblock *prepare(const int32_t *path, int32_t menu, window)
{
    said("prepare %d %d;", menu, path[0]);
    if (shaded) shademenu(menu, shaded, 0);
    return nullptr;
}

menurow row(int32_t tag, const char *resource, int32_t parent, int32_t position)
{
    menurow made = {};
    made.tag = tag, made.resource = resource;
    made.parent = parent, made.position = position;
    if (!parent) made.select = select, made.prepare = prepare;
    return made;
}

HMENU menuof(int32_t tag)
{
    return reinterpret_cast<HMENU>(menufind(tag)->menu);
}

bool shown(int count)
{
    return drivewait([&] {
        int found = 0;
        for (HWND h = nullptr; (h = FindWindowExA(nullptr, h, "#32768", nullptr));)
            found += IsWindowVisible(h);
        return found == count;
    });
}

// A window with a menu bar of two menus, to one of which a third is hung twice; and a
// popup menu.
struct menuwindow {
    library started;
    menurow table[6] = {row(BAR, "TestMenu", 0, 0),  row(FILEMENU, nullptr, BAR, 0),
                        row(WORDS, nullptr, BAR, 1), row(LISTS, nullptr, 0, 0),
                        row(POPUP, nullptr, 0, 0),   row(-1, nullptr, 0, 0)};
    menulink link;
    window w = taskwindow(WS_OVERLAPPEDWINDOW);
    HWND h = handleof(w);

    menuwindow()
    {
        shaded = 0;
        REQUIRE_FALSE(addmenus(table, &link));
        table[1].hidden = 0;
        table[2].hidden = 0b10; // its separator
        CHECK_FALSE(createmenu(LISTS, nullptr, nullptr));
        CHECK_FALSE(appendmenu(LISTS, "&Adverbs", 0, 30));
        CHECK_FALSE(appendmenu(LISTS, "&Birds", MENUTICKED | MENUSEPARATOR, 31));
        CHECK_FALSE(appendmenu(LISTS, "&Chess", MENUGREY, 32));
        CHECK_FALSE(linkmenu(LISTS, WORDS, 0));
        CHECK_FALSE(linkmenu(LISTS, WORDS, 1));
        CHECK_FALSE(createmenu(POPUP, select, prepare));
        CHECK_FALSE(appendmenu(POPUP, "&Cut", 0, 40));
        CHECK_FALSE(appendmenu(POPUP, "&Paste", 0, 41));
        CHECK_FALSE(appendmenu(POPUP, "Queue", 0, 42));
        CHECK_FALSE(attachmenu(w, BAR));
        ShowWindow(h, SW_SHOW);
        SetForegroundWindow(h);
        drivepump(50);
    }
    ~menuwindow()
    {
        DestroyWindow(h);
        remmenus(&link);
    }
    // In a script: presses the middle of an entry that is on the screen.
    void click(int32_t tag, int at)
    {
        RECT r = {};
        HWND owner = tag == BAR ? h : nullptr;
        drivewait([&] {
            return GetMenuItemRect(owner, menuof(tag), static_cast<UINT>(at), &r) &&
                   r.right > r.left;
        });
        driveclick((r.left + r.right) / 2, (r.top + r.bottom) / 2);
    }
    std::string heard(const std::function<void()> &hands, bool popup = false)
    {
        driveaside(
            [&] {
                if (popup) CHECK_FALSE(popupmenu(w, POPUP));
            },
            hands);
        drivepump();
        return taken();
    }
};

} // namespace

TEST_CASE("choices by mouse and keys, of a menu that hangs twice, and of a popup")
{
    menuwindow m;
    CHECK(m.heard([&] { m.click(BAR, 0), shown(1), m.click(FILEMENU, 1); }) ==
          "prepare 2 0;select 0 11 -1;");
    CHECK(m.heard([&] {
        m.click(BAR, 1), shown(1);
        m.click(WORDS, 0), shown(2);
        m.click(WORDS, 2), shown(2); // and go on to the other
        drivewait([&] { return menufind(LISTS)->position == 1; });
        m.click(LISTS, 1);
    }) == "prepare 3 1;prepare 4 1;prepare 4 1;select 1 1 31 -1;");
    CHECK(m.heard([&] {
        drivekey('W', DRIVEALT), shown(1);
        drivekey('L'), shown(2);
        drivekey(VK_RETURN);
    }) == "prepare 3 1;prepare 4 1;select 1 0 30 -1;");

    driveplace at = drivemiddle(m.w);
    drivemove(at.x, at.y);
    CHECK(m.heard([&] { shown(1), m.click(POPUP, 1); }, true) == "prepare 5 -1;select 41 -1;");
    // A letter that no entry underlines chooses the one that begins with it.
    CHECK(m.heard([&] { shown(1), drivekey('Q'); }, true) == "prepare 5 -1;select 42 -1;");
    shaded = 40; // greyed: the menu stays
    CHECK(m.heard([&] { shown(1), m.click(POPUP, 0), drivekey(VK_ESCAPE); }, true) ==
          "prepare 5 -1;");
    CHECK(shown(0));
}

TEST_CASE("texts change under counted positions; menus are made anew and go with the window")
{
    menuwindow m;
    char text[32];
    bool changed = 0;
    CHECK_FALSE(menutext(LISTS, 2, "&Chess men", &changed));
    GetMenuStringA(menuof(LISTS), 3, text, sizeof text, MF_BYPOSITION);
    CHECK((changed && std::string(text) == "&Chess men"));
    tickmenu(BAR, 10, 1); // found below the bar
    CHECK((GetMenuState(menuof(FILEMENU), 10, MF_BYCOMMAND) & MF_CHECKED));
    CHECK_FALSE(clearmenu(LISTS));
    CHECK((GetMenuItemCount(menuof(LISTS)) == 0 && menufind(LISTS)->hidden == 0));
    CHECK(GetSubMenu(menuof(WORDS), 2) == menuof(LISTS)); // still hung
    HMENU old = menuof(LISTS);
    CHECK_FALSE(createmenu(LISTS, nullptr, nullptr));
    CHECK((menuof(LISTS) && !IsMenu(old) && !GetSubMenu(menuof(WORDS), 0)));
    DestroyWindow(m.h);
    CHECK_FALSE(deletemenu(BAR)); // the system was first
    CHECK(menuof(FILEMENU) == nullptr);
}

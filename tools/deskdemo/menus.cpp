// The menu bar: a resource, a menu that is made at run time, and what is ticked
// and greyed just before a menu opens.
#include "desktop/menus.h"
#include "desktop/help.h"
#include "desktop/poll.h"
#include "tools/deskdemo/deskdemo.h"

namespace
{

// Tags of the menus below the bar, and their positions in it.
constexpr int32_t MENUMENUS = 10, MENUTHREE = 11, MENUDEEPER = 12, MENUDEEPEST = 13, MENUMADE = 14;
constexpr int32_t BARMENUS = 1;
constexpr int32_t POSITIONTHREE = 3, POSITIONDEEPER = 4, POSITIONMADE = 5;

constexpr int32_t EXIT = 9, TICKED = 20, GREYED = 21, FIRST = 22, THIRD = 24, ABOUT = 40,
                  CLEAR = 50, MADE = 60, MADECOUNT = 3;

struct {
    bool ticked;
    int32_t chosen = FIRST;
} marks;

struct openrow {
    int32_t id;
    errorblock *(*function)();
};

constexpr openrow OPENS[] = {
    {1, drawnopen}, {2, fieldsopen}, {3, sheetopen}, {4, dragsopen},
    {5, keysopen},  {6, clipopen},   {7, talkopen},  {8, workopen},
};

int32_t lastword(const int32_t *path)
{
    while (path[1] != -1)
        path++;
    return path[0];
}

errorblock *selected(const int32_t *path, window)
{
    return path[0] == -1 ? nullptr : democommand(lastword(path));
}

// Entries that follow the state of the program are set here, and nowhere else.
errorblock *prepared(const int32_t *, int32_t, window)
{
    errorblock *err = tickmenu(MENUBAR, TICKED, marks.ticked);
    if (!err) err = shademenu(MENUBAR, GREYED, !marks.ticked);
    for (int32_t id = FIRST; id <= THIRD && !err; id++)
        err = tickmenu(MENUBAR, id, id == marks.chosen);
    return err;
}

menurow root(int32_t tag, const char *resource, menupreparefunction prepare)
{
    menurow row = {};
    row.tag = tag;
    row.resource = resource;
    row.select = selected;
    row.prepare = prepare;
    return row;
}

menurow part(int32_t tag, int32_t parent, int32_t position)
{
    menurow row = {};
    row.tag = tag;
    row.parent = parent;
    row.position = position;
    return row;
}

// A parent stands before its parts. MENUMADE has no place in a resource.
menurow table[] = {
    root(MENUBAR, "DemoBar", prepared),
    part(MENUMENUS, MENUBAR, BARMENUS),
    part(MENUTHREE, MENUMENUS, POSITIONTHREE),
    part(MENUDEEPER, MENUMENUS, POSITIONDEEPER),
    part(MENUDEEPEST, MENUDEEPER, 0),
    part(MENUMADE, 0, 0),
    root(MENULOG, "DemoLog", nullptr),
    part(MENULOG + 1, MENULOG, 0),
    part(-1, 0, 0),
};

menulink link;

// The separator that the second entry brings is not counted in a path.
errorblock *makemenu()
{
    static const char *const NAMES[MADECOUNT] = {"One", "Two", "Three"};
    errorblock *err = createmenu(MENUMADE, nullptr, nullptr);
    for (int32_t n = 0; n < MADECOUNT && !err; n++)
        err = appendmenu(MENUMADE, NAMES[n], n == 1 ? MENUSEPARATOR : 0, MADE + n);
    if (!err) err = linkmenu(MENUMADE, MENUMENUS, POSITIONMADE);
    return err;
}

errorblock *markcommand(int32_t id)
{
    if (id == TICKED) marks.ticked = !marks.ticked;
    if (id >= FIRST && id <= THIRD) marks.chosen = id;
    logline("Menu entry %d", id);
    return nullptr;
}

} // namespace

errorblock *demomenus()
{
    errorblock *err = addmenus(table, &link);
    return err ? err : makemenu();
}

errorblock *democommand(int32_t id)
{
    errorblock *err = nullptr;
    for (const openrow &row : OPENS)
        if (row.id == id) return row.function();
    if (boxcommand(id, &err)) return err;
    if (id == CLEAR)
        logclear();
    else if (id == EXIT)
        postquit(0);
    else if (id == ABOUT)
        return showabout(demowindow, 100, "", "DeskDemo");
    else
        return markcommand(id);
    return nullptr;
}

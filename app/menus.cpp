#include "app/menus.h"

#include "app/commands.h"
#include "app/stages.h"
#include "desktop/menus.h"
#include "dict/dicteditwindow.h"
#include "dict/dictmenu.h"

#include <iterator>

namespace
{

// The positions of the menus in the bar, and of those inside Grid.
constexpr int32_t BARFILE = 0, BARWORDS = 1, BARGRID = 2, BARHELP = 3;
constexpr int32_t GRIDTYPES = 0, GRIDREFLECT = 2;

menurow part(int32_t tag, int32_t parent, int32_t position)
{
    menurow row = {};
    row.tag = tag;
    row.parent = parent;
    row.position = position;
    return row;
}

menurow root(int32_t tag, const char *resource, menuselectfunction select,
             menupreparefunction prepare)
{
    menurow row = {};
    row.tag = tag;
    row.resource = resource;
    row.select = select;
    row.prepare = prepare;
    return row;
}

menurow menutable[] = {
    root(MENUMAIN, "Main", menuselect, menuprepare),
    part(MENUFILE, MENUMAIN, BARFILE),
    part(MENUWORDS, MENUMAIN, BARWORDS),
    part(MENUGRID, MENUMAIN, BARGRID),
    part(MENUHELP, MENUMAIN, BARHELP),
    part(MENUREFLECT, MENUGRID, GRIDREFLECT),
    part(MENUDICTIONARIES, 0, 0),
    root(MENUWORDLIST, "Dict", editmenuselect, nullptr),
    part(MENUWORDLISTITEMS, MENUWORDLIST, 0),
    part(MENUGRIDTYPE, MENUGRID, GRIDTYPES),
    part(-1, 0, 0),
};

menulink link;

bool dictionarychoice(const int32_t *path)
{
    return path[0] == BARWORDS && dictmenuat(path[1]);
}

int32_t lastword(const int32_t *path)
{
    while (path[1] != -1)
        path++;
    return path[0];
}

} // namespace

errorblock *linkmenus()
{
    return addmenus(menutable, &link);
}

errorblock *menuselect(const int32_t *path, window)
{
    if (path[0] == -1) return nullptr;
    if (dictionarychoice(path)) return commanddictionary(path[1], path[2]);
    return commandrun(lastword(path));
}

errorblock *menuprepare(const int32_t *path, int32_t, window)
{
    if (dictionarychoice(path))
        dictmenuprepare(path[1]);
    else
        commandsprepare();
    return nullptr;
}

#include "app/menus.h"

#include "app/commands.h"
#include "app/stages.h"
#include "desktop/menus.h"
#include "dict/dicteditwindow.h"
#include "dict/dictmenu.h"
#include "resources/identifiers.h"

#include <iterator>

namespace
{

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
    part(MENUFILE, MENUMAIN, MENUATFILE),
    part(MENUWORDS, MENUMAIN, MENUATWORDS),
    part(MENUGRID, MENUMAIN, MENUATGRID),
    part(MENUHELP, MENUMAIN, MENUATHELP),
    part(MENUREFLECT, MENUGRID, MENUATREFLECT),
    part(MENUDICTIONARIES, 0, 0),
    root(MENUWORDLIST, "Dict", editmenuselect, nullptr),
    part(MENUWORDLISTITEMS, MENUWORDLIST, 0),
    part(MENUGRIDTYPE, MENUGRID, MENUATGRIDTYPE),
    part(-1, 0, 0),
};

menulink link;

bool dictionarychoice(const int32_t *path)
{
    return path[0] == MENUATWORDS && dictmenuat(path[1]);
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

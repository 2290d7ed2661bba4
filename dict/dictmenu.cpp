#include "dict/dictmenu.h"

#include "base/boxes.h"
#include "base/files.h"
#include "desktop/menus.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "dict/dictwindow.h"
#include "resources/identifiers.h"

namespace
{

constexpr int32_t positions[] = {MENUATLOAD, MENUATEDIT, MENUATDELETE};

// A single & would underline the letter behind it.
errorblock *nameappend(uint32_t number)
{
    char text[2 * sizeof dictrec::name];
    char *end = text;
    for (const char *from = dicts[number].name; *from; from++) {
        if (*from == '&') *end++ = '&';
        *end++ = *from;
    }
    *end = 0;
    return appendmenu(MENUDICTIONARIES, text, 0, DICTMENUFIRST + static_cast<int32_t>(number));
}

errorblock *namesappend()
{
    errorblock *err = nullptr;
    for (uint32_t n = 0; n < ndicts && !err; n++)
        err = nameappend(n);
    return err;
}

errorblock *removechosen(uint32_t number)
{
    errorblock *err = dictremovefile(number);
    if (!err) dictmenubuild();
    return err;
}

} // namespace

void dictmenubuild()
{
    errorblock *err = createmenu(MENUDICTIONARIES, nullptr, nullptr);
    if (!err) err = namesappend();
    for (int32_t position : positions)
        if (!err) err = linkmenu(MENUDICTIONARIES, MENUWORDS, position);
    reporterror(err);
    editrenumber();
}

void dictmenudelete()
{
    reporterror(deletemenu(MENUDICTIONARIES));
}

bool dictmenuat(int32_t position)
{
    for (int32_t at : positions)
        if (at == position) return true;
    return false;
}

void dictmenuprepare(int32_t position)
{
    for (uint32_t n = 0; n < ndicts; n++)
        tickmenu(MENUDICTIONARIES, DICTMENUFIRST + static_cast<int32_t>(n),
                 position == MENUATLOAD && dictinset(n));
}

errorblock *dictmenuselect(int32_t position, int32_t id)
{
    if (id < DICTMENUFIRST || id >= DICTMENUFIRST + static_cast<int32_t>(ndicts)) return nullptr;
    auto number = static_cast<uint32_t>(id - DICTMENUFIRST);
    switch (position) {
    case MENUATLOAD:
        return dicttoggle(number);
    case MENUATEDIT:
        return dictedit(number);
    case MENUATDELETE:
        return removechosen(number);
    }
    return nullptr;
}

bool dictdirectoryexists()
{
    int32_t type = OBJECTNONE;
    fileobject(dictdirectory, &type);
    return type == OBJECTDIRECTORY;
}

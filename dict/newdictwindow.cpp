// The box that asks for a new dictionary's name.

#include "desktop/dialogs.h"
#include "desktop/icons.h"
#include "dict/dicteditwindow.h"
#include "dict/dictname.h"
#include "dict/dictset.h"
#include "resources/identifiers.h"

namespace
{

struct {
    window self, parent; // 0 while closed
    char name[257];      // of the dictionary that waits for a search's end
} box;

errorblock *boxfill();
errorblock *nametake();
errorblock *boxclose();

constexpr dialogrecord newdictdialog = {
    .self = &box.self,
    .locked = &box.parent,
    .number = TEMPLATENEWDICT,
    .handlers =
        {
            {.control = DIALOGOK, .press = nametake},
            {.control = DIALOGCANCEL, .press = boxclose},
            {.closed = boxclose},
        },
    .fill = boxfill,
    .focus = NEWDICTNAME,
};

errorblock *boxfill()
{
    return seticonlimit(box.self, NEWDICTNAME, sizeof box.name - 1);
}

// Solutions are references into the dictionaries that were known.
errorblock *createnow(intptr_t)
{
    errorblock *err = dictcreate(box.name);
    if (!err) dictrefsgone();
    return err;
}

errorblock *nametake()
{
    errorblock *err = copyicontext(box.self, NEWDICTNAME, box.name, sizeof box.name);
    if (!err) err = dictnamecheck(box.name);
    if (!err) err = boxclose();
    return err ? err : dictwhenidle(createnow, 0);
}

errorblock *boxclose()
{
    return dialogend(newdictdialog);
}

} // namespace

errorblock *newdictopen(window parent)
{
    return dialogopen(newdictdialog, parent);
}

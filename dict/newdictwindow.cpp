// The box that asks for a new dictionary's name.

#include "base/syserr.h"
#include "base/text.h"
#include "desktop/dialogs.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "dict/dicteditwindow.h"
#include "dict/dictset.h"
#include "resources/identifiers.h"

namespace
{

struct newdictrecord {
    window self, parent; // self 0 while closed
    char name[257];      // of the dictionary that waits for a search's end
};
newdictrecord box;

errorblock *createnow(intptr_t)
{
    errorblock *err = dictcreate(box.name);
    if (!err) dictrefsgone();
    return err;
}

errorblock *boxclick(window self, intptr_t data, mouserecord *mouse);
errorblock *boxclosed(window self, intptr_t data);

errorblock *boxclose()
{
    remclickhandler(boxclick, box.self, 0);
    remclosehandler(boxclosed, box.self, 0);
    window parent = box.parent;
    box.parent = 0;
    return removedialog(&box.self, parent);
}

errorblock *boxclick(window, intptr_t, mouserecord *mouse)
{
    if (mouse->buttons != BUTTONLEFT) return nullptr;
    if (mouse->icon == DIALOGCANCEL) return boxclose();
    if (mouse->icon != DIALOGOK) return nullptr;
    errorblock *err = copyicontext(box.self, NEWDICTNAME, box.name, sizeof box.name);
    if (err) return err;
    err = boxclose();
    return err ? err : dictwhenidle(createnow, 0);
}

errorblock *boxclosed(window, intptr_t)
{
    return boxclose();
}

errorblock *boxcreate(window parent)
{
    errorblock *err = createwindow(TEMPLATENEWDICT, nullptr, &box.self, parent);
    if (!err) err = seticonlimit(box.self, NEWDICTNAME, sizeof box.name - 1);
    if (!err) err = addclickhandler(boxclick, box.self, 0);
    if (!err) err = addclosehandler(boxclosed, box.self, 0);
    if (!err) err = opencentred(box.self, 0);
    if (!err) err = setcaret(box.self, NEWDICTNAME, 0, 0, 0, 0);
    if (!err) err = enablewindow(parent, 0);
    if (!err) box.parent = parent;
    return err;
}

} // namespace

errorblock *newdictopen(window parent)
{
    if (box.self) return raisewindow(box.self, 0, nullptr);
    errorblock *err = boxcreate(parent);
    if (!err || !box.self) return err;
    kepterror kept = keeperror(err);
    return firsterror(kept, boxclose());
}

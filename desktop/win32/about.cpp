// The About box.
#include "desktop/help.h"

#include "base/messages.h"
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/helpsystem.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/templates.h"
#include "desktop/wdata.h"
#include "desktop/windows.h"
#include "resources/identifiers.h"

#include <cstring>

namespace
{

window box; // 0 while it is closed

// What each link opens.
struct linkrow {
    int32_t icon;
    const char *address;
};

constexpr linkrow LINKS[] = {
    {INFOWEB, "{WEB}"},
    {INFOMAIL, "mailto:{EMAIL}"},
    {INFOHOME, "{HOME}"},
};

errorblock *linkopen(window w, const char *address)
{
    char expanded[256];
    std::strcpy(expanded, address);
    expandtokens(expanded, sizeof expanded);
    return helpsystemopen(w, expanded);
}

errorblock *boxclose();

errorblock *clicked(window self, intptr_t, mouserecord *mouse)
{
    if (mouse->icon == DIALOGOK) return boxclose();
    for (const linkrow &row : LINKS)
        if (row.icon == mouse->icon) return linkopen(self, row.address);
    return nullptr;
}

errorblock *keyed(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    return boxclose();
}

errorblock *closed(window, intptr_t)
{
    return boxclose();
}

errorblock *handlersadd()
{
    errorblock *err = addclickhandler(clicked, box, 0);
    if (!err) err = addclosehandler(closed, box, 0);
    if (!err) err = addkeyhandler(keyed, box, 0);
    if (!err) err = addhelphandler(nullptr, box, TEMPLATEINFO);
    return err;
}

// The window may have gone with its parent.
errorblock *boxclose()
{
    remhelphandler(nullptr, box, TEMPLATEINFO);
    remkeyhandler(keyed, box, 0);
    remclosehandler(closed, box, 0);
    remclickhandler(clicked, box, 0);
    errorblock *err = wdatafind(box) ? removewindow(&box) : nullptr;
    box = 0;
    return err;
}

errorblock *fill(int32_t version, const char *date, const char *name)
{
    errorblock *err = seticontextf(box, INFOVERSION, "%d.%02d %s", static_cast<int>(version / 100),
                                   static_cast<int>(version % 100), date);
    if (!err) err = seticontextf(box, INFONAME, "%s", name ? name : "{NAME}");
    if (!err) err = seticontextf(box, INFORIGHTS, "{COPY}");
    if (!err) err = seticontextf(box, INFOAUTHOR, "{AUTHOR}");
    return err;
}

} // namespace

errorblock *showabout(window w, int32_t version, const char *date, const char *name)
{
    if (box && wdatafind(box)) return raisewindow(box, 0, nullptr);
    if (box) boxclose();
    errorblock *err = createwindow(TEMPLATEINFO, "{ABOUT}", &box, w);
    if (err) return err;
    err = fill(version, date, name);
    if (!err) err = handlersadd();
    if (!err) err = opencentred(box, 0);
    if (!err) err = focusicon(box, DIALOGOK);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    boxclose();
    return firsterror(kept, nullptr);
}

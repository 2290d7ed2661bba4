// The About box.
#include "desktop/help.h"

#include "base/messages.h"
#include "desktop/dialogs.h"
#include "desktop/helpsystem.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "resources/identifiers.h"

#include <cstring>

namespace
{

// What it was asked to show.
struct {
    window self; // 0 while it is closed
    int32_t version;
    const char *date, *name;
} box;

errorblock *boxfill();
errorblock *linkclick(window self, intptr_t data, mouserecord *mouse);
errorblock *boxclose();

constexpr dialogrecord aboutdialog = {
    .self = &box.self,
    .number = TEMPLATEINFO,
    .handlers =
        {
            {.control = DIALOGOK, .press = boxclose},
            {.click = linkclick},
            {.closed = boxclose},
            {.code = KEYESCAPE, .keyed = boxclose},
            {.helptemplate = TEMPLATEINFO},
        },
    .fill = boxfill,
    .focus = DIALOGOK,
};

errorblock *boxfill()
{
    errorblock *err = settitle(box.self, "{ABOUT}");
    if (!err)
        err = seticontextf(box.self, INFOVERSION, "%d.%02d %s", static_cast<int>(box.version / 100),
                           static_cast<int>(box.version % 100), box.date);
    if (!err) err = seticontextf(box.self, INFONAME, "%s", box.name ? box.name : "{NAME}");
    if (!err) err = seticontextf(box.self, INFORIGHTS, "{COPY}");
    if (!err) err = seticontextf(box.self, INFOAUTHOR, "{AUTHOR}");
    return err;
}

// Both buttons open a link.
errorblock *linkclick(window self, intptr_t, mouserecord *mouse)
{
    static const struct {
        int32_t icon;
        const char *address;
    } links[] = {
        {INFOWEB, "{WEB}"},
        {INFOMAIL, "mailto:{EMAIL}"},
        {INFOHOME, "{HOME}"},
    };
    for (const auto &row : links) {
        if (row.icon != mouse->icon) continue;
        char expanded[256];
        std::strcpy(expanded, row.address);
        expandtokens(expanded, sizeof expanded);
        return helpsystemopen(self, expanded);
    }
    return nullptr;
}

errorblock *boxclose()
{
    return dialogend(aboutdialog);
}

} // namespace

errorblock *showabout(window w, int32_t version, const char *date, const char *name)
{
    box.version = version;
    box.date = date;
    box.name = name;
    return dialogopen(aboutdialog, w);
}

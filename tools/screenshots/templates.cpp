// The windows of the templates, as they come out of the resources.
#include "desktop/templates.h"
#include "base/chars.h"
#include "base/errors.h"
#include "desktop/windows.h"
#include "tests/support/driver.h"
#include "tools/deskdemo/deskdemo.h"
#include "tools/screenshots/screens.h"

#include <cstring>

// A resource's name comes back in capitals.
static std::string lower(const char *name)
{
    std::string text = name;
    for (char &c : text)
        c = static_cast<char>(charlower(static_cast<uint8_t>(c)));
    return text;
}

// Panes come up inside the main window of the demonstration, others over it.
static errorblock *picture(const templaterow &row)
{
    window w = 0;
    errorblock *err = createchild(row.number, &w, demowindow);
    if (!err) err = opencentred(w, 0);
    if (!err) {
        drivepump(100);
        screensave(w, lower(row.name));
    }
    errorblock *removed = removewindow(&w);
    drivepump();
    return err ? err : removed;
}

// The boxes of the library are seen at work, and so is the demonstration.
static bool shown(const char *name)
{
    return strncasecmp(name, "demo", 4) == 0 || strcasecmp(name, "Confirm") == 0 ||
           strcasecmp(name, "Info") == 0;
}

void screentemplates()
{
    templatelink all;
    errorblock *err = addtemplates(nullptr, "", nullptr, &all);
    if (err) return screenfault(err->text);
    for (const templaterow *row = all.table; row->number; row++)
        if (!shown(row->name) && (err = picture(*row))) screenfault(err->text);
    remtemplates(&all);
}

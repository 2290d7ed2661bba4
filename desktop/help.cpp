#include "desktop/help.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/messages.h"
#include "base/platform.h"
#include "base/text.h"
#include "base/trace.h"
#include "desktop/blocks.h"
#include "desktop/eventsource.h"
#include "desktop/handlers.h"
#include "desktop/helpsystem.h"
#include "desktop/helptable.h"
#include "desktop/hourglass.h"
#include "desktop/mouse.h"
#include "graphics/modeinfo.h"

#include <cstring>

namespace
{

constexpr int32_t POINTS = 72; // to the inch
constexpr int32_t SMALLTEXT = 1024;

bool helping; // the next press asks

// Behind the name of a help file may stand ">" and that of a window to show it in.
bool isfile(const char *path)
{
    char file[PATHSIZE];
    int32_t type;
    strcopyn(file, path, sizeof file);
    if (char *windowname = std::strrchr(file, '>')) *windowname = 0;
    fileobject(file, &type);
    return type == OBJECTFILE;
}

// A program that was copied and not installed has its manual beside it, or should
// have: where it was installed is no place that a message could name.
errorblock *besideprogram(char *file, int32_t size)
{
    char beside[PATHSIZE];
    if (isfile(file)) return nullptr;
    errorblock *err = platformprogramdirectory(beside, sizeof beside);
    if (!err) err = fs_strcat(beside, sizeof beside, leafname(file));
    if (!err && (isfile(beside) || file[0] == '<')) err = xzstrncpyu(file, beside, size);
    return err;
}

// The handler's text, or the table's; 0 for none.
errorblock *textof(window w, int32_t icon, const char **text)
{
    *text = nullptr;
    int32_t index = findblock(EVENTHELP, BLOCKANY, w, BLOCKANY, nullptr);
    if (index == -1) return nullptr;
    block b = blockat(index);
    if (b.function) return reinterpret_cast<helpfunction>(b.function)(w, b.data, icon, text);
    *text = helptabletext(static_cast<int32_t>(b.data), icon);
    return nullptr;
}

// buffer, of size bytes, has room for the text.
errorblock *popup(window w, const char *text, int32_t x, int32_t y, char *buffer, int32_t size)
{
    strcopyn(buffer, text, size);
    expandtokens(buffer, size);
    helpfont font;
    helpsystemfont(w, &font);
    int32_t points = (font.height * POINTS + modeinfo.ydpi / 2) / modeinfo.ydpi;
    char fonttext[64];
    errorblock *err = xzsnprintf(sizeof fonttext, nullptr, fonttext, "%s, %d, ,", font.name,
                                 static_cast<int>(points));
    trace("help pop %s", buffer);
    if (err) return err;
    return helpsystempopup(w, buffer, ostodevx(x), ostoscreeny(y), fonttext);
}

errorblock *underpointer()
{
    mouserecord mouse;
    errorblock *err = getpointer(&mouse);
    if (err || mouse.window == -1) return err;
    auto icon = static_cast<int32_t>(mouse.icon);
    window control = icon == -1 ? 0 : sourcecontrol(mouse.window, icon);
    return helpicon(mouse.window, icon, control);
}

// Buttons that go down in a client area or a frame, by the system's numbers.
bool isbuttondown(intptr_t message)
{
    return message == 0x201 || message == 0x204 || message == 0xA1 || message == 0xA4;
}

errorblock *pressed(window self, intptr_t data, window, intptr_t, intptr_t message, bool *claimed)
{
    if (!isbuttondown(message)) return nullptr;
    trace("help mouse");
    *claimed = true;
    errorblock *err = remhookhandler(pressed, self, data);
    trace("help mouse event");
    if (!err) err = underpointer();
    hourglassoff();
    hourglasshelp(0);
    helping = false;
    return err;
}

} // namespace

errorblock *helpcontents(window w, const char *path)
{
    char file[PATHSIZE];
    trace("topic %s", path);
    pathexpand(path, file, sizeof file);
    errorblock *err = besideprogram(file, sizeof file);
    trace("temp %s", file);
    return err ? err : helpsystemtopic(w, file);
}

errorblock *helpicon(window w, int32_t icon, window control)
{
    const char *text;
    int32_t x, y;
    errorblock *err = textof(w, icon, &text);
    if (err || !text) return err;
    err = helpsystemplace(control ? control : w, &x, &y);
    return err ? err : helppopup(w, text, x, y);
}

errorblock *helppopup(window w, const char *text, int32_t x, int32_t y)
{
    char small[SMALLTEXT];
    auto length = static_cast<int32_t>(std::strlen(text));
    if (length < SMALLTEXT) return popup(w, text, x, y, small, sizeof small);
    void *large;
    int32_t size = length + SMALLTEXT; // its tokens may grow
    errorblock *err = heap_alloc(&large, size);
    if (err) return err;
    err = popup(w, text, x, y, static_cast<char *>(large), size);
    heap_free(&large);
    return err;
}

errorblock *helpinteractive(window w)
{
    if (helping) return nullptr;
    errorblock *err = addhookhandler(pressed, w, 0);
    if (err) return err;
    helping = true;
    hourglasshelp(1);
    hourglasson();
    return nullptr;
}

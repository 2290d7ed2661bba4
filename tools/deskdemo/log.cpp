// A pane with lines of text: a redraw handler, an extent that grows, a wheel and
// a menu of its own, and files that are dropped.
#include "base/boxes.h"
#include "base/messages.h"
#include "desktop/handlers.h"
#include "desktop/menus.h"
#include "desktop/redraw.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "graphics/fonts.h"
#include "graphics/modeinfo.h"
#include "graphics/textmeasure.h"
#include "graphics/textplot.h"
#include "tools/deskdemo/deskdemo.h"

#include <algorithm>
#include <cstdarg>

namespace
{

constexpr int32_t LINES = 200, LINESIZE = 120;
constexpr int32_t LEFT = 8; // OS units
constexpr uint32_t BLACK = 0;
constexpr fontrecord FONT = {8 * 16, 0, "Arial", 0, 400, 0};

// The newest lines, the oldest at first.
struct {
    window self;
    char lines[LINES][LINESIZE];
    int32_t first, count;
    int32_t rowheight, ascent; // OS units
} eventlog;

const char *line(int32_t row)
{
    return eventlog.lines[(eventlog.first + row) % LINES];
}

// Only the rows that meet the clip.
void rowspaint(const redrawrecord &r)
{
    int32_t height = eventlog.rowheight;
    int32_t first = std::max(-r.cy1 / height, 0);
    int32_t behind = std::min(-r.cy0 / height + 1, eventlog.count);
    for (int32_t row = first; row < behind; row++)
        plottext(line(row), TEXTOSUNITS, LEFT, -row * height - eventlog.ascent);
}

errorblock *paint(const redrawrecord &r, intptr_t)
{
    fonthandle font;
    errorblock *err = fontfind(&FONT, &font);
    if (err) return err;
    fontset(font, FONTCLEAR, BLACK, 0);
    fontalign(0);
    rowspaint(r);
    return fontlose(font);
}

errorblock *redraw(window self, intptr_t)
{
    return redrawwith(self, paint, 0);
}

errorblock *click(window self, intptr_t, mouserecord *mouse)
{
    return mouse->buttons == BUTTONRIGHT ? popupmenu(self, MENULOG) : nullptr;
}

// The handler only looks: what it doesn't claim scrolls the window.
errorblock *wheel(window, intptr_t, int32_t delta, int32_t, int, int *)
{
    if (delta > 0 && eventlog.count == LINES) logline("Older lines are gone");
    return nullptr;
}

errorblock *dropped(const char *name, int32_t filetype, mouserecord *, intptr_t, int *accept)
{
    logline("Dropped: %s, of type %x", name, static_cast<unsigned>(filetype));
    *accept = 1;
    return nullptr;
}

errorblock *dropload(const char *name, int32_t, intptr_t, intptr_t)
{
    logline("Loaded, or so it would be: %s", name);
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addredrawhandler(redraw, w, 0);
    if (!err) err = addclickhandler(click, w, 0);
    if (!err) err = addwheelhandler(wheel, w, 0);
    if (!err) err = adddrophandler(w, 0, dropped);
    if (!err) err = setdrops(w, true);
    if (!err) err = adddroploadhandler(w, 0, dropload);
    return err;
}

void handlersremove(window w)
{
    remdroploadhandler(w, 0, dropload);
    remdrophandler(w, 0, dropped);
    remwheelhandler(wheel, w, 0);
    remclickhandler(click, w, 0);
    remredrawhandler(redraw, w, 0);
}

errorblock *measure()
{
    fontmetrics metrics = {};
    errorblock *err = fontinfo(&FONT, &metrics);
    eventlog.rowheight = std::max(devtoosy(metrics.height + metrics.externalleading), 1);
    eventlog.ascent = devtoosy(metrics.ascent);
    return err;
}

// The extent follows the lines, and the view the newest of them.
errorblock *show()
{
    int32_t height = eventlog.count * eventlog.rowheight;
    errorblock *err = setextent(eventlog.self, 0, -height, 0, 0);
    if (!err) err = setscrolly(eventlog.self, height);
    if (!err) err = redrawall(eventlog.self);
    return err;
}

} // namespace

errorblock *logopen(window parent)
{
    errorblock *err = measure();
    if (!err) err = createchild(TEMPLATELOG, &eventlog.self, parent);
    if (!err) err = setbackground(eventlog.self, BACKGROUNDWHITE);
    if (!err) err = handlersadd(eventlog.self);
    if (!err) err = show();
    return err;
}

void logend()
{
    if (!eventlog.self) return;
    handlersremove(eventlog.self);
    removewindow(&eventlog.self);
}

errorblock *logplace(window parent)
{
    windowstaterecord around, state;
    errorblock *err = windowstate(parent, &around);
    if (!err) err = windowstate(eventlog.self, &state);
    if (err) return err;
    state.x0 = around.x0;
    state.y0 = around.y0;
    state.x1 = around.x1;
    state.y1 = around.y1;
    state.behind = BEHINDSAME;
    return openwindowex(&state);
}

void logclear()
{
    eventlog.first = eventlog.count = 0;
    if (eventlog.self) reporterror(show());
}

void logline(const char *format, ...)
{
    char *text = eventlog.lines[(eventlog.first + eventlog.count) % LINES];
    va_list arguments;
    va_start(arguments, format);
    messageformat(LINESIZE, text, format, arguments);
    va_end(arguments);
    if (eventlog.count < LINES)
        eventlog.count++;
    else
        eventlog.first = (eventlog.first + 1) % LINES;
    if (eventlog.self) reporterror(show());
}

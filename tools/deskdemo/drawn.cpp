// Drawn controls. How each looks and what it reports is in its validation string
// in the template; what a program adds is here: it hears clicks, selects, sets
// texts and colours, and paints behind what has no background.
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/redraw.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "graphics/colours.h"
#include "graphics/plot.h"
#include "tools/deskdemo/deskdemo.h"

namespace
{

constexpr int32_t CLOSE = 2, GREY = 3;
constexpr int32_t SELECTS = 120, CLEAR = 133, COLOURED = 134, COUNTER = 161;
constexpr int32_t GREYABLE[] = {100, 101, 102, 103, 104, 110, 111, 112, 113, 114,
                                120, 121, 122, 130, 131, 132, 133, 134, 140, 141,
                                143, 144, 150, 151, 152, 160, 161, 162};

constexpr uint32_t RED = 0x0000FF00, YELLOW = 0x00FFFF00; // to draw with
constexpr uint32_t REDCODE = 0x0000FF01, YELLOWCODE = 0x00FFFF01, FACECODE = 15 + 18,
                   TEXTCODE = 7 + 18; // in validation strings; two of the system's

struct {
    window self;
    int32_t clicks;
    bool coloured, greyed;
} drawn;

errorblock *selecttoggle()
{
    int on;
    errorblock *err = iconselected(drawn.self, SELECTS, &on);
    return err ? err : seticonselected(drawn.self, SELECTS, !on);
}

errorblock *colourtoggle()
{
    drawn.coloured = !drawn.coloured;
    return drawn.coloured ? setcolours(drawn.self, COLOURED, REDCODE, YELLOWCODE)
                          : setcolours(drawn.self, COLOURED, TEXTCODE, FACECODE);
}

errorblock *greytoggle()
{
    errorblock *err = nullptr;
    drawn.greyed = !drawn.greyed;
    for (int32_t icon : GREYABLE)
        if (!err) err = seticonshaded(drawn.self, icon, drawn.greyed);
    return err;
}

// What to do is decided by the control, what was done to it by the buttons.
errorblock *click(window self, intptr_t, mouserecord *mouse)
{
    logline("Control %d, buttons %d", static_cast<int>(mouse->icon),
            static_cast<int>(mouse->buttons));
    errorblock *err = seticontextf(self, COUNTER, "%d", ++drawn.clicks);
    if (err) return err;
    switch (mouse->icon) {
    case CLOSE:
        drawnend();
        return nullptr;
    case GREY:
        return greytoggle();
    case SELECTS:
        return selecttoggle();
    case COLOURED:
        return colourtoggle();
    default:
        return nullptr;
    }
}

errorblock *key(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    drawnend();
    return nullptr;
}

errorblock *closed(window, intptr_t)
{
    drawnend();
    return nullptr;
}

// Stripes where a control lets the window show through.
errorblock *paint(const redrawrecord &r, intptr_t)
{
    constexpr int32_t STRIPE = 6;
    osbox box;
    errorblock *err = iconbox(r.self, CLEAR, &box);
    for (int32_t x = box.x0; x < box.x1 && !err; x += STRIPE) {
        setcolour((x - box.x0) % (2 * STRIPE) ? YELLOW : RED);
        err = fillbox(x, box.y0, STRIPE, box.y1 - box.y0);
    }
    return err;
}

errorblock *redraw(window self, intptr_t)
{
    return redrawwith(self, paint, 0);
}

errorblock *handlersadd(window w)
{
    errorblock *err = addredrawhandler(redraw, w, 0);
    if (!err) err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    return err;
}

void handlersremove(window w)
{
    remclosehandler(closed, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
    remredrawhandler(redraw, w, 0);
}

} // namespace

errorblock *drawnopen()
{
    if (drawn.self) return raisewindow(drawn.self, 0, nullptr);
    drawn = {};
    errorblock *err = createchild(TEMPLATEDRAWN, &drawn.self, demowindow);
    if (!err) err = handlersadd(drawn.self);
    if (!err) err = opencentred(drawn.self, 1);
    if (!err) err = focuswindow(drawn.self);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    drawnend();
    return firsterror(kept, nullptr);
}

void drawnend()
{
    if (!drawn.self) return;
    handlersremove(drawn.self);
    removewindow(&drawn.self);
}

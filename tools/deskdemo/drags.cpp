// A drag of each kind. A control reports that one begins; the handler says what
// is shown while it lasts, and what happens at its end.
#include "base/syserr.h"
#include "desktop/handlers.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/mouse.h"
#include "desktop/templates.h"
#include "desktop/windows.h"
#include "tools/deskdemo/deskdemo.h"

namespace
{

// The buttons bear the numbers of the kinds.
constexpr int32_t CLOSE = 2, AREA = 20, STATUS = 21;

struct {
    window self;
    int32_t moves;
} drags;

osbox onscreen(const osbox &box, const windowinforecord &info)
{
    return {box.x0 + info.xorigin, box.y0 + info.yorigin, box.x1 + info.xorigin,
            box.y1 + info.yorigin};
}

errorblock *ended(window self, intptr_t kind, const dragresult *box)
{
    logline("The drag of kind %d ended after %d moves", static_cast<int>(kind),
            static_cast<int>(drags.moves));
    return seticontextf(self, STATUS, "%d, %d to %d, %d", static_cast<int>(box->x0),
                        static_cast<int>(box->y0), static_cast<int>(box->x1),
                        static_cast<int>(box->y1));
}

// The pointer's place, at each step.
errorblock *moved(window self, intptr_t, mouserecord *mouse)
{
    drags.moves++;
    return seticontextf(self, STATUS, "%d, %d", static_cast<int>(mouse->x),
                        static_cast<int>(mouse->y));
}

// What is dragged, at its place on the screen: the button itself, the pointer,
// or the middle line of the area.
osbox dragged(int32_t kind, const osbox &button, const osbox &area, const mouserecord *mouse)
{
    int32_t x = static_cast<int32_t>(mouse->x), y = static_cast<int32_t>(mouse->y);
    if (kind == DRAGRUBBER) return button;
    if (kind == DRAGBAR) return {x, area.y0, x, area.y1};
    return {x, y, x, y};
}

// The limits hold the pointer inside the area.
errorblock *start(window self, int32_t kind, const mouserecord *mouse)
{
    windowinforecord info;
    osbox button, area;
    errorblock *err = windowinfo(self, &info);
    if (!err) err = iconbox(self, kind, &button);
    if (!err) err = iconbox(self, AREA, &area);
    if (err) return err;
    area = onscreen(area, info);
    osbox box = dragged(kind, onscreen(button, info), area, mouse);
    dragbox record = {self,   kind,    box.x0,  box.y0,  box.x1,
                      box.y1, area.x0, area.y0, area.x1, area.y1};
    drags.moves = 0;
    setdragfunctions2(self, kind, ended, moved);
    return startdrag(&record);
}

errorblock *click(window self, intptr_t, mouserecord *mouse)
{
    int32_t icon = static_cast<int32_t>(mouse->icon);
    if (icon == CLOSE)
        dragsend();
    else if (mouse->buttons == BUTTONLEFTDRAG && icon >= DRAGWINDOW && icon <= DRAGBAR)
        return start(self, icon, mouse);
    return nullptr;
}

errorblock *key(window, intptr_t, int32_t, int32_t *code)
{
    if (*code != KEYESCAPE) return nullptr;
    *code = KEYCLAIMED;
    dragsend();
    return nullptr;
}

// The area shows that it is one where things can be dropped.
errorblock *pointer(window, intptr_t, mouserecord *mouse, int *handled)
{
    if (mouse->icon != AREA) return nullptr;
    *handled = 1;
    return setpointer(POINTERCROSS, 0, nullptr);
}

errorblock *closed(window, intptr_t)
{
    dragsend();
    return nullptr;
}

errorblock *handlersadd(window w)
{
    errorblock *err = addclickhandler(click, w, 0);
    if (!err) err = addkeyhandler(key, w, 0);
    if (!err) err = addpointerhandler(pointer, w, 0);
    if (!err) err = addclosehandler(closed, w, 0);
    return err;
}

void handlersremove(window w)
{
    remclosehandler(closed, w, 0);
    rempointerhandler(pointer, w, 0);
    remkeyhandler(key, w, 0);
    remclickhandler(click, w, 0);
}

} // namespace

errorblock *dragsopen()
{
    if (drags.self) return raisewindow(drags.self, 0, nullptr);
    drags = {};
    errorblock *err = createchild(TEMPLATEDRAGS, &drags.self, demowindow);
    if (!err) err = handlersadd(drags.self);
    if (!err) err = seticontextf(drags.self, STATUS, "{DEMODRAG}");
    if (!err) err = opencentred(drags.self, 4);
    if (!err) err = focuswindow(drags.self);
    if (!err) return nullptr;
    kepterror kept = keeperror(err);
    dragsend();
    return firsterror(kept, nullptr);
}

void dragsend()
{
    if (!drags.self) return;
    handlersremove(drags.self);
    removewindow(&drags.self);
}

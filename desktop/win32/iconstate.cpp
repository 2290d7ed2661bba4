// Selected, shaded, and where an icon lies.

#include "desktop/icons.h"
#include "desktop/win32/iconhandle.h"

#include "base/errors.h"
#include "base/syserr.h"
#include "graphics/modeinfo.h"
#include "graphics/win32/windowhandle.h"

errorblock *seticonselected(window w, int32_t icon, bool on)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) SendMessageA(control, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
    return err;
}

errorblock *iconselected(window w, int32_t icon, bool *on)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    *on = !err && SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return err;
}

errorblock *shadeicon(window w, int32_t icon)
{
    return seticonshaded(w, icon, 1);
}

errorblock *unshadeicon(window w, int32_t icon)
{
    return seticonshaded(w, icon, 0);
}

// The call tells what the state was, not whether it worked.
errorblock *seticonshaded(window w, int32_t icon, bool on)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) EnableWindow(control, !on);
    return err;
}

errorblock *seticondefault(window w, int32_t icon)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) SendMessageA(GetParent(control), DM_SETDEFID, static_cast<WPARAM>(icon), 0);
    return err;
}

errorblock *redrawicon(window w, int32_t icon)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (err) return err;
    return InvalidateRect(control, nullptr, TRUE) ? nullptr : syserr("InvalidateRect");
}

errorblock *seticonstate(window w, int32_t icon, uint32_t eor, uint32_t clear)
{
    HWND control;
    bool selected = false;
    uint32_t named = eor | clear;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = iconselected(w, icon, &selected);
    if (err) return err;
    uint32_t state = (selected ? ICONSELECTED : 0) | (IsWindowEnabled(control) ? 0 : ICONSHADED);
    state = (state & ~clear) ^ eor;
    if (named & ICONSHADED) err = seticonshaded(w, icon, (state & ICONSHADED) != 0);
    if (!err && named & ICONSELECTED) err = seticonselected(w, icon, (state & ICONSELECTED) != 0);
    if (!err) err = redrawicon(w, icon);
    return err;
}

errorblock *iconpixels(window w, int32_t icon, pixelbox *box)
{
    HWND control;
    RECT r = {};
    errorblock *err = iconhandle(w, icon, &control);
    if (!err && !GetWindowRect(control, &r)) err = syserr("GetWindowRect");
    *box = {r.left, r.top, r.right, r.bottom};
    return err;
}

errorblock *iconbox(window w, int32_t icon, osbox *box)
{
    HWND around = systemwindow(w);
    pixelbox r;
    windowstaterecord state;
    errorblock *err = iconpixels(w, icon, &r);
    if (!err) err = windowstate(w, &state);
    if (err) return err;
    POINT corners[2] = {{r.left, r.top}, {r.right, r.bottom}};
    MapWindowPoints(nullptr, around, corners, 2);
    *box = {devtoosx(corners[0].x) + state.xscroll, state.yscroll - devtoosy(corners[1].y),
            devtoosx(corners[1].x) + state.xscroll, state.yscroll - devtoosy(corners[0].y)};
    return nullptr;
}

errorblock *geticonstate(window w, int32_t icon, iconstaterecord *record)
{
    static char classname[256];
    HWND control;
    char *text = nullptr;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = iconbox(w, icon, &record->box);
    if (!err) err = geticontext(w, icon, &text);
    if (!err && !GetClassNameA(control, classname, sizeof classname)) err = syserr("GetClassName");
    record->flags = 0;
    record->text = text;
    record->classname = classname;
    return err;
}

// The focus, and the caret in text that can be edited.

#include "base/syserr.h"
#include "desktop/icons.h"
#include "desktop/poll.h"
#include "desktop/win32/iconhandle.h"
#include "graphics/win32/windowhandle.h"

// The call's answer is the old focus, which may be nothing, and messages in between
// may have led the focus on. It failed if the focus never moved: then none of them was
// sent, and the reason is the call's own.
static errorblock *focusto(HWND control)
{
    HWND before = GetFocus();
    SetLastError(0);
    if (SetFocus(control) || GetFocus() != before) return nullptr;
    return before == control ? nullptr : syserr("SetFocus");
}

errorblock *focuswindow(window w)
{
    return focusto(systemwindow(w));
}

errorblock *focusicon(window w, int32_t icon)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    return err ? err : focusto(control);
}

errorblock *selecticon(window w, int32_t icon)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = focusto(control);
    if (!err) SendMessageA(control, EM_SETSEL, 0, -1);
    return err;
}

errorblock *focusnext(window w, window from, bool back)
{
    HWND control = GetNextDlgTabItem(systemwindow(w), systemwindow(from), back);
    if (!control) return nullptr;
    if (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
        SendMessageA(control, EM_SETSEL, 0, -1);
    return focusto(control);
}

errorblock *iconbehind(window w, int32_t icon, intptr_t *behind)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (err) return err;
    HWND before = GetWindow(control, GW_HWNDPREV);
    *behind = before ? reinterpret_cast<intptr_t>(before) : BEHINDTOP;
    return nullptr;
}

// In a combo box the field inside it has the focus.
static bool hasfocus(HWND control)
{
    HWND focused = GetFocus();
    return focused == control || IsChild(control, focused);
}

errorblock *setcaret(window w, int32_t icon, int32_t, int32_t, int32_t, int32_t index)
{
    HWND control;
    if (icon == -1) return focuswindow(w);
    errorblock *err = iconhandle(w, icon, &control);
    if (!err && !hasfocus(control)) err = focusto(control);
    if (err) return err;
    iconkind kind = iconkindof(control);
    if (kind == ICONEDIT) {
        SendMessageA(control, EM_SETSEL, static_cast<WPARAM>(index), index);
        SendMessageA(control, EM_SCROLLCARET, 0, 0);
    } else if (kind == ICONCOMBO) {
        SendMessageA(control, CB_SETEDITSEL, 0, MAKELPARAM(index, index));
    }
    return nullptr;
}

errorblock *caretatend(window w, int32_t icon)
{
    HWND control;
    if (icon == -1) return focuswindow(w);
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = setcaret(w, icon, 0, 0, 0, GetWindowTextLengthA(control));
    return err;
}

// The selection's ends of up to 32 bits, or -1 for a control without any.
static void selectionof(HWND control, int32_t *start, int32_t *end)
{
    DWORD from, to;
    iconkind kind = iconkindof(control);
    *start = *end = -1;
    if (kind == ICONOTHER) return;
    SendMessageA(control, kind == ICONEDIT ? EM_GETSEL : CB_GETEDITSEL,
                 reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    *start = static_cast<int32_t>(from);
    *end = static_cast<int32_t>(to);
}

errorblock *getcaret(caretrecord *caret)
{
    *caret = {-1, -1, -1, -1};
    HWND focused = GetFocus();
    window around = focused ? polltarget(windowof(focused)) : 0;
    if (!around) return nullptr;
    caret->self = around;
    if (windowof(focused) == around) return nullptr;

    // The icon is what stands in the window itself, whatever is inside that.
    while (windowof(GetParent(focused)) != around)
        focused = GetParent(focused);
    caret->icon = GetDlgCtrlID(focused);
    selectionof(focused, &caret->start, &caret->end);
    return nullptr;
}

errorblock *getcaretpair(window *w, int32_t *icon)
{
    caretrecord caret;
    errorblock *err = getcaret(&caret);
    *w = caret.self;
    *icon = caret.icon;
    return err;
}

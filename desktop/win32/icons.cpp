// The texts of icons, and what else is set on any control by one message.

#include "desktop/icons.h"

#include "base/errors.h"
#include "base/messages.h"
#include "base/syserr.h"
#include "base/text.h"
#include "desktop/validation.h"
#include "desktop/win32/abx.h"
#include "desktop/win32/iconhandle.h"
#include "graphics/win32/windowhandle.h"

#include <commctrl.h>

#include <cstdarg>
#include <cstring>

errorblock *iconhandle(window w, int32_t icon, HWND *control)
{
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND); // stands where the system gives no reason
    *control = GetDlgItem(systemwindow(w), icon);
    return *control ? nullptr : syserr("GetDlgItem");
}

iconkind iconkindof(HWND control)
{
    char name[32] = "";
    GetClassNameA(control, name, sizeof name);
    return cstricmp(name, "Edit") == 0       ? ICONEDIT
           : cstricmp(name, "ComboBox") == 0 ? ICONCOMBO
                                             : ICONOTHER;
}

errorblock *geticontext(window w, int32_t icon, char **text)
{
    static char buffer[ICONTEXTSIZE];
    *text = buffer;
    return copyicontext(w, icon, buffer, ICONTEXTSIZE);
}

// An empty text is told apart from a failure by nothing but the handle.
errorblock *copyicontext(window w, int32_t icon, char *buffer, int32_t size)
{
    HWND control;
    *buffer = 0;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) GetWindowTextA(control, buffer, size);
    return err;
}

errorblock *seticontext(window w, int32_t icon, const char *text)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (err) return err;
    return SetWindowTextA(control, text) ? nullptr : syserr("SetWindowText");
}

errorblock *seticontextifchanged(window w, int32_t icon, const char *text)
{
    char *now;
    errorblock *err = geticontext(w, icon, &now);
    if (err || std::strcmp(now, text) == 0) return err;
    return seticontext(w, icon, text);
}

errorblock *seticontextf(window w, int32_t icon, const char *format, ...)
{
    char text[ICONTEXTSIZE];
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = xzvsnprintf(ICONTEXTSIZE, nullptr, text, format, arguments);
    va_end(arguments);
    if (!err) err = expandtokens(text, ICONTEXTSIZE);
    if (!err) err = seticontext(w, icon, text);
    return err;
}

errorblock *seticonlimit(window w, int32_t icon, int32_t characters)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (err) return err;
    UINT message = iconkindof(control) == ICONCOMBO ? CB_LIMITTEXT : EM_LIMITTEXT;
    SendMessageA(control, message, static_cast<WPARAM>(characters), 0);
    return nullptr;
}

errorblock *seticonrange(window w, int32_t icon, int32_t low, int32_t high)
{
    HWND arrows;
    errorblock *err = iconhandle(w, icon, &arrows);
    if (err) return err;
    SendMessageA(arrows, UDM_SETRANGE32, static_cast<WPARAM>(low), high);
    HWND before = GetWindow(arrows, GW_HWNDPREV);
    if (!SendMessageA(arrows, UDM_GETBUDDY, 0, 0) && before && iconkindof(before) == ICONEDIT)
        SendMessageA(arrows, UDM_SETBUDDY, reinterpret_cast<WPARAM>(before), 0);
    return nullptr;
}

errorblock *settoken(window w, int32_t icon, char letter, const char *value)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) abxsettoken(control, letter, value);
    return err;
}

errorblock *setcolours(window w, int32_t icon, uint32_t fg, uint32_t bg)
{
    char text[16], behind[16];
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (!err) err = xzsnprintf(sizeof text, nullptr, text, "0x%x", fg);
    if (!err) err = xzsnprintf(sizeof behind, nullptr, behind, "0x%x", bg);
    if (err) return err;
    abxsettoken(control, 'g', text);
    abxsettoken(control, 'k', behind);
    return nullptr;
}

errorblock *deleteicon(window w, int32_t icon)
{
    HWND control;
    errorblock *err = iconhandle(w, icon, &control);
    if (err) return err;
    return DestroyWindow(control) ? nullptr : syserr("DestroyWindow");
}

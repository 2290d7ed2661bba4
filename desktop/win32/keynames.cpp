#include "desktop/keynames.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

int32_t charkeycode(int32_t character)
{
    if (character < 0 || character > 255) return -1;
    SHORT key = VkKeyScanA(static_cast<char>(character));
    if (key == -1) return -1;
    int32_t code = KEYPRESS | LOBYTE(key);
    if (HIBYTE(key) & 1) code |= KEYSHIFT;
    if (HIBYTE(key) & 2) code |= KEYCTRL;
    if (HIBYTE(key) & 4) code |= KEYALT;
    return code;
}

struct scrollrow {
    int32_t key;
    UINT message;
    WPARAM action;
};

static const scrollrow scrollkeys[] = {
    {KEYPAGEUP, WM_VSCROLL, SB_PAGEUP},   {KEYPAGEDOWN, WM_VSCROLL, SB_PAGEDOWN},
    {KEYEND, WM_VSCROLL, SB_BOTTOM},      {KEYHOME, WM_VSCROLL, SB_TOP},
    {KEYLEFT, WM_HSCROLL, SB_PAGELEFT},   {KEYUP, WM_VSCROLL, SB_LINEUP},
    {KEYRIGHT, WM_HSCROLL, SB_PAGERIGHT}, {KEYDOWN, WM_VSCROLL, SB_LINEDOWN},
};

errorblock *scrollkey(window w, int32_t *code)
{
    for (const scrollrow &row : scrollkeys)
        if (*code == (KEYPRESS | row.key)) {
            SendMessageA(systemwindow(w), row.message, row.action, 0);
            *code = KEYCLAIMED;
            break;
        }
    return nullptr;
}

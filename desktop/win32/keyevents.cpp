// Key events of the library's own windows.

#include "desktop/dispatch.h"
#include "desktop/icons.h"
#include "desktop/keys.h"
#include "desktop/poll.h"
#include "desktop/timed.h"
#include "desktop/win32/procedure.h"

#include "base/trace.h"

uint32_t keytime;

static bool down(int key)
{
    return GetKeyState(key) < 0;
}

int32_t keymodifiers()
{
    int32_t flags = 0;
    if (down(VK_SHIFT)) flags |= KEYSHIFT;
    if (down(VK_CONTROL)) flags |= KEYCTRL;
    if (down(VK_MENU)) flags |= KEYALT;
    if (down(VK_LWIN) || down(VK_RWIN)) flags |= KEYWINDOWS;
    return flags;
}

static bool ispress(UINT number)
{
    return number == WM_KEYDOWN || number == WM_SYSKEYDOWN;
}

static int32_t codeof(UINT number, WPARAM wparam)
{
    int32_t key = static_cast<int32_t>(wparam);
    if (ispress(number)) return key | KEYPRESS | keymodifiers();
    trace("wmchar %x", static_cast<unsigned>(key));
    return key;
}

static int32_t careticon(window w)
{
    window holding;
    int32_t icon;
    reporterror(getcaretpair(&holding, &icon));
    return holding == w ? icon : -1;
}

void keydeliver(const systemmessage *message, bool *claimed)
{
    *claimed = false;
    UINT number = static_cast<UINT>(message->message);
    WPARAM key = static_cast<WPARAM>(message->wparam);
    keytime = static_cast<uint32_t>(tickcount());
    if (number == WM_UNICHAR && key == UNICODE_NOCHAR) {
        trace("wm_unichar nochar %d", static_cast<int>(key));
        return;
    }
    window w = message->window;
    int32_t code = codeof(number, key);
    int32_t icon = careticon(w);
    blockiter iter;
    block b;
    blockiter_start(&iter);
    while (code != KEYCLAIMED && nextblock(&iter, EVENTKEY, BLOCKANY, w, &b))
        if (b.function) reporterror(handlerof<keyfunction>(b)(w, b.data, icon, &code));
    blockiter_end(&iter);
    *claimed = code == KEYCLAIMED;
}

reply keymessage(const taskmessage &m)
{
    if (m.number == WM_UNICHAR) trace("******************* unichar");
    if (m.number == WM_IME_CHAR)
        trace("******************* IME char %x", static_cast<unsigned>(m.wparam));
    if (ispress(m.number) && pollhaskey()) return REPLYDEFAULT;
    systemmessage message = systemmessageof(m);
    bool claimed;
    keydeliver(&message, &claimed);
    return claimed ? REPLYDONE : REPLYDEFAULT;
}

reply appcommandmessage(const taskmessage &m)
{
    trace("app command");
    bool claimed = false;
    dispatchfirst(EVENTAPPCOMMAND, m.self, [&](const block &b) {
        return handlerof<appcommandfunction>(b)(
            m.self, b.data, static_cast<window>(m.wparam), GET_APPCOMMAND_LPARAM(m.lparam),
            GET_DEVICE_LPARAM(m.lparam), GET_KEYSTATE_LPARAM(m.lparam), &claimed);
    });
    return claimed ? replyvalue(1) : REPLYDEFAULT;
}

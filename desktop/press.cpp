#include "desktop/press.h"

pressrecord press;

static constexpr uint32_t HELD = PRESSDOUBLE | PRESSSINGLE;
static constexpr uint32_t BODY = PRESSLEFT | PRESSRIGHT | HELD | PRESSLOOKS;

uint32_t presscodes(const char *codes)
{
    uint32_t word = 0;
    bool release = false;
    for (; *codes; codes++) {
        switch (*codes) {
        case '1':
            word |= release ? PRESSRELEASE : PRESSCLICK;
            break;
        case '2':
            word |= release ? PRESSDOUBLERELEASE : PRESSDOUBLECLICK;
            break;
        case 'R':
            release = true;
            break;
        case 'D':
            word |= PRESSDRAG;
            break;
        case 'A':
            word |= PRESSREPEAT;
            break;
        }
    }
    return word;
}

static uint32_t sidebit(int32_t button)
{
    return button == BUTTONLEFT ? PRESSLEFT : PRESSRIGHT;
}

static int32_t doubleof(int32_t button)
{
    return button == BUTTONLEFT ? BUTTONLEFTDOUBLE : BUTTONRIGHTDOUBLE;
}

static int32_t heldbutton()
{
    return press.word & PRESSLEFT ? BUTTONLEFT : BUTTONRIGHT;
}

// Each is reported once.
static void report(uint32_t bit, int32_t buttons)
{
    if (!(press.word & bit)) return;
    press.word &= ~bit;
    pressclick(press.control, buttons);
}

static void repeatstep(window control)
{
    if (press.control != control) return;
    presstimer(control, false);
    if (!(press.word & PRESSREPEAT) || !(press.word & HELD)) return;
    presstimer(control, true);
    press.delay = PRESSDELAY;
    pressclick(control, heldbutton());
}

static void begin(window control, uint32_t word)
{
    // Another control may still think that it is pressed: its button went up
    // over a system's loop, which swallowed that.
    if (press.control != control) presslost(press.control);
    press.control = control;
    press.word = word;
    presslook(control, true);
    presscapture(control, true);
}

void pressdown(window control, int32_t button, const char *codes)
{
    begin(control, sidebit(button) | PRESSSINGLE | PRESSLOOKS | presscodes(codes));
    report(PRESSCLICK, button);
    repeatstep(control);
}

void pressdouble(window control, int32_t button, const char *codes)
{
    uint32_t wanted = press.control == control ? press.word : presscodes(codes);
    begin(control, wanted | sidebit(button) | PRESSDOUBLE | PRESSLOOKS);
    report(PRESSDOUBLECLICK, doubleof(button));
    repeatstep(control);
}

void pressmove(window control, bool inside)
{
    if (press.control != control) return;
    if (press.word & PRESSDRAG)
        report(PRESSDRAG, heldbutton() == BUTTONLEFT ? BUTTONLEFTDRAG : BUTTONRIGHTDRAG);
    if (press.control != control || !(press.word & HELD)) return;
    bool looks = press.word & PRESSLOOKS;
    if (looks == inside) return;
    press.word ^= PRESSLOOKS;
    presslook(control, inside);
}

// The end of capture is the loss of it too, so the press is over before that, and
// its kind kept aside. A button whose press was cut short has nothing to report.
void pressup(window control, int32_t button, bool inside)
{
    if (press.control != control || !(press.word & sidebit(button))) return;
    bool twice = press.word & PRESSDOUBLE;
    press.word &= ~(sidebit(button) | HELD | PRESSLOOKS | PRESSDRAG);
    presscapture(control, false);
    presslook(control, false);
    if (inside) report(PRESSRELEASE, button);
    if (press.control == control && inside && twice) report(PRESSDOUBLERELEASE, doubleof(button));
    repeatstep(control);
}

void presslost(window control)
{
    if (press.control != control || !(press.word & BODY)) return;
    press.word &= ~(BODY | PRESSDRAG); // a move without a button is no drag
    presslook(control, false);
    presstimer(control, false);
}

void pressgone(window control)
{
    if (press.control == control) press = {};
}

void presstick(window control, bool over)
{
    if (press.control != control) return;
    if (press.delay > 0)
        press.delay--;
    else if (over)
        pressclick(control, heldbutton());
}

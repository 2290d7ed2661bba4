#include "desktop/win32/abx.h"

#include "base/text.h"
#include "desktop/hourglass.h"
#include "desktop/mouse.h"
#include "desktop/press.h"
#include "desktop/validation.h"
#include "graphics/win32/windowhandle.h"

#include <cstring>

// The class's own answers to WM_GETTEXT and WM_SETTEXT are of one token: the
// whole string is the default procedure's.
void abxstring(HWND control, char *string)
{
    *string = 0;
    DefWindowProcA(control, WM_GETTEXT, VALIDATIONSIZE, reinterpret_cast<LPARAM>(string));
}

void abxsetstring(HWND control, const char *string)
{
    DefWindowProcA(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(string));
}

void abxsettoken(HWND control, char letter, const char *value)
{
    char string[VALIDATIONSIZE], quoted[VALIDATIONSIZE];
    abxstring(control, string);
    int32_t room = VALIDATIONSIZE;
    do
        quotetoken(value, quoted, room);
    while (!replacetoken(letter, quoted, string) && --room > 0);
    abxsetstring(control, string);
    abxpaintnow(control);
}

uint32_t abxstate(HWND control)
{
    return static_cast<uint32_t>(GetWindowLongA(control, 0));
}

void abxchange(HWND control, uint32_t bits, bool on)
{
    uint32_t before = abxstate(control), after = on ? before | bits : before & ~bits;
    if (before == after) return;
    SetWindowLongA(control, 0, static_cast<LONG>(after));
    abxpaintnow(control);
}

namespace
{

// What a message gives back; without a value the default procedure answers.
struct answer {
    bool own;
    LRESULT value;
};
constexpr answer SYSTEM = {false, 0}, DONE = {true, 0};

answer created(HWND control, UINT, WPARAM, LPARAM lparam)
{
    auto *creation = reinterpret_cast<const CREATESTRUCTA *>(lparam);
    if (creation->style & WS_DISABLED) abxchange(control, CONTROLDISABLED, true);
    return SYSTEM;
}

answer destroyed(HWND control, UINT, WPARAM, LPARAM)
{
    KillTimer(control, 1);
    pressgone(windowof(control));
    return SYSTEM;
}

answer erase(HWND control, UINT, WPARAM wparam, LPARAM)
{
    if (!abxerase(control, reinterpret_cast<HDC>(wparam))) return SYSTEM;
    return {true, 1};
}

answer paint(HWND control, UINT, WPARAM, LPARAM)
{
    abxpaint(control);
    return DONE;
}

void textvalue(HWND control, char *value)
{
    char string[VALIDATIONSIZE];
    abxstring(control, string);
    gettoken(string, 's', value);
}

answer gettext(HWND control, UINT, WPARAM wparam, LPARAM lparam)
{
    char value[VALIDATIONSIZE];
    if (wparam == 0) return DONE;
    textvalue(control, value);
    int32_t size = wparam < VALIDATIONSIZE ? static_cast<int32_t>(wparam) : VALIDATIONSIZE;
    char *buffer = reinterpret_cast<char *>(lparam);
    strcopyn(buffer, value, size);
    return {true, static_cast<LRESULT>(std::strlen(buffer))};
}

answer textlength(HWND control, UINT, WPARAM, LPARAM)
{
    char value[VALIDATIONSIZE];
    textvalue(control, value);
    return {true, static_cast<LRESULT>(std::strlen(value))};
}

answer settext(HWND control, UINT, WPARAM, LPARAM lparam)
{
    auto *text = reinterpret_cast<const char *>(lparam);
    abxsettoken(control, 's', text ? text : "");
    return {true, TRUE};
}

answer setfont(HWND control, UINT, WPARAM wparam, LPARAM lparam)
{
    SetWindowLongPtrA(control, GWLP_USERDATA, static_cast<LONG_PTR>(wparam));
    if (LOWORD(lparam)) InvalidateRect(control, nullptr, TRUE);
    return DONE;
}

answer getfont(HWND control, UINT, WPARAM, LPARAM)
{
    return {true, GetWindowLongPtrA(control, GWLP_USERDATA)};
}

answer focus(HWND control, UINT message, WPARAM, LPARAM)
{
    abxchange(control, CONTROLFOCUS, message == WM_SETFOCUS);
    return DONE;
}

answer enable(HWND control, UINT, WPARAM wparam, LPARAM)
{
    abxchange(control, CONTROLDISABLED, !wparam);
    return DONE;
}

answer setcheck(HWND control, UINT, WPARAM wparam, LPARAM)
{
    abxchange(control, CONTROLSELECTED, wparam != BST_UNCHECKED);
    return DONE;
}

answer getcheck(HWND control, UINT, WPARAM, LPARAM)
{
    return {true, abxstate(control) & CONTROLSELECTED ? BST_CHECKED : BST_UNCHECKED};
}

// Dialog navigation takes it for the default push button.
answer dialogcode(HWND, UINT, WPARAM, LPARAM)
{
    return {true, DLGC_DEFPUSHBUTTON};
}

// Space presses what has the focus, as Return does by the navigation.
answer key(HWND control, UINT, WPARAM wparam, LPARAM lparam)
{
    bool held = HIWORD(lparam) & KF_REPEAT;
    if (wparam != VK_SPACE || held) return SYSTEM;
    WPARAM command = MAKEWPARAM(GetDlgCtrlID(control), BN_CLICKED);
    SendMessageA(GetParent(control), WM_COMMAND, command, reinterpret_cast<LPARAM>(control));
    return DONE;
}

answer nothing(HWND, UINT, WPARAM, LPARAM)
{
    return DONE;
}

answer setcursor(HWND control, UINT, WPARAM, LPARAM lparam)
{
    if (LOWORD(lparam) != HTCLIENT) return SYSTEM;
    if (hourglassforce()) return {true, TRUE};
    char string[VALIDATIONSIZE], value[VALIDATIONSIZE];
    abxstring(control, string);
    if (!gettoken(string, 'P', value) || *value != 'i') return SYSTEM;
    return setpointer(POINTERPROGRAM, 0, value + 1) ? SYSTEM : answer{true, TRUE};
}

answer mouse(HWND control, UINT message, WPARAM wparam, LPARAM lparam)
{
    abxmouse(control, message, wparam, lparam);
    // Behind a right click the system asks the parent for help or a menu.
    return message == WM_RBUTTONUP && IsWindow(control) ? SYSTEM : DONE;
}

struct messagerow {
    UINT message;
    answer (*function)(HWND control, UINT message, WPARAM wparam, LPARAM lparam);
};

constexpr messagerow rows[] = {
    {WM_CREATE, created},        {WM_DESTROY, destroyed},   {WM_ERASEBKGND, erase},
    {WM_PAINT, paint},           {WM_GETTEXT, gettext},     {WM_GETTEXTLENGTH, textlength},
    {WM_SETTEXT, settext},       {WM_SETFONT, setfont},     {WM_GETFONT, getfont},
    {WM_SETFOCUS, focus},        {WM_KILLFOCUS, focus},     {WM_ENABLE, enable},
    {BM_SETCHECK, setcheck},     {BM_GETCHECK, getcheck},   {BM_CLICK, nothing},
    {WM_GETDLGCODE, dialogcode}, {WM_SETCURSOR, setcursor}, {WM_LBUTTONDOWN, mouse},
    {WM_LBUTTONDBLCLK, mouse},   {WM_LBUTTONUP, mouse},     {WM_RBUTTONDOWN, mouse},
    {WM_RBUTTONDBLCLK, mouse},   {WM_RBUTTONUP, mouse},     {WM_MOUSEMOVE, mouse},
    {WM_CAPTURECHANGED, mouse},  {WM_TIMER, mouse},         {WM_KEYDOWN, key},
};

} // namespace

LRESULT CALLBACK abxprocedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam)
{
    for (const messagerow &row : rows) {
        if (row.message != message) continue;
        answer given = row.function(control, message, wparam, lparam);
        if (given.own) return given.value;
        break;
    }
    return DefWindowProcA(control, message, wparam, lparam);
}

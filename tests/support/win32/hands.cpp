#include "tests/support/driver.h"

#include "tools/gallerysheets/files.h"

#include <windows.h>

#include <shlobj.h>

#include <cstring>
#include <filesystem>

uint32_t driven;

namespace
{

constexpr int SETTLED = 20; // milliseconds after an input

uint32_t process()
{
    return driven ? driven : GetCurrentProcessId();
}

// A program answers messages in their order: when it has answered this one, it has
// seen the input before it. A menu or a box answers too, by its own loop.
void pauseoutside(int quiet)
{
    Sleep(static_cast<DWORD>(quiet) * 3 / 2);
    DWORD_PTR ignored;
    if (window w = driven ? drivefind("") : 0)
        SendMessageTimeoutA(reinterpret_cast<HWND>(w), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &ignored);
}

HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

window wordof(HWND h)
{
    return reinterpret_cast<window>(h);
}

// Where the pointer was put last.
POINT pointer;

// An absolute place, in parts of the screen.
void pointeradd(INPUT *input)
{
    int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    input->mi.dwFlags |= MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    input->mi.dx = static_cast<LONG>((pointer.x * 65536 + width - 1) / width);
    input->mi.dy = static_cast<LONG>((pointer.y * 65536 + height - 1) / height);
}

// Under Wine the display's own pointer stays where it is, and a window that comes
// up under it takes ours there: each press says again where it is.
void sendmouse(DWORD flags, DWORD data = 0)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    pointeradd(&input);
    SendInput(1, &input, sizeof input);
}

void sendkey(int key, bool up)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
    // The grey keys: without this a keypad would be meant.
    bool grey = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (grey ? KEYEVENTF_EXTENDEDKEY : 0U);
    SendInput(1, &input, sizeof input);
}

void hold(int held, bool down)
{
    if (held & DRIVESHIFT) sendkey(VK_SHIFT, !down);
    if (held & DRIVECTRL) sendkey(VK_CONTROL, !down);
    if (held & DRIVEALT) sendkey(VK_MENU, !down);
}

void placepointer(int x, int y)
{
    pointer = {x, y};
    sendmouse(0);
}

DWORD flag(drivebutton button, bool down)
{
    if (button == DRIVELEFT) return down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    return down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
}

drivepicture lookat(int left, int top, int width, int height)
{
    drivepicture picture = {width, height, {}};
    picture.pixels.resize(static_cast<size_t>(width) * height);
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, left, top, SRCCOPY);
    SelectObject(memory, old);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), picture.pixels.data(), &info,
              DIB_RGB_COLORS);
    for (uint32_t &pixel : picture.pixels)
        pixel &= 0xFFFFFF;
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

struct searched {
    std::string title, classname;
    HWND found;
};

BOOL CALLBACK matches(HWND h, LPARAM word)
{
    auto *s = reinterpret_cast<searched *>(word);
    DWORD owner = 0;
    GetWindowThreadProcessId(h, &owner);
    if (owner != process() || !IsWindowVisible(h)) return TRUE;
    char text[256] = "", name[256] = "";
    GetClassNameA(h, name, sizeof name);
    GetWindowTextA(h, text, sizeof text);
    if (!s->classname.empty() && s->classname != name) return TRUE;
    if (!s->title.empty() && s->title != text) return TRUE;
    s->found = h;
    return FALSE;
}

// The entries to go down at each level, separators left out, to a command. What opens
// a menu keeps its identifier.
bool menupath(HMENU menu, UINT command, std::vector<int> *path)
{
    int down = 0;
    for (int i = 0; i < GetMenuItemCount(menu); i++) {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_ID | MIIM_SUBMENU | MIIM_FTYPE;
        GetMenuItemInfoA(menu, static_cast<UINT>(i), TRUE, &info);
        if (info.fType & MFT_SEPARATOR) continue;
        path->push_back(down++);
        if (info.wID == command || (info.hSubMenu && menupath(info.hSubMenu, command, path)))
            return true;
        path->pop_back();
    }
    return false;
}

} // namespace

void (*drivepause)(int) = pauseoutside;

void drivemove(int x, int y)
{
    placepointer(x, y);
    drivepause(SETTLED);
}

void drivepress(drivebutton button)
{
    sendmouse(flag(button, true));
    drivepause(SETTLED);
}

void driverelease(drivebutton button)
{
    sendmouse(flag(button, false));
    drivepause(SETTLED);
}

void driveclick(int x, int y, drivebutton button, int held)
{
    hold(held, true);
    drivemove(x, y);
    drivepress(button);
    driverelease(button);
    hold(held, false);
    drivepause(SETTLED);
}

void drivedouble(int x, int y, drivebutton button)
{
    drivemove(x, y);
    for (int i = 0; i < 2; i++) {
        sendmouse(flag(button, true));
        sendmouse(flag(button, false));
    }
    drivepause(SETTLED);
}

void drivedrag(const std::vector<driveplace> &places, drivebutton button, int held)
{
    hold(held, true);
    drivemove(places.front().x, places.front().y);
    drivepress(button);
    for (const driveplace &place : places)
        drivemove(place.x, place.y);
    driverelease(button);
    hold(held, false);
    drivepause(SETTLED);
}

void drivewheel(int delta, bool horizontal)
{
    sendmouse(horizontal ? MOUSEEVENTF_HWHEEL : MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta));
    drivepause(SETTLED);
}

void drivekey(int key, int held)
{
    hold(held, true);
    sendkey(key, false);
    sendkey(key, true);
    hold(held, false);
    drivepause(SETTLED);
}

void drivetype(const std::string &text)
{
    for (char c : text) {
        SHORT key = VkKeyScanA(c);
        if (key == -1) continue; // no key of this keyboard types it
        drivekey(LOBYTE(key), (HIBYTE(key) & 1) ? DRIVESHIFT : 0);
    }
}

// The pointer is out of the way: an entry under it would be chosen.
bool drivemenu(void *menu, int32_t command, int32_t entry)
{
    std::vector<int> path;
    if (!menupath(static_cast<HMENU>(menu), static_cast<UINT>(command), &path)) return false;
    if (entry) path.push_back(entry - 1);
    drivemove(2, 2);
    drivekey(VK_MENU);
    for (int right = 0; right < path[0]; right++)
        drivekey(VK_RIGHT);
    drivekey(VK_DOWN);
    for (size_t level = 1; level < path.size(); level++) {
        if (level > 1) drivekey(VK_RIGHT);
        for (int down = 0; down < path[level]; down++)
            drivekey(VK_DOWN);
    }
    return true;
}

void drivedrop(window w, const std::vector<std::string> &files, driveplace place)
{
    std::wstring names;
    for (const std::string &file : files)
        names += std::filesystem::path(std::u8string(file.begin(), file.end())).wstring() + L'\0';
    names += L'\0';
    size_t bytes = names.size() * sizeof names[0];
    HGLOBAL block = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
    auto *drop = static_cast<DROPFILES *>(GlobalLock(block));
    POINT p = {place.x, place.y};
    ScreenToClient(handle(w), &p);
    drop->pFiles = sizeof *drop;
    drop->pt = p;
    drop->fWide = true;
    memcpy(drop + 1, names.data(), bytes);
    GlobalUnlock(block);
    PostMessageA(handle(w), WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0);
    drivepause(SETTLED);
}

driveplace drivemiddle(window w)
{
    RECT r;
    GetWindowRect(handle(w), &r);
    return {static_cast<int>(r.left + r.right) / 2, static_cast<int>(r.top + r.bottom) / 2};
}

driveplace driveclient(window w, int x, int y)
{
    POINT p = {x, y};
    ClientToScreen(handle(w), &p);
    return {static_cast<int>(p.x), static_cast<int>(p.y)};
}

window drivecontrol(window w, int icon)
{
    return wordof(GetDlgItem(handle(w), icon));
}

driveplace driveicon(window w, int icon)
{
    return drivemiddle(drivecontrol(w, icon));
}

void driveiconclick(window w, int icon, drivebutton button)
{
    driveplace at = driveicon(w, icon);
    driveclick(at.x, at.y, button);
}

void drivefill(window w, int field, const std::string &text)
{
    static int aside = 3; // never twice in one place, which would be a double click
    aside = -aside;
    driveplace at = driveicon(w, field);
    driveclick(at.x + aside, at.y);
    drivekey(VK_HOME);
    drivekey(VK_END, DRIVESHIFT);
    drivekey(VK_DELETE);
    drivetype(text);
}

// Its parts need a moment to be there.
window driveboxwait(int milliseconds)
{
    window box = drivewaitwindow("", "#32770", milliseconds);
    drivewait([&] { return !box || GetWindow(handle(box), GW_CHILD); }, 1000);
    return box;
}

std::string driveboxtext(window box)
{
    std::string text;
    drivewait([&] { return !(text = drivetext(box, 0xFFFF)).empty(); }, 1000);
    return text;
}

void driveboxanswer(window box, int button)
{
    if (!drivecontrol(box, button)) button = IDCANCEL;
    PostMessageA(handle(box), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 static_cast<LPARAM>(drivecontrol(box, button)));
    drivewait([&] { return !IsWindowVisible(handle(box)); });
}

void driveboxfile(window box, const std::string &path, int row)
{
    constexpr int types = 0x470, name = 0x480, names = 0x47C;
    HWND typelist = handle(drivecontrol(box, types));
    if (row && typelist) {
        SendMessageA(typelist, CB_SETCURSEL, static_cast<WPARAM>(row - 1), 0);
        SendMessageA(handle(box), WM_COMMAND, MAKEWPARAM(types, CBN_SELENDOK),
                     reinterpret_cast<LPARAM>(typelist));
    }
    for (int control : {names, name})
        if (HWND edit = handle(drivecontrol(box, control)); edit && !path.empty())
            SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
}

void drivesize(window w, int *width, int *height)
{
    RECT r;
    GetClientRect(handle(w), &r);
    *width = static_cast<int>(r.right);
    *height = static_cast<int>(r.bottom);
}

uint32_t drivepixel(int x, int y)
{
    HDC screen = GetDC(nullptr);
    COLORREF c = GetPixel(screen, x, y);
    ReleaseDC(nullptr, screen);
    return static_cast<uint32_t>(GetRValue(c) << 16 | GetGValue(c) << 8 | GetBValue(c));
}

drivepicture drivelook(window w)
{
    driveplace corner = driveclient(w, 0, 0);
    int width, height;
    drivesize(w, &width, &height);
    return lookat(corner.x, corner.y, width, height);
}

drivepicture drivelookframe(window w)
{
    RECT r;
    GetWindowRect(handle(w), &r);
    return lookat(static_cast<int>(r.left), static_cast<int>(r.top),
                  static_cast<int>(r.right - r.left), static_cast<int>(r.bottom - r.top));
}

drivepicture drivelookscreen()
{
    return lookat(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
}

int drivediffer(const drivepicture &a, const drivepicture &b)
{
    if (a.width != b.width || a.height != b.height) return static_cast<int>(a.pixels.size());
    int count = 0;
    for (size_t i = 0; i < a.pixels.size(); i++)
        count += a.pixels[i] != b.pixels[i];
    return count;
}

void drivesave(const drivepicture &picture, const std::string &path)
{
    std::string rows;
    for (int y = 0; y < picture.height; y++)
        for (int x = 0; x < picture.width; x++)
            for (int shift = 16; shift >= 0; shift -= 8)
                rows += static_cast<char>(picture.at(x, y) >> shift);
    pngsave(path, picture.width, picture.height, rows);
}

std::string drivetext(window w)
{
    char text[1024] = "";
    SendMessageA(handle(w), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

std::string drivetext(window w, int icon)
{
    window control = drivecontrol(w, icon);
    return control ? drivetext(control) : std::string();
}

bool drivewait(const std::function<bool()> &condition, int milliseconds)
{
    DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start >= static_cast<DWORD>(milliseconds)) return false;
        drivepause(SETTLED / 2);
    }
    return true;
}

window drivefind(const std::string &title, const std::string &classname)
{
    searched s = {title, classname, nullptr};
    EnumWindows(matches, reinterpret_cast<LPARAM>(&s));
    return wordof(s.found);
}

bool drivefront(window w)
{
    bool front = drivewait([&] { return wordof(GetForegroundWindow()) == w; }, 2000);
    RECT last = {};
    drivewait(
        [&] {
            RECT now, was = last;
            GetWindowRect(handle(w), &now);
            last = now;
            return EqualRect(&now, &was) != 0;
        },
        1000);
    return front;
}

// Menus never come to the front in that sense.
window drivewaitwindow(const std::string &title, const std::string &classname, int milliseconds)
{
    window found = 0;
    drivewait([&] { return (found = drivefind(title, classname)) != 0; }, milliseconds);
    if (found && classname != "#32768") drivefront(found);
    return found;
}

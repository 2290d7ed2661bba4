#include "tools/tour/outside.h"

#include "graphics/win32/windowhandle.h"
#include "resources/identifiers.h"
#include "tests/support/driver.h"
#include "tests/support/win32/program.h"

#include <windows.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

window mainwindow;

static program started;
static std::filesystem::path dictionaries;
static HMODULE resources; // of the program, for its menu

[[noreturn]] void outsidefault(const std::string &what)
{
    std::string seen = (dictionaries.parent_path().parent_path() / "fault.png").string();
    drivesave(drivelookscreen(), seen);
    std::printf("fault: %s: see %s\n", what.c_str(), seen.c_str());
    std::fflush(stdout);
    std::exit(1); // which ends the program too
}

void say(const char *format, ...)
{
    va_list list;
    va_start(list, format);
    std::printf("  ");
    std::vprintf(format, list);
    std::printf("\n");
    va_end(list);
    std::fflush(stdout);
}

// The program and its windows.

void outsidestart(const std::string &path, const std::string &file)
{
    started = programstart(path, file.empty() ? "" : "\"" + file + "\"", false);
    if (!driven) outsidefault(path + " can't be started");
    if (!resources) resources = LoadLibraryExA(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    dictionaries = std::filesystem::path(path).parent_path() / "Dictionaries";
    mainwindow = programwindow();
    if (!mainwindow) outsidefault("no window comes up");
}

void outsideend()
{
    menucommand(COMMANDEXIT);
    if (window box = driveboxwait(500)) driveboxanswer(box, IDYES);
    int status = programstatus(started);
    mainwindow = 0;
    if (status) outsidefault("the program ends with status " + std::to_string(status));
}

// Left to right, the bar first: it alone has controls.
static std::vector<HWND> panes()
{
    std::vector<HWND> found;
    for (HWND h = GetWindow(systemwindow(mainwindow), GW_CHILD); h; h = GetWindow(h, GW_HWNDNEXT))
        if (IsWindowVisible(h)) found.push_back(h);
    auto order = [](HWND h) {
        RECT r;
        GetWindowRect(h, &r);
        return GetWindow(h, GW_CHILD) ? -100000L : r.left;
    };
    std::sort(found.begin(), found.end(), [&](HWND a, HWND b) { return order(a) < order(b); });
    if (found.size() != 3) outsidefault("there are not three panes");
    return found;
}

window panebar()
{
    return windowof(panes()[0]);
}

window panelist()
{
    return windowof(panes()[1]);
}

window panegrid()
{
    return windowof(panes()[2]);
}

window dialog(const std::string &title)
{
    window w = drivewaitwindow(title);
    if (!w) outsidefault("no window \"" + title + "\" comes up");
    drivepause(100);
    return w;
}

// Menus.

void menuopen(int32_t command, int32_t entry)
{
    HMENU menu = LoadMenuA(resources, "Main");
    if (!drivemenu(menu, command, entry))
        outsidefault("no entry of the menu is " + std::to_string(command));
    DestroyMenu(menu);
}

void menucommand(int32_t command, int32_t entry)
{
    menuopen(command, entry);
    drivekey(VK_RETURN);
}

// They stand in the menu as the system lists the files.
void menudictionary(int32_t command, const std::string &name)
{
    int32_t entry = 0;
    for (const auto &file : std::filesystem::directory_iterator(dictionaries)) {
        if (file.path().extension() != ".dic") continue;
        entry++;
        if (file.path().stem() == name) return menucommand(command, entry);
    }
    outsidefault("there is no dictionary " + name);
}

// Controls.

void press(window w, int32_t control)
{
    if (!drivecontrol(w, control))
        outsidefault("no control " + std::to_string(control) + " in \"" + drivetext(w) + "\"");
    driveiconclick(w, control);
}

void fill(window w, int32_t field, const std::string &text)
{
    drivefill(w, field, text);
}

void leave(window w, int32_t control)
{
    std::string title = drivetext(w);
    press(w, control);
    if (!drivewait([w] { return !IsWindowVisible(systemwindow(w)); }))
        outsidefault("the window \"" + title + "\" stays");
}

void searchwait()
{
    Sleep(300); // it starts a little later than its button is pressed
    if (!drivewait([] { return !drivecontrol(panebar(), BARSTOP); }, 60000))
        outsidefault("a search doesn't end");
    drivepause(100);
}

void filebox(const std::string &path, int32_t type)
{
    window box = driveboxwait();
    if (!box) outsidefault("no box for files comes up");
    Sleep(300); // its own first messages
    driveboxfile(box, "", type);
    drivekey('A', DRIVECTRL);
    drivetype(path);
    drivekey(VK_RETURN);
    if (!drivewait([] { return !drivefind("", "#32770"); }))
        outsidefault("the box for files stays");
}

// The grid on the screen.

static int32_t measuredwidth, measuredheight, measuredcolumns, measuredrows;

// What is right of the grid and below it has one colour, that of the corner at the
// bottom right.
void cellsmeasure(int32_t columns, int32_t rows)
{
    drivemove(2, 2);
    drivepicture look = drivelook(panegrid());
    uint32_t outside = look.at(look.width - 1, look.height - 1);
    int32_t right = 0, bottom = 0;
    for (int32_t y = 0; y < look.height; y++)
        for (int32_t x = 0; x < look.width; x++)
            if (look.at(x, y) != outside) {
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
    measuredwidth = right + 1;
    measuredheight = bottom + 1;
    measuredcolumns = columns;
    measuredrows = rows;
}

driveplace cell(int32_t x, int32_t y)
{
    return driveclient(panegrid(), (2 * x + 1) * measuredwidth / (2 * measuredcolumns),
                       (2 * y + 1) * measuredheight / (2 * measuredrows));
}

void cellsdrag(int32_t x0, int32_t y0, int32_t x1, int32_t y1, int32_t held)
{
    std::vector<driveplace> places;
    int32_t steps = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
    for (int32_t i = 0; i <= steps; i++) {
        int32_t part = steps ? i : 0, whole = steps ? steps : 1;
        places.push_back(cell(x0 + (x1 - x0) * part / whole, y0 + (y1 - y0) * part / whole));
    }
    // A pointer that comes into a window ends what is held, under Wine.
    drivemove(places[0].x, places[0].y);
    drivedrag(places, DRIVELEFT, held);
}

void listclick(int32_t y, drivebutton button)
{
    driveplace place = driveclient(panelist(), 12, y);
    driveclick(place.x, place.y, button);
}

bool listshows()
{
    drivepicture look = drivelook(panelist());
    return std::any_of(look.pixels.begin(), look.pixels.end(),
                       [&](uint32_t pixel) { return pixel != look.at(0, 0); });
}

drivepicture metafilelook(const std::string &path, int32_t width)
{
    constexpr int32_t MARGIN = 8;
    HENHMETAFILE file = GetEnhMetaFileA(path.c_str());
    ENHMETAHEADER header = {};
    if (!GetEnhMetaFileHeader(file, sizeof header, &header)) outsidefault(path + " is no metafile");
    int32_t inside = width - 2 * MARGIN;
    int32_t height = MulDiv(inside, header.rclFrame.bottom - header.rclFrame.top,
                            header.rclFrame.right - header.rclFrame.left);
    HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height + 2 * MARGIN);
    HGDIOBJ old = SelectObject(memory, bitmap);
    RECT all = {0, 0, width, height + 2 * MARGIN};
    RECT place = {MARGIN, MARGIN, width - MARGIN, height + MARGIN};
    FillRect(memory, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    PlayEnhMetaFile(memory, file, &place);
    DeleteEnhMetaFile(file);
    drivepicture picture = {width, height + 2 * MARGIN, {}};
    for (int32_t y = 0; y < picture.height; y++)
        for (int32_t x = 0; x < picture.width; x++) {
            COLORREF c = GetPixel(memory, x, y);
            picture.pixels.push_back(
                static_cast<uint32_t>(GetRValue(c) << 16 | GetGValue(c) << 8 | GetBValue(c)));
        }
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

// The window manager draws a title and a border of one pixel round what the window
// has inside; the window itself believes in a wider frame.
static drivepicture framed(window w)
{
    RECT all;
    GetWindowRect(systemwindow(w), &all);
    driveplace inside = driveclient(w, 0, 0);
    int width, height;
    drivesize(w, &width, &height);
    drivepicture screen = drivelookscreen();
    int left = inside.x - 1, right = inside.x + width + 1;
    int top = static_cast<int>(all.top), bottom = inside.y + height + 1;
    uint32_t desktop = screen.at(0, screen.height - 1);
    while (top < inside.y && screen.at(inside.x + width / 2, top) == desktop)
        top++;
    drivepicture cut = {right - left, bottom - top, {}};
    for (int y = top; y < bottom; y++)
        for (int x = left; x < right; x++)
            cut.pixels.push_back(screen.at(x, y));
    return cut;
}

void shot(window w, const std::string &path)
{
    drivemove(2, 2);
    Sleep(150);
    drivesave(framed(w), path);
}

#include "tests/app/screen/searchhands.h"

#include "app/buttons.h"
#include "app/mainwindow.h"
#include "base/chars.h"
#include "desktop/windows.h"
#include "dict/dictset.h"
#include "find/solutions.h"
#include "find/solutionsview.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridshape.h"
#include "grid/gridwindow.h"
#include "resources/identifiers.h"
#include "tests/app/screen/dictionaryhands.h"
#include "tests/app/screen/gridhands.h"
#include "tests/app/screen/screen.h"

#include <doctest/doctest.h>
#include <windows.h>

namespace
{

HWND handle(window w)
{
    return reinterpret_cast<HWND>(w);
}

// Where Stop is, once it is to be seen there: its bar comes in while the search
// begins.
driveplace stopplace()
{
    driveplace at = {};
    auto seen = [&] {
        at = driveicon(buttonwindow, BARSTOP);
        return WindowFromPoint({at.x, at.y}) == handle(drivecontrol(buttonwindow, BARSTOP));
    };
    drivewait(seen);
    return at;
}

// What a row of the list says.
std::string row(int32_t at)
{
    if (grid.kind == GRIDWORDSQUARE) return solword(at)->text;
    std::string text;
    for (int32_t slot = 0; slot < solutions.slotcount; slot++)
        text += (slot ? " " : "") + std::string(wordtext(solref(at, slot)));
    return text;
}

} // namespace

void crosswordbegin(const std::string &picture)
{
    dictionariesbegin({{"words", WORDS}});
    REQUIRE_FALSE(dictuse(0));
    documentbegin(picture);
}

void squarebegin(int32_t size)
{
    screenstart();
    dictionariesbegin({{"words", WORDS}});
    REQUIRE_FALSE(dictuse(0));
    gridsetkind(GRIDWORDSQUARE);
    gridsize(size, size);
    drivepump();
}

void markdrag(int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    drivedrag({cellplace(left, top), cellplace(right, top), cellplace(right, bottom)});
}

void barpress(int control)
{
    driveiconclick(buttonwindow, control);
}

void bartype(int field, const std::string &text)
{
    barpress(field);
    drivetype(text);
}

void searchrun(int control, const std::function<void()> &script)
{
    bool begun = !script, ended = true;
    auto work = [&] {
        barpress(control);
        drivepump(250);
    };
    driveaside(work, [&] {
        if (!script) return;
        begun = drivewait([] { return barsolving(); });
        if (begun) script();
        ended = drivewait([] { return !barsolving(); }, 20000);
        if (!ended) stoprequest(); // or this run would never end
    });
    CHECK(begun);
    CHECK(ended);
    drivewait([] { return !searchunderway(); }, 20000);
    drivepump();
    CHECK_FALSE(barsolving());
}

void stoppress()
{
    Sleep(50);
    driveplace at = stopplace();
    driveclick(at.x, at.y);
}

std::string stopandread(bool escape)
{
    if (escape)
        drivekey(VK_ESCAPE);
    else
        stoppress();
    window box = drivewaitwindow("", "#32770");
    Sleep(100);
    std::string said = drivetext(box, 0xFFFF);
    PostMessageA(handle(box), WM_COMMAND, IDCANCEL, 0);
    drivewait([] { return !drivefind("", "#32770"); });
    return said;
}

list listrows()
{
    list all;
    for (int32_t i = 0; i < solutions.count; i++)
        all.push_back(row(i));
    return all;
}

driveplace rowplace(int32_t at)
{
    windowstaterecord state;
    REQUIRE_FALSE(windowstate(solutionswindow, &state));
    return driveclient(
        solutionswindow, 12,
        ostodevy(at * solutions.rowheight + solutions.rowheight / 2 + state.yscroll));
}

void rowclick(int32_t at, drivebutton button, int held)
{
    driveplace place = rowplace(at);
    drivemove(place.x, place.y);
    driveclick(place.x, place.y, button, held);
    drivemove(2, 2);
}

bool wordplaced(const wsentry &entry)
{
    for (int i = 0; entry.text[i]; i++) {
        int32_t x = entry.x + i * entry.dx, y = entry.y + i * entry.dy;
        if (!gridinside(x, y) ||
            grid.letters[x][y] != charlower(static_cast<uint8_t>(entry.text[i])))
            return false;
    }
    return true;
}

bool shownprogress(const std::string &text)
{
    int n = text.empty() ? 0 : std::stoi(text);
    return n == 1 || (n <= 100 && n % 10 == 0) || (n > 100 && (n - 10) % 100 == 0);
}

bool repaints(window w)
{
    drivepicture before = drivelook(w);
    HDC dc = GetDC(handle(w));
    RECT all = {0, 0, before.width, before.height};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(DKGRAY_BRUSH)));
    ReleaseDC(handle(w), dc);
    GdiFlush();
    bool covered = drivewait([&] { return differences(drivelook(w), before) > 1000; });
    InvalidateRect(handle(w), nullptr, TRUE);
    return covered && drivewait([&] { return differences(drivelook(w), before) < 200; });
}

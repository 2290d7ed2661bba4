#include "tests/app/screen/gridhands.h"

#include "app/mainwindow.h"
#include "desktop/windows.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridpicture.h"
#include "grid/gridview.h"
#include "grid/gridwindow.h"
#include "tests/app/screen/screen.h"

#include <doctest/doctest.h>
#include <windows.h>

void documentread(const std::string &picture)
{
    REQUIRE_FALSE(picturetextread(picture.data(), static_cast<int32_t>(picture.size())));
    gridunchanged();
    settitlefromgrid();
    drivepump();
}

void documentbegin(const std::string &picture)
{
    screenstart();
    REQUIRE_FALSE(scrollto(gridwindow, 0, 0));
    documentread(picture);
}

std::string documentpicture()
{
    std::string text;
    picturetextwrite(&text);
    return text;
}

driveplace cellplace(int32_t x, int32_t y)
{
    return driveclient(gridwindow, ostodevx(x * grid.cellwidth + grid.cellwidth / 2),
                       ostodevy(y * grid.cellheight + grid.cellheight / 2));
}

void cellclick(int32_t x, int32_t y)
{
    driveplace at = cellplace(x, y);
    driveclick(at.x, at.y);
}

int differences(const drivepicture &a, const drivepicture &b)
{
    if (a.width != b.width || a.height != b.height) return static_cast<int>(a.pixels.size());
    int count = 0;
    for (size_t i = 0; i < a.pixels.size(); i++)
        count += a.pixels[i] != b.pixels[i];
    return count;
}

int undrawn()
{
    drivemove(2, 2); // the pointer is in no picture
    drivepicture before = drivelook(mainwindow);
    RedrawWindow(reinterpret_cast<HWND>(mainwindow), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    drivepump();
    return differences(before, drivelook(mainwindow));
}

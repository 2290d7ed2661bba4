#include "desktop/wdata.h"
#include "desktop/win32/windowgeometry.h"
#include "desktop/windowinternal.h"
#include "graphics/colours.h"
#include "graphics/palette.h"

#include <windows.h>

constexpr uint32_t BACKGROUNDSYSTEM = 0, BACKGROUNDNONE = 255;

bool backgrounderase(window w, intptr_t context)
{
    const wdata *data = wdatafind(w);
    uint32_t kind = data ? data->background & 0xFF : BACKGROUNDSYSTEM;
    if (kind == BACKGROUNDSYSTEM) return false;
    if (kind == BACKGROUNDNONE) return true;
    HDC dc = reinterpret_cast<HDC>(context);
    RECT box;
    if (GetClipBox(dc, &box) == NULLREGION) return true;
    paletteselect(context);
    HBRUSH brush = CreateSolidBrush(colourcodevalue(data->background));
    FillRect(dc, &box, brush);
    DeleteObject(brush);
    return true;
}

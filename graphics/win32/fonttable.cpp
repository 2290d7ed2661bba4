#include "graphics/cmap.h"

#include <windows.h>

int32_t fonttable(intptr_t dc, uint32_t tag, uint32_t offset, void *out, int32_t size)
{
    // Asked for no bytes the system would tell the table's size instead.
    if (size <= 0) return 0;
    DWORD had = GetFontData(reinterpret_cast<HDC>(dc), tag, offset, out, static_cast<DWORD>(size));
    return had == GDI_ERROR ? 0 : static_cast<int32_t>(had);
}

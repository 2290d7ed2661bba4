#include "graphics/colours.h"

#include "graphics/palette.h"
#include "graphics/win32/surfacecontext.h"

#include <windows.h>

uint32_t systemcolour(int32_t number)
{
    return GetSysColor(number);
}

errorblock *setcolourvalue(uint32_t colorref)
{
    modeinfo.currentcolour = colorref;
    surfacesetbrush(reinterpret_cast<intptr_t>(CreateSolidBrush(colorref)));
    surfacesetpen(reinterpret_cast<intptr_t>(CreatePen(PS_SOLID, 0, colorref)));
    return nullptr;
}

errorblock *setcolourmode(uint32_t word, int32_t mode)
{
    SetROP2(surfacecontext(), mode == COLOURXOR ? R2_XORPEN : R2_COPYPEN);
    return setcolourvalue(word >> 8);
}

errorblock *setcolour(uint32_t word)
{
    return setcolourmode(word, 0);
}

errorblock *setcolourstore(uint32_t word, int32_t mode, uint32_t *store)
{
    *store = word;
    return setcolourmode(word, mode);
}

errorblock *setcolourinverse(uint32_t word)
{
    return setcolour(colourinverse(word));
}

errorblock *setcolourcode(uint32_t code)
{
    return setcolourvalue(colourcodevalue(code));
}

errorblock *setgcol(uint32_t code)
{
    uint32_t word = modeinfo.desktopcolours[code & 15], action = code >> 4 & 7;
    if (!(code & 0x80)) return setcolourmode(word, action == 3 ? COLOURXOR : 0);
    bool transparent = action == 7;
    SetBkMode(surfacecontext(), transparent ? TRANSPARENT : OPAQUE);
    if (!transparent) SetBkColor(surfacecontext(), word >> 8);
    return nullptr;
}

// An index of the device's palette means that very entry only while the
// identity palette is selected.
static errorblock *setxor(uint32_t value)
{
    SetROP2(surfacecontext(), R2_XORPEN);
    bool index = modeinfo.bpp <= 8 && modeinfo.palettedevice;
    if (index) paletteidentity(currentsurface->dc);
    errorblock *err = setcolourvalue(value);
    if (index) paletteselect(currentsurface->dc);
    return err;
}

errorblock *xorcolours(int32_t a, int32_t b)
{
    return setxor(xorvalue(a, b));
}

errorblock *xorcolourword(uint32_t word, int32_t b)
{
    return setxor(xorvalueword(word, b));
}

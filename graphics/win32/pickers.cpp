#include "graphics/pickers.h"

#include "base/fontrecord.h"
#include "base/numbers.h"
#include "base/text.h"
#include "graphics/fontsize.h"
#include "graphics/modeinfo.h"
#include "graphics/win32/windowhandle.h"

#include <windows.h>

#include <commdlg.h>

errorblock *choosecolour(intptr_t window, int32_t, uint32_t *word, int32_t *result)
{
    static COLORREF custom[16]; // the user's own, for the run
    CHOOSECOLORA choice = {};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = systemwindow(window);
    choice.rgbResult = *word >> 8;
    choice.lpCustColors = custom;
    choice.Flags = CC_RGBINIT | CC_ANYCOLOR;
    *result = ChooseColorA(&choice) ? 1 : 0;
    if (*result) *word = choice.rgbResult << 8;
    return nullptr;
}

static LOGFONTA logfontof(const fontrecord &font)
{
    LOGFONTA logical = {};
    logical.lfHeight = -muldiv(font.height, modeinfo.ydpi, FONTUNITS);
    logical.lfCharSet = static_cast<BYTE>(font.charset);
    logical.lfWeight = font.weight;
    logical.lfItalic = font.italic ? 1 : 0;
    strcopyn(logical.lfFaceName, font.face, sizeof logical.lfFaceName);
    return logical;
}

static void fontback(const LOGFONTA &logical, fontrecord *font)
{
    font->height = muldiv(-logical.lfHeight, FONTUNITS, modeinfo.ydpi);
    font->width = 0;
    font->charset = logical.lfCharSet;
    font->weight = logical.lfWeight;
    font->italic = logical.lfItalic ? 1 : 0;
    strcopyn(font->face, logical.lfFaceName, sizeof font->face);
}

errorblock *choosefont(intptr_t window, int32_t, fontrecord *font, int32_t *result)
{
    LOGFONTA logical = logfontof(*font);
    CHOOSEFONTA choice = {};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = systemwindow(window);
    choice.lpLogFont = &logical;
    choice.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT;
    *result = ChooseFontA(&choice) ? 1 : 0;
    if (*result) fontback(logical, font);
    return nullptr;
}

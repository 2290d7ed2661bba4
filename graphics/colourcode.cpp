// Colour codes: words whose low byte says what stands above it.

#include "graphics/colours.h"

constexpr uint32_t CODELITERAL = 1, CODEDESKTOP = 2, CODESYSTEM = 18, CODENONE = 255;

uint32_t colourcodevalue(uint32_t code)
{
    uint32_t form = code & 255;
    if (form < CODELITERAL || form >= CODENONE) return COLOURNONE;
    if (form == CODELITERAL) return code >> 8;
    if (form < CODESYSTEM) return modeinfo.desktopcolours[form - CODEDESKTOP] >> 8;
    return systemcolour(static_cast<int32_t>(form - CODESYSTEM));
}

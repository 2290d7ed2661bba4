#include "graphics/textmeasure.h"

#include "base/errors.h"
#include "graphics/fonts.h"
#include "graphics/win32/textcontext.h"

#include <algorithm>

namespace
{

// The measuring surface may be that of a redraw: what is selected there comes
// back, and its surface never learns of the font.
struct measuring {
    fonthandle font;
    HGDIOBJ displaced;
};

errorblock *measureopen(const fontrecord *record, measuring *measure)
{
    errorblock *err = surfaceopen(false);
    if (err) return err;
    fontfind(record, &measure->font);
    measure->displaced = SelectObject(textcontext(), reinterpret_cast<HGDIOBJ>(measure->font));
    return nullptr;
}

void measureclose(const measuring &measure)
{
    if (measure.displaced) SelectObject(textcontext(), measure.displaced);
    fontlose(measure.font);
    surfaceclose();
}

int32_t largestadvance()
{
    // The last of the characters asked for is not looked at.
    constexpr UINT first = 32, last = 255;
    INT advances[last - first + 1] = {};
    GetCharWidthA(textcontext(), first, last, advances);
    return *std::max_element(advances, advances + (last - first));
}

// Without pairs the room is none, and the answer the number there are.
DWORD roomof(const kerningpair *pairs, int32_t count)
{
    return pairs && count > 0 ? static_cast<DWORD>(count) : 0;
}

static_assert(sizeof(KERNINGPAIR) == sizeof(kerningpair));

KERNINGPAIR *systempairs(kerningpair *pairs)
{
    return reinterpret_cast<KERNINGPAIR *>(pairs);
}

} // namespace

errorblock *fontinfo(const fontrecord *record, fontmetrics *metrics)
{
    measuring measure;
    *metrics = {};
    errorblock *err = measureopen(record, &measure);
    if (err) return err;
    err = fontmetricsget(metrics);
    measureclose(measure);
    return err;
}

errorblock *fontmetricsget(fontmetrics *metrics)
{
    TEXTMETRICA system = {};
    if (!GetTextMetricsA(textcontext(), &system)) system = {};
    *metrics = {.ascent = system.tmAscent,
                .descent = system.tmDescent,
                .height = system.tmHeight,
                .internalleading = system.tmInternalLeading,
                .externalleading = system.tmExternalLeading,
                .maxwidth = system.tmMaxCharWidth,
                .averagewidth = system.tmAveCharWidth};
    return nullptr;
}

errorblock *fontmaxwidth(const fontrecord *record, int32_t *width)
{
    measuring measure;
    *width = 0;
    errorblock *err = measureopen(record, &measure);
    if (err) return err;
    *width = largestadvance();
    measureclose(measure);
    return nullptr;
}

errorblock *fontkerning(kerningpair *pairs, int32_t *count)
{
    DWORD had = GetKerningPairsA(textcontext(), roomof(pairs, *count), systempairs(pairs));
    *count = static_cast<int32_t>(had);
    return nullptr;
}

errorblock *fontkerningw(kerningpair *pairs, int32_t *count)
{
    DWORD had = GetKerningPairsW(textcontext(), roomof(pairs, *count), systempairs(pairs));
    *count = static_cast<int32_t>(had);
    return nullptr;
}

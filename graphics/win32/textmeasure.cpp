#include "graphics/textmeasure.h"

#include "base/errors.h"
#include "base/flex.h"
#include "graphics/win32/textcontext.h"

#include <algorithm>

namespace
{

// Fits a text on the system's own terms. partial holds the width up to the end
// of each character that fits; it may be 0.
void systemfit(const textspan *span, int32_t length, int32_t *partial, int32_t *fitted, SIZE *size)
{
    INT fits = 0;
    *size = {};
    GetTextExtentExPointA(textcontext(), span->text, length, span->width, &fits,
                          reinterpret_cast<INT *>(partial), size);
    *fitted = fits;
}

void fitwhole(textspan *span, int32_t *partial)
{
    SIZE size;
    systemfit(span, spanlength(span), partial, &span->length, &size);
    span->width = size.cx;
    span->height = size.cy;
}

// Takes what the system placed of count characters. Not every system says how
// many fit, or stops at what does, so the widths decide.
void placed(bool good, const GCP_RESULTSA &results, int32_t count, const int32_t *widths,
            uint32_t flags, int32_t *width, int32_t *length)
{
    int32_t limit = flags & PLACEFIT ? *width : -1;
    int32_t fitted = std::min(results.nMaxFit, count);
    if (!good || (flags & PLACEFIT && limit < 1)) fitted = 0;
    *length = textsum(widths, fitted, limit, width);
}

DWORD placeflags(uint32_t flags)
{
    return (flags & PLACEKERNED ? GCP_USEKERNING : 0) | (flags & PLACEFIT ? GCP_MAXEXTENT : 0);
}

} // namespace

errorblock *textfit(textspan *span)
{
    if (span->split < 0) {
        fitwhole(span, nullptr);
        return nullptr;
    }
    flexptr partial = nullptr;
    int32_t length = spanlength(span), fitted;
    SIZE size;
    errorblock *err = flex_alloc(&partial, length * static_cast<int32_t>(sizeof(int32_t)));
    if (err) return err;
    systemfit(span, length, static_cast<int32_t *>(partial), &fitted, &size);
    span->width = size.cx;
    if (fitted < length) {
        fitted = textcut(span->text, fitted, span->split);
        span->width = fitted ? static_cast<int32_t *>(partial)[fitted - 1] : 0;
    }
    span->length = fitted;
    span->height = size.cy;
    return flex_free(&partial);
}

errorblock *textfitdx(textspan *span, int32_t *widths)
{
    fitwhole(span, widths);
    return nullptr;
}

errorblock *textplace(textspan *span, int32_t *widths, uint32_t flags)
{
    int32_t count = spanlength(span);
    GCP_RESULTSA results = {};
    results.lStructSize = sizeof results;
    results.lpDx = reinterpret_cast<INT *>(widths);
    results.nGlyphs = static_cast<UINT>(count);
    results.nMaxFit = count;
    DWORD good = GetCharacterPlacementA(textcontext(), span->text, count, span->width, &results,
                                        placeflags(flags));
    placed(good != 0, results, count, widths, flags, &span->width, &span->length);
    span->height = 0;
    return nullptr;
}

errorblock *textplacew(textspanw *span, int32_t *widths, uint32_t flags)
{
    int32_t count = spanlengthw(span);
    GCP_RESULTSW wide = {};
    GCP_RESULTSA results = {};
    wide.lStructSize = sizeof wide;
    wide.lpDx = reinterpret_cast<INT *>(widths);
    wide.nGlyphs = static_cast<UINT>(count);
    wide.nMaxFit = count;
    DWORD good = GetCharacterPlacementW(textcontext(), widetext(span->text), count, span->width,
                                        &wide, placeflags(flags));
    results.nMaxFit = wide.nMaxFit;
    placed(good != 0, results, count, widths, flags, &span->width, &span->length);
    span->height = 0;
    return nullptr;
}

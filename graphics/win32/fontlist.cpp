#include "graphics/fontlist.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/text.h"
#include "graphics/win32/textcontext.h"

namespace
{

// What the walk carries through the system's call, and its result.
struct fontwalk {
    fontcallback callback;
    intptr_t argument;
    errorblock *result;
};

constexpr DWORD OPENTYPEFLAGS = NTM_PS_OPENTYPE | NTM_TT_OPENTYPE;

int32_t kindof(DWORD flags, DWORD type)
{
    if (flags & OPENTYPEFLAGS) return FONTOPENTYPE;
    return flags & NTM_TYPE1 || type & DEVICE_FONTTYPE ? FONTDEVICE : FONTTRUETYPE;
}

fontsummary summaryof(const TEXTMETRICA *metrics, DWORD type)
{
    // Only outline fonts come with the longer record, which begins like this.
    NEWTEXTMETRICA outline = {};
    if (type & TRUETYPE_FONTTYPE) outline = *reinterpret_cast<const NEWTEXTMETRICA *>(metrics);
    return {.weight = metrics->tmWeight,
            .italic = metrics->tmItalic != 0,
            .emsize = static_cast<int32_t>(outline.ntmSizeEM),
            .cellheight = static_cast<int32_t>(outline.ntmCellHeight),
            .averagewidth = static_cast<int32_t>(outline.ntmAvgWidth),
            .charset = metrics->tmCharSet,
            .pitchbit = metrics->tmPitchAndFamily & TMPF_FIXED_PITCH,
            .family = metrics->tmPitchAndFamily >> 4,
            .kind = kindof(outline.ntmFlags, type),
            .bold = (outline.ntmFlags & NTM_BOLD) != 0,
            .regular = (outline.ntmFlags & NTM_REGULAR) != 0};
}

int CALLBACK fontmet(const LOGFONTA *font, const TEXTMETRICA *metrics, DWORD type, LPARAM argument)
{
    fontwalk *walk = reinterpret_cast<fontwalk *>(argument);
    if (!(type & (TRUETYPE_FONTTYPE | DEVICE_FONTTYPE))) return 1;
    const auto *names = reinterpret_cast<const ENUMLOGFONTEXA *>(font);
    fontsummary summary = summaryof(metrics, type);
    walk->result =
        walk->callback(font->lfFaceName, reinterpret_cast<const char *>(names->elfFullName),
                       &summary, walk->argument);
    return !walk->result;
}

errorblock *notefound(const char *, const char *, const fontsummary *, intptr_t found)
{
    *reinterpret_cast<int32_t *>(found) = 1;
    return nullptr;
}

using rangescall = DWORD(WINAPI *)(HDC, GLYPHSET *);
using glyphscall = DWORD(WINAPI *)(HDC, const wchar_t *, int, WORD *, DWORD);

// A call that not every system has; 0 where it isn't.
void *systemcall(const char *name)
{
    HMODULE library = GetModuleHandleA("GDI32");
    return library ? reinterpret_cast<void *>(GetProcAddress(library, name)) : nullptr;
}

errorblock *rangesconvert(const GLYPHSET *set, unicoderange **list, int32_t *count)
{
    void *memory;
    int32_t most = static_cast<int32_t>(set->cRanges);
    errorblock *err = heap_alloc(&memory, (most + 1) * static_cast<int32_t>(sizeof(unicoderange)));
    if (err) return err;
    *list = static_cast<unicoderange *>(memory);
    *count = most;
    for (int32_t i = 0; i < most; i++)
        (*list)[i] = {set->ranges[i].wcLow, set->ranges[i].cGlyphs};
    return nullptr;
}

errorblock *systemranges(HDC dc, rangescall ranges, unicoderange **list, int32_t *count)
{
    void *set;
    DWORD size = ranges(dc, nullptr);
    errorblock *err = heap_alloc(&set, static_cast<int32_t>(size));
    if (err) return err;
    // A font that can't be asked leaves the zeros of an empty set.
    if (size) ranges(dc, static_cast<GLYPHSET *>(set));
    GLYPHSET none = {};
    err = rangesconvert(size ? static_cast<GLYPHSET *>(set) : &none, list, count);
    heap_free(&set);
    return err;
}

} // namespace

errorblock *fontlist(const fontrecord *record, fontcallback callback, intptr_t argument)
{
    LOGFONTA want = {};
    fontwalk walk = {callback, argument, nullptr};
    want.lfCharSet = static_cast<BYTE>(record->charset);
    strcopyn(want.lfFaceName, record->face, LF_FACESIZE);
    errorblock *err = surfaceopen(false);
    if (err) return err;
    EnumFontFamiliesExA(textcontext(), &want, fontmet, reinterpret_cast<LPARAM>(&walk), 0);
    surfaceclose();
    return walk.result;
}

errorblock *fontexists(const char *name, int32_t *result)
{
    fontrecord record = {};
    record.charset = DEFAULT_CHARSET;
    *result = 0;
    strcopyn(record.face, name, sizeof record.face);
    return fontlist(&record, notefound, reinterpret_cast<intptr_t>(result));
}

errorblock *fontranges(surface *s, unicoderange **list, int32_t *count)
{
    auto ranges = reinterpret_cast<rangescall>(systemcall("GetFontUnicodeRanges"));
    *list = nullptr;
    *count = 0;
    return ranges ? systemranges(textcontext(s), ranges, list, count)
                  : cmapranges(s->dc, list, count);
}

errorblock *fontglyphs(surface *s, const char16_t *text, int32_t count, uint16_t *indices)
{
    auto glyphs = reinterpret_cast<glyphscall>(systemcall("GetGlyphIndicesW"));
    if (glyphs) glyphs(textcontext(s), widetext(text), count, indices, GGI_MARK_NONEXISTING_GLYPHS);
    return nullptr;
}

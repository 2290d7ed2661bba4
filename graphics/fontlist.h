// graphics/fontlist.h - which fonts there are, and which characters they have.
#pragma once

#include "base/fontrecord.h"
#include "graphics/cmap.h"

#include <cstdint>

struct errorblock;
struct surface;

struct fontsummary {
    int32_t weight; // 400 normal
    int32_t italic;
    int32_t emsize, cellheight, averagewidth; // in the font's own units
    int32_t charset;
    int32_t pitchbit; // 1 for variable pitch, as the system has it
    int32_t family;   // as fontfindall takes it
    int32_t kind;     // FONTTRUETYPE and so on
    int32_t bold, regular;
};
constexpr int32_t FONTTRUETYPE = 1, FONTOPENTYPE = 2, FONTDEVICE = 3; // the last Type 1 too

// Called for each font with its face, its full name and the argument of
// fontlist. What isn't 0 ends the walk.
using fontcallback = errorblock *(*)(const char *face, const char *full, const fontsummary *summary,
                                     intptr_t argument);

// Walks the outline and device fonts of the record's charset and, unless that
// is empty, of its face. The result is the callback's, or an error of the
// measuring surface.
errorblock *fontlist(const fontrecord *record, fontcallback callback, intptr_t argument);

// 1 if there is a font of this name, else 0.
errorblock *fontexists(const char *name, int32_t *result);

// The characters of the font selected on a surface, as cmapranges has them; by
// the system's own call where it has one.
errorblock *fontranges(surface *s, unicoderange **list, int32_t *count);

// The glyphs of a text in that font, 0xFFFF for what it lacks. On a system
// without the call nothing is written.
errorblock *fontglyphs(surface *s, const char16_t *text, int32_t count, uint16_t *indices);

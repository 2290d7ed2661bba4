#include "graphics/fontlist.h"

#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

errorblock *note(const char *face, const char *full, const fontsummary *summary, intptr_t list)
{
    CHECK((std::string(face) == "Arial" && *full));
    reinterpret_cast<std::vector<fontsummary> *>(list)->push_back(*summary);
    return nullptr;
}

} // namespace

TEST_CASE("the fonts of a face")
{
    std::vector<fontsummary> fonts;
    fontrecord record = arial(0);
    record.charset = 1; // any
    CHECK_FALSE(fontlist(&record, note, reinterpret_cast<intptr_t>(&fonts)));
    CHECK(currentsurface == nullptr);
    int regular = 0, bold = 0, italic = 0;
    for (const fontsummary &f : fonts) {
        CHECK((f.emsize == 2048 && f.cellheight > 2048 && f.pitchbit == 1 && f.family == 2));
        CHECK((f.weight == 700) == (f.bold == 1));
        CHECK((f.kind == FONTTRUETYPE || f.kind == FONTOPENTYPE));
        regular += f.regular && f.weight == 400 && !f.italic;
        bold += f.bold && !f.italic;
        italic += f.italic == 1;
    }
    CHECK(std::min({regular, bold, italic}) > 0);

    int32_t there = -1;
    CHECK((!fontexists("Arial", &there) && there == 1));
    CHECK((!fontexists("No Such Font of Ours", &there) && there == 0));
}

TEST_CASE("a font's glyphs, by the system and by its own table")
{
    canvas c(10, 10);
    fontshown shown(160);
    constexpr char16_t text[] = u"Az\u00E9\u20AC\u0152\uE000";
    uint16_t glyphs[6] = {};
    REQUIRE_FALSE(fontglyphs(c.drawing, text, 6, glyphs));
    for (int i = 0; i < 5; i++)
        CHECK((glyphs[i] != 0 && cmapglyph(c.drawing->dc, text[i]) == glyphs[i]));
    CHECK((glyphs[5] == 0xFFFF && cmapglyph(c.drawing->dc, text[5]) == 0));
}

#include "graphics/fontlist.h"

#include "base/flex.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace
{

struct fontmet {
    std::string face;
    fontsummary summary;
};

errorblock *note(const char *face, const char *full, const fontsummary *summary, intptr_t list)
{
    CHECK(*full);
    reinterpret_cast<std::vector<fontmet> *>(list)->push_back({face, *summary});
    return nullptr;
}

errorblock *notefirst(const char *face, const char *full, const fontsummary *summary, intptr_t list)
{
    note(face, full, summary, list);
    return makeerrortext(77, "enough");
}

// The characters of a list, which is freed.
std::set<uint32_t> charactersof(unicoderange *list, int32_t count)
{
    std::set<uint32_t> all;
    REQUIRE(list);
    for (int32_t n = 0; n < count; n++)
        for (uint32_t i = 0; i < list[n].count; i++)
            all.insert(list[n].first + i);
    CHECK(list[count].count == 0);
    void *memory = list;
    heap_free(&memory);
    return all;
}

} // namespace

TEST_CASE("the fonts of a face, of all faces, by charset and ended early")
{
    std::vector<fontmet> fonts, western, first;
    fontrecord record = arial(0);
    record.charset = 1; // any
    CHECK_FALSE(fontlist(&record, note, reinterpret_cast<intptr_t>(&fonts)));
    CHECK(currentsurface == nullptr);
    int regular = 0, bold = 0, italic = 0;
    for (const fontmet &f : fonts) {
        CHECK(f.face == "Arial");
        CHECK(f.summary.emsize == 2048);
        CHECK(f.summary.cellheight > 2048);
        CHECK(f.summary.averagewidth > 0);
        CHECK(f.summary.pitchbit == 1);
        CHECK(f.summary.family == 2);
        CHECK((f.summary.weight == 700) == (f.summary.bold == 1));
        CHECK((f.summary.kind == FONTTRUETYPE || f.summary.kind == FONTOPENTYPE));
        regular += f.summary.regular && f.summary.weight == 400 && !f.summary.italic;
        bold += f.summary.bold && !f.summary.italic;
        italic += f.summary.italic == 1;
    }
    CHECK(std::min({regular, bold, italic}) > 0);

    record = {};
    CHECK_FALSE(fontlist(&record, note, reinterpret_cast<intptr_t>(&western)));
    CHECK_FALSE(western.empty());
    for (const fontmet &f : western)
        CHECK(f.summary.charset == 0);
    CHECK(codeof(fontlist(&record, notefirst, reinterpret_cast<intptr_t>(&first))) == 77);
    flexfailafter(0);
    CHECK(codeof(fontlist(&record, note, reinterpret_cast<intptr_t>(&first))) == ERRORMEMORY);
    CHECK(first.size() == 1);
    int32_t there = -1;
    CHECK_FALSE(fontexists("Arial", &there));
    CHECK(there == 1);
    CHECK_FALSE(fontexists("No Such Font of Ours", &there));
    CHECK(there == 0);
}

TEST_CASE("a font's characters and glyphs, by the system and by its own table")
{
    canvas c(10, 10);
    fontshown shown(160);
    unicoderange *list;
    int32_t count;
    REQUIRE_FALSE(fontranges(c.drawing, &list, &count));
    const std::set<uint32_t> system = charactersof(list, count);
    REQUIRE_FALSE(cmapranges(c.drawing->dc, &list, &count));
    const std::set<uint32_t> own = charactersof(list, count);
    const bool alike = own == system;
    CHECK(alike);
    CHECK(own.contains(0x20AC));
    CHECK(cmapcount(c.drawing->dc) > 500);
    for (int n = 0; n < 2; n++) {
        flexfailafter(n);
        CHECK(fontranges(c.drawing, &list, &count));
        CHECK(list == nullptr);
        CHECK(count == 0);
    }
    constexpr char16_t text[] = u"Az\u00E9\u20AC\u0152\uE000";
    uint16_t glyphs[7] = {1, 1, 1, 1, 1, 1, 1};
    REQUIRE_FALSE(fontglyphs(c.drawing, text, 6, glyphs));
    for (int i = 0; i < 5; i++)
        CHECK(cmapglyph(c.drawing->dc, text[i]) == glyphs[i]);
    CHECK(glyphs[0] != 0);
    CHECK(glyphs[5] == 0xFFFF);
    CHECK(cmapglyph(c.drawing->dc, text[5]) == 0);
    CHECK(glyphs[6] == 1);
}

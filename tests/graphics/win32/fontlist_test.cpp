#include "graphics/fontlist.h"

#include "base/flex.h"
#include "graphics/fonts.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/graphics/win32/fonttools.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace
{

struct fontmet {
    std::string face, full;
    fontsummary summary;
};

errorblock *note(const char *face, const char *full, const fontsummary *summary, intptr_t list)
{
    reinterpret_cast<std::vector<fontmet> *>(list)->push_back({face, full, *summary});
    return nullptr;
}

errorblock *notefirst(const char *face, const char *full, const fontsummary *summary, intptr_t list)
{
    note(face, full, summary, list);
    return makeerrortext(77, "enough");
}

std::vector<fontmet> fontsof(const char *face)
{
    std::vector<fontmet> list;
    fontrecord record = {};
    record.charset = DEFAULT_CHARSET;
    std::strcpy(record.face, face);
    CHECK_FALSE(fontlist(&record, note, reinterpret_cast<intptr_t>(&list)));
    CHECK(currentsurface == nullptr);
    return list;
}

using codes = std::vector<bool>;

// The characters of a list, which is freed.
codes charactersof(unicoderange *list, int32_t count)
{
    codes all(0x10000);
    REQUIRE(list);
    int32_t n = 0;
    for (; list[n].first || list[n].count; n++)
        for (uint32_t i = 0; i < list[n].count; i++)
            all.at(list[n].first + i) = true;
    CHECK(n == count);
    void *memory = list;
    heap_free(&memory);
    return all;
}

} // namespace

TEST_CASE("the fonts of a face")
{
    auto fonts = fontsof("Arial");
    REQUIRE_FALSE(fonts.empty());
    int regular = 0, bold = 0, italic = 0;
    for (const fontmet &f : fonts) {
        CHECK(f.face == "Arial");
        CHECK(f.full.size() >= f.face.size()); // it may be another font that stands in
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
    CHECK(regular > 0);
    CHECK(bold > 0);
    CHECK(italic > 0);
}

TEST_CASE("a walk over all fonts, by charset and ended early")
{
    CHECK(fontsof("").size() > fontsof("Arial").size());
    std::vector<fontmet> western, first;
    fontrecord record = {};
    record.charset = ANSI_CHARSET;
    CHECK_FALSE(fontlist(&record, note, reinterpret_cast<intptr_t>(&western)));
    CHECK_FALSE(western.empty());
    for (const fontmet &f : western)
        CHECK(f.summary.charset == ANSI_CHARSET);

    CHECK(codeof(fontlist(&record, notefirst, reinterpret_cast<intptr_t>(&first))) == 77);
    CHECK(first.size() == 1);
    flexfailafter(0);
    CHECK(codeof(fontlist(&record, note, reinterpret_cast<intptr_t>(&first))) == ERRORMEMORY);
    CHECK(first.size() == 1);
}

TEST_CASE("whether a font exists")
{
    int32_t result = -1;
    CHECK_FALSE(fontexists("Arial", &result));
    CHECK(result == 1);
    CHECK_FALSE(fontexists("No Such Font of Ours", &result));
    CHECK(result == 0);
}

TEST_CASE("a font's characters, by the system and by its own table")
{
    canvas c(10, 10);
    fontshown shown(160);
    unicoderange *list;
    int32_t count;
    REQUIRE_FALSE(fontranges(c.drawing, &list, &count));
    codes system = charactersof(list, count);
    REQUIRE_FALSE(cmapranges(c.drawing->dc, &list, &count));
    codes own = charactersof(list, count);
    CHECK(own[u'\u20AC']);
    CHECK_FALSE(own[0xE000]);
    const bool alike = own == system;
    CHECK(alike);
    CHECK(cmapcount(c.drawing->dc) <= std::count(own.begin(), own.end(), true));
    CHECK(cmapcount(c.drawing->dc) > 500);

    for (int n = 0; n < 2; n++) {
        flexfailafter(n);
        CHECK(fontranges(c.drawing, &list, &count));
        CHECK(list == nullptr);
        CHECK(count == 0);
    }
}

TEST_CASE("glyphs, by the system and by the font's own table")
{
    canvas c(10, 10);
    fontshown shown(160);
    constexpr char16_t text[] = u"Az\u00E9\u20AC\u0152\uE000";
    uint16_t glyphs[7] = {1, 1, 1, 1, 1, 1, 1};
    REQUIRE_FALSE(fontglyphs(c.drawing, text, 6, glyphs));
    for (int i = 0; i < 5; i++) {
        CHECK(glyphs[i] != 0);
        CHECK(cmapglyph(c.drawing->dc, text[i]) == glyphs[i]);
    }
    CHECK(glyphs[5] == 0xFFFF);
    CHECK(cmapglyph(c.drawing->dc, text[5]) == 0);
    CHECK(glyphs[6] == 1);
}

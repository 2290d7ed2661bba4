#include "graphics/fontlist.h"

#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>

#include <utility>

TEST_CASE("a font's glyphs, by the system and by its own table, and which fonts there are")
{
    canvas c(10, 10);
    fontshown shown(160);
    constexpr char16_t text[] = u"Az\u00E9\u20AC\u0152\uE000";
    uint16_t glyphs[6] = {};
    REQUIRE_FALSE(fontglyphs(c.drawing, text, 6, glyphs));
    for (int i = 0; i < 5; i++)
        CHECK((glyphs[i] != 0 && cmapglyph(c.drawing->dc, text[i]) == glyphs[i]));
    CHECK((glyphs[5] == 0xFFFF && cmapglyph(c.drawing->dc, text[5]) == 0));
    for (auto [face, there] : {std::pair{"Arial", 1}, {"No Such Font of Ours", 0}}) {
        int32_t found = -1;
        CHECK((!fontexists(face, &found) && found == there));
    }
}

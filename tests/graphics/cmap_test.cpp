#include "base/flex.h"
#include "graphics/cmap.h"
#include "tests/graphics/cmapbytes.h"
#include "tests/graphics/codeof.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

using ranges = std::vector<std::pair<uint32_t, uint32_t>>;

// Latin letters by delta, a block with glyphs of its own and a gap in it, and
// one far up whose glyphs go round at 16 bits.
const std::vector<segmentmade> LETTERS = {
    {65, 90, -60, {}}, {97, 100, 10, {7, 0, 9, 0xFFFF}}, {0x20AC, 0x20AD, 0xE000, {}}};

const std::vector<segmentmade> SYMBOLS = {{0xF020, 0xF041, 0x1000, {}},
                                          {0xF080, 0xF083, 0, {5, 6, 0, 8}}};

void unicodefont(const std::vector<segmentmade> &segments = LETTERS)
{
    cmapbytes = cmapmade({{3, CMAPUNICODE, subtablemade(segments)}});
}

void symbolfont()
{
    cmapbytes = cmapmade({{3, CMAPSYMBOL, subtablemade(SYMBOLS)}});
}

ranges rangesof()
{
    unicoderange *list;
    int32_t count;
    REQUIRE(cmapranges(0, &list, &count) == nullptr);
    REQUIRE(list);
    ranges all;
    for (int32_t i = 0; list[i].first || list[i].count; i++)
        all.emplace_back(list[i].first, list[i].count);
    CHECK(all.size() == static_cast<size_t>(count));
    void *memory = list;
    heap_free(&memory);
    return all;
}

} // namespace

TEST_CASE("a code's glyph by delta, by the glyph array, and none")
{
    unicodefont();
    headless.keeptrace = true;
    CHECK(cmapglyph(0, 'A') == 5);
    CHECK(cmapglyph(0, 'a') == 17);
    CHECK(cmapglyph(0, 'b') == 0); // no glyph of its own: the delta isn't added
    CHECK(cmapglyph(0, 'd') == 9); // 0xFFFF + 10 goes round
    CHECK(cmapglyph(0, 0x20AC) == 0x00AC);
    CHECK(cmapglyph(0, 0xFFFF) == 0);
    CHECK(headless.tracetext.empty());

    CHECK(cmapglyph(0, '@') == 0);
    CHECK(cmapglyph(0, '[') == 0);
    CHECK(cmapglyph(0, 0x80) == 0); // no way round in a Unicode font
    CHECK(headless.tracetext == "ch not in cmap 40\r\nch not in cmap 5b\r\nch not in cmap 80\r\n");
}

TEST_CASE("a symbol font has the code page at 0xF000")
{
    symbolfont();
    headless.keeptrace = true;
    CHECK(cmapglyph(0, 'A') == 0x41);
    CHECK(cmapglyph(0, 0xF041) == 0x41); // its own code too
    CHECK(cmapglyph(0, 0x20AC) == 5);    // byte 128
    CHECK(cmapglyph(0, 0x80) == 5);      // a code below 256 is a byte already
    CHECK(cmapglyph(0, 0x201A) == 0);    // byte 130, glyph 0
    CHECK(headless.tracetext.empty());
    CHECK(cmapglyph(0, 'B') == 0);
    CHECK(cmapglyph(0, 0x3B1) == 0); // no byte
    CHECK(headless.tracetext == "ch not in cmap 42\r\nch not in cmap 3b1\r\n");

    CHECK(codetosymbol(255) == 255);
    CHECK(codetosymbol(0x178) == 159);
    CHECK(codetosymbol(0x100) == -1);
    CHECK(codetosymbol(0xF041) == -1);
}

TEST_CASE("the last subtable of the kind counts")
{
    std::string one = subtablemade({{65, 65, 1, {}}}), two = subtablemade({{65, 65, 2, {}}});
    int32_t required, encoding = -1;
    cmapbytes = cmapmade({{3, 1, one}, {3, 0, two}, {3, 10, one}, {1, 0, one}, {0, 1, one}});
    CHECK(cmapload(0, nullptr, 0, &required, &encoding) == 0);
    CHECK(encoding == CMAPSYMBOL);
    CHECK(cmapglyph(0, 'A') == 67);
    cmapbytes = cmapmade({{3, 0, two}, {3, 1, one}});
    CHECK(cmapglyph(0, 'A') == 66);
    // More records told of than there are: those that are there.
    cmapbytes.replace(2, 2, "\xFF\xFF");
    CHECK(cmapglyph(0, 'A') == 66);
}

TEST_CASE("a subtable is read in two calls")
{
    unicodefont();
    std::string subtable = subtablemade(LETTERS);
    int32_t size = static_cast<int32_t>(subtable.size()), required = -1, encoding = -1;
    std::vector<uint16_t> buffer(subtable.size() / 2, 0xEEEE);
    CHECK(cmapload(0, nullptr, size, &required, nullptr) == 0);
    CHECK(required == size);
    CHECK(cmapload(0, buffer.data(), size - 1, &required, nullptr) == 0);
    CHECK(required == size);
    CHECK(buffer[0] == 0xEEEE);
    CHECK(cmapload(0, buffer.data(), size, &required, &encoding) == 1);
    CHECK(encoding == CMAPUNICODE);
    CHECK(required == size);
    for (size_t i = 0; i < buffer.size(); i++)
        CHECK(bigword(buffer[i]) == subtable.substr(2 * i, 2));
}

TEST_CASE("fonts without a usable subtable")
{
    std::string good = subtablemade(LETTERS);
    auto with = [&](size_t at, int value) {
        std::string bad = good;
        return cmapmade({{3, 1, bad.replace(at, 2, bigword(value))}});
    };
    int arrays = 14 + 2 + 8 * 4;
    std::string outside = cmapmade({{3, 1, good}});
    outside.replace(8, 4, "\xFF\xFF\xFF\xFC");
    struct {
        const char *what;
        std::string bytes;
    } const fonts[] = {
        {"no table", ""},
        {"no records", cmapmade({})},
        {"none of the kind", cmapmade({{1, 0, good}, {3, 10, good}})},
        {"another format", with(0, 12)},
        {"too short for its segments", with(2, arrays - 1)},
        {"too short for its header", with(2, 4)},
        {"too many segments", with(6, 0xFFFE)},
        {"longer than the table", with(2, static_cast<int>(good.size()) + 2)},
        {"outside the table", outside},
    };
    headless.keeptrace = true;
    for (const auto &font : fonts) {
        CAPTURE(font.what);
        cmapbytes = font.bytes;
        headless.tracetext.clear();
        CHECK(cmapglyph(0, 'A') == 0);
        CHECK(headless.tracetext == "no Unicode cmap\r\n");
        CHECK(cmapcount(0) == 0);
        CHECK(rangesof().empty());
        CHECK(headless.tracetext == "no Unicode cmap\r\nno Unicode cmap\r\n");
    }
}

TEST_CASE("how many codes have a glyph, and which")
{
    unicodefont();
    CHECK(cmapcount(0) == 26 + 3 + 2);
    CHECK(rangesof() == ranges{{65, 26}, {97, 4}, {0x20AC, 2}});

    symbolfont();
    CHECK(cmapcount(0) == 34 + 3);
    // Bytes 128 to 131 are the euro, a control character, and two more.
    CHECK(rangesof() == ranges{{0x20, 34},
                               {0x81, 1},
                               {0x192, 1},
                               {0x201A, 1},
                               {0x20AC, 1},
                               {0xF020, 34},
                               {0xF080, 4}});
}

TEST_CASE("segments that overlap or run backwards are met once")
{
    // The first that ends at a code or behind it has it, whether it holds it or not.
    unicodefont(
        {{10, 20, 0, {}}, {15, 30, 100, {}}, {50, 40, 0, {}}, {5, 8, 0, {}}, {35, 45, 0, {}}});
    CHECK(cmapglyph(0, 18) == 18);
    CHECK(cmapglyph(0, 25) == 125);
    CHECK(cmapglyph(0, 38) == 0);
    CHECK(cmapcount(0) == 11 + 10 + 5);
    CHECK(rangesof() == ranges{{10, 11}, {21, 10}, {41, 5}});

    // As many segments as there can be, each over all codes.
    unicodefont(std::vector<segmentmade>(8000, {0, 0xFFFF, 1, {}}));
    CHECK(cmapcount(0) == 0xFFFF); // the last goes round to 0
    CHECK(rangesof() == ranges{{0, 0x10000}});
}

TEST_CASE("glyphs outside the subtable are none")
{
    unicodefont();
    size_t start = 12, arrays = start + 14 + 2 + 3 * 8; // where the range offsets stand
    cmapbytes.replace(arrays + 2, 2, bigword(8));       // one further than its own
    CHECK(cmapglyph(0, 'c') == 9);
    CHECK(cmapglyph(0, 'd') == 0);
    cmapbytes.replace(arrays + 2, 2, bigword(0xFFFF));
    CHECK(cmapglyph(0, 'a') == 0);
}

TEST_CASE("short memory is an error of the ranges, and no glyph")
{
    symbolfont();
    for (int n = 0; n < 2; n++) {
        unicoderange *list;
        int32_t count = 9;
        flexfailafter(n);
        CHECK(codeof(cmapranges(0, &list, &count)) == ERRORMEMORY);
        CHECK(list == nullptr);
        CHECK(count == 0);
    }
    flexfailafter(0);
    CHECK(cmapglyph(0, 'A') == 0);
    CHECK(cmapglyph(0, 'A') == 0x41);
}

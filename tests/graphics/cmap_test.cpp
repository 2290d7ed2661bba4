// Character maps. The fuzz target judges them: it reads the same bytes a second
// way, code by code.
#include "base/flex.h"
#include "graphics/cmap.h"
#include "tests/fuzz/fuzz.h"
#include "tests/graphics/codeof.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

// The table that fonttable gives out from now on.
void fontof(const std::string &bytes)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
    headless.tracetext.clear();
}

std::string corpus(const char *name)
{
    return fuzzread(std::string(CORPUSFOLDER "/cmap/") + name);
}

} // namespace

TEST_CASE("every font of the corpus, with each of its words changed, and cut")
{
    for (const char *name : {"unicode", "symbol", "several", "overlapping", "outside"}) {
        const std::string good = corpus(name);
        fontof(good);
        for (size_t at = 0; at < good.size(); at += 2) {
            std::string damaged = good;
            damaged.replace(at, 2, "\xFF\xFF");
            fontof(damaged);
            damaged.replace(at, 2, {good[at], static_cast<char>(good[at + 1] + 1)});
            fontof(damaged);
            fontof(good.substr(0, at));
        }
    }
}

TEST_CASE("glyphs of letters, and what the trace is told of others")
{
    headless.keeptrace = true;
    fontof(corpus("unicode"));
    CHECK(cmapglyph(0, 'A') == 5);
    CHECK(cmapglyph(0, 'b') == 0); // no glyph of its own: the delta isn't added
    CHECK(cmapglyph(0, 'd') == 9); // 0xFFFF + 10 goes round
    CHECK(cmapglyph(0, 0xFFFF) == 0);
    CHECK(headless.tracetext.empty());
    CHECK(cmapglyph(0, '@') == 0);
    CHECK(cmapglyph(0, 0x80) == 0); // no way round in a Unicode font
    CHECK(headless.tracetext == "ch not in cmap 40\r\nch not in cmap 80\r\n");

    fontof(corpus("symbol"));
    CHECK(cmapglyph(0, 'A') == 0x41);
    CHECK(cmapglyph(0, 0x20AC) == 5); // byte 128
    CHECK(cmapglyph(0, 0x80) == 5);   // a code below 256 is a byte already
    CHECK(cmapglyph(0, 0x201A) == 0); // byte 130, glyph 0
    CHECK(headless.tracetext.empty());
    CHECK(codetosymbol(255) == 255);
    CHECK(codetosymbol(0x178) == 159);
    CHECK(codetosymbol(0x100) == -1);

    fontof("");
    CHECK(cmapglyph(0, 'A') == 0);
    CHECK(headless.tracetext == "no Unicode cmap\r\n");
}

TEST_CASE("short memory is an error of the ranges, and no glyph")
{
    fontof(corpus("symbol"));
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

// Metafiles as they are opened and closed; what they draw is read by others.
#include "base/flex.h"
#include "graphics/colours.h"
#include "graphics/fonts.h"
#include "graphics/metafile.h"
#include "graphics/plot.h"
#include "graphics/surface.h"
#include "graphics/textplot.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace
{

constexpr int32_t DRAWINGWIDTH = 200, DRAWINGHEIGHT = 120; // in OS units and in pixels

std::string path(const char *leaf)
{
    return scratchfolder() + "/" + leaf;
}

// Takes a pen, a brush and a font.
void metadraw()
{
    fonthandle font;
    fontfindsize("Arial", 0, 12 * 16, 0, 0, &font);
    fontset(font, FONTCLEAR, 0, 0);
    setcolour(0x00800000);
    fillbox(20, 20, 21, 21);
    plottext("Quillmere", TEXTOSUNITS, 100, 60);
    fontlose(font);
}

bool exists(const char *leaf)
{
    return std::filesystem::exists(path(leaf));
}

intptr_t opened()
{
    intptr_t dc;
    REQUIRE_FALSE(metaopen(0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc));
    return dc;
}

intptr_t openedenhanced()
{
    intptr_t dc;
    std::string file = path("a.emf");
    REQUIRE_FALSE(metaopenenhanced(file.c_str(), 0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc, "Calendar"));
    return dc;
}

} // namespace

TEST_CASE("an error goes through the close, and nothing is written")
{
    errorblock *error = makeerror(ERRORQUIET);
    CHECK(metaclose(error, opened(), path("a.wmf").c_str()) == error);
    CHECK(metacloseplaceable(error, opened(), path("a.wmf").c_str(), 0, 1, 1, 0, 120) == error);
    CHECK(metacloseenhanced(error, openedenhanced()) == error);
    CHECK((!exists("a.wmf") && !exists("a.emf") && !surfaces));
}

TEST_CASE("what can't be opened or written is an error, and leaves nothing open")
{
    intptr_t dc = 1;
    std::string nowhere = path("no such folder/a");
    errorblock *err = metaopenenhanced(nowhere.c_str(), 0, 9, 9, &dc, "");
    CHECK((err && dc == 0));
    CHECK(metacloseenhanced(err, dc) == err);
    CHECK(metaclose(nullptr, opened(), nowhere.c_str()));
    flexfailafter(0); // the surface
    CHECK(codeof(metaopen(0, 9, 9, &dc)) == ERRORMEMORY);
    dc = opened();
    flexfailafter(0); // the bytes
    CHECK(codeof(metaclose(nullptr, dc, path("short.wmf").c_str())) == ERRORMEMORY);
    CHECK((!exists("short.wmf") && !surfaces));
}

TEST_CASE("metafiles leave no object of the device behind, closed well or with an error")
{
    int before = 0;
    for (int n = 0; n < 30; n++) {
        if (n == 10) before = deviceobjects();
        intptr_t dc = opened();
        metadraw();
        metaclose(nullptr, dc, path("a.wmf").c_str());
        dc = openedenhanced();
        metadraw();
        metacloseenhanced(n & 1 ? makeerror(ERRORQUIET) : nullptr, dc);
    }
    CHECK(deviceobjects() == before);
}

// Metafiles as they are opened and closed; what they draw is read by others.
#include "base/flex.h"
#include "base/paths.h"
#include "graphics/metafile.h"
#include "graphics/surface.h"
#include "tests/graphics/codeof.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace
{

std::string path(const char *leaf)
{
    return scratchfolder() + "/" + leaf;
}

intptr_t opened()
{
    intptr_t dc;
    REQUIRE_FALSE(metaopen(0, 200, 120, &dc));
    return dc;
}

} // namespace

TEST_CASE(
    "an error goes through the close, and nothing is written; nor with one of the close's own")
{
    errorblock *error = makeerror(ERRORQUIET);
    std::string plain = path("a.wmf"), enhanced = path("a.emf");
    CHECK(metaclose(error, opened(), plain.c_str()) == error);
    int before = deviceobjects();
    CHECK(metacloseplaceable(error, opened(), plain.c_str(), 0, 1, 1, 0, 120) == error);
    auto recorded = [](const std::string &to) {
        intptr_t dc;
        CHECK_FALSE(metaopenenhanced(to.c_str(), 0, 200, 120, &dc, "Calendar"));
        return dc;
    };
    CHECK(metacloseenhanced(error, recorded(enhanced)) == error);
    CHECK((!std::filesystem::exists(plain) && !std::filesystem::exists(enhanced) && !surfaces));
    CHECK(deviceobjects() == before);

    // What can't be opened or written leaves nothing open.
    std::string nowhere = path("no such folder/a");
    intptr_t dc;
    errorblock *err = metaopenenhanced(std::string(PATHSIZE, 'x').c_str(), 0, 9, 9, &dc, "");
    CHECK((err && dc == 0));
    CHECK(metacloseenhanced(err, dc) == err);
    for (errorblock *unwritten : {metaclose(nullptr, opened(), nowhere.c_str()),
                                  metacloseenhanced(nullptr, recorded(nowhere))})
        CHECK(std::string(unwritten->text).find("no such folder") != std::string::npos);
    flexfailafter(0); // the surface
    CHECK(codeof(metaopen(0, 9, 9, &dc)) == ERRORMEMORY);
    dc = opened();
    flexfailafter(0); // the bytes
    CHECK(codeof(metaclose(nullptr, dc, path("short.wmf").c_str())) == ERRORMEMORY);
    CHECK((!std::filesystem::exists(path("short.wmf")) && !surfaces));
    CHECK_FALSE(metacloseenhanced(nullptr, recorded(enhanced))); // an older one stays
    auto size = std::filesystem::file_size(enhanced);
    CHECK(metacloseenhanced(error, recorded(enhanced)) == error);
    CHECK(std::filesystem::file_size(enhanced) == size);
}

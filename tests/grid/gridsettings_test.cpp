#include "grid/gridsettings.h"

#include "grid/grid.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

#include <cstring>

namespace
{

gridsettings changed()
{
    gridsettings settings;
    gridsettingsget(&settings);
    settings.textcolour = 0x11000000;
    settings.gridcolour = 0x22000000;
    settings.fillcolour = 0x33000000;
    settings.backcolour = 0x44000000;
    settings.gridfont.height = 256;
    settings.cluefont.italic = 1;
    settings.squarescale = 200;
    settings.minwordlength = 7;
    settings.showsolutions = 0;
    settings.filldirections = 0x81;
    return settings;
}

bool same(const gridsettings &a, const gridsettings &b)
{
    return !memcmp(&a, &b, sizeof a); // which has no padding
}

} // namespace

TEST_CASE("a Wordsquare takes all that is set, as one edit")
{
    grid.kind = GRIDWORDSQUARE;
    gridsettings settings = changed(), after;
    gridsettingsapply(settings);
    gridsettingsget(&after);
    CHECK(same(after, settings));
    CHECK((grid.cellwidth == 80 && grid.cellheight == 80)); // 16 points are 40 units
    CHECK((headless.extents == 1 && headless.redraws == 1 && headless.titles == 1));
    CHECK(grid.changed == 1);
}

TEST_CASE("a Crossword keeps what the making of Wordsquares goes by")
{
    gridsettings before, after, wanted = changed();
    gridsettingsget(&before);
    wanted.minwordlength = before.minwordlength;
    wanted.showsolutions = before.showsolutions;
    wanted.filldirections = before.filldirections;
    gridsettingsapply(changed());
    gridsettingsget(&after);
    CHECK(same(after, wanted));
}

TEST_CASE("numbers outside their range go to its end")
{
    grid.kind = GRIDWORDSQUARE;
    const struct {
        int32_t scale, scaleafter, length, lengthafter;
    } rows[] = {
        {90, 150, 0, 1},    {149, 150, 1, 1},  {150, 150, 12, 12},
        {400, 400, 13, 12}, {401, 400, -5, 1}, {-1, 150, 2000000000, 12},
    };
    for (const auto &row : rows) {
        gridsettings settings = changed();
        settings.squarescale = row.scale;
        settings.minwordlength = row.length;
        gridsettingsapply(settings);
        CHECK(grid.squarescale == row.scaleafter);
        CHECK(grid.minwordlength == row.lengthafter);
    }
}

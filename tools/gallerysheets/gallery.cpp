// gallery FOLDER - draws all that graphics/ can draw, a sheet for each module, to
// be looked at.

#include "base/errors.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/depths.h"
#include "tools/gallerysheets/files.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <cstdio>

namespace
{

struct sheetrow {
    const char *name;
    int32_t width, height;
    errorblock *(*draw)(const page *p);
};
const sheetrow sheets[] = {
    {"scales", 1010, 700, drawscales},    {"boxes", 690, 2050, drawboxes},
    {"shapes", 970, 760, drawshapes},     {"paths", 780, 700, drawpaths},
    {"clips", 740, 640, drawclips},       {"drags", 690, 790, drawdrags},
    {"colours", 1000, 1010, drawcolours}, {"mixes", 800, 940, drawmixes},
    {"aligned", 1000, 940, drawaligned},  {"text", 1100, 1000, drawtext},
    {"measured", 880, 910, drawmeasured}, {"fonts", 1370, 760, drawfonts},
    {"sprites", 1210, 840, drawsprites},  {"transformed", 1320, 960, drawtransformed},
    {"shipped", 1230, 600, drawshipped},
};

errorblock *drawsheet(const sheetrow &row, const std::string &folder)
{
    page p;
    errorblock *err = pageopen(&p, row.width, row.height, OSUNITS);
    if (err) return err;
    err = row.draw(&p);
    if (!err) err = pagesave(&p, folder + "/" + row.name + ".png");
    pageclose(&p);
    if (!err) std::printf("%s\n", row.name);
    return err;
}

errorblock *drawall(const std::string &folder)
{
    depthsfolder = folder;
    errorblock *err = bytessave(folder + "/depths.spr", depthsfile());
    for (const sheetrow &row : sheets)
        if (!err) err = drawsheet(row, folder);
    return err ? err : drawpictures(folder);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: gallery FOLDER\n");
        return 2;
    }
    errorblock *err = modeinfoinit();
    if (!err) err = drawall(argv[1]);
    if (err) {
        std::fprintf(stderr, "gallery: %s\n", err->text);
        return 1;
    }
    modeinfoend();
    std::puts("Gallery drawn");
    return 0;
}

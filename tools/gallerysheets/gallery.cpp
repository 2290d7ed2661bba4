// gallery FOLDER - draws all that graphics/ can draw, a sheet for each module, to
// be looked at; and in FOLDER/drawn the same without what is the system's own, to
// be compared with the pictures that are kept.

#include "base/errors.h"
#include "graphics/modeinfo.h"
#include "graphics/plot.h"
#include "tools/gallerysheets/depths.h"
#include "tools/gallerysheets/files.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace
{

// The scales of a sheet's kept pictures. An OS unit is a pixel on those that look
// at other scales themselves, or that no scale changes; sprites make large files.
const std::vector<int32_t> plain = {OSUNITS}, scaled = {96, 144, 192}, few = {96, OSUNITS};

struct sheetrow {
    const char *name;
    int32_t width, height; // OS units
    const std::vector<int32_t> &kept;
    errorblock *(*draw)(const page *p);
};
const sheetrow sheets[] = {
    {"scales", 1010, 700, plain, drawscales},
    {"boxes", 690, 2410, plain, drawboxes},
    {"shapes", 970, 590, scaled, drawshapes},
    {"curves", 970, 420, scaled, drawcurves},
    {"paths", 780, 700, scaled, drawpaths},
    {"clips", 740, 640, scaled, drawclips},
    {"drags", 690, 790, plain, drawdrags},
    {"colours", 1000, 1010, plain, drawcolours},
    {"mixes", 800, 940, plain, drawmixes},
    {"aligned", 1000, 940, scaled, drawaligned},
    {"text", 1100, 1000, scaled, drawtext},
    {"measured", 880, 910, plain, drawmeasured},
    {"fonts", 1370, 760, scaled, drawfonts},
    {"sprites", 1210, 840, few, drawsprites},
    {"transformed", 1320, 960, few, drawtransformed},
    {"shipped", 1230, 600, plain, drawshipped},
};

errorblock *drawsheet(const sheetrow &row, int32_t scale, const std::string &path)
{
    page p;
    errorblock *err =
        pageopen(&p, row.width * scale / OSUNITS, row.height * scale / OSUNITS, scale);
    if (err) return err;
    err = row.draw(&p);
    if (!err) err = pagesave(&p, path);
    pageclose(&p);
    return err;
}

// Drawn once before, a sheet takes no object of the device that it doesn't give
// back.
errorblock *drawkept(const sheetrow &row, const std::string &folder)
{
    errorblock *err = nullptr;
    int before = deviceobjects();
    forkeeping = true;
    for (int32_t scale : row.kept)
        if (!err)
            err = drawsheet(row, scale, folder + row.name + "-" + std::to_string(scale) + ".png");
    forkeeping = false;
    int lost = deviceobjects() - before;
    if (!err && lost) err = makeerrortext(ERRORREAD, "%s loses %d objects", row.name, lost);
    return err;
}

errorblock *drawall(const std::string &folder)
{
    depthsfolder = folder;
    std::filesystem::remove_all(folder + "/drawn");
    std::filesystem::create_directories(folder + "/drawn");
    errorblock *err = bytessave(folder + "/depths.spr", depthsfile());
    for (const sheetrow &row : sheets) {
        if (!err) err = drawsheet(row, OSUNITS, folder + "/" + row.name + ".png");
        if (!err) err = drawkept(row, folder + "/drawn/");
        if (!err) std::printf("%s\n", row.name);
    }
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

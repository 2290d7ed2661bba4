// metafiles FOLDER - writes one drawing as plain.wmf, placeable.wmf and
// enhanced.emf, for metafile_test.py to read.

#include "base/errors.h"
#include "graphics/metafile.h"
#include "graphics/modeinfo.h"
#include "tests/graphics/win32/metadrawing.h"

#include <cstdio>
#include <string>

constexpr int32_t WIDTH = DRAWINGWIDTH, HEIGHT = DRAWINGHEIGHT;

int main(int argc, char **argv)
{
    if (argc != 2) return 2;
    std::string folder = argv[1], enhanced = folder + "/enhanced.emf";
    intptr_t dc;
    errorblock *err = modeinfoinit();
    if (!err) err = metaopen(0, WIDTH, HEIGHT, &dc);
    if (!err) metadraw();
    if (!err) err = metaclose(nullptr, dc, (folder + "/plain.wmf").c_str());
    if (!err) err = metaopen(0, WIDTH, HEIGHT, &dc);
    if (!err) metadraw();
    if (!err)
        err = metacloseplaceable(nullptr, dc, (folder + "/placeable.wmf").c_str(), 0, WIDTH, HEIGHT,
                                 0, 120);
    if (!err) err = metaopenenhanced(enhanced.c_str(), 0, WIDTH, HEIGHT, &dc, "Calendar");
    if (!err) metadraw();
    if (!err) err = metacloseenhanced(nullptr, dc);
    if (err) {
        std::fprintf(stderr, "metafiles: %s\n", err->text);
        return 1;
    }
    modeinfoend();
    std::puts("Metafiles written");
    return 0;
}

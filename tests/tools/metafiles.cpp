// metafiles FOLDER - writes one drawing as plain.wmf, placeable.wmf and
// enhanced.emf, for metafile_test.py to read.

#include "base/errors.h"
#include "graphics/metafile.h"
#include "graphics/modeinfo.h"
#include "tests/graphics/win32/metadrawing.h"

#include <cstdio>
#include <string>

namespace
{

int failed(const errorblock *err)
{
    std::fprintf(stderr, "metafiles: %s\n", err->text);
    return 1;
}

errorblock *writeplain(const std::string &path)
{
    intptr_t dc;
    errorblock *err = metaopen(0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc);
    if (!err) metadraw();
    return metaclose(err, dc, path.c_str());
}

errorblock *writeplaceable(const std::string &path)
{
    intptr_t dc;
    errorblock *err = metaopen(0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc);
    if (!err) metadraw();
    return metacloseplaceable(err, dc, path.c_str(), 0, DRAWINGWIDTH, DRAWINGHEIGHT, 0, 120);
}

errorblock *writeenhanced(const std::string &path)
{
    intptr_t dc;
    errorblock *err =
        metaopenenhanced(path.c_str(), 0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc, "Calendar");
    if (!err) metadraw();
    return metacloseenhanced(err, dc);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: metafiles FOLDER\n");
        return 2;
    }
    std::string folder = argv[1];
    errorblock *err = modeinfoinit();
    if (!err) err = writeplain(folder + "/plain.wmf");
    if (!err) err = writeplaceable(folder + "/placeable.wmf");
    if (!err) err = writeenhanced(folder + "/enhanced.emf");
    if (err) return failed(err);
    modeinfoend();
    std::puts("Metafiles written");
    return 0;
}

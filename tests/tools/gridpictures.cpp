// gridpictures GRID.qmg FOLDER [show|hide] [upper] [WORD X Y DX DY]... - writes
// the grid as plain.wmf, placeable.wmf and enhanced.emf into FOLDER, for
// gridpictures_test.py to read. Each WORD becomes an entry of the word list;
// show has lines drawn through them and hide has not, upper makes capitals of the letters.

#include "base/errors.h"
#include "find/solutions.h"
#include "graphics/modeinfo.h"
#include "grid/grid.h"
#include "grid/gridfile.h"
#include "grid/gridwindow.h"
#include "output/picture.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace
{

errorblock *wordsread(int argc, char **argv)
{
    errorblock *err = nullptr;
    solutions.slotcount = 1;
    for (int i = 3; i < argc && !err; i++) {
        if (!strcmp(argv[i], "show") || !strcmp(argv[i], "hide")) {
            grid.showsolutions = argv[i][0] == 's';
        } else if (!strcmp(argv[i], "upper")) {
            grid.pictureupper = 1;
        } else if (i + 4 < argc) {
            err = soladdword(atoi(argv[i + 1]), atoi(argv[i + 2]), atoi(argv[i + 3]),
                             atoi(argv[i + 4]), argv[i]);
            i += 4;
        }
    }
    return err;
}

errorblock *picturesof(const std::string &folder)
{
    errorblock *err = picturesave(PICTUREMETAFILE, (folder + "/plain.wmf").c_str());
    if (!err) err = picturesave(PICTUREPLACEABLE, (folder + "/placeable.wmf").c_str());
    if (!err) err = picturesave(PICTUREENHANCED, (folder + "/enhanced.emf").c_str());
    return err;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3) return 2;
    gridreset();
    solutionsreset();
    errorblock *err = modeinfoinit();
    if (!err) err = gridload(argv[1]);
    gridkindapply(grid.pendingkind);
    if (!err) err = wordsread(argc, argv);
    if (!err) err = picturesof(argv[2]);
    if (err) {
        std::fprintf(stderr, "gridpictures: %s\n", err->text);
        return 1;
    }
    std::printf("square %d\nPictures written\n", grid.cellwidth);
    modeinfoend();
    return 0;
}

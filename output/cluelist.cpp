#include "output/cluelist.h"

#include "base/bfile.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "output/numbering.h"

namespace
{

struct cluepass {
    const char *heading;
    int32_t numberedcell::*length;
    int32_t dx, dy;
};

constexpr cluepass acrosspass = {"Clues across.\r\n", &numberedcell::across, 1, 0};
constexpr cluepass downpass = {"Clues down.\n\n", &numberedcell::down, 0, 1};

void wordwrite(bfile *file, const numberedcell &cell, const cluepass &pass)
{
    bprintf(file, "%d. ", static_cast<int>(cell.number));
    for (int32_t i = 0; i < cell.*pass.length; i++)
        bputc(file, gridletter(cell.x + i * pass.dx, cell.y + i * pass.dy));
    bputc(file, '\n');
}

// True when there was anything to write. Each pass numbers the grid afresh.
bool passwrite(bfile *file, const cluepass &pass)
{
    numberedcell cell;
    bool any = false;
    numberingstart(&cell);
    while (numberingnext(&cell)) {
        if (cell.*pass.length < 2) continue;
        if (!any) bprintf(file, "%s", pass.heading);
        any = true;
        wordwrite(file, cell, pass);
    }
    return any;
}

} // namespace

void cluelistwrite(bfile *file)
{
    if (passwrite(file, acrosspass)) bputc(file, '\n');
    passwrite(file, downpass);
}

errorblock *cluelist(const char *path)
{
    bfile file;
    if (bopen(path, "w", BFILEBUFFER, &file)) return nullptr;
    cluelistwrite(&file);
    bclose(&file, nullptr);
    return nullptr;
}

errorblock *wordlistsave(const char *path)
{
    bfile file;
    if (bopen(path, "w", BFILEBUFFER, &file)) return nullptr;
    for (int32_t entry = 0; entry < solutions.count; entry++)
        bprintf(&file, "%s\n", solword(entry)->text);
    bclose(&file, nullptr);
    return nullptr;
}

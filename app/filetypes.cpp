#include "app/filetypes.h"

#include "grid/gridfile.h"
#include "output/picture.h"

#include <array>

constexpr filekind filekinds[FILEKINDS] = {
    {.row = {FILETYPEGRID, "qmg", "Quillmere grid (*.qmg)"},
     .savegrid = "Quillmere grid file (*.qmg)",
     .opengrid = "Quillmere grid files (*.qmg)"},
    {.row = {FILETYPETEXT, "txt", "Text (*.txt)"}, .saveclues = "Text file (*.txt)"},
    {.row = {FILETYPEDATA, nullptr, "Data (*.dat)"}},
    {.row = {PICTUREENHANCED, "emf", "Enhanced metafile (*.emf)"},
     .savegrid = "Enhanced metafile (*.emf)"},
    {.row = {PICTUREMETAFILE, "wmf", "Windows metafile (*.wmf)"}, .savegrid = "Metafile (*.wmf)"},
    {.row = {PICTUREPLACEABLE, "wmf", "Placement metafile (*.wmf)"},
     .savegrid = "Placeable metafile (*.wmf)"},
    {.row = {FILETYPEDEFAULT, "dat", "Data (*.dat)"}},
};

static constexpr auto ROWS = [] {
    std::array<filetyperow, FILEKINDS + 1> rows = {};
    for (size_t i = 0; i < FILEKINDS; i++)
        rows[i] = filekinds[i].row;
    rows.back() = {FILETYPEEND, nullptr, nullptr};
    return rows;
}();

const filetyperow *const filetypes = ROWS.data();

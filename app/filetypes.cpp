#include "app/filetypes.h"

const filetyperow filetypes[] = {
    {0x103, "qmg", "Quillmere grid (*.qmg)"},   {0xFFF, "txt", "Text (*.txt)"},
    {FILETYPEDATA, nullptr, "Data (*.dat)"},    {0x101, "emf", "Enhanced metafile (*.emf)"},
    {0x100, "wmf", "Windows metafile (*.wmf)"}, {0x102, "wmf", "Placement metafile (*.wmf)"},
    {FILETYPEDEFAULT, "dat", "Data (*.dat)"},   {FILETYPEEND, nullptr, nullptr},
};

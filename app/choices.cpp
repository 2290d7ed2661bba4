#include "app/choices.h"

#include "base/bfile.h"
#include "base/safesave.h"
#include "base/userfiles.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "grid/appearance.h"
#include "grid/grid.h"

#include <algorithm>

namespace
{

constexpr const char *FOLDER = "Choices", *EXTENSION = "dat";

// Half a font would be one that nobody has chosen.
errorblock *readfont(bfile *file, fontrecord *font)
{
    fontrecord whole = {};
    errorblock *err = fontread(file, &whole);
    if (!err) *font = whole;
    return err;
}

errorblock *readword(bfile *file, uint32_t *value)
{
    uint32_t word;
    errorblock *err = bread32(file, &word);
    if (!err) *value = word;
    return err;
}

// In the order of the file.
errorblock *fieldsread(bfile *file, choicesrecord *choices)
{
    uint32_t limit = static_cast<uint32_t>(choices->maxsolutions);
    errorblock *err = readfont(file, &choices->dictfont);
    if (!err) err = readfont(file, &choices->solfont);
    if (!err) err = readword(file, &choices->cursorcolour);
    if (!err) err = readword(file, &choices->selectedcolour);
    if (!err) err = readword(file, &choices->splitfraction);
    if (!err) err = readword(file, &limit);
    choices->maxsolutions = static_cast<int32_t>(limit);
    return err;
}

void rangesettle(choicesrecord *choices)
{
    choices->splitfraction = std::clamp(choices->splitfraction, SPLITMIN, SPLITMAX);
    choices->maxsolutions = std::clamp(choices->maxsolutions, MAXSOLUTIONSMIN, MAXSOLUTIONSMAX);
}

errorblock *fieldswrite(bfile *file, const choicesrecord &choices)
{
    errorblock *err = fontwrite(file, choices.dictfont);
    if (!err) err = fontwrite(file, choices.solfont);
    if (!err) err = bwrite32(file, choices.cursorcolour);
    if (!err) err = bwrite32(file, choices.selectedcolour);
    if (!err) err = bwrite32(file, choices.splitfraction);
    if (!err) err = bwrite32(file, static_cast<uint32_t>(choices.maxsolutions));
    return err;
}

} // namespace

void choicesget(choicesrecord *choices)
{
    *choices = {
        .dictfont = dictfont,
        .solfont = solfont,
        .cursorcolour = cursorcolour,
        .selectedcolour = selectedcolour,
        .splitfraction = grid.splitfraction,
        .maxsolutions = solutions.maxsolutions,
    };
}

void choicesset(const choicesrecord &choices)
{
    choicesrecord settled = choices;
    rangesettle(&settled);
    listfontsset(settled.solfont, settled.dictfont);
    cursorcolour = settled.cursorcolour;
    selectedcolour = settled.selectedcolour;
    grid.splitfraction = settled.splitfraction;
    solutions.maxsolutions = settled.maxsolutions;
}

errorblock *choicesread(const char *path, choicesrecord *choices)
{
    bfile file;
    errorblock *err = bopen(path, "r", BFILEBUFFER, &file);
    if (err) return err;
    err = bclose(&file, fieldsread(&file, choices));
    rangesettle(choices);
    return err;
}

errorblock *choiceswrite(const char *path)
{
    safesave save;
    errorblock *err = safeopen(path, BFILEBUFFER, &save);
    if (err) return err;
    choicesrecord choices;
    choicesget(&choices);
    return safeclose(&save, fieldswrite(&save.file, choices));
}

errorblock *choicessave()
{
    return userfilesave(FOLDER, EXTENSION, choiceswrite);
}

// Whoever has none, or no name, starts with what is built in.
errorblock *choicesload()
{
    char path[PATHSIZE];
    choicesrecord choices;
    choicesget(&choices);
    if (!userfilefind(FOLDER, EXTENSION, path)) choicesread(path, &choices);
    choicesset(choices);
    metricsupdate();
    return nullptr;
}

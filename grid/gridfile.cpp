// The fields of each chain stand in the order of the file. Nothing is checked
// but what the document, or those who read it, couldn't do without.
#include "grid/gridfile.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/safesave.h"
#include "base/trace.h"
#include "dict/dictset.h"
#include "grid/gridwindow.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int32_t VERSIONSIZE = 8;
constexpr char IDENTITY[24] = "Quillmere Grid";
constexpr char VERSION[VERSIONSIZE] = "1.02";     // the first with an appearance
constexpr char VERSIONBARS[VERSIONSIZE] = "1.01"; // the first whose bars are meant
constexpr char DATE[184] = "(14-Dec-2001)";

// The words of the header behind its texts, in the order of the file.
enum headerword {
    SPLITFRACTION,
    WINDOWWIDTH,
    WINDOWHEIGHT,
    MINWORDLENGTH,
    SHOWSOLUTIONS,
    FILLDIRECTIONS,
    KIND,
    CASEMODE,
    RESERVED,
    PICTUREUPPER,
    WIDTH,
    HEIGHT,
    HEADERWORDS
};

struct gridheader {
    char identity[24];
    char version[VERSIONSIZE];
    char date[184];
    uint32_t words[HEADERWORDS];
};
static_assert(sizeof(gridheader) == 264);

int32_t headersigned(const gridheader &header, headerword word)
{
    return static_cast<int32_t>(header.words[word]);
}

// Versions are compared as the bytes they are, so "1.1" is newer than "1.02".
bool versionbelow(const gridheader &header, const char *version)
{
    return memcmp(header.version, version, VERSIONSIZE) < 0;
}

// Reading. Behind the header a value that the file doesn't tell stays as it
// was; the reads' own errors only end the chain.

errorblock *readword(bfile *file, uint32_t *value)
{
    uint32_t word;
    errorblock *err = bread32(file, &word);
    if (!err) *value = word;
    return err;
}

errorblock *readsigned(bfile *file, int32_t *value)
{
    uint32_t word = static_cast<uint32_t>(*value);
    errorblock *err = readword(file, &word);
    *value = static_cast<int32_t>(word);
    return err;
}

// A cut header is the one thing that the chain must tell from other failures,
// so it reads exactly or fails.
errorblock *headerread(bfile *file, gridheader *header)
{
    errorblock *err = breadall(file, header->identity, sizeof header->identity);
    if (!err) err = breadall(file, header->version, sizeof header->version);
    if (!err) err = breadall(file, header->date, sizeof header->date);
    for (uint32_t &word : header->words)
        if (!err) err = bread32(file, &word);
    return err;
}

bool sizelegal(uint32_t cells)
{
    return cells >= 1 && cells <= GRIDMAX;
}

// All that the document needs before it gives itself up to the file.
errorblock *headercheck(bfile *file, gridheader *header)
{
    errorblock *err = headerread(file, header);
    if (err && err->code != ERRORREAD) return err;
    if (err || !sizelegal(header->words[WIDTH]) || !sizelegal(header->words[HEIGHT]))
        return makeerror(ECR);
    return nullptr;
}

// No command sets the reserved word or pictureupper: they come from a file and
// go back to one as they were. The kind waits until the caller is ready to
// change the button pane with it.
void headertake(const gridheader &header)
{
    grid.width = headersigned(header, WIDTH);
    grid.height = headersigned(header, HEIGHT);
    grid.pictureupper = headersigned(header, PICTUREUPPER);
    grid.reserved = headersigned(header, RESERVED);
    uint32_t casemode = header.words[CASEMODE];
    grid.casemode = casemode <= CASELOWER ? static_cast<int32_t>(casemode) : CASEASTYPED;
    grid.pendingkind = header.words[KIND] == GRIDWORDSQUARE ? GRIDWORDSQUARE : GRIDCROSSWORD;
    grid.showsolutions = headersigned(header, SHOWSOLUTIONS);
    grid.minwordlength = std::clamp(headersigned(header, MINWORDLENGTH), 1, MINWORDMAX);
    grid.filldirections = header.words[FILLDIRECTIONS];
    uint32_t split = header.words[SPLITFRACTION];
    if (split) grid.splitfraction = std::clamp(split, SPLITMIN, SPLITMAX);
}

// A column lies in one piece, in the file and here. A cut one is taken as far
// as it goes.
errorblock *cellsread(bfile *file, uint8_t (*cells)[GRIDSTRIDE])
{
    errorblock *err = nullptr;
    for (int32_t x = 0; x < grid.width && !err; x++)
        err = breadall(file, cells[x], grid.height);
    return err;
}

// A saved mark doesn't survive, nor does kind 3, which no cell may have.
void cellssettle(uint8_t forgotten)
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++) {
            uint8_t &flags = grid.flags[x][y];
            if ((flags & CELLKIND) != CELLBLOCK) flags &= static_cast<uint8_t>(~CELLKIND);
            flags &= static_cast<uint8_t>(~forgotten);
        }
}

errorblock *appearanceread(bfile *file)
{
    trace("text height %d", grid.gridfont.height);
    errorblock *err = fontread(file, &grid.gridfont);
    trace("text height %d", grid.gridfont.height);
    if (!err) err = fontread(file, &grid.cluefont);
    if (!err) err = readword(file, &grid.textcolour);
    if (!err) err = readword(file, &grid.gridcolour);
    if (!err) err = readword(file, &grid.fillcolour);
    if (!err) err = readword(file, &grid.backcolour);
    if (!err) err = readsigned(file, &grid.squarescale);
    return err;
}

// The oldest writers left bars in the flags that nobody had drawn.
void bodyread(bfile *file, const gridheader &header)
{
    dictsetread(file);
    errorblock *err = cellsread(file, grid.letters);
    if (!err) err = cellsread(file, grid.flags);
    cellssettle(versionbelow(header, VERSIONBARS) ? BARLEFT | BARTOP : 0);
    if (versionbelow(header, VERSION))
        gridsetdefaults();
    else if (!err)
        appearanceread(file);
}

// A program without windows writes 0; other sizes that no window has are left
// alone in the same way.
void windowresize(const gridheader &header)
{
    constexpr int32_t SIDEMAX = 0xffff; // os units; no desktop is wider
    int32_t width = headersigned(header, WINDOWWIDTH);
    int32_t height = headersigned(header, WINDOWHEIGHT);
    if (width > 0 && width <= SIDEMAX && height > 0 && height <= SIDEMAX)
        mainwindowresize(width, height);
}

// The mark and the results spoke of the document before.
void documentshow(const gridheader &header)
{
    gridsquaresize();
    gridextent();
    gridredraw();
    markclear();
    resultsdrop();
    windowresize(header);
    cursorremove();
}

// Writing.

void headermake(gridheader *header)
{
    int32_t width, height;
    mainwindowsize(&width, &height);
    *header = {};
    memcpy(header->identity, IDENTITY, sizeof IDENTITY);
    memcpy(header->version, VERSION, sizeof VERSION);
    memcpy(header->date, DATE, sizeof DATE);
    header->words[SPLITFRACTION] = grid.splitfraction;
    header->words[WINDOWWIDTH] = static_cast<uint32_t>(width);
    header->words[WINDOWHEIGHT] = static_cast<uint32_t>(height);
    header->words[MINWORDLENGTH] = static_cast<uint32_t>(grid.minwordlength);
    header->words[SHOWSOLUTIONS] = static_cast<uint32_t>(grid.showsolutions);
    header->words[FILLDIRECTIONS] = grid.filldirections;
    header->words[KIND] = static_cast<uint32_t>(grid.kind);
    header->words[CASEMODE] = static_cast<uint32_t>(grid.casemode);
    header->words[RESERVED] = static_cast<uint32_t>(grid.reserved);
    header->words[PICTUREUPPER] = static_cast<uint32_t>(grid.pictureupper);
    header->words[WIDTH] = static_cast<uint32_t>(grid.width);
    header->words[HEIGHT] = static_cast<uint32_t>(grid.height);
}

errorblock *headerwrite(bfile *file)
{
    gridheader header;
    headermake(&header);
    errorblock *err = bwriteall(file, header.identity, sizeof header.identity);
    if (!err) err = bwriteall(file, header.version, sizeof header.version);
    if (!err) err = bwriteall(file, header.date, sizeof header.date);
    for (uint32_t word : header.words)
        if (!err) err = bwrite32(file, word);
    return err;
}

errorblock *cellswrite(bfile *file, const uint8_t (*cells)[GRIDSTRIDE])
{
    errorblock *err = nullptr;
    for (int32_t x = 0; x < grid.width && !err; x++)
        err = bwriteall(file, cells[x], grid.height);
    return err;
}

errorblock *appearancewrite(bfile *file)
{
    errorblock *err = fontwrite(file, grid.gridfont);
    if (!err) err = fontwrite(file, grid.cluefont);
    if (!err) err = bwrite32(file, grid.textcolour);
    if (!err) err = bwrite32(file, grid.gridcolour);
    if (!err) err = bwrite32(file, grid.fillcolour);
    if (!err) err = bwrite32(file, grid.backcolour);
    if (!err) err = bwrite32(file, static_cast<uint32_t>(grid.squarescale));
    return err;
}

} // namespace

// The appearance is written whatever the document was read from: only the
// newest generation is made.
errorblock *gridwrite(const char *path)
{
    safesave save;
    errorblock *err = safeopen(path, BFILEBUFFER, &save);
    if (err) return err;
    err = headerwrite(&save.file);
    if (!err && dictsetwrite(&save.file)) err = makeerror(ERRORWRITE);
    if (!err) err = cellswrite(&save.file, grid.letters);
    if (!err) err = cellswrite(&save.file, grid.flags);
    if (!err) err = appearancewrite(&save.file);
    return safeclose(&save, err);
}

errorblock *gridsave(const char *path)
{
    gridwrite(path);
    return nullptr;
}

errorblock *gridload(const char *path)
{
    bfile file;
    if (bopen(path, "r", BFILEBUFFER, &file)) return nullptr;
    gridheader header;
    errorblock *err = headercheck(&file, &header);
    if (err) return bclose(&file, err);

    // From here on the document is the file's, whatever becomes of the reads.
    dictsetclear();
    headertake(header);
    bodyread(&file, header);
    bclose(&file, nullptr);
    dictsetload();
    documentshow(header);
    return nullptr;
}

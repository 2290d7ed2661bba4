#include "grid/gridfile.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/platformfault.h"
#include "dict/dictset.h"
#include "grid/gridwindow.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/testfiles.h"

#include <cstring>
#include <vector>

namespace
{

// Grid files put together by hand, as the format document has them.

std::string padded(std::string text, size_t size)
{
    text.resize(size);
    return text;
}

std::string words(std::initializer_list<uint32_t> values)
{
    std::string bytes;
    for (uint32_t value : values)
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(value >> shift & 255);
    return bytes;
}

std::string font(uint32_t height, uint32_t width, const std::string &face, uint32_t charset,
                 uint32_t weight, uint32_t italic)
{
    return words({height, width}) + padded(face, 64) + words({charset, weight, italic});
}

std::string header(const std::string &version)
{
    return padded("Quillmere Grid", 24) + padded(version, 8) + padded("(14-Dec-2001)", 184) +
           words({0x6000, 1500, 1200, 7, 3, 0x9F, 1, 2, 0x89ABCDEF, 0x12345678, 3, 4});
}

// Three columns of four rows; a bar, a block, the bits that mean nothing.
const std::string LETTERS = "ABCDef*\xE9 .. ";
const std::string FLAGS("\x00\x04\x08\x0C\x02\x0E\x10\x20\x40\x80\xC2\x3C", 12);
const std::string NODICTS(12, 0);
const std::string APPEARANCE =
    font(160, 16, padded("Times New Roman", 40) + 'j', 2, 700, 255) + // behind the terminator
    font(96, 0, "Courier", 0, 400, 0) +
    words({0x11223300, 0x44556600, 0x77889900, 0xAABBCC00, 210});
const std::string FACTORY = font(128, 0, "Arial", 0, 400, 0) + font(64, 0, "Arial", 0, 400, 0) +
                            words({0, 0, 0, 0xFFFFFF00, 180});

std::string newest(const std::string &dicts = NODICTS)
{
    return header("1.02") + dicts + LETTERS + FLAGS + APPEARANCE;
}

// Offsets in newest(): of the words that a test alters, and of its parts.
constexpr size_t SPLITAT = 216, WINDOWAT = 220, MINWORDAT = 228, KINDAT = 240, CASEAT = 244,
                 WIDTHAT = 256, HEIGHTAT = 260, HEADERSIZE = 264, LETTERSAT = 276, FLAGSAT = 288,
                 APPEARANCEAT = 300;

std::string altered(size_t at, uint32_t value)
{
    return newest().replace(at, 4, words({value}));
}

errorblock *loadbytes(const std::string &bytes)
{
    std::string path = scratch("load.qmg");
    putfile(path, bytes);
    return gridopened(path.c_str(), FILETYPEGRID);
}

std::string savedbytes()
{
    std::string path = scratch("save.qmg");
    std::filesystem::remove(path);
    CHECK_FALSE(gridsave(path.c_str()));
    return getfile(path);
}

// A folder of dictionaries of its own for each test.
void dictsmake(const std::vector<std::string> &names)
{
    std::string folder = scratch("dicts");
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    snprintf(dictdirectory, sizeof dictdirectory, "%s/", folder.c_str());
    REQUIRE_FALSE(dictstart());
    for (const std::string &name : names)
        REQUIRE_FALSE(dictcreate(name.c_str()));
}

} // namespace

TEST_CASE("the newest generation is read whole and written back to the byte")
{
    markset(0, 0, 2, 0);
    headless.keeptrace = true;
    std::string bytes = newest() + "more"; // nor are identity and date looked at
    bytes.replace(0, 24, 24, 'x').replace(32, 184, 184, 'y');
    REQUIRE_FALSE(loadbytes(bytes));
    headless.keeptrace = false;
    CHECK(headless.tracetext.find("text height 128\r\ntext height 160\r\n") != std::string::npos);
    CHECK((grid.width == 3 && grid.height == 4 && grid.kind == GRIDWORDSQUARE));
    CHECK((grid.letters[0][1] == 'B' && grid.letters[1][0] == 'e' && grid.flags[0][1] == BARLEFT));
    CHECK(grid.cellwidth == 160 * 180 * 210 / 115200);
    CHECK((headless.windowwidth == 1500 && headless.windowheight == 1200));
    CHECK((headless.extents == 1 && headless.redraws == 1 && headless.resultsdropped >= 1));
    CHECK((nomark() && headless.marklength == -1 && cursorat(-1, -1) && grid.lastcursory == -1));
    CHECK(savedbytes() == newest());
}

TEST_CASE("older generations are written as the newest, in the built-in appearance")
{
    std::string nobars = FLAGS, body = NODICTS + LETTERS;
    for (char &flags : nobars)
        flags = static_cast<char>(flags & ~(BARLEFT | BARTOP));
    const std::pair<const char *, std::string> rows[] = {
        // behind the letters
        {"1.00", nobars + FACTORY},  {"1.009999", nobars + FACTORY},
        {"1.01", FLAGS + FACTORY},   {"1.019999", FLAGS + FACTORY},
        {"1.1", FLAGS + APPEARANCE}, {"version!", FLAGS + APPEARANCE}};
    for (const auto &[version, saved] : rows) {
        grid.gridfont.height = 999; // of the document before: it must not last
        REQUIRE_FALSE(loadbytes(header(version) + body + FLAGS + APPEARANCE));
        CHECK(savedbytes() == header("1.02") + body + saved);
    }
}

TEST_CASE("a size that is no size is refused, and the document stays")
{
    dictsmake({"Alpha"});
    REQUIRE_FALSE(dictuse(0));
    gridsetfilename("mine.qmg");
    gridchange();
    griddocument before = grid;
    headlessreset();
    std::vector<std::string> files;
    for (size_t at : {WIDTHAT, HEIGHTAT})
        for (uint32_t value : {0u, 128u, 0x10003u, 0xffffffffu})
            files.push_back(altered(at, value));
    for (size_t length = 0; length < HEADERSIZE; length++)
        files.push_back(newest().substr(0, length));
    for (const std::string &bytes : files) {
        errorblock *err = loadbytes(bytes);
        REQUIRE((err && err->code == ECR));
    }
    CHECK(memcmp(&before, &grid, sizeof grid) == 0);
    CHECK((dictset.count == 1 && dicts[0].usecount == 1));
    CHECK((headless.titles == 0 && headless.redraws == 0 && headless.resultsdropped == 0));
}

TEST_CASE("a file cut short leaves the rest as it was")
{
    // What the document held before, in the place where the file ends.
    const std::string whole = newest(), cells(12, 'q'), flags(12, static_cast<char>(VISITEDBOTH)),
                      before = header("1.02") + NODICTS + cells + flags + FACTORY;
    for (size_t length = HEADERSIZE; length < whole.size(); length++) {
        modulesreset();
        memset(grid.letters, 'q', sizeof grid.letters);
        memset(grid.flags, VISITEDBOTH, sizeof grid.flags);
        REQUIRE_FALSE(loadbytes(whole.substr(0, length)));
        std::string saved = savedbytes();
        size_t exact = length <= APPEARANCEAT ? std::max(length, LETTERSAT) : APPEARANCEAT;
        CHECK(saved.substr(0, exact) == whole.substr(0, exact));
        CHECK(saved.substr(exact, APPEARANCEAT - exact) ==
              before.substr(exact, APPEARANCEAT - exact));
        // Of the appearance a cut number isn't taken, a cut name as far as it goes.
        for (size_t at = APPEARANCEAT; at < saved.size(); at++) {
            bool old = saved[at] == before[at];
            CHECK((length <= at ? old : saved[at] == whole[at] || (old && length < at + 4)));
        }
    }
}

// Any bytes as a file are for the fuzz target.
TEST_CASE("values that no command sets are brought into range")
{
    // A split of 0 is as it was; fonts have heights and widths, cells kinds; a window
    // size that no window has is left alone.
    const struct {
        size_t at;
        uint32_t value, saved;
    } rows[] = {{SPLITAT, 1, 3276},
                {SPLITAT, 0xffffffff, 62259},
                {SPLITAT, 0, 0x5000},
                {MINWORDAT, 13, 12},
                {KINDAT, 2, 0},
                {CASEAT, 3, 0},
                {APPEARANCEAT, 0x80000000, 0},
                {APPEARANCEAT + 88, 0xffffffff, 0},
                {FLAGSAT, 0x0C080403, 0x0C080400},
                {FLAGSAT, 0x0C080401, 0x0C080400},
                {WINDOWAT, 0, 22},
                {WINDOWAT + 4, 0, 22},
                {WINDOWAT + 4, 0x10000, 22}};
    for (const auto &row : rows) {
        modulesreset();
        headless.windowwidth = headless.windowheight = 22;
        REQUIRE_FALSE(loadbytes(altered(row.at, row.value)));
        if (row.saved == 22)
            CHECK((headless.windowwidth == 22 && headless.windowheight == 22));
        else
            CHECK(savedbytes() == altered(row.at, row.saved));
    }
}

TEST_CASE("the dictionaries go with the file by name")
{
    dictsmake({"Alpha", "Beta", "Elevenchars", "Twelveletter"});
    REQUIRE_FALSE(dictuse(0));
    for (uint32_t i = 1; i < ndicts; i++)
        dictunload(i);
    std::string beta = padded("Beta", 12), eleven = padded("Elevenchars", 12);
    REQUIRE_FALSE(
        loadbytes(newest(beta + padded("Unknown", 12) + eleven + "Twelveletter" + NODICTS)));
    REQUIRE(dictset.count == 2); // a name of 12 letters has no end in the file
    CHECK((dicts[dictset.numbers[1]].loaded == 1 && dicts[0].usecount == 0 && !dicts[0].loaded));
    CHECK(savedbytes() == newest(beta + eleven + NODICTS));
}

TEST_CASE("a save goes to the disc whole or not at all, a load that fails leaves what saves")
{
    dictsmake({"Alpha"});
    std::string folder = scratch("saves"), path = folder + "/one.qmg";
    std::string bytes = newest(padded("Alpha", 12) + NODICTS);
    std::filesystem::create_directories(folder);
    // However small the pieces that the system reads and writes in.
    platformfault.readlimit = platformfault.writelimit = 7;
    REQUIRE_FALSE(loadbytes(bytes));
    REQUIRE_FALSE(gridsave(path.c_str()));
    platformfault = {};
    REQUIRE(getfile(path) == bytes);
    for (int32_t n = 0; n < 18; n++) {
        dictsetclear();
        dictunload(0);
        flexfailafter(n < 12 ? n : -1);
        platformfault.reads = n < 12 ? 0 : n - 12;
        platformfault.readlimit = n < 12 ? 0 : 100;
        gridload(path.c_str());
        platformfault = {};
        flexfailafter(-1);
        REQUIRE_FALSE(gridwrite(scratch("save.qmg").c_str()));
    }
    REQUIRE_FALSE(gridload(path.c_str()));
    grid.letters[0][0] = 'z';
    platformfault.space = static_cast<int32_t>(bytes.size()) - 1;
    CHECK(gridwrite(path.c_str()));
    platformfault = {};
    CHECK(getfile(path) == bytes);
    auto entries = std::filesystem::directory_iterator(folder);
    CHECK(std::distance(begin(entries), end(entries)) == 1); // nothing is left beside it
}

TEST_CASE("Save needs a name and gives one; one that failed is silent, and as saved")
{
    errorblock *err = gridsavecommand();
    REQUIRE((err && err->code == ENOSAVE));
    grid.letters[0][0] = 'q';
    grid.width = grid.height = 1;
    for (std::string path : {scratch("named.qmg"), scratch("no/such/folder.qmg")}) {
        gridchange();
        CHECK_FALSE(gridsaveto(path.c_str()));
        CHECK((grid.filename == path && gridsunsaved() == 0));
        gridchange();
        CHECK_FALSE(gridsavecommand());
        CHECK((grid.filename == path && gridsunsaved() == 0));
    }
    CHECK(headless.titles == 8);
    grid.letters[0][0] = ' ';
    CHECK_FALSE(gridload(scratch("named.qmg").c_str()));
    CHECK(grid.letters[0][0] == 'q');
}

TEST_CASE("what is opened names the document, and its kind is that of the last grid file")
{
    std::string path = scratch("square.qmg");
    grid.kind = GRIDWORDSQUARE;
    REQUIRE_FALSE(gridsave(path.c_str()));
    grid.kind = GRIDCROSSWORD;
    gridchange();
    CHECK_FALSE(gridload(path.c_str())); // a load alone leaves name and kind
    CHECK((grid.kind == GRIDCROSSWORD && gridsunsaved() == 1));
    constexpr int32_t CROSS = GRIDCROSSWORD, SQUARE = GRIDWORDSQUARE;
    const std::string words = "words.txt", nowhere = scratch("no/where.qmg");
    const struct {
        std::string path;
        int32_t type, kind, last; // the document's before, and the last grid file's
        int dropped, lists;
    } rows[] = {{path, FILETYPEGRID, CROSS, CROSS, 2, 0},    // by the load as well
                {words, FILETYPETEXT, CROSS, SQUARE, 1, 1},  // a Crossword's results
                {words, FILETYPETEXT, SQUARE, SQUARE, 0, 1}, // its words are unmarked first
                {words, FILETYPETEXT, SQUARE, CROSS, 1, 1},  // they are no Crossword's results
                {words, FILETYPETEXT, CROSS, CROSS, 2, 1},
                {nowhere, FILETYPEGRID, SQUARE, CROSS, 1, 0}};
    for (const auto &row : rows) {
        grid.kind = row.kind;
        grid.pendingkind = row.last;
        grid.letters[0][0] = 'q';
        gridchange();
        headlessreset();
        CHECK_FALSE(gridopened(row.path.c_str(), row.type));
        CHECK((headless.resultsdropped == row.dropped && headless.wordlists == row.lists));
        CHECK((headless.kindsapplied == 1 && grid.kind == (row.path == path ? SQUARE : row.last)));
        CHECK((grid.filename == row.path && gridsunsaved() == 0));
        CHECK((grid.letters[0][0] == 'q') == (row.path != path));
    }
    // A window takes grids, and a Wordsquare's lists of words.
    for (grid.kind = GRIDCROSSWORD; grid.kind <= GRIDWORDSQUARE; grid.kind++) {
        CHECK((gridaccepts(FILETYPEGRID) == 1 && gridaccepts(256) == 0));
        CHECK(gridaccepts(FILETYPETEXT) == (grid.kind == GRIDWORDSQUARE));
    }
}

TEST_CASE("the user's default grid, or the factory's appearance")
{
    userfolder folder("Default");
    for (const char *bytes : {"", "no grid"}) { // no file, and one that is none
        if (*bytes) putfile(folder.file(".qmg"), bytes);
        grid.gridfont.height = 999;
        grid.letters[1][1] = 'q';
        CHECK_FALSE(gridloaddefault());
        CHECK((grid.gridfont.height == 128 && grid.cellwidth == 36 && grid.letters[1][1] == 'q'));
    }
    CHECK((headless.kindsapplied == 2 && headless.kind == GRIDCROSSWORD));

    grid.kind = GRIDWORDSQUARE;
    grid.gridfont.height = 256;
    gridsetfilename("mine.qmg");
    gridchange();
    CHECK_FALSE(gridsavedefault());
    CHECK((gridsunsaved() == 1 && std::string(grid.filename) == "mine.qmg"));
    for (int runs : {1, 2}) { // it lasts for the rest of the run and the next
        grid.gridfont.height = 0;
        gridsetdefaults();
        CHECK(grid.gridfont.height == 256);
        if (runs == 1) modulesreset();
        if (runs == 1) CHECK_FALSE(gridloaddefault());
    }
    CHECK((grid.cellwidth == 72 && grid.kind == GRIDWORDSQUARE && grid.filename[0] == 0));
}

#include "grid/gridfile.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/flex.h"
#include "base/platformfault.h"
#include "dict/dictset.h"
#include "grid/gridwindow.h"
#include "tests/grid/gridlooks.h"
#include "tests/support/runner.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace
{

constexpr size_t HEADERSIZE = 264, APPEARANCESIZE = 188;

std::string scratch(const std::string &leaf)
{
    return scratchfolder() + "/" + leaf;
}

void putfile(const std::string &path, const std::string &bytes)
{
    std::filesystem::remove(path); // a disc takes its time to write one file over
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string getfile(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Grid files put together by hand, as the format document has them.

std::string padded(std::string text, size_t size)
{
    text.resize(size);
    return text;
}

std::string word(uint32_t value)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift & 255);
    return bytes;
}

// Three columns of four rows; a bar, a block, the bits that mean nothing.
const std::string LETTERS = "ABCDef*\xE9 .. ";
const std::string FLAGS("\x00\x04\x08\x0C\x02\x0E\x10\x20\x40\x80\xC2\x3C", 12);

std::string header(const std::string &version)
{
    return padded("Quillmere Grid", 24) + padded(version, 8) + padded("(14-Dec-2001)", 184) +
           word(0x6000) + word(1500) + word(1200) + word(7) + word(3) + word(0x9F) + word(1) +
           word(2) + word(0x89ABCDEF) + word(0x12345678) + word(3) + word(4);
}

std::string appearance()
{
    std::string face = padded("Times New Roman", 64);
    face[40] = 'j'; // left behind the terminator by a longer name
    return word(160) + word(16) + face + word(2) + word(700) + word(255) + //
           word(96) + word(0) + padded("Courier", 64) + word(0) + word(400) + word(0) +
           word(0x11223300) + word(0x44556600) + word(0x77889900) + word(0xAABBCC00) + word(210);
}

const std::string NODICTS = padded("", 12);

std::string newest(const std::string &dicts = NODICTS)
{
    return header("1.02") + dicts + LETTERS + FLAGS + appearance();
}

// Offsets in newest(): of the words that a test alters, and of its parts.
constexpr size_t SPLITAT = 216, WINDOWAT = 220, MINWORDAT = 228, KINDAT = 240, CASEAT = 244,
                 WIDTHAT = 256, HEIGHTAT = 260;
constexpr size_t LETTERSAT = HEADERSIZE + 12, FLAGSAT = LETTERSAT + 12, APPEARANCEAT = FLAGSAT + 12;

std::string altered(size_t at, uint32_t value)
{
    std::string bytes = newest();
    bytes.replace(at, 4, word(value));
    return bytes;
}

std::string factoryappearance()
{
    auto font = [](uint32_t height) {
        return word(height) + word(0) + padded("Arial", 64) + word(0) + word(400) + word(0);
    };
    return font(128) + font(64) + word(0) + word(0) + word(0) + word(0xFFFFFF00) + word(180);
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

size_t filesin(const std::string &folder)
{
    auto entries = std::filesystem::directory_iterator(folder);
    return static_cast<size_t>(std::distance(begin(entries), end(entries)));
}

// What nothing behind the reader doubts.
bool documentsound()
{
    for (int32_t x = 0; x < grid.width; x++)
        for (int32_t y = 0; y < grid.height; y++)
            if (grid.flags[x][y] & CELLMARKED) return false;
    return grid.width >= 1 && grid.width <= GRIDMAX && grid.height >= 1 && grid.height <= GRIDMAX &&
           grid.casemode >= 0 && grid.casemode <= 2 && grid.pendingkind >= 0 &&
           grid.pendingkind <= 1 && grid.minwordlength >= 1 && grid.minwordlength <= 12 &&
           grid.splitfraction >= 3276 && grid.splitfraction <= 62259 && grid.cellwidth >= 1 &&
           grid.gridfont.height >= 0 && grid.cluefont.height >= 0 && grid.cluefont.width >= 0 &&
           memchr(grid.gridfont.face, 0, 64) && memchr(grid.cluefont.face, 0, 64) &&
           grid.markleft == -1 && grid.cursorx == -1;
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
    REQUIRE(newest().size() == HEADERSIZE + 12 + 24 + APPEARANCESIZE);
    headless.keeptrace = true;
    REQUIRE_FALSE(loadbytes(newest()));
    headless.keeptrace = false;
    size_t before = headless.tracetext.find("text height 128\r\n");
    CHECK(before < headless.tracetext.find("text height 160\r\n"));
    CHECK(before != std::string::npos);
    CHECK((grid.width == 3 && grid.height == 4 && grid.kind == GRIDWORDSQUARE));
    CHECK((grid.casemode == CASELOWER && grid.minwordlength == 7 && grid.showsolutions == 3));
    CHECK((grid.filldirections == 0x9F && grid.splitfraction == 0x6000));
    CHECK((grid.letters[0][1] == 'B' && grid.letters[1][0] == 'e' && grid.letters[1][3] == 0xE9));
    CHECK(grid.flags[0][1] == BARLEFT);
    CHECK(grid.flags[1][1] == (CELLBLOCK | BARLEFT | BARTOP));
    const auto &font = grid.gridfont;
    CHECK((font.height == 160 && font.width == 16 && font.charset == 2));
    CHECK((font.weight == 700 && font.italic == 255));
    CHECK(std::string(font.face) == "Times New Roman");
    CHECK(std::string(grid.cluefont.face) == "Courier");
    CHECK((grid.textcolour == 0x11223300 && grid.gridcolour == 0x44556600));
    CHECK((grid.fillcolour == 0x77889900 && grid.backcolour == 0xAABBCC00));
    CHECK(grid.squarescale == 210);
    CHECK(grid.cellwidth == 160 * 180 * 210 / 115200);
    CHECK((headless.windowwidth == 1500 && headless.windowheight == 1200));
    CHECK((headless.extents == 1 && headless.redraws == 1 && headless.resultsdropped == 1));
    CHECK(savedbytes() == newest());
}

TEST_CASE("older generations are written as the newest, in the built-in appearance")
{
    std::string nobars = FLAGS;
    for (char &flags : nobars)
        flags = static_cast<char>(flags & ~(BARLEFT | BARTOP));
    std::string body = NODICTS + LETTERS;

    for (std::string version : {"1.00", "1.0", "", "1.009999"}) {
        grid.cluefont.height = 999;
        REQUIRE_FALSE(loadbytes(header(version) + body + FLAGS));
        CHECK(savedbytes() == header("1.02") + body + nobars + factoryappearance());
    }
    for (std::string version : {"1.01", "1.011", "1.019999"}) {
        grid.gridfont.height = 999; // of the document before: it must not last
        grid.textcolour = 0xFFFFFF00;
        REQUIRE_FALSE(loadbytes(header(version) + body + FLAGS));
        CHECK(savedbytes() == header("1.02") + body + FLAGS + factoryappearance());
    }
    for (std::string version : {"1.02", "1.020", "1.03", "2", "version!"}) {
        REQUIRE_FALSE(loadbytes(header(version) + body + FLAGS + appearance()));
        CHECK(savedbytes() == newest());
    }
}

TEST_CASE("the identity, the date and what goes on behind the end are not looked at")
{
    std::string bytes = newest() + "more";
    bytes.replace(0, 24, 24, 'x');
    bytes.replace(32, 184, 184, 'y');
    REQUIRE_FALSE(loadbytes(bytes));
    CHECK(savedbytes() == newest());
}

TEST_CASE("neither mark nor cursor survives a load")
{
    markset(0, 0, 2, 0);
    std::string bytes = newest();
    bytes[FLAGSAT] = CELLMARKED | BARTOP;
    bytes[FLAGSAT + 11] = static_cast<char>(CELLMARKED | VISITEDDOWN);
    REQUIRE_FALSE(loadbytes(bytes));
    CHECK(grid.flags[0][0] == BARTOP);
    CHECK(grid.flags[2][3] == VISITEDDOWN);
    CHECK((nomark() && headless.marklength == -1));
    CHECK((cursorat(-1, -1) && grid.lastcursory == -1));
}

TEST_CASE("a size that is no size is refused, and the document stays")
{
    dictsmake({"Alpha"});
    REQUIRE_FALSE(dictuse(0));
    gridsetfilename("mine.qmg");
    gridchange();
    griddocument before = grid;
    int titles = headless.titles;

    std::vector<std::string> files;
    for (size_t at : {WIDTHAT, HEIGHTAT})
        for (uint32_t value : {0u, 128u, 0x10003u, 0x7fffffffu, 0x80000000u, 0xffffffffu})
            files.push_back(altered(at, value));
    for (size_t length = 0; length < HEADERSIZE; length++)
        files.push_back(newest().substr(0, length));
    for (const std::string &bytes : files) {
        errorblock *err = loadbytes(bytes);
        REQUIRE(err);
        CHECK(err->code == ECR);
    }
    CHECK(memcmp(&before, &grid, sizeof grid) == 0);
    CHECK((dictset.count == 1 && dicts[0].usecount == 1));
    CHECK(headless.titles == titles);
    CHECK((headless.redraws == 0 && headless.resultsdropped == 0));
}

TEST_CASE("a file that can't be opened leaves the document, and bears its name")
{
    grid.letters[0][0] = 'q';
    CHECK_FALSE(gridload(scratch("nowhere.qmg").c_str()));
    CHECK_FALSE(gridload(scratch("no/where.qmg").c_str()));
    CHECK(headless.redraws == 0);
    CHECK_FALSE(gridopened(scratch("nowhere.qmg").c_str(), FILETYPEGRID));
    CHECK(grid.letters[0][0] == 'q');
    CHECK(std::string(grid.filename) == scratch("nowhere.qmg"));
}

TEST_CASE("a file cut short leaves the rest as it was")
{
    std::string whole = newest();
    for (size_t length = HEADERSIZE; length < whole.size(); length++) {
        modulesreset();
        for (auto &column : grid.letters)
            memset(column, 'q', sizeof column);
        for (auto &column : grid.flags)
            memset(column, VISITEDBOTH, sizeof column);
        REQUIRE_FALSE(loadbytes(whole.substr(0, length)));

        std::string cells, flags;
        for (int32_t x = 0; x < 3; x++) {
            cells.append(reinterpret_cast<char *>(grid.letters[x]), 4);
            flags.append(reinterpret_cast<char *>(grid.flags[x]), 4);
        }
        size_t letters = length < LETTERSAT ? 0 : std::min<size_t>(length - LETTERSAT, 12);
        size_t kinds = length < FLAGSAT ? 0 : std::min<size_t>(length - FLAGSAT, 12);
        CHECK(cells == LETTERS.substr(0, letters) + std::string(12 - letters, 'q'));
        CHECK(flags ==
              FLAGS.substr(0, kinds) + std::string(12 - kinds, static_cast<char>(VISITEDBOTH)));

        size_t look = length < APPEARANCEAT ? 0 : length - APPEARANCEAT;
        CHECK(grid.gridfont.height == (look < 4 ? 128 : 160));
        CHECK(grid.gridfont.italic == (look < 84 ? 0 : 255));
        CHECK(grid.cluefont.height == (look < 88 ? 64 : 96));
        CHECK(grid.textcolour == (look < 172 ? 0 : 0x11223300));
        CHECK(grid.backcolour == (look < 184 ? 0xFFFFFF00 : 0xAABBCC00));
        CHECK(grid.squarescale == 180);
    }
}

TEST_CASE("values that no command sets are brought into range")
{
    struct alteration {
        size_t at;
        uint32_t value, saved;
    };
    for (auto [at, value, saved] : {
             alteration{SPLITAT, 1, 3276},
             {SPLITAT, 0xffffffff, 62259},
             {SPLITAT, 0, 0x5000}, // leaves the split as it was
             {MINWORDAT, 0, 1},
             {MINWORDAT, 0x80000000, 1},
             {MINWORDAT, 13, 12},
             {KINDAT, 2, 0},
             {KINDAT, 0xffffffff, 0},
             {CASEAT, 3, 0},
             {CASEAT, 0xffffffff, 0},
             {APPEARANCEAT, 0x80000000, 0}, // height of a font
             {APPEARANCEAT, 0x7fffffff, 0x7fff},
             {APPEARANCEAT + 84 + 4, 0xffffffff, 0}, // width of the other
         }) {
        modulesreset();
        REQUIRE_FALSE(loadbytes(altered(at, value)));
        CHECK(savedbytes() == altered(at, saved));
    }

    std::string bytes = newest(), settled = newest();
    bytes.replace(APPEARANCEAT + 8, 64, 64, 'f');
    settled.replace(APPEARANCEAT + 8, 63, 63, 'f');
    settled[APPEARANCEAT + 71] = 0;
    bytes[FLAGSAT] = CELLKIND; // kind 3 is no kind
    REQUIRE_FALSE(loadbytes(bytes));
    CHECK(savedbytes() == settled);
}

TEST_CASE("a window size that no window has is left alone")
{
    for (size_t at : {WINDOWAT, WINDOWAT + 4})
        for (uint32_t value : {0u, 0x80000000u, 0xffffffffu, 0x7fffffffu}) {
            headless.windowwidth = 11;
            headless.windowheight = 22;
            REQUIRE_FALSE(loadbytes(altered(at, value)));
            CHECK((headless.windowwidth == 11 && headless.windowheight == 22));
        }
}

TEST_CASE("any byte may hold anything")
{
    std::string whole = newest(padded("Alpha", 12) + padded("", 12));
    dictsmake({"Alpha"});
    for (size_t at = 0; at < whole.size(); at++)
        for (int value : {0, 1, 2, 0x7f, 0x80, 0xff}) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(value);
            if (loadbytes(bytes)) continue;
            REQUIRE(documentsound());
            if ((at * 6 + static_cast<size_t>(value)) % 37) continue; // a save waits for the disc
            std::string once = savedbytes();
            REQUIRE_FALSE(loadbytes(once));
            REQUIRE(savedbytes() == once);
        }
}

TEST_CASE("the dictionaries go with the file by name")
{
    dictsmake({"Alpha", "Beta", "Elevenchars", "Twelveletter"});
    REQUIRE_FALSE(dictuse(0));
    for (uint32_t i = 1; i < ndicts; i++)
        dictunload(i);
    std::string names = padded("Beta", 12) + padded("Unknown", 12) + padded("Elevenchars", 12) +
                        padded("Twelveletter", 12);
    REQUIRE_FALSE(loadbytes(newest(names + NODICTS)));
    REQUIRE(dictset.count == 2); // a name of 12 letters has no end in the file
    CHECK(dicts[dictset.numbers[0]].name == std::string("Beta"));
    CHECK(dicts[dictset.numbers[1]].name == std::string("Elevenchars"));
    CHECK(dicts[dictset.numbers[1]].loaded == 1);
    CHECK((dicts[0].usecount == 0 && dicts[0].loaded == 0));
    CHECK(savedbytes() == newest(padded("Beta", 12) + padded("Elevenchars", 12) + NODICTS));
}

TEST_CASE("a save goes to the disc whole or not at all")
{
    std::string folder = scratch("saves"), path = folder + "/one.qmg";
    std::filesystem::create_directories(folder);
    REQUIRE_FALSE(loadbytes(newest()));
    REQUIRE_FALSE(gridsave(path.c_str()));
    grid.letters[0][0] = 'z';
    for (int32_t space = 0; space < static_cast<int32_t>(newest().size()); space++) {
        platformfault.space = space;
        CHECK_FALSE(gridsave(path.c_str()));
        CHECK(gridwrite(path.c_str()));
        platformfault = {};
        REQUIRE(getfile(path) == newest());
    }
    bool failed = true;
    for (int32_t n = 0; failed; n++) {
        flexfailafter(n);
        failed = gridwrite(path.c_str());
        flexfailafter(-1);
        REQUIRE((getfile(path) == newest()) == failed);
    }
    CHECK(filesin(folder) == 1); // nothing is left beside it
}

TEST_CASE("a load that fails anywhere leaves a document that saves")
{
    dictsmake({"Alpha"});
    std::string path = scratch("load.qmg");
    putfile(path, newest(padded("Alpha", 12) + NODICTS));
    for (int32_t n = 0; n < 12; n++) {
        dictsetclear();
        dictunload(0);
        flexfailafter(n);
        gridload(path.c_str());
        flexfailafter(-1);
        REQUIRE_FALSE(gridwrite(scratch("save.qmg").c_str()));
    }
    for (int32_t n = 0; n < 6; n++) {
        platformfault.reads = n;
        platformfault.readlimit = 100;
        gridload(path.c_str());
        platformfault = {};
        REQUIRE_FALSE(gridwrite(scratch("save.qmg").c_str()));
    }
    // However small the pieces that the system reads and writes in.
    platformfault.readlimit = platformfault.writelimit = 7;
    REQUIRE_FALSE(gridload(path.c_str()));
    gridkindapply(grid.pendingkind);
    std::string saved = savedbytes();
    platformfault = {};
    CHECK(saved == newest(padded("Alpha", 12) + NODICTS));
}

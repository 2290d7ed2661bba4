// Pictures of grids, saved through the menu and its box by the keys of a user, and
// then read as files.
#include "app/commands.h"
#include "find/solutions.h"
#include "grid/grid.h"
#include "grid/gridpicture.h"
#include "grid/gridshape.h"
#include "output/picture.h"
#include "tests/app/screen/gridhands.h"
#include "tests/support/driver.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

namespace
{

// Rows of the box's types of file.
constexpr int ENHANCED = 2, PLAIN = 3, PLACEABLE = 4;

// What a drawing is made of, counted from its records.
struct countrecord {
    int lines, boxes, texts;
};

bool menuopen()
{
    HWND menu = FindWindowA("#32768", nullptr);
    return menu && IsWindowVisible(menu);
}

// Keys only: the menu by its letters, the name, the type by its list, Return.
std::string saved(const std::string &leaf, int row)
{
    std::string path = scratchfolder() + "\\" + leaf;
    std::remove(path.c_str());
    char before[MAX_PATH];
    REQUIRE(GetCurrentDirectoryA(sizeof before, before));
    REQUIRE(SetCurrentDirectoryA(scratchfolder().c_str())); // where the box begins
    bool came = false;
    driveaside([] {},
               [&] {
                   drivekey('F', DRIVEALT);
                   drivewait(menuopen);
                   drivekey('A');
                   came = drivewaitwindow("", "#32770");
                   if (!came) return;
                   Sleep(200); // the box's own first messages
                   drivekey('T', DRIVEALT);
                   drivekey(VK_HOME);
                   for (int at = 1; at < row; at++)
                       drivekey(VK_DOWN);
                   drivekey('N', DRIVEALT);
                   drivetype(leaf);
                   drivekey(VK_RETURN);
                   drivewait([] { return !drivefind("", "#32770"); });
               });
    drivepump();
    SetCurrentDirectoryA(before);
    REQUIRE(came);
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

template<typename T> T value(const std::string &bytes, size_t at)
{
    T result = {};
    REQUIRE(at + sizeof result <= bytes.size());
    std::memcpy(&result, bytes.data() + at, sizeof result);
    return result;
}

// Of a Windows metafile that starts at a byte: its header against what follows.
countrecord plainread(const std::string &bytes, size_t start)
{
    CHECK(value<uint16_t>(bytes, start) == 1);         // in memory
    CHECK(value<uint16_t>(bytes, start + 2) == 9);     // words of the header
    CHECK(value<uint16_t>(bytes, start + 4) == 0x300); // Windows 3
    CHECK(value<uint32_t>(bytes, start + 6) * 2 == bytes.size() - start);
    countrecord count = {};
    uint32_t largest = 0;
    size_t at = start + 18;
    uint16_t kind = 1;
    for (uint32_t words; kind; at += words * size_t{2}) {
        words = value<uint32_t>(bytes, at);
        REQUIRE(words >= 3);
        kind = value<uint16_t>(bytes, at + 4);
        largest = std::max(largest, words);
        count.lines += kind == 0x213;
        count.boxes += kind == 0x41B;
        count.texts += kind == 0xA32 || kind == 0x521;
    }
    CHECK(at == bytes.size());
    CHECK(value<uint32_t>(bytes, start + 12) == largest);
    return count;
}

countrecord placeableread(const std::string &bytes, int32_t width, int32_t height)
{
    CHECK(value<uint32_t>(bytes, 0) == 0x9AC6CDD7);
    CHECK(value<int16_t>(bytes, 6) == 0);
    CHECK(value<int16_t>(bytes, 8) == 0);
    CHECK(value<int16_t>(bytes, 10) == width);
    CHECK(value<int16_t>(bytes, 12) == height);
    CHECK(value<uint16_t>(bytes, 14) == 120); // units to the inch
    CHECK(value<uint32_t>(bytes, 16) == 0);
    return plainread(bytes, 22);
}

countrecord enhancedread(const std::string &bytes, int32_t width, int32_t height)
{
    auto header = value<ENHMETAHEADER>(bytes, 0);
    CHECK(header.iType == EMR_HEADER);
    CHECK(header.dSignature == ENHMETA_SIGNATURE);
    CHECK(header.nVersion == 0x10000);
    CHECK(header.nBytes == bytes.size());
    CHECK(header.rclFrame.left == 0);
    CHECK(header.rclFrame.top == 0);
    HDC screen = GetDC(nullptr); // hundredths of a millimetre, by the screen's size
    int right = width * GetDeviceCaps(screen, HORZSIZE) * 100 / GetDeviceCaps(screen, HORZRES);
    int bottom = height * GetDeviceCaps(screen, VERTSIZE) * 100 / GetDeviceCaps(screen, VERTRES);
    ReleaseDC(nullptr, screen);
    CHECK(std::abs(header.rclFrame.right - right) <= 1);
    CHECK(std::abs(header.rclFrame.bottom - bottom) <= 1);
    std::string named;
    for (DWORD i = 0; i < header.nDescription; i++)
        named += static_cast<char>(value<uint16_t>(bytes, header.offDescription + i * size_t{2}));
    CHECK(named.substr(0, named.find('\0')) == "Calendar");
    countrecord count = {};
    uint32_t records = 0, kind = 0;
    size_t at = 0;
    for (uint32_t size; kind != EMR_EOF; at += size, records++) {
        kind = value<uint32_t>(bytes, at);
        size = value<uint32_t>(bytes, at + 4);
        REQUIRE(size >= 8);
        count.lines += kind == EMR_LINETO;
        count.boxes += kind == EMR_RECTANGLE;
        count.texts += kind == EMR_EXTTEXTOUTA || kind == EMR_EXTTEXTOUTW;
    }
    CHECK(at == bytes.size());
    CHECK(header.nRecords == records);
    return count;
}

// All three kinds of the document as it is: each is as large as the grid, and
// draws so many lines and texts.
void kinds(int lines, int texts)
{
    picturesizes sizes;
    REQUIRE_FALSE(picturemetrics(&sizes));
    int32_t width = grid.width * sizes.square + 1, height = grid.height * sizes.square + 1;
    countrecord plain = plainread(saved("picture.wmf", PLAIN), 0);
    countrecord placeable = placeableread(saved("picture.wmf", PLACEABLE), width, height);
    countrecord enhanced = enhancedread(saved("picture.emf", ENHANCED), width, height);
    for (const countrecord &count : {plain, placeable, enhanced}) {
        CHECK(count.lines == lines);
        CHECK(count.texts == texts);
        CHECK(count.boxes == plain.boxes);
    }
}

int boxes()
{
    return plainread(saved("boxes.wmf", PLAIN), 0).boxes;
}

} // namespace

TEST_CASE("pictures of a grid with blocks have its numbers and letters")
{
    documentbegin("ab#\n...\n#.c\n");
    std::string name = grid.filename;
    bool changed = grid.changed;
    kinds(4 + 4, 3 + 5); // ab. has 1 and 2, ... 3, and the two words down 4 and 5
    CHECK(grid.filename == name);
    CHECK(grid.changed == changed);
    int with = boxes();
    documentbegin("abx\n...\ny.c\n");
    CHECK(with == boxes() + 2);
}

TEST_CASE("pictures of a grid with bars")
{
    documentbegin("...\n...\n...\n");
    int without = boxes();
    documentbegin("...\n...\n...\n\nleft 1,0 2,2\ntop 0,1\n");
    CHECK(boxes() == without + 3);
    kinds(4 + 4, 4);
}

TEST_CASE("a picture leaves the cursor and the mark out")
{
    documentbegin("ab\ncd\n");
    std::string before = saved("picture.wmf", PLAIN);
    grid.cursorx = grid.cursory = 0;
    grid.flags[1][0] |= CELLMARKED;
    CHECK(saved("picture.wmf", PLAIN) == before);
}

TEST_CASE("pictures of a Wordsquare show its solutions if they are wanted")
{
    documentbegin("heron\n.....\n");
    gridsetkind(GRIDWORDSQUARE);
    REQUIRE_FALSE(picturetextread("heron\nabcde\n", 12));
    solwordslayout();
    REQUIRE_FALSE(soladdword(0, 0, 1, 0, "heron"));
    REQUIRE_FALSE(soladdword(4, 1, -1, 0, "edcba"));
    grid.showsolutions = 1;
    kinds(3 + 6 + 2, 10);
    grid.showsolutions = 0;
    kinds(3 + 6, 10);
}

TEST_CASE("pictures of the largest grid, and of the narrowest")
{
    std::string rows;
    for (int y = 0; y < GRIDMAX; y++)
        rows += std::string(GRIDMAX, '#') + "\n";
    rows[0] = 'a';
    rows[rows.size() - 2] = 'z';
    documentbegin(rows);
    kinds(2 * (GRIDMAX + 1), 2);

    documentbegin("a\nb\n.\n");
    kinds(4 + 2, 2 + 1);
    documentbegin("abc\n");
    kinds(2 + 4, 3 + 1);
}

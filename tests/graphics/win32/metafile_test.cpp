// Metafiles, played back by the system onto bitmaps and compared with the same
// drawing done there.
#include "base/errors.h"
#include "base/flex.h"
#include "graphics/metafile.h"
#include "graphics/placeable.h"
#include "tests/graphics/win32/canvas.h"
#include "tests/graphics/win32/metadrawing.h"
#include "tests/support/runner.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

std::string path(const char *leaf)
{
    return scratchfolder() + "/" + leaf;
}

std::string bytesof(const std::string &file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool exists(const std::string &file)
{
    return std::filesystem::exists(file);
}

// The drawing, straight onto a bitmap.
struct drawncanvas : canvas {
    drawncanvas() : canvas(DRAWINGWIDTH, DRAWINGHEIGHT)
    {
        surfacesetunits(180, -180); // y goes down, as in a metafile
        metadraw();
    }
};

int32_t differences(const canvas &a, const canvas &b)
{
    GdiFlush();
    int32_t count = 0;
    for (int32_t y = 0; y < a.height; y++)
        for (int32_t x = 0; x < a.width; x++)
            count += (a.row(y)[x] ^ b.row(y)[x]) << 8 != 0;
    return count;
}

HDC contextof(const canvas &c)
{
    return reinterpret_cast<HDC>(c.drawing->dc);
}

void playplain(const std::string &bytes, const canvas &onto)
{
    HMETAFILE file = SetMetaFileBitsEx(static_cast<UINT>(bytes.size()),
                                       reinterpret_cast<const BYTE *>(bytes.data()));
    REQUIRE(file);
    CHECK(PlayMetaFile(contextof(onto), file));
    DeleteMetaFile(file);
}

void playenhanced(const std::string &file, const canvas &onto)
{
    HENHMETAFILE meta = GetEnhMetaFileA(file.c_str());
    REQUIRE(meta);
    RECT box = {0, 0, DRAWINGWIDTH, DRAWINGHEIGHT};
    CHECK(PlayEnhMetaFile(contextof(onto), meta, &box));
    char description[40] = {};
    REQUIRE(GetEnhMetaFileDescriptionA(meta, sizeof description, description) > 8);
    CHECK(!std::strcmp(description, "Calendar"));
    DeleteEnhMetaFile(meta);
}

intptr_t opened()
{
    intptr_t dc;
    REQUIRE_FALSE(metaopen(0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc));
    return dc;
}

intptr_t openedenhanced(const std::string &file)
{
    intptr_t dc;
    REQUIRE_FALSE(metaopenenhanced(file.c_str(), 0, DRAWINGWIDTH, DRAWINGHEIGHT, &dc, "Calendar"));
    return dc;
}

} // namespace

TEST_CASE("a metafile surface is 1 to 1, with y as it is")
{
    intptr_t dc = opened();
    CHECK(currentsurface == metasurface);
    CHECK(currentsurface->dc == dc);
    int32_t x = 1234, y = 567;
    surfacedevice(&x, &y);
    CHECK(x == 1234);
    CHECK(y == 567);
    REQUIRE_FALSE(metaclose(nullptr, dc, path("a.wmf").c_str()));
    CHECK(!currentsurface);
    CHECK(!metasurface);
    CHECK(!surfaces);
}

TEST_CASE("a plain metafile shows the drawing, and a placeable one is it with a header")
{
    intptr_t dc = opened();
    metadraw();
    REQUIRE_FALSE(metaclose(nullptr, dc, path("plain.wmf").c_str()));
    dc = opened();
    metadraw();
    REQUIRE_FALSE(metacloseplaceable(nullptr, dc, path("placeable.wmf").c_str(), 0, DRAWINGWIDTH,
                                     DRAWINGHEIGHT, 0, 120));

    std::string plain = bytesof(path("plain.wmf"));
    uint8_t header[PLACEABLESIZE];
    placeableheader({0, 0, DRAWINGWIDTH, DRAWINGHEIGHT, 120}, header);
    CHECK(bytesof(path("placeable.wmf")) ==
          std::string(reinterpret_cast<char *>(header), sizeof header) + plain);

    drawncanvas wanted;
    canvas seen(DRAWINGWIDTH, DRAWINGHEIGHT);
    playplain(plain, seen);
    CHECK(differences(wanted, seen) == 0);
    CHECK(wanted.count() > 10000);
}

TEST_CASE("an enhanced metafile shows the drawing")
{
    intptr_t dc = openedenhanced(path("a.emf"));
    metadraw();
    REQUIRE_FALSE(metacloseenhanced(nullptr, dc));
    drawncanvas wanted;
    canvas seen(DRAWINGWIDTH, DRAWINGHEIGHT);
    playenhanced(path("a.emf"), seen);
    CHECK(differences(wanted, seen) == 0);
}

TEST_CASE("an error goes through the close, and nothing is written")
{
    std::filesystem::remove(path("a.wmf"));
    std::filesystem::remove(path("a.emf"));
    errorblock *error = makeerror(ERRORQUIET);
    intptr_t dc = opened();
    CHECK(metaclose(error, dc, path("a.wmf").c_str()) == error);
    dc = opened();
    CHECK(metacloseplaceable(error, dc, path("a.wmf").c_str(), 0, 1, 1, 0, 120) == error);
    CHECK_FALSE(exists(path("a.wmf")));
    dc = openedenhanced(path("a.emf"));
    CHECK(metacloseenhanced(error, dc) == error);
    CHECK_FALSE(exists(path("a.emf")));
    CHECK(error->code == ERRORQUIET);
    CHECK(!surfaces);
}

TEST_CASE("what can't be opened or written is an error, and leaves nothing open")
{
    intptr_t dc = 1;
    std::string nowhere = path("no such folder/a");
    errorblock *err = metaopenenhanced(nowhere.c_str(), 0, 9, 9, &dc, "");
    CHECK(err);
    CHECK(dc == 0);
    CHECK(metacloseenhanced(err, dc) == err);
    CHECK(metaclose(nullptr, opened(), nowhere.c_str()));
    CHECK_FALSE(metaclose(nullptr, 0, nowhere.c_str()));

    flexfailafter(0); // the surface
    err = metaopen(0, 9, 9, &dc);
    REQUIRE(err);
    CHECK(err->code == ERRORMEMORY);
    CHECK(dc == 0);
    dc = opened();
    flexfailafter(0); // the bytes
    err = metaclose(nullptr, dc, path("short.wmf").c_str());
    flexfailafter(-1);
    REQUIRE(err);
    CHECK(err->code == ERRORMEMORY);
    CHECK_FALSE(exists(path("short.wmf")));
    CHECK(!surfaces);
}

TEST_CASE("hundreds of metafiles leave no object of the device behind")
{
    int before = 0;
    for (int n = 0; n < 300; n++) {
        if (n == 10) before = gdiobjects();
        intptr_t dc = opened();
        metadraw();
        metaclose(nullptr, dc, path("a.wmf").c_str());
        dc = openedenhanced(path("a.emf"));
        metadraw();
        metacloseenhanced(n & 1 ? makeerror(ERRORQUIET) : nullptr, dc);
    }
    CHECK(gdiobjects() == before);
}

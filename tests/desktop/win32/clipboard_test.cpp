// The clipboard between this program and another, for which plain calls of the
// system stand.
#include "desktop/clipboard.h"

#include "base/errors.h"
#include "base/flex.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <cstring>
#include <vector>

namespace
{

constexpr int32_t PRIVATE = 0x0200; // a format of our own
bool refused;                       // what render does

// The data of each format, a rectangle for a picture.
std::string dataof(int32_t format)
{
    if (format == CLIPTEXT) return std::string("caf\xE9", 5); // with its end
    if (format == PRIVATE) return "private";
    HDC dc = CreateMetaFileA(nullptr);
    Rectangle(dc, 1, 2, 30, 40);
    HMETAFILE made = CloseMetaFile(dc);
    std::string bytes(GetMetaFileBitsEx(made, 0, nullptr), 0);
    GetMetaFileBitsEx(made, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteMetaFile(made);
    return bytes;
}

errorblock *render(int32_t format)
{
    said("%d;", format);
    if (refused) return makeerrortext(9, "not now");
    std::string data = dataof(format);
    if (format == CLIPMETAFILE)
        data = "\xD7\xCD\xC6\x9A" + std::string(18, '\0') + data; // placeable
    void *to;
    errorblock *err = clipboardalloc(&to, 1); // thought better of
    if (!err) err = clipboardalloc(&to, static_cast<int32_t>(data.size()));
    if (!err) memcpy(to, data.data(), data.size());
    return err;
}

errorblock *destroy()
{
    said("gone;");
    return nullptr;
}

errorblock *offer(std::vector<int32_t> formats, uint32_t flags = 0)
{
    formats.push_back(0);
    return clipboardoffer(formats.data(), render, destroy, flags);
}

std::string pasted(int32_t format)
{
    void *data = nullptr;
    int32_t size = 0;
    REQUIRE_FALSE(clipboardpaste(format, &data, &size));
    std::string bytes(static_cast<char *>(data), static_cast<size_t>(size));
    heap_free(&data);
    return bytes;
}

// What the other program gets.
std::string theirs(int32_t format)
{
    OpenClipboard(nullptr);
    HANDLE data = GetClipboardData(static_cast<UINT>(format));
    std::string bytes = "none";
    if (data) bytes.assign(static_cast<const char *>(GlobalLock(data)), GlobalSize(data));
    if (data && format == CLIPMETAFILE) {
        auto *picture = reinterpret_cast<const METAFILEPICT *>(bytes.data());
        std::string file(GetMetaFileBitsEx(picture->hMF, 0, nullptr), 0);
        GetMetaFileBitsEx(picture->hMF, static_cast<UINT>(file.size()), file.data());
        bytes = file;
    }
    if (data) GlobalUnlock(data);
    CloseClipboard();
    return bytes;
}

bool ours(int32_t format)
{
    return theirs(format).starts_with(dataof(format));
}

} // namespace

TEST_CASE("what is offered is made when it is asked for, once, at once if so wanted, or at the end")
{
    library started;
    REQUIRE_FALSE(clipboardstart(0));
    refused = false;
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}));
    CHECK((clipboardowned() == 1 && taken() == ""));
    for (const char *made : {"1;", ""}) {
        CHECK(ours(CLIPTEXT));
        CHECK(taken() == made);
    }
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}, CLIPNOW));
    CHECK(taken() == "gone;1;512;");
    CHECK((ours(CLIPTEXT) && ours(PRIVATE)));

    refused = true; // a format that can't be made isn't there
    CHECK_FALSE(offer({CLIPTEXT}));
    std::string answer;
    CHECK(drivebox(IDOK, [&] { answer = theirs(CLIPTEXT); }) == "not now");
    CHECK(answer == "none");
    refused = false;

    CHECK_FALSE(offer({CLIPTEXT, CLIPMETAFILE, PRIVATE}));
    CHECK(pasted(CLIPTEXT).starts_with(dataof(CLIPTEXT))); // our own, too
    taken();
    CHECK_FALSE(clipboardend());
    CHECK(taken() == "1;3;512;gone;");
    CHECK((ours(CLIPTEXT) && ours(CLIPMETAFILE) && ours(PRIVATE))); // it outlives it
}

TEST_CASE("an offer is lost to the next one, and to another program, whose data can be pasted")
{
    for (uint32_t flags : {uint32_t{0}, CLIPOLE}) { // both interfaces of the system
        library started;
        REQUIRE_FALSE(clipboardstart(flags));
        CHECK_FALSE(offer({CLIPTEXT}));
        CHECK_FALSE(offer({PRIVATE}));
        CHECK(taken() == "gone;");
        CHECK(theirs(CLIPTEXT) == "none");
        HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 7);
        strcpy(static_cast<char *>(GlobalLock(block)), "theirs");
        GlobalUnlock(block);
        OpenClipboard(handleof(taskwindow(WS_POPUP)));
        EmptyClipboard();
        SetClipboardData(CF_TEXT, block);
        CloseClipboard();
        CHECK((taken() == "gone;" && clipboardowned() == 0));
        int32_t *list = nullptr;
        REQUIRE_FALSE(clipboardformats(&list));
        CHECK(*list == CLIPTEXT);
        heap_free(reinterpret_cast<void **>(&list));
        CHECK((pasted(CLIPTEXT).starts_with("theirs") && pasted(PRIVATE).empty()));
        CHECK_FALSE(clipboardend());
    }
}

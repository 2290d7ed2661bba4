// The clipboard between this program and another, for which plain calls of the
// system stand.
#include "desktop/clipboard.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/message.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <cstring>
#include <vector>

namespace
{

constexpr int32_t PRIVATE = 0x0200; // a format of our own
const std::string HEADER(22, '\0'); // of a placeable picture, but for its key
bool placeable, refused;            // what render does

// The bytes of a picture's file.
std::string bytesof(int32_t format, HANDLE made)
{
    std::string bytes(99999, 0);
    auto *to = reinterpret_cast<BYTE *>(bytes.data());
    bytes.resize(format == CLIPMETAFILE
                     ? GetMetaFileBitsEx(static_cast<HMETAFILE>(made), 99999, to)
                     : GetEnhMetaFileBits(static_cast<HENHMETAFILE>(made), 99999, to));
    return bytes;
}

// The data of each format, with a rectangle for a picture.
std::string dataof(int32_t format)
{
    if (format == CLIPTEXT) return std::string("caf\xE9", 5); // with its end
    if (format == PRIVATE) return "private";
    bool plain = format == CLIPMETAFILE;
    HDC dc = plain ? CreateMetaFileA(nullptr) : CreateEnhMetaFileA(nullptr, nullptr, nullptr, "");
    Rectangle(dc, 1, 2, 30, 40);
    HANDLE made = plain ? static_cast<HANDLE>(CloseMetaFile(dc)) : CloseEnhMetaFile(dc);
    return bytesof(format, made);
}

errorblock *render(int32_t format)
{
    said("%d;", format);
    if (refused) return makeerrortext(9, "not now");
    std::string data = dataof(format);
    if (placeable) data = "\xD7\xCD\xC6\x9A" + HEADER.substr(4) + data;
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

struct service {
    library started;

    explicit service(uint32_t flags = 0)
    {
        placeable = refused = false;
        REQUIRE_FALSE(clipboardstart(flags));
    }
    ~service()
    {
        CHECK_FALSE(clipboardend());
    }
};

errorblock *offer(std::vector<int32_t> formats, uint32_t flags = 0)
{
    formats.push_back(0);
    return clipboardoffer(formats.data(), render, destroy, flags);
}

int32_t firstformat()
{
    int32_t *list = nullptr;
    REQUIRE_FALSE(clipboardformats(&list));
    int32_t first = *list;
    heap_free(reinterpret_cast<void **>(&list));
    return first;
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
    if (data && format == CLIPENHMETAFILE) {
        bytes = bytesof(format, data);
    } else if (data) {
        auto *block = static_cast<const char *>(GlobalLock(data));
        auto *picture = reinterpret_cast<const METAFILEPICT *>(block);
        bytes = format == CLIPMETAFILE ? bytesof(format, picture->hMF)
                                       : std::string(block, GlobalSize(data));
        if (format == CLIPMETAFILE) CHECK((picture->mm == MM_ANISOTROPIC && picture->xExt == 0));
        GlobalUnlock(data);
    }
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
    service on;
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}));
    CHECK((clipboardowned() == 1 && taken() == ""));
    for (const char *made : {"1;", ""}) {
        CHECK(ours(CLIPTEXT));
        CHECK(taken() == made);
    }
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}, CLIPNOW));
    CHECK(taken() == "gone;1;512;");
    CHECK((ours(CLIPTEXT) && ours(PRIVATE)));
    placeable = true;
    CHECK_FALSE(offer({CLIPMETAFILE}));
    CHECK(ours(CLIPMETAFILE)); // without the header
    placeable = false;
    taken();

    // A format that can't be made isn't there.
    refused = true;
    CHECK(std::string(offer({CLIPTEXT}, CLIPNOW)->text) == "not now");
    CHECK(clipboardowned() == 0);
    CHECK_FALSE(offer({CLIPTEXT}));
    std::string answer;
    CHECK(drivebox(IDOK, [&] { answer = theirs(CLIPTEXT); }) == "not now");
    CHECK(answer == "none");
    refused = false;
    taken();

    for (bool program : {false, true}) {
        REQUIRE_FALSE(clipboardstart(0));
        CHECK_FALSE(offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE, PRIVATE}));
        CHECK(firstformat() == CLIPOWN);
        for (int32_t format : {CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE}) // our own, too
            CHECK(pasted(format).size() >= dataof(format).size());
        taken();
        CHECK((program ? broadcast(BROADCASTQUIT) == 1 : !clipboardend()));
        CHECK(taken() == "1;3;14;512;gone;");
        CHECK(clipboardowned() == 0);
        CHECK((ours(CLIPTEXT) && ours(CLIPMETAFILE) && ours(PRIVATE))); // it outlives it
    }
}

TEST_CASE("an offer is lost to the next one, and to another program, whose data can be pasted")
{
    for (uint32_t flags : {uint32_t{0}, CLIPOLE}) { // both interfaces of the system
        service on(flags);
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
        CHECK(firstformat() == CLIPTEXT);
        CHECK(pasted(CLIPTEXT).starts_with("theirs"));
        CHECK(pasted(PRIVATE).empty());
    }
    CHECK(taken() == "");     // not at the end either
    CHECK(offer({CLIPTEXT})); // without the service

    int32_t first = 0, again = 0;
    CHECK_FALSE(clipboardformatnumber("Words of the test", &first));
    CHECK_FALSE(clipboardformatnumber("words of the TEST", &again));
    CHECK((first >= 0xC000 && again == first));
}

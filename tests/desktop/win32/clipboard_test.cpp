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

enum renders { WHOLE, PLACEABLE, EMPTY, REFUSED };
renders how;

std::string plainbytes(HMETAFILE metafile)
{
    std::string bytes(GetMetaFileBitsEx(metafile, 0, nullptr), 0);
    GetMetaFileBitsEx(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    return bytes;
}

std::string enhancedbytes(HENHMETAFILE metafile)
{
    std::string bytes(GetEnhMetaFileBits(metafile, 0, nullptr), 0);
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()),
                       reinterpret_cast<BYTE *>(bytes.data()));
    return bytes;
}

// Their data, with the pictures as files of a rectangle.
std::string dataof(int32_t format)
{
    if (format == CLIPTEXT) return std::string("caf\xE9", 5);
    if (format == PRIVATE) return "private";
    bool plain = format == CLIPMETAFILE;
    HDC dc =
        plain ? CreateMetaFileA(nullptr) : CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    Rectangle(dc, 1, 2, 30, 40);
    if (plain) {
        HMETAFILE made = CloseMetaFile(dc);
        std::string bytes = how == PLACEABLE ? "\xD7\xCD\xC6\x9A" + std::string(18, 'h') : "";
        bytes += plainbytes(made);
        DeleteMetaFile(made);
        return bytes;
    }
    HENHMETAFILE made = CloseEnhMetaFile(dc);
    std::string bytes = enhancedbytes(made);
    DeleteEnhMetaFile(made);
    return bytes;
}

errorblock *render(int32_t format)
{
    said("%d;", format);
    if (how == REFUSED) return makeerrortext(9, "not now");
    if (how == EMPTY) return nullptr;
    std::string data = dataof(format);
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
        how = WHOLE;
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

std::string formatsnow()
{
    int32_t *list = nullptr;
    REQUIRE_FALSE(clipboardformats(&list));
    std::string found;
    for (int32_t *format = list; *format; format++)
        found += std::to_string(*format) + " ";
    heap_free(reinterpret_cast<void **>(&list));
    return found;
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
        bytes = enhancedbytes(static_cast<HENHMETAFILE>(data));
    } else if (data) {
        auto *block = static_cast<const char *>(GlobalLock(data));
        auto *picture = reinterpret_cast<const METAFILEPICT *>(block);
        bytes = format == CLIPMETAFILE ? plainbytes(picture->hMF)
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

void copytheirs(window w)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 7);
    strcpy(static_cast<char *>(GlobalLock(block)), "theirs");
    GlobalUnlock(block);
    OpenClipboard(handleof(w));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
}

} // namespace

TEST_CASE("what is offered is made when it is asked for, once, or at once if so wanted")
{
    service on;
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}));
    CHECK(clipboardowned() == 1);
    CHECK(taken() == "");
    for (const char *made : {"1;", ""}) {
        CHECK(ours(CLIPTEXT));
        CHECK(taken() == made);
    }
    CHECK(ours(PRIVATE));
    CHECK(taken() == "512;");
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}, CLIPNOW));
    CHECK(taken() == "gone;1;512;");
    CHECK(ours(CLIPTEXT));
    for (renders header : {PLACEABLE, WHOLE}) { // pictures: the bytes of their files
        how = header;
        CHECK_FALSE(offer({CLIPMETAFILE, CLIPENHMETAFILE}));
        CHECK(theirs(CLIPMETAFILE) == dataof(CLIPMETAFILE).substr(header == PLACEABLE ? 22 : 0));
        CHECK(theirs(CLIPENHMETAFILE).size() == dataof(CLIPENHMETAFILE).size());
    }
    taken();

    // A format that can't be made isn't there.
    how = REFUSED;
    CHECK(std::string(offer({CLIPTEXT}, CLIPNOW)->text) == "not now");
    CHECK(clipboardowned() == 0);
    CHECK_FALSE(offer({CLIPTEXT}));
    std::string answer;
    CHECK(drivebox(IDOK, [&] { answer = theirs(CLIPTEXT); }) == "not now");
    CHECK(answer == "none");
    how = EMPTY; // its good right
    CHECK(theirs(CLIPTEXT) == "none");
}

TEST_CASE("an offer is lost to the next one, and to another program")
{
    for (uint32_t flags : {uint32_t{0}, CLIPOLE}) { // both interfaces of the system
        service on(flags);
        CHECK_FALSE(offer({CLIPTEXT}));
        CHECK_FALSE(offer({PRIVATE}));
        CHECK(taken() == "gone;");
        CHECK(theirs(CLIPTEXT) == "none");
        copytheirs(taskwindow(WS_POPUP));
        CHECK(taken() == "gone;");
        CHECK(clipboardowned() == 0);
        CHECK(formatsnow().starts_with(std::to_string(CLIPTEXT) + " "));
        CHECK(pasted(CLIPTEXT).starts_with("theirs"));
        CHECK(pasted(PRIVATE).empty());
    }
    CHECK(taken() == "");     // not at the end either
    CHECK(offer({CLIPTEXT})); // without the service

    int32_t first = 0, again = 0;
    CHECK_FALSE(clipboardformatnumber("Words of the test", &first));
    CHECK_FALSE(clipboardformatnumber("words of the TEST", &again));
    CHECK((first >= 0xC000 && again == first));
    CHECK(clipboardformatnumber("", &first));
}

TEST_CASE("our own offer can be pasted, and everything is made when the service ends")
{
    for (bool program : {false, true}) {
        service on;
        CHECK_FALSE(offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE, PRIVATE}));
        CHECK(formatsnow() == std::to_string(CLIPOWN) + " ");
        CHECK(pasted(CLIPTEXT).starts_with("caf\xE9"));
        CHECK(pasted(CLIPMETAFILE) == dataof(CLIPMETAFILE));
        CHECK(pasted(CLIPENHMETAFILE).size() == dataof(CLIPENHMETAFILE).size());
        taken();
        if (program)
            CHECK(broadcast(BROADCASTQUIT) == 1);
        else
            CHECK_FALSE(clipboardend());
        CHECK(taken() == "1;3;14;512;gone;");
        CHECK(clipboardowned() == 0);
        CHECK((ours(CLIPTEXT) && ours(CLIPMETAFILE) && ours(PRIVATE))); // it outlives it
    }
}

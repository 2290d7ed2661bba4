// The clipboard between two programs.
#include "desktop/clipboard.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/message.h"
#include "tests/desktop/win32/partner.h"
#include "tests/desktop/win32/script.h"

#include <doctest/doctest.h>

#include <cstring>
#include <vector>

namespace
{

constexpr int32_t PRIVATE = 0x0200; // a format of our own

enum renders { WHOLE, PLACEABLE, EMPTY, REFUSED };
renders how;

std::string plainpicture()
{
    HDC dc = CreateMetaFileA(nullptr);
    Rectangle(dc, 1, 2, 30, 40);
    HMETAFILE metafile = CloseMetaFile(dc);
    std::string bytes(GetMetaFileBitsEx(metafile, 0, nullptr), 0);
    GetMetaFileBitsEx(metafile, static_cast<UINT>(bytes.size()), bytes.data());
    DeleteMetaFile(metafile);
    return bytes;
}

std::string enhancedpicture()
{
    HDC dc = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    Ellipse(dc, 1, 2, 30, 40);
    HENHMETAFILE metafile = CloseEnhMetaFile(dc);
    std::string bytes(GetEnhMetaFileBits(metafile, 0, nullptr), 0);
    GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()),
                       reinterpret_cast<BYTE *>(bytes.data()));
    DeleteEnhMetaFile(metafile);
    return bytes;
}

std::string dataof(int32_t format)
{
    if (format == CLIPTEXT) return std::string("caf\xE9", 5);
    if (format == CLIPENHMETAFILE) return enhancedpicture();
    if (format != CLIPMETAFILE) return "private";
    std::string header = "\xD7\xCD\xC6\x9A";
    header.resize(22, 'h');
    return (how == PLACEABLE ? header : "") + plainpicture();
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

// What the other program gets, as far as the text in hexadecimal goes.
const char CAFE[] = "636166e900", THEPRIVATE[] = "70726976617465";

} // namespace

TEST_CASE("what is offered is made when it is asked for, once, or at once if so wanted")
{
    partnerprogram partner;
    service on;
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}));
    CHECK(clipboardowned() == 1);
    CHECK(taken() == "");
    for (const char *made : {"1;", ""}) {
        CHECK(partner.ask("paste 1").starts_with(CAFE));
        CHECK(taken() == made);
    }
    CHECK(partner.ask("paste 200").starts_with(THEPRIVATE));
    CHECK(taken() == "512;");
    CHECK_FALSE(offer({CLIPTEXT, PRIVATE}, CLIPNOW));
    CHECK(taken() == "gone;1;512;");
    CHECK(partner.ask("paste 1").starts_with(CAFE));
    for (renders header : {WHOLE, PLACEABLE}) { // pictures: the bytes of their files
        how = header;
        CHECK_FALSE(offer({CLIPMETAFILE}));
        CHECK(partner.ask("paste 3") ==
              "mode 8 size 0,0 bytes " + std::to_string(plainpicture().size()));
    }
    CHECK_FALSE(offer({CLIPENHMETAFILE}));
    CHECK(partner.ask("paste E") == "bytes " + std::to_string(enhancedpicture().size()));
    taken();

    // A format that can't be made isn't there.
    how = REFUSED;
    CHECK(std::string(offer({CLIPTEXT}, CLIPNOW)->text) == "not now");
    CHECK(clipboardowned() == 0);
    CHECK_FALSE(offer({CLIPTEXT}));
    std::string answer;
    CHECK(drivebox(IDOK, [&] { answer = partner.ask("paste 1"); }) == "not now");
    CHECK(answer == "none");
    how = EMPTY; // its good right
    CHECK(partner.ask("paste 1") == "none");
}

TEST_CASE("an offer is lost to the next one, and to another program")
{
    partnerprogram partner;
    for (uint32_t flags : {uint32_t{0}, CLIPOLE}) { // both interfaces of the system
        service on(flags);
        CHECK_FALSE(offer({CLIPTEXT}));
        CHECK_FALSE(offer({PRIVATE}));
        CHECK(taken() == "gone;");
        CHECK(partner.ask("paste 1") == "none");
        CHECK(partner.ask("copy theirs") == "ok");
        CHECK(taken() == "gone;");
        CHECK(clipboardowned() == 0);
        CHECK(formatsnow().starts_with(std::to_string(CLIPTEXT) + " "));
        CHECK(pasted(CLIPTEXT).starts_with("theirs"));
        CHECK(pasted(PRIVATE).empty());
    }
    CHECK(taken() == "");     // not at the end either
    CHECK(offer({CLIPTEXT})); // without the service
    CHECK(pasted(CLIPTEXT).starts_with("theirs"));

    int32_t first = 0, again = 0;
    CHECK_FALSE(clipboardformatnumber("Words of the test", &first));
    CHECK_FALSE(clipboardformatnumber("words of the TEST", &again));
    CHECK((first >= 0xC000 && again == first));
    CHECK(clipboardformatnumber("", &first));
}

TEST_CASE("our own offer can be pasted, and everything is made when the service ends")
{
    partnerprogram partner;
    for (bool program : {false, true}) {
        service on;
        CHECK_FALSE(offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE}));
        CHECK(formatsnow() == std::to_string(CLIPOWN) + " ");
        CHECK(pasted(CLIPTEXT).starts_with("caf\xE9"));
        CHECK(pasted(CLIPMETAFILE) == plainpicture());
        CHECK(pasted(CLIPENHMETAFILE).size() == enhancedpicture().size());
        CHECK_FALSE(offer({CLIPTEXT, CLIPMETAFILE, PRIVATE}));
        partner.ask("paste 1");
        taken();
        if (program)
            CHECK(broadcast(BROADCASTQUIT) == 1);
        else
            CHECK_FALSE(clipboardend());
        CHECK(taken() == "1;3;512;gone;");
        CHECK(clipboardowned() == 0);
        CHECK(partner.ask("paste 1").starts_with(CAFE)); // it outlives it
        CHECK(partner.ask("paste 3").starts_with("mode 8"));
        CHECK(partner.ask("paste 200").starts_with(THEPRIVATE));
    }
    service on;
    drivecounts before = {};
    for (int i = 0; i < 20; i++) {
        CHECK_FALSE(offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE}, CLIPNOW));
        if (!i) before = drivecountnow();
        for (int32_t format : {CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE})
            pasted(format);
    }
    CHECK(drivecountnow().gdiobjects < before.gdiobjects + 10);
    CHECK(drivecountnow().userobjects < before.userobjects + 10);
}

// The clipboard between two programs.
#include "desktop/clipboard.h"

#include "base/errors.h"
#include "base/flex.h"
#include "desktop/blocks.h"
#include "desktop/message.h"
#include "desktop/stages.h"
#include "tests/desktop/win32/partner.h"
#include "tests/support/driver.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

namespace
{

constexpr int32_t PRIVATE = 0x0200; // a format of our own

std::vector<int32_t> rendered;
int destroyed;
bool refusing, placeable, empty;

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
    return (placeable ? header : "") + plainpicture();
}

errorblock *render(int32_t format)
{
    rendered.push_back(format);
    if (refusing) return makeerrortext(9, "not now");
    if (empty) return nullptr;
    std::string data = dataof(format);
    void *to;
    errorblock *err = clipboardalloc(&to, 1); // thought better of
    if (!err) err = clipboardalloc(&to, static_cast<int32_t>(data.size()));
    if (!err) memcpy(to, data.data(), data.size());
    return err;
}

errorblock *destroy()
{
    destroyed++;
    return nullptr;
}

struct service {
    explicit service(uint32_t flags = 0)
    {
        rendered.clear();
        destroyed = 0;
        refusing = placeable = empty = false;
        REQUIRE(inittemp() == nullptr);
        REQUIRE(blockstart() == nullptr);
        REQUIRE(clipboardstart(flags) == nullptr);
    }
    ~service()
    {
        CHECK(clipboardend() == nullptr);
        blockend();
    }
};

using words = std::vector<int32_t>;

void offer(const words &formats, uint32_t flags = 0)
{
    words ended = formats;
    ended.push_back(0);
    REQUIRE(clipboardoffer(ended.data(), render, destroy, flags) == nullptr);
}

words formatsnow()
{
    int32_t *list = nullptr;
    REQUIRE(clipboardformats(&list) == nullptr);
    words found;
    for (int32_t *format = list; *format; format++)
        found.push_back(*format);
    heap_free(reinterpret_cast<void **>(&list));
    return found;
}

std::string pasted(int32_t format)
{
    void *data = nullptr;
    int32_t size = 0;
    REQUIRE(clipboardpaste(format, &data, &size) == nullptr);
    std::string bytes(static_cast<char *>(data), static_cast<size_t>(size));
    heap_free(&data);
    return bytes;
}

const std::string CAFE = "636166e900";

} // namespace

TEST_CASE("what is offered is made when another program asks, once")
{
    service on;
    partnerprogram partner;
    offer({CLIPTEXT, PRIVATE});
    CHECK(clipboardowned() == 1);
    std::string formats = partner.ask("formats");
    CHECK(formats.find("1 ") == 0);
    CHECK(formats.find("512 ") != std::string::npos);
    CHECK(rendered.empty());
    for (int times = 0; times < 2; times++) {
        CHECK(partner.ask("paste 1").find(CAFE) == 0);
        CHECK(rendered == words{CLIPTEXT});
    }
    CHECK(partner.ask("paste 200").find("70726976617465") == 0);
    CHECK(rendered == words{CLIPTEXT, PRIVATE});
    CHECK(destroyed == 0);
}

TEST_CASE("pictures are made of the bytes of their files")
{
    service on;
    partnerprogram partner;
    for (bool header : {false, true}) {
        placeable = header;
        offer({CLIPMETAFILE});
        CHECK(partner.ask("paste 3") ==
              "mode 8 size 0,0 bytes " + std::to_string(plainpicture().size()));
    }
    offer({CLIPENHMETAFILE});
    CHECK(partner.ask("paste E") == "bytes " + std::to_string(enhancedpicture().size()));
}

TEST_CASE("an offer is lost to the next one, and to another program")
{
    partnerprogram partner;
    for (uint32_t flags : {uint32_t{0}, CLIPOLE}) { // both interfaces of the system
        {
            service on(flags);
            offer({CLIPTEXT});
            offer({PRIVATE});
            CHECK(destroyed == 1);
            CHECK(partner.ask("paste 1") == "none");
            CHECK(partner.ask("copy theirs") == "ok");
            CHECK(destroyed == 2);
            CHECK(clipboardowned() == 0);
            CHECK(formatsnow().front() == CLIPTEXT);
            CHECK(pasted(CLIPTEXT).find("theirs") == 0);
            CHECK(pasted(PRIVATE).empty());
        }
        CHECK(rendered.empty()); // not at the end either
        CHECK(destroyed == 2);
    }

    // Without the service.
    int32_t formats[] = {CLIPTEXT, 0};
    CHECK(clipboardoffer(formats, render, destroy, 0) != nullptr);
    CHECK(clipboardowned() == 0);
    CHECK(pasted(CLIPTEXT).find("theirs") == 0);
}

TEST_CASE("our own offer is told, and can be pasted")
{
    service on;
    offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE});
    CHECK(formatsnow() == words{CLIPOWN});
    CHECK(pasted(CLIPTEXT).find("caf\xE9") == 0);
    CHECK(pasted(CLIPMETAFILE) == plainpicture());
    CHECK(pasted(CLIPENHMETAFILE).size() == enhancedpicture().size());
}

TEST_CASE("everything is made when the service ends, and outlives it")
{
    partnerprogram partner;
    {
        service on;
        offer({CLIPTEXT, CLIPMETAFILE, PRIVATE});
        partner.ask("paste 1");
        SUBCASE("by its end")
        {
            CHECK(clipboardend() == nullptr);
            CHECK(clipboardend() == nullptr); // off already
        }
        SUBCASE("by the end of the program")
        {
            CHECK(broadcast(BROADCASTQUIT) == 1);
        }
        CHECK(rendered == words{CLIPTEXT, CLIPTEXT, CLIPMETAFILE, PRIVATE});
        CHECK(destroyed == 1);
        CHECK(clipboardowned() == 0);
    }
    CHECK(partner.ask("paste 1").find(CAFE) == 0);
    CHECK(partner.ask("paste 3").find("mode 8") == 0);
    CHECK(partner.ask("paste 200").find("70726976617465") == 0);
    CHECK(destroyed == 1);
}

TEST_CASE("formats may be made at once")
{
    service on;
    offer({CLIPTEXT, PRIVATE}, CLIPNOW);
    CHECK(rendered == words{CLIPTEXT, PRIVATE});
    partnerprogram partner;
    CHECK(partner.ask("paste 1").find(CAFE) == 0);
    CHECK(rendered == words{CLIPTEXT, PRIVATE});
}

TEST_CASE("a format that can't be made isn't there")
{
    service on;
    int32_t formats[] = {CLIPTEXT, 0};
    refusing = true;
    errorblock *err = clipboardoffer(formats, render, destroy, CLIPNOW);
    REQUIRE(err != nullptr);
    CHECK(std::string(err->text) == "not now");
    CHECK(clipboardowned() == 0);
    CHECK(destroyed == 0);

    partnerprogram partner;
    offer({CLIPTEXT});
    std::string answer;
    CHECK(drivebox(IDOK, [&] { answer = partner.ask("paste 1"); }) == "not now");
    CHECK(answer == "none");
    refusing = false;
    empty = true; // render makes nothing, which is its good right
    CHECK(partner.ask("paste 1") == "none");
}

TEST_CASE("formats are known by name")
{
    int32_t first = 0, again = 0;
    CHECK(clipboardformatnumber("Words of the test", &first) == nullptr);
    CHECK(clipboardformatnumber("words of the TEST", &again) == nullptr);
    CHECK(first >= 0xC000);
    CHECK(again == first);
    CHECK(clipboardformatnumber("", &first) != nullptr);
}

TEST_CASE("offers and pastes leave nothing of the system's behind")
{
    service on;
    offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE}, CLIPNOW);
    drivecounts before = drivecountnow();
    for (int i = 0; i < 20; i++) {
        offer({CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE}, CLIPNOW);
        for (int32_t format : {CLIPTEXT, CLIPMETAFILE, CLIPENHMETAFILE})
            pasted(format);
    }
    drivecounts after = drivecountnow();
    CHECK(after.gdiobjects < before.gdiobjects + 10);
    CHECK(after.userobjects < before.userobjects + 10);
}

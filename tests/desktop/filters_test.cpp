#include "desktop/filters.h"

#include "desktop/blocks.h"
#include "tests/desktop/fake/fakesource.h"
#include "tools/headless.h"

#include <doctest/doctest.h>

namespace
{

int stopat; // the data of the filter that stops

errorblock *filter(const systemmessage *message, intptr_t data, int *stop, intptr_t *result,
                   int *kind)
{
    fake.log.push_back(std::to_string(data) + ":" + std::to_string(message->wparam));
    CHECK(*stop == 0);
    if (data != stopat) return nullptr;
    *stop = 1;
    *result = 100 + data;
    *kind = 1;
    return fakeerror();
}

} // namespace

TEST_CASE("filters by message, by window and for all")
{
    REQUIRE(blockstart() == nullptr);
    intptr_t result = 0;
    int kind = 0;
    stopat = -1;

    // Registered from the widest to the narrowest; called the other way.
    addfilter(filter, -1, -1, 1);
    addfilter(filter, -1, 10, 2);
    addfilter(filter, 5, 10, 3);
    addfilter(nullptr, 5, 10, 4);
    addpollfilter(filter, -1, -1, 6);
    addpollfilter(filter, 5, 10, 7);
    CHECK(findblock(EVENTFILTERALL, 0, 0, 1, nullptr) == 0);
    CHECK(findblock(EVENTFILTERWINDOW, 0, 10, 2, nullptr) == 1);
    CHECK(findblock(EVENTFILTER, 5, 10, 3, nullptr) == 2);
    CHECK(findblock(EVENTPOLLFILTERALL, 0, 0, 6, nullptr) == 4);
    CHECK(findblock(EVENTPOLLFILTER, 5, 10, 7, nullptr) == 5);

    systemmessage message = {10, 5, 77, 0};
    CHECK_FALSE(runfilters(FILTERWINDOW, &message, &result, &kind));
    CHECK(fakelog() == "3:77, 2:77, 1:77");
    CHECK_FALSE(runfilters(FILTERPOLL, &message, &result, &kind));
    CHECK(fakelog() == "7:77, 6:77");
    message.message = 6;
    runfilters(FILTERWINDOW, &message, &result, &kind);
    CHECK(fakelog() == "2:77, 1:77");
    message.window = 11;
    runfilters(FILTERWINDOW, &message, &result, &kind);
    CHECK(fakelog() == "1:77");

    // All of them run, even behind one that stops; errors are shown.
    message = {10, 5, 77, 0};
    stopat = 3;
    CHECK(runfilters(FILTERWINDOW, &message, &result, &kind));
    CHECK(fakelog() == "3:77, 2:77, 1:77");
    CHECK(result == 103);
    CHECK(kind == 1);
    CHECK(headless.boxes == 1);

    // A window's own filter of the poll is delivered, though no call makes one.
    addblock(EVENTPOLLFILTERWINDOW, 0, 10, 8, anyfunction(filter), nullptr);
    runfilters(FILTERPOLL, &message, &result, &kind);
    CHECK(fakelog() == "7:77, 8:77, 6:77");
    remblock(EVENTPOLLFILTERWINDOW, 0, 10, 8, anyfunction(filter), nullptr);

    remfilter(filter, -1, -1, 1);
    remfilter(filter, -1, 10, 2);
    remfilter(filter, 5, 10, 3);
    remfilter(nullptr, 5, 10, 4);
    rempollfilter(filter, -1, -1, 6);
    rempollfilter(filter, 5, 10, 7);
    CHECK(blockcount() == 0);
}

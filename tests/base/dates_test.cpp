#include "base/dates.h"

#include "base/platform.h"
#include "tests/base/scratch.h"

#include <cstring>

namespace
{

constexpr uint32_t DAY = 24 * 60 * 60 * 100;
constexpr uint32_t JAN1999 = 36159; // days from 1900 to the first of January 1999, a Friday
constexpr uint32_t MAR2000 = 36584; // to the first of March 2000, a Wednesday

// The time at which the clocks here show noon of a day and some centiseconds
// more. Works in every time zone.
time5 noon(uint32_t day, uint32_t more = 0)
{
    uint64_t count = static_cast<uint64_t>(day) * DAY + DAY / 2;
    for (int i = 0; i < 2; i++) {
        time5 guess = {static_cast<uint32_t>(count), static_cast<uint32_t>(count >> 32)};
        platformdate shown;
        CHECK(!platformlocaltime(timetosystem(&guess), &shown));
        int32_t days = (shown.weekday - static_cast<int32_t>((day + 1) % 7) + 7) % 7;
        if (days == 6) days = -1;
        int32_t minutes = days * 24 * 60 + (shown.hour - 12) * 60 + shown.minute;
        count -= static_cast<uint64_t>(static_cast<int64_t>(minutes) * 6000);
    }
    count += more;
    return {static_cast<uint32_t>(count), static_cast<uint32_t>(count >> 32)};
}

std::string text(const std::string &format, const time5 &time)
{
    char out[DATESIZE];
    int32_t length = timeformat(out, format.c_str(), &time);
    CHECK(length == static_cast<int32_t>(strlen(out)));
    return out;
}

// What a call with such a parameter writes.
template<class call, class... parameters> std::string written(call make, parameters... arguments)
{
    char out[DATESIZE];
    make(out, arguments...);
    return out;
}

} // namespace

TEST_CASE("the date language")
{
    // Seven minutes and nine seconds past one on the fifth of January 1999.
    const time5 early = noon(JAN1999 + 4, (67 * 60 + 9) * 100);
    const time5 first = noon(JAN1999, 7), midnight = noon(JAN1999, DAY / 2);
    const std::string full(127, 'x');
    const struct {
        time5 time;
        std::string format, text;
    } list[] = {{early, "%DY %ZDY %dy/%MN/%zmn", "05 5 05/01/1"},
                {early, "%W3 %WN %WE %M3 %MO", "Tue Tue Tuesday Jan January"},
                {early, "%CE%YR %CE-%YR %12 %Z12 %24 %Z24 %AM %PM", "1999 19-99 01 1 13 13 PM PM"},
                {early, "%MI %ZMI %SE %ZSE %WK %ZWK", "07 7 09 9 01 1"},
                {first, "%CS %12 %24 %AM", "07 12 12 PM"},
                {midnight, "%12 %Z12 %24 %AM", "12 12 00 AM"},
                {noon(JAN1999 + 1), "%WK", "00"},              // weeks begin on a Sunday
                {noon(MAR2000), "%MO %ZDY %WK", "March 1 09"}, // in a leap year
                {noon(MAR2000 + 305), "%MO %DY %WK", "December 31 53"},
                {first, "%?100 x%", "%100 x%"},
                {first, "%%YR", "%YR"}, // the second sign is what is dropped
                {first, "x%Z", "x%"},
                {first, "%YR%0%YR", "99"},
                {first, full + "x", ""},
                {first, full.substr(1) + "%YR", ""}};
    for (const auto &row : list)
        CHECK(text(row.format, row.time) == row.text);
    std::string suffixes;
    for (uint32_t day : {1u, 2u, 3u, 4u, 11u, 12u, 13u, 20u, 21u, 22u, 23u, 30u, 31u})
        suffixes += text("%ST ", noon(JAN1999 + day - 1));
    CHECK(suffixes == "st nd rd th th th th th st nd rd th st ");

    CHECK(written(datetext, &early) == "5 Jan 99");
    CHECK(written(timetext, &early) == "1:07PM");
    fileinfo info = {};
    CHECK(written(filedatetext, &info) == "");
    timetofileinfo(&info, &early);
    CHECK(written(filedatetext, &info) == "13:07:09 Tue 05 Jan 99");
    for (auto [centiseconds, want] : {std::pair{DAY, "00:00:00"},
                                      {360000u + 6000 * 2 + 399, "01:02:03"},
                                      {0xFFFFFFFFu, "02:27:52"}})
        CHECK(written(durationtext, centiseconds) == want);
}

TEST_CASE("the time now, in formats that may be set")
{
    setdateformats("%CE%YR", "at");
    CHECK(written(nowtextboth).starts_with("at 20"));
    CHECK(written(nowtexttime) == "at");
    CHECK(written(nowtextdate).size() == 4);
    CHECK(written(nowtext, false, false) == "");
    setdateformats(nullptr, nullptr);
    std::string now;
    time5 before, after;
    do { // unless midnight comes between
        timeget(&before);
        now = written(nowtextdate);
        timeget(&after);
    } while (text("%DY", before) != text("%DY", after));
    CHECK(now == written(datetext, &after));
}

TEST_CASE("times compare, add and convert")
{
    time5 a = {0xFFFFFFFE, 0x10}, b = a;
    CHECK(timecompare(&a, &b) == -1); // equal times too
    timeadd(&b, 5, true);
    CHECK((timecount(&b) == INT64_C(0x1100000003) && timecompare(&b, &a) == 1));
    timeadd(&b, 5, false);
    CHECK(timecount(&b) == timecount(&a));
    time5 start = timefromsystem(UINT64_C(116444736000000000));
    CHECK(timecount(&start) == INT64_C(25567) * DAY); // 1970
    CHECK(timetosystem(&start) == UINT64_C(116444736000000000));

    fileinfo infos[3] = {{}, {}, {}}; // undated, early and late
    for (uint32_t i : {1u, 2u}) {
        time5 time = {5, i - 1};
        infos[i].loadaddress = 0x12300; // the type stays
        timetofileinfo(&infos[i], &time);
        CHECK(infos[i].loadaddress == 0xFFF12300 + i - 1);
    }
    for (int i = 0; i < 3; i++)
        for (int j = 0; j < 3; j++)
            CHECK(timecompareinfo(&infos[i], &infos[j]) == (i > j ? 1 : i || j ? -1 : 0));
}

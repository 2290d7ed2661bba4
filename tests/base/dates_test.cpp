#include "base/dates.h"
#include "base/files.h"
#include "base/platform.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <utility>

namespace
{

constexpr uint32_t DAY = 24 * 60 * 60 * 100;

// The time at which the clocks here show noon of a day and some centiseconds
// more; days count from the first of January 1900. Works in every time zone.
time5 noon(uint32_t day, uint32_t more = 0)
{
    uint64_t count = static_cast<uint64_t>(day) * DAY + DAY / 2;
    for (int i = 0; i < 2; i++) {
        time5 guess = {static_cast<uint32_t>(count), static_cast<uint32_t>(count >> 32)};
        platformdate shown;
        CHECK(platformlocaltime(timetosystem(&guess), &shown) == nullptr);
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

constexpr uint32_t JAN1999 = 36159; // days to the first of January 1999, a Friday
constexpr uint32_t MAR2000 = 36584; // the first of March 2000, a Wednesday

} // namespace

TEST_CASE("fields of the date language")
{
    // The fifth of January 1999, seven minutes and nine seconds past one.
    time5 time = noon(JAN1999 + 4, (67 * 60 + 9) * 100);
    CHECK(text("%DY %ZDY %dy/%MN/%zmn", time) == "05 5 05/01/1");
    CHECK(text("%W3 %WN %WE %M3 %MO", time) == "Tue Tue Tuesday Jan January");
    CHECK(text("%YR %CE %CE%YR %CE-%YR", time) == "99 19 1999 19-99");
    CHECK(text("%12 %Z12 %24 %Z24 %AM %PM", time) == "01 1 13 13 PM PM");
    CHECK(text("%MI %ZMI %SE %ZSE %WK %ZWK", time) == "07 7 09 9 01 1");
    CHECK(text("%CS", noon(JAN1999, 7)) == "07");
    CHECK(text("%12 %24 %AM", noon(JAN1999)) == "12 12 PM");
    CHECK(text("%12 %Z12 %24 %AM", noon(JAN1999, DAY / 2)) == "12 12 00 AM");

    CHECK(written(datetext, &time) == "5 Jan 99");
    CHECK(written(timetext, &time) == "1:07PM");
    CHECK(written(timestamptext, &time) == "13:07:09 Tue 05 Jan 99");
    fileinfo info = {};
    CHECK(written(filedatetext, &info) == "");
    timetofileinfo(&info, &time);
    CHECK(written(filedatetext, &info) == "13:07:09 Tue 05 Jan 99");
}

TEST_CASE("weeks begin on a Sunday")
{
    CHECK(text("%WK", noon(JAN1999 + 1)) == "00"); // Saturday
    CHECK(text("%ZWK", noon(JAN1999 + 2)) == "1");
    CHECK(text("%MO %ZDY %WK", noon(MAR2000)) == "March 1 09"); // a leap year
    CHECK(text("%MO %DY %WK", noon(MAR2000 + 305)) == "December 31 53");
}

TEST_CASE("days have their ordinals")
{
    const char *suffixes[] = {"st", "nd", "rd", "th"};
    for (uint32_t day = 1; day <= 31; day++) {
        uint32_t kind = day / 10 == 1 || day % 10 == 0 ? 4 : day % 10;
        CHECK(text("%ST", noon(JAN1999 + day - 1)) == suffixes[kind > 3 ? 3 : kind - 1]);
    }
}

TEST_CASE("what is no field, and what doesn't fit")
{
    const std::string full(127, 'x');
    const std::pair<std::string, std::string> rows[] = {
        {"a b", "a b"},
        {"%?100", "%100"},
        {"%%YR", "%YR"}, // the second sign is what is dropped
        {"x%", "x%"},
        {"x%Z", "x%"},
        {"%YR%0%YR", "99"},
        {"", ""},
        {full, full},
        {full + "x", ""},
        {full.substr(1) + "%YR", ""},
    };
    for (const auto &[format, result] : rows)
        CHECK(text(format, noon(JAN1999)) == result);
}

TEST_CASE("the time now, in formats that may be set")
{
    setdateformats("%CE%YR", "at");
    std::string both = written(nowtextboth);
    CHECK(both.starts_with("at 20"));
    CHECK(both.size() == 7);
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

TEST_CASE("durations wrap at a day")
{
    for (auto [centiseconds, want] : {std::pair{DAY, "00:00:00"},
                                      {DAY - 1, "23:59:59"},
                                      {360000u + 6000 * 2 + 399, "01:02:03"},
                                      {0xFFFFFFFFu, "02:27:52"}})
        CHECK(written(durationtext, centiseconds) == want);
}

TEST_CASE("times compare, add and convert")
{
    time5 a = {0xFFFFFFFE, 0x10}, b = a;
    CHECK(timecompare(&a, &b) == -1); // equal times too
    timeadd(&b, 5, true);
    CHECK(b.low == 3);
    CHECK(b.high == 0x11);
    CHECK(timecompare(&a, &b) == -1);
    CHECK(timecompare(&b, &a) == 1);
    timeadd(&b, 5, false);
    CHECK(timecount(&b) == timecount(&a));

    time5 start = timefromsystem(0x14F373BFDE04000);
    CHECK(timecount(&start) == 0);
    CHECK(timetosystem(&start) == 0x14F373BFDE04000);
    time5 unixstart = timefromsystem(UINT64_C(116444736000000000));
    CHECK(timecount(&unixstart) == INT64_C(25567) * DAY);

    uint32_t first = ticks();
    CHECK(ticks() - first < 10000);
}

TEST_CASE("records compare by their times, undated ones first")
{
    fileinfo undated = {}, early = {}, late = {};
    time5 time = {5, 0};
    timetofileinfo(&early, &time);
    time.high = 1;
    late.loadaddress = 0x12300; // the type stays
    timetofileinfo(&late, &time);
    CHECK(late.loadaddress == 0xFFF12301);
    CHECK(timecompareinfo(&undated, &undated) == 0);
    CHECK(timecompareinfo(&undated, &early) == -1);
    CHECK(timecompareinfo(&early, &undated) == 1);
    CHECK(timecompareinfo(&early, &late) == -1);
    CHECK(timecompareinfo(&late, &early) == 1);
    CHECK(timecompareinfo(&early, &early) == -1);
    CHECK(timefromfileinfo(&undated, &time) == 0);
}

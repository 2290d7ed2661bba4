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

std::string text(const char *format, const time5 &time)
{
    char out[DATESIZE];
    int32_t length = timeformat(out, format, &time);
    CHECK(length == static_cast<int32_t>(strlen(out)));
    return out;
}

constexpr uint32_t JAN1999 = 36159; // days to the first of January 1999, a Friday
constexpr uint32_t MAR2000 = 36584; // the first of March 2000, a Wednesday

} // namespace

TEST_CASE("fields of the date language")
{
    // The fifth of January 1999, seven minutes and nine seconds past one.
    time5 time = noon(JAN1999 + 4, (67 * 60 + 9) * 100);
    CHECK(text("%DY %ZDY", time) == "05 5");
    CHECK(text("%dy/%MN/%zmn", time) == "05/01/1");
    CHECK(text("%W3 %WN %WE", time) == "Tue Tue Tuesday");
    CHECK(text("%M3 %MO", time) == "Jan January");
    CHECK(text("%YR %CE %CE%YR %CE-%YR", time) == "99 19 1999 19-99");
    CHECK(text("%12 %Z12 %24 %Z24", time) == "01 1 13 13");
    CHECK(text("%MI %ZMI %SE %ZSE", time) == "07 7 09 9");
    CHECK(text("%AM %PM", time) == "PM PM");
    CHECK(text("%WK %ZWK", time) == "01 1");
    CHECK(text("%CS", noon(JAN1999, 7)) == "07");
    CHECK(text("%12 %24 %AM", noon(JAN1999)) == "12 12 PM");
    CHECK(text("%12 %Z12 %24 %AM", noon(JAN1999, DAY / 2)) == "12 12 00 AM");
}

TEST_CASE("weeks begin on a Sunday")
{
    CHECK(text("%WK", noon(JAN1999)) == "00");     // Friday
    CHECK(text("%WK", noon(JAN1999 + 1)) == "00"); // Saturday
    CHECK(text("%ZWK", noon(JAN1999 + 2)) == "1");
    CHECK(text("%MO %ZDY %WK", noon(MAR2000)) == "March 1 09"); // a leap year
    CHECK(text("%MO %DY %WK", noon(MAR2000 + 305)) == "December 31 53");
}

TEST_CASE("days have their ordinals")
{
    CHECK(text("%ZDY%ST %MO", noon(JAN1999 + 1)) == "2nd January");
    const char *suffixes[] = {"st", "nd", "rd", "th"};
    for (uint32_t day = 1; day <= 31; day++) {
        uint32_t kind = day / 10 == 1 || day % 10 == 0 ? 4 : day % 10;
        CHECK(text("%ST", noon(JAN1999 + day - 1)) == suffixes[kind > 3 ? 3 : kind - 1]);
    }
}

TEST_CASE("what is no field")
{
    time5 time = noon(JAN1999);
    CHECK(text("a b", time) == "a b");
    CHECK(text("%?100", time) == "%100");
    CHECK(text("%%YR", time) == "%YR"); // the second sign is what is dropped
    CHECK(text("x%", time) == "x%");
    CHECK(text("x%Z", time) == "x%");
    CHECK(text("%YR%0%YR", time) == "99");
    CHECK(text("", time) == "");
}

TEST_CASE("a text that doesn't fit is none")
{
    time5 time = noon(JAN1999);
    CHECK(text(std::string(127, 'x').c_str(), time) == std::string(127, 'x'));
    CHECK(text(std::string(128, 'x').c_str(), time) == "");
    CHECK(text((std::string(126, 'x') + "%YR").c_str(), time) == "");
}

TEST_CASE("the ready-made texts")
{
    char out[DATESIZE];
    time5 time = noon(JAN1999 + 4, (67 * 60 + 9) * 100);
    datetext(out, &time);
    CHECK(std::string(out) == "5 Jan 99");
    timetext(out, &time);
    CHECK(std::string(out) == "1:07PM");
    timestamptext(out, &time);
    CHECK(std::string(out) == "13:07:09 Tue 05 Jan 99");

    fileinfo info = {};
    filedatetext(out, &info);
    CHECK(std::string(out) == "");
    timetofileinfo(&info, &time);
    filedatetext(out, &info);
    CHECK(std::string(out) == "13:07:09 Tue 05 Jan 99");
}

TEST_CASE("the time now, in formats that may be set")
{
    char out[DATESIZE], date[DATESIZE];
    setdateformats("%CE%YR", "at");
    nowtextboth(out);
    CHECK(std::string(out).starts_with("at 20"));
    CHECK(std::string(out).size() == 7);
    nowtexttime(out);
    CHECK(std::string(out) == "at");
    nowtextdate(out);
    CHECK(std::string(out).size() == 4);
    nowtext(out, false, false);
    CHECK(std::string(out) == "");

    setdateformats(nullptr, nullptr);
    time5 before, after;
    do { // unless midnight comes between
        timeget(&before);
        nowtextdate(out);
        timeget(&after);
        datetext(date, &after);
    } while (text("%DY", before) != text("%DY", after));
    CHECK(std::string(out) == date);
}

TEST_CASE("durations wrap at a day")
{
    char out[9];
    for (auto [centiseconds, want] : {std::pair{DAY, "00:00:00"},
                                      {DAY - 1, "23:59:59"},
                                      {360000u + 6000 * 2 + 399, "01:02:03"},
                                      {0xFFFFFFFFu, "02:27:52"}}) {
        durationtext(out, centiseconds);
        CHECK(std::string(out) == want);
    }
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

// base/dates.h - times, and texts of them by a small date language.
//
// A time is a count of centiseconds since the first of January 1900, 40 bits,
// UTC. Texts are in local time and in English.
//
// A format is plain text with fields. A field is "%", an optional "Z" for no
// leading zero, and two letters in either case:
//
//   CS centiseconds  SE seconds  MI minutes  12 and 24 hours  AM or PM
//   DY day of the month  ST its ordinal suffix  WK week of the year
//   WE day of the week  W3 and WN its first three letters
//   MO month  M3 its first three letters  MN its number
//   YR year of the century  CE century  CE%YR the whole year
//
// "%0" ends the format. "%" before anything else is a percent sign, and what
// stands there is dropped.
#pragma once

#include <cstdint>

struct errorblock;
struct fileinfo;

struct time5 {
    uint32_t low;
    uint32_t high; // the upper 8 bits
};

constexpr int32_t DATESIZE = 128; // room for the text of a date

// The text of a time, in a buffer of DATESIZE bytes, and its length. A text
// that doesn't fit is empty.
int32_t timeformat(char *out, const char *format, const time5 *time);

void datetext(char *out, const time5 *time);      // "5 Jan 99"
void timetext(char *out, const time5 *time);      // "1:07PM"
void timestamptext(char *out, const time5 *time); // "13:07:09 Tue 05 Jan 99"

// A file's time, empty for one that has none.
void filedatetext(char *out, const fileinfo *info);

// The formats of the calls below, of at most 63 bytes; 0 for the default, as
// in datetext and timetext.
void setdateformats(const char *date, const char *time);

// The time now, with the time before the date.
void nowtext(char *out, bool withtime, bool withdate);
void nowtextdate(char *out);
void nowtexttime(char *out);
void nowtextboth(char *out);

// "hh:mm:ss", 9 bytes; a day wraps to nothing.
void durationtext(char *out, uint32_t centiseconds);

void timeget(time5 *time);
uint32_t ticks(); // milliseconds, wrapping

// The time of an information record: 1 if it has one.
bool timefromfileinfo(const fileinfo *info, time5 *time);
void timetofileinfo(fileinfo *info, const time5 *time);

// By the times of two records: an undated one is the older, and two undated
// ones give 0. As timecompare otherwise.
int timecompareinfo(const fileinfo *a, const fileinfo *b);

// 1 if a is later than b, -1 if it isn't: equal times give -1.
int timecompare(const time5 *a, const time5 *b);

void timeadd(time5 *time, uint32_t amount, bool add);

// The count as one number, and the clock's form of it: 100 ns since 1601.
int64_t timecount(const time5 *time);
time5 timefromsystem(uint64_t system);
uint64_t timetosystem(const time5 *time);

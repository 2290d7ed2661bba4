#include "base/dates.h"

#include "base/files.h"
#include "base/platform.h"
#include "base/text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace
{

constexpr const char *months[] = {"January",   "February", "March",    "April",
                                  "May",       "June",     "July",     "August",
                                  "September", "October",  "November", "December"};
constexpr const char *weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};

// The formats of nowtext.
struct formattext {
    char text[64];
};
constexpr formattext DATEDEFAULT = {"%ZDY %M3 %YR"};
constexpr formattext TIMEDEFAULT = {"%Z12:%MI%AM"};
struct {
    formattext date, hour;
} formats = {DATEDEFAULT, TIMEDEFAULT};

struct dateparts {
    platformdate date;
    int32_t centisecond;
};

// The text as it grows; one that went over its end is no text.
struct datewriter {
    char *out;
    int32_t length;
    bool zero; // leading zeros in the field at hand
};

void put(datewriter *writer, const char *text, size_t length)
{
    int32_t room = DATESIZE - writer->length;
    int32_t taken = std::min(static_cast<int32_t>(length), room);
    memcpy(writer->out + writer->length, text, static_cast<size_t>(taken));
    writer->length += taken;
}

void putnumber(datewriter *writer, int32_t number)
{
    char digits[16];
    int length = std::snprintf(digits, sizeof digits, writer->zero ? "%02d" : "%d",
                               static_cast<int>(number));
    put(writer, digits, static_cast<size_t>(length));
}

int32_t dayofyear(const platformdate &date)
{
    constexpr int16_t before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    bool leap = (date.year % 4 == 0 && date.year % 100 != 0) || date.year % 400 == 0;
    return before[date.month - 1] + date.day - 1 + (leap && date.month > 2);
}

using fieldwriter = void (*)(datewriter *, const dateparts &);

void putcentisecond(datewriter *writer, const dateparts &parts)
{
    writer->zero = true;
    putnumber(writer, parts.centisecond);
}

void putsecond(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.second);
}

void putminute(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.minute);
}

void puthour12(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, (parts.date.hour + 11) % 12 + 1);
}

void puthour24(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.hour);
}

void puthalf(datewriter *writer, const dateparts &parts)
{
    put(writer, parts.date.hour < 12 ? "AM" : "PM", 2);
}

void putweekday(datewriter *writer, const dateparts &parts)
{
    const char *name = weekdays[parts.date.weekday];
    put(writer, name, strlen(name));
}

void putweekday3(datewriter *writer, const dateparts &parts)
{
    put(writer, weekdays[parts.date.weekday], 3);
}

void putday(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.day);
}

void putordinal(datewriter *writer, const dateparts &parts)
{
    constexpr const char *suffixes[] = {"xx", "st", "nd", "rd", "th", "th", "th", "th",
                                        "th", "th", "th", "th", "th", "th", "th", "th",
                                        "th", "th", "th", "th", "th", "st", "nd", "rd",
                                        "th", "th", "th", "th", "th", "th", "th", "st"};
    put(writer, suffixes[std::min(parts.date.day, 31)], 2);
}

void putmonth(datewriter *writer, const dateparts &parts)
{
    const char *name = months[parts.date.month - 1];
    put(writer, name, strlen(name));
}

void putmonth3(datewriter *writer, const dateparts &parts)
{
    put(writer, months[parts.date.month - 1], 3);
}

void putmonthnumber(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.month);
}

void putcentury(datewriter *writer, const dateparts &parts)
{
    writer->zero = false;
    putnumber(writer, parts.date.year / 100);
}

void putyear(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.year % 100);
}

void putwholeyear(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, parts.date.year);
}

// Weeks begin on a Sunday; days before the first are in week 0.
void putweek(datewriter *writer, const dateparts &parts)
{
    putnumber(writer, (dayofyear(parts.date) + 7 - parts.date.weekday) / 7);
}

struct datefield {
    const char *name; // what stands behind the percent sign and its Z
    fieldwriter write;
};

// WN was meant to be the number of the day and has always been its name. The
// whole year stands before the century, whose name its own begins with.
constexpr datefield fields[] = {
    {"CS", putcentisecond}, {"SE", putsecond},   {"MI", putminute},      {"12", puthour12},
    {"24", puthour24},      {"AM", puthalf},     {"PM", puthalf},        {"W3", putweekday3},
    {"WE", putweekday},     {"WN", putweekday3}, {"DY", putday},         {"ST", putordinal},
    {"MO", putmonth},       {"M3", putmonth3},   {"MN", putmonthnumber}, {"CE%YR", putwholeyear},
    {"CE", putcentury},     {"YR", putyear},     {"WK", putweek},
};

const datefield *fieldat(const char *format)
{
    for (const datefield &field : fields)
        if (!cstrnicmp(format, field.name, static_cast<int32_t>(strlen(field.name)))) return &field;
    return nullptr;
}

// Writes the field behind a percent sign and gives what follows it; 0 at the
// end of the format.
const char *putfield(datewriter *writer, const char *format, const dateparts &parts)
{
    writer->zero = *format != 'Z' && *format != 'z';
    if (!writer->zero) format++;
    if (*format == '0') return nullptr;
    if (const datefield *field = fieldat(format)) {
        field->write(writer, parts);
        return format + strlen(field->name);
    }
    put(writer, "%", 1);
    return *format ? format + 1 : nullptr;
}

} // namespace

int32_t timeformat(char *out, const char *format, const time5 *time)
{
    dateparts parts = {};
    datewriter writer = {out, 0, true};
    out[0] = 0;
    if (platformlocaltime(timetosystem(time), &parts.date)) return 0;
    parts.centisecond = static_cast<int32_t>(timecount(time) % 100);
    while (format && *format) {
        if (*format == '%') {
            format = putfield(&writer, format + 1, parts);
        } else {
            put(&writer, format++, 1);
        }
    }
    if (writer.length >= DATESIZE) writer.length = 0;
    out[writer.length] = 0;
    return writer.length;
}

void datetext(char *out, const time5 *time)
{
    timeformat(out, "%ZDY %M3 %YR%0", time);
}

void timetext(char *out, const time5 *time)
{
    timeformat(out, "%Z12:%MI%AM%0", time);
}

void timestamptext(char *out, const time5 *time)
{
    timeformat(out, "%24:%MI:%SE %W3 %DY %M3 %YR%0", time);
}

void filedatetext(char *out, const fileinfo *info)
{
    time5 time;
    out[0] = 0;
    if (timefromfileinfo(info, &time)) timestamptext(out, &time);
}

void setdateformats(const char *date, const char *time)
{
    strcopyn(formats.date.text, date ? date : DATEDEFAULT.text, sizeof formats.date.text);
    strcopyn(formats.hour.text, time ? time : TIMEDEFAULT.text, sizeof formats.hour.text);
}

void nowtext(char *out, bool withtime, bool withdate)
{
    char format[sizeof(formattext) * 2 + 4];
    if (withtime && withdate)
        std::snprintf(format, sizeof format, "%s %s%%0", formats.hour.text, formats.date.text);
    else
        std::snprintf(format, sizeof format, "%s%%0",
                      withtime   ? formats.hour.text
                      : withdate ? formats.date.text
                                 : "");
    time5 now;
    timeget(&now);
    timeformat(out, format, &now);
}

void nowtextdate(char *out)
{
    nowtext(out, false, true);
}

void nowtexttime(char *out)
{
    nowtext(out, true, false);
}

void nowtextboth(char *out)
{
    nowtext(out, true, true);
}

void durationtext(char *out, uint32_t centiseconds)
{
    uint32_t seconds = centiseconds / 100;
    std::snprintf(out, 9, "%02u:%02u:%02u", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
}

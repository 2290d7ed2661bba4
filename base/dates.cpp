#include "base/dates.h"

#include "base/files.h"
#include "base/platform.h"
#include "base/text.h"

namespace
{

constexpr uint64_t EPOCH = 0x14F373BFDE04000; // 1900 in the system's time
constexpr uint64_t CENTISECOND = 100000;
constexpr uint32_t DATED = 0xFFF00000;

} // namespace

int64_t timecount(const time5 *time)
{
    return static_cast<int64_t>(time->high & 0xFF) << 32 | time->low;
}

time5 timefromsystem(uint64_t system)
{
    uint64_t count = (system - EPOCH) / CENTISECOND;
    return {static_cast<uint32_t>(count), static_cast<uint32_t>(count >> 32) & 0xFF};
}

uint64_t timetosystem(const time5 *time)
{
    return static_cast<uint64_t>(timecount(time)) * CENTISECOND + EPOCH;
}

void timeget(time5 *time)
{
    *time = timefromsystem(platformclock());
}

uint32_t ticks()
{
    return platformticks();
}

bool timefromfileinfo(const fileinfo *info, time5 *time)
{
    if ((info->loadaddress & DATED) != DATED) return false;
    *time = {info->execaddress, info->loadaddress & 0xFF};
    return true;
}

void timetofileinfo(fileinfo *info, const time5 *time)
{
    info->loadaddress = DATED | (info->loadaddress & 0xFFF00) | (time->high & 0xFF);
    info->execaddress = time->low;
}

int timecompareinfo(const fileinfo *a, const fileinfo *b)
{
    time5 timea, timeb;
    int dateda = timefromfileinfo(a, &timea), datedb = timefromfileinfo(b, &timeb);
    return dateda && datedb ? timecompare(&timea, &timeb) : dateda - datedb;
}

int timecompare(const time5 *a, const time5 *b)
{
    return timecount(a) > timecount(b) ? 1 : -1;
}

void timeadd(time5 *time, uint32_t amount, bool add)
{
    uint64_t count = static_cast<uint64_t>(timecount(time));
    count = add ? count + amount : count - amount;
    *time = {static_cast<uint32_t>(count), static_cast<uint32_t>(count >> 32) & 0xFF};
}

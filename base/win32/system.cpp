#include "base/platform.h"

#include "base/syserr.h"

#include <windows.h>

#include <cstring>
#include <malloc.h>

namespace
{

DWORD unsign(int32_t length)
{
    return static_cast<DWORD>(length);
}

} // namespace

void platformenvironment(const char *text, char *out, int32_t size)
{
    DWORD need = ExpandEnvironmentStringsA(text, out, unsign(size));
    if (!need || need > unsign(size)) out[0] = 0;
}

bool platformfullpath(const char *path, char *out, int32_t size)
{
    DWORD length = GetFullPathNameA(path, unsign(size), out, nullptr);
    bool held = length && length < unsign(size);
    if (!held) out[0] = 0;
    return held;
}

uint64_t platformclock()
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return static_cast<uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
}

uint32_t platformticks()
{
    return GetTickCount();
}

// The rules of the date itself say whether summer time holds, not today's.
errorblock *platformlocaltime(uint64_t time, platformdate *date)
{
    FILETIME stamp = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    SYSTEMTIME universal, local;
    if (!FileTimeToSystemTime(&stamp, &universal)) return syserr("FileTimeToSystemTime");
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return syserr("SystemTimeToTzSpecificLocalTime");
    *date = {local.wYear,   local.wMonth,  local.wDay,      local.wHour,
             local.wMinute, local.wSecond, local.wDayOfWeek};
    return nullptr;
}

errorblock *platformloginname(char *out, int32_t size)
{
    DWORD room = unsign(size);
    return GetUserNameA(out, &room) ? nullptr : syserr("GetUserName");
}

errorblock *platformprogramdirectory(char *out, int32_t size)
{
    DWORD length = GetModuleFileNameA(nullptr, out, unsign(size));
    if (!length || length >= unsign(size)) {
        out[0] = 0;
        return syserrcode(length ? ERROR_INSUFFICIENT_BUFFER : GetLastError(), "GetModuleFileName");
    }
    if (char *last = strrchr(out, '\\')) last[1] = 0;
    return nullptr;
}

void platformtempfolder(char *out, int32_t size)
{
    DWORD length = GetTempPathA(unsign(size), out);
    if (!length || length >= unsign(size)) out[0] = 0;
}

int32_t platformheapcheck()
{
    return _heapchk();
}

bool platformheapvalid()
{
    return HeapValidate(GetProcessHeap(), 0, nullptr) != 0;
}

// What this process holds of the system's things.
#include "tests/support/driver.h"

#include <windows.h>

#include <cstring>

// Wine knows none of the three counts and tells 0: they are taken by hand there.
namespace
{

struct gdientry {
    uint64_t object;
    uint32_t owner;
    uint16_t unique;
    uint8_t type, flags;
    uint64_t user;
};

// The system's table of objects, which hangs in the process's own block.
uint32_t gdicount()
{
    constexpr int entries = 0x4000;
    constexpr size_t tableat = sizeof(void *) == 8 ? 0xF8 : 0x94;
    FARPROC current = GetProcAddress(GetModuleHandleA("ntdll"), "RtlGetCurrentPeb");
    if (!current) return 0;
    auto block = reinterpret_cast<const char *(WINAPI *)()>(reinterpret_cast<void *>(current))();
    const gdientry *table;
    memcpy(&table, block + tableat, sizeof table);
    uint32_t count = 0;
    for (int i = 0; table && i < entries; i++)
        count += table[i].type != 0;
    return count;
}

BOOL CALLBACK windowcount(HWND, LPARAM word)
{
    ++*reinterpret_cast<uint32_t *>(word);
    return TRUE;
}

BOOL CALLBACK topcount(HWND h, LPARAM word)
{
    DWORD process = 0;
    GetWindowThreadProcessId(h, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    windowcount(h, word);
    EnumChildWindows(h, windowcount, word);
    return TRUE;
}

// Windows and menus; of the handle of a menu the low half is enough.
uint32_t usercount()
{
    uint32_t count = 0;
    EnumWindows(topcount, reinterpret_cast<LPARAM>(&count));
    for (uintptr_t low = 0x20; low < 0xFFF0; low += 2)
        if (IsMenu(reinterpret_cast<HMENU>(low))) count++;
    return count;
}

uint32_t handlecount()
{
    uint32_t count = 0;
    DWORD flags;
    for (uintptr_t value = 4; value < 0x8000; value += 4)
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) count++;
    return count;
}

} // namespace

drivecounts drivecountnow()
{
    HANDLE self = GetCurrentProcess();
    DWORD handles = 0;
    GetProcessHandleCount(self, &handles);
    drivecounts counts = {GetGuiResources(self, GR_GDIOBJECTS),
                          GetGuiResources(self, GR_USEROBJECTS), handles};
    if (!counts.gdiobjects) counts.gdiobjects = gdicount();
    if (!counts.userobjects) counts.userobjects = usercount();
    if (!counts.handles) counts.handles = handlecount();
    return counts;
}

// graphics/win32/windowhandle.h - a window by its number, and by the system's
// handle, which has the same value.
#pragma once

#include <windows.h>

#include <cstdint>

inline HWND systemwindow(intptr_t number)
{
    return reinterpret_cast<HWND>(number);
}

inline intptr_t windowof(HWND handle)
{
    return reinterpret_cast<intptr_t>(handle);
}

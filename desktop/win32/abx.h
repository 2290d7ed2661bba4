// desktop/win32/abx.h - the drawn control, of the window class "abx".
//
// All of its looks and its behaviour come from one validation string, which is
// its text as the system has it. WM_GETTEXT and WM_SETTEXT are of the string's
// token s alone.
//
// The class has ABXEXTRA bytes of window extra, which hold the state word of
// validation.h; the window's user word holds the font that it was given.
#pragma once

#include <windows.h>

#include <cstdint>

constexpr int ABXEXTRA = 4;

LRESULT CALLBACK abxprocedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam);

// The whole string, cut to VALIDATIONSIZE. Setting it paints nothing.
void abxstring(HWND control, char *buffer);
void abxsetstring(HWND control, const char *text);

uint32_t abxstate(HWND control);
// Sets or clears bits of the state, and paints if that changes any.
void abxchange(HWND control, uint32_t bit, bool on);

// The two passes of a paint. The first says whether the erase is done.
bool abxerase(HWND control, HDC dc);
void abxpaint(HWND control);

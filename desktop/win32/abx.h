// desktop/win32/abx.h - the drawn control, of the window class "abx".
//
// All of its looks and its behaviour come from one validation string, which is
// its text as the system has it. WM_GETTEXT and WM_SETTEXT are of the string's
// token s alone.
//
// The class has ABXEXTRA bytes of window extra, which hold the state word of
// desktop/validation.h; the window's user word holds the font that it was given.
#pragma once

#include <windows.h>

#include <cstdint>

constexpr int ABXEXTRA = 4;

LRESULT CALLBACK abxprocedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam);

// The whole string, of VALIDATIONSIZE bytes. Setting it paints nothing.
void abxstring(HWND control, char *string);
void abxsetstring(HWND control, const char *string);

// Replaces a token and paints at once. A value that doesn't fit is cut.
void abxsettoken(HWND control, char letter, const char *value);

uint32_t abxstate(HWND control);
// Sets or clears bits of the state, and paints at once if that changes any.
void abxchange(HWND control, uint32_t bits, bool on);

// The two passes of a paint. The first says whether the erase is done; with a
// context of 0 it fills nothing, and says whether that is for want of a colour.
bool abxerase(HWND control, HDC dc);
void abxpaint(HWND control);
void abxpaintnow(HWND control);

// Messages of the mouse, the capture and the repeat timer.
void abxmouse(HWND control, UINT message, WPARAM wparam, LPARAM lparam);

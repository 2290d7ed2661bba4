// base/ctltext.h - control-terminated text.
//
// Texts of templates and resources may end in a line end, a zero or any other
// byte below 32. These routines take the first such byte for the end.
#pragma once

#include <cstdint>

// The length before the first byte below 32.
int32_t strlenctl(const char *text);

// Copies up to the end and writes a zero; with a size, at most size - 1 bytes
// and a zero.
void strcopyctl(char *destination, const char *source);
void strcopyctln(char *destination, const char *source, int32_t size);

// Writes a zero at the end, or at text[limit] if there is none before it, and
// returns its address.
char *strendctl(char *text, int32_t limit);

// Ends the text, with a zero, before the spaces at its end. A text without any
// keeps the end that it has.
void strtrimctl(char *text);

// As cstrnicmp in text.h; two ends are equal, whatever their bytes.
int cstrnicmpctl(const char *a, const char *b, int32_t n);

// base/text.h - checked copies, checked formatting and comparison.
//
// The checked copies turn truncation into error 30, so that a path or name
// that doesn't fit fails in words instead of becoming another name. The
// routines whose names end in ctl take texts of templates and resources, which
// end at any byte below 32; they and more are in ctltext.h and edittext.h.
//
// Sizes count the terminator and are at least 1.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <cwchar>

struct errorblock;

// Checked copies of source into destination of size units, always terminated.
// Error 30 when the source doesn't fit; destination then holds what does. The
// u form is the one for paths; 21 narrows and 22 widens, unit by unit.
errorblock *xzstrncpy(char *destination, const char *source, int32_t size);
errorblock *xzstrncpyu(char *destination, const char *source, int32_t size);
errorblock *xzstrncpy21(char *destination, const char16_t *source, int32_t size);
errorblock *xzstrncpy22(char16_t *destination, const char *source, int32_t size);

// Checked formatting; the length is stored on success if it is asked for.
// Error 30, with the buffer cut and terminated, when the output doesn't fit.
[[gnu::format(printf, 4, 5)]] errorblock *xzsnprintf(int32_t size, int32_t *length, char *buffer,
                                                     const char *format, ...);
[[gnu::format(printf, 4, 0)]] errorblock *xzvsnprintf(int32_t size, int32_t *length, char *buffer,
                                                      const char *format, va_list arguments);
errorblock *xzsnprintfw(int32_t size, int32_t *length, wchar_t *buffer, const wchar_t *format, ...);

// Copies at most size - 1 bytes and a zero; cuts silently.
void strcopyn(char *destination, const char *source, int32_t size);

// A plain allocation that holds a copy of source; heap_free it. Error 2.
errorblock *strnew(const char *source, char **copy);

// Length of 16-bit text.
int32_t strlenw(const char16_t *text);

// Comparisons without case: the difference of the first differing upper-cased
// units, else 0. They end at a zero, or after n units.
int cstrnicmp(const char *a, const char *b, int32_t n);
int cstricmp(const char *a, const char *b);
int cstrnicmpw(const char16_t *a, const char16_t *b, int32_t n);

// How many leading bytes agree but for case, at most n; a zero agrees with
// nothing.
int32_t cstrprefix(const char *a, const char *b, int32_t n);

// 0 when b is a prefix of a but for case, else the difference.
int cstrstarts(const char *a, const char *b);

// The first occurrence of part without case, or 0; an empty part is at text.
const char *cstrstr(const char *text, const char *part);

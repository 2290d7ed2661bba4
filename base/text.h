// base/text.h - small text routines beside the standard library's.
//
// Two things set them apart. The checked copies turn truncation into error 30,
// so that a path or name that doesn't fit fails in words instead of becoming
// another name. And texts of templates and resources may end in any byte below
// 32: the routines whose names end in ctl accept that.
//
// Sizes count the terminator. A packed list is a run of zero-terminated
// strings, ended by an empty one.
#pragma once

#include <cstdarg>
#include <cstdint>

struct errorblock;

// Checked copies of source into destination of size units, always terminated.
// Error 30 when the source doesn't fit; destination then holds what does.
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

// Silent copies.
void strcopyn(char *destination, const char *source, int32_t size);

// Comparisons without case: the difference of the first differing upper-cased
// bytes, else 0.
int cstrnicmp(const char *a, const char *b, int32_t n);
int cstricmp(const char *a, const char *b);

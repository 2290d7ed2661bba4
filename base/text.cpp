#include "base/text.h"

#include "base/errors.h"
#include "base/flex.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstring>

namespace
{

uint8_t unitof(char ch)
{
    return static_cast<uint8_t>(ch);
}

char16_t unitof(char16_t ch)
{
    return ch;
}

// The one copy loop. Each unit goes over as it is; a wide one that no byte
// holds is the caller's loss.
template<class To, class From>
errorblock *copychecked(To *destination, const From *source, int32_t size, const char *name)
{
    assert(size > 0);
    int32_t at = 0;
    for (; at < size - 1 && source[at]; at++)
        destination[at] = static_cast<To>(unitof(source[at]));
    destination[at] = 0;
    return source[at] ? makeerrorf(ERRORMAXSTRING, name) : nullptr;
}

} // namespace

errorblock *xzstrncpy(char *destination, const char *source, int32_t size)
{
    return copychecked(destination, source, size, "xzstrncpy");
}

errorblock *xzstrncpyu(char *destination, const char *source, int32_t size)
{
    return copychecked(destination, source, size, "xzstrncpyu");
}

errorblock *xzstrncpy21(char *destination, const char16_t *source, int32_t size)
{
    return copychecked(destination, source, size, "xzstrncpy21");
}

errorblock *xzstrncpy22(char16_t *destination, const char *source, int32_t size)
{
    return copychecked(destination, source, size, "xzstrncpy22");
}

errorblock *xzvsnprintf(int32_t size, int32_t *length, char *buffer, const char *format,
                        va_list arguments)
{
    assert(size > 0);
    buffer[0] = 0;
    int made = std::vsnprintf(buffer, static_cast<size_t>(size), format, arguments);
    buffer[size - 1] = 0;
    if (made < 0 || made >= size) return makeerrorf(ERRORMAXSTRING, format);
    if (length) *length = made;
    return nullptr;
}

errorblock *xzsnprintf(int32_t size, int32_t *length, char *buffer, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = xzvsnprintf(size, length, buffer, format, arguments);
    va_end(arguments);
    return err;
}

errorblock *xzsnprintfw(int32_t size, int32_t *length, wchar_t *buffer, const wchar_t *format, ...)
{
    assert(size > 0);
    va_list arguments;
    va_start(arguments, format);
    buffer[0] = 0;
    int made = std::vswprintf(buffer, static_cast<size_t>(size), format, arguments);
    buffer[size - 1] = 0;
    va_end(arguments);
    if (made < 0 || made >= size) return makeerrorf(ERRORMAXSTRING, "xzsnprintfw");
    if (length) *length = made;
    return nullptr;
}

void strcopyn(char *destination, const char *source, int32_t size)
{
    assert(size > 0);
    size_t length = strnlen(source, static_cast<size_t>(size - 1));
    std::memcpy(destination, source, length);
    destination[length] = 0;
}

errorblock *strnew(const char *source, char **copy)
{
    size_t size = std::strlen(source) + 1;
    if (size > INT32_MAX) return makeerror(ERRORMEMORY);
    void *made;
    errorblock *err = heap_allocraw(&made, static_cast<int32_t>(size));
    if (err) return err;
    *copy = static_cast<char *>(std::memcpy(made, source, size));
    return nullptr;
}

int32_t strlenw(const char16_t *text)
{
    int32_t length = 0;
    while (text[length])
        length++;
    return length;
}

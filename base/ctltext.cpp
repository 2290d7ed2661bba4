#include "base/ctltext.h"

#include "base/chars.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace
{

bool endsat(char ch)
{
    return static_cast<uint8_t>(ch) < 32;
}

} // namespace

int32_t strlenctl(const char *text)
{
    int32_t length = 0;
    while (!endsat(text[length]))
        length++;
    return length;
}

void strcopyctl(char *destination, const char *source)
{
    int32_t length = strlenctl(source);
    std::memmove(destination, source, static_cast<size_t>(length));
    destination[length] = 0;
}

void strcopyctln(char *destination, const char *source, int32_t size)
{
    assert(size > 0);
    int32_t length = 0;
    while (length < size - 1 && !endsat(source[length]))
        length++;
    std::memmove(destination, source, static_cast<size_t>(length));
    destination[length] = 0;
}

char *strendctl(char *text, int32_t limit)
{
    int32_t length = 0;
    while (length < limit && !endsat(text[length]))
        length++;
    text[length] = 0;
    return text + length;
}

void strtrimctl(char *text)
{
    int32_t length = strlenctl(text), kept = length;
    while (kept && text[kept - 1] == ' ')
        kept--;
    if (kept < length) text[kept] = 0;
}

int cstrnicmpctl(const char *a, const char *b, int32_t n)
{
    for (int32_t i = 0; i < n; i++) {
        if (endsat(a[i]) && endsat(b[i])) return 0;
        int difference =
            charupper(static_cast<uint8_t>(a[i])) - charupper(static_cast<uint8_t>(b[i]));
        if (difference) return difference;
    }
    return 0;
}

#include "base/edittext.h"

#include "base/text.h"

#include <cstring>

namespace
{

void replaceat(char *place, size_t fromlength, const char *to)
{
    size_t tolength = std::strlen(to);
    const char *tail = place + fromlength;
    std::memmove(place + tolength, tail, std::strlen(tail) + 1);
    std::memcpy(place, to, tolength);
}

} // namespace

bool strreplacei(char *text, const char *from, const char *to)
{
    const char *found = cstrstr(text, from);
    if (found) replaceat(text + (found - text), std::strlen(from), to);
    return found;
}

bool strreplace(char *text, const char *from, const char *to)
{
    char *found = std::strstr(text, from);
    if (found) replaceat(found, std::strlen(from), to);
    return found;
}

void strreplacech(char *text, char from, char to)
{
    for (; *text; text++)
        if (*text == from) *text = to;
}

void strunquote(char *out, const char *text)
{
    while (*text == '"')
        text++;
    while (*text && *text != '"')
        *out++ = *text++;
    *out = 0;
}

int32_t strcountch(const char *text, char ch)
{
    int32_t count = 0;
    for (; *text; text++)
        if (*text == ch) count++;
    return count;
}

int32_t strcountlist(const char *list)
{
    int32_t count = 0;
    for (; *list; list += std::strlen(list) + 1)
        count++;
    return count;
}

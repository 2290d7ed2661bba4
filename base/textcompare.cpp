// Comparisons without case. Upper case is the code page's own, never the
// runtime's locale's.

#include "base/chars.h"
#include "base/encoding.h"
#include "base/text.h"

namespace
{

int upper(char ch)
{
    return charupper(static_cast<uint8_t>(ch));
}

// Wide characters that the code page lacks have no case here.
int upperwide(char16_t ch)
{
    int32_t narrow = unicodeto1252(ch);
    if (narrow < 0) return ch;
    return static_cast<int>(unicodefrom1252(charupper(static_cast<uint8_t>(narrow))));
}

} // namespace

int cstrnicmp(const char *a, const char *b, int32_t n)
{
    for (int32_t i = 0; i < n; i++) {
        int difference = upper(a[i]) - upper(b[i]);
        if (difference || !a[i]) return difference;
    }
    return 0;
}

int cstricmp(const char *a, const char *b)
{
    while (*a && upper(*a) == upper(*b))
        a++, b++;
    return upper(*a) - upper(*b);
}

int cstrnicmpw(const char16_t *a, const char16_t *b, int32_t n)
{
    for (int32_t i = 0; i < n; i++) {
        int difference = upperwide(a[i]) - upperwide(b[i]);
        if (difference || !a[i]) return difference;
    }
    return 0;
}

int32_t cstrprefix(const char *a, const char *b, int32_t n)
{
    int32_t count = 0;
    while (count < n && a[count] && upper(a[count]) == upper(b[count]))
        count++;
    return count;
}

int cstrstarts(const char *a, const char *b)
{
    for (; *b; a++, b++)
        if (int difference = upper(*a) - upper(*b)) return difference;
    return false;
}

const char *cstrstr(const char *text, const char *part)
{
    for (; cstrstarts(text, part); text++)
        if (!*text) return nullptr;
    return text;
}

#include "base/numbers.h"

#include "base/chars.h"
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

// The value of a hexadecimal digit, -1 for anything else.
int32_t digitof(char ch)
{
    uint8_t small = asciilower(static_cast<uint8_t>(ch));
    if (small >= '0' && small <= '9') return small - '0';
    if (small >= 'a' && small <= 'f') return small - 'a' + 10;
    return -1;
}

bool hexprefix(const char *text)
{
    return text[0] == '0' && asciilower(static_cast<uint8_t>(text[1])) == 'x';
}

// The digits at *at, which moves behind them and behind a zero that ends them.
uint32_t digitsread(const char **at, uint32_t base)
{
    uint32_t value = 0;
    for (; digitof(**at) >= 0; ++*at)
        value = value * base + static_cast<uint32_t>(digitof(**at));
    if (!**at) ++*at;
    return value;
}

void tellused(const char *text, const char *end, int32_t *used)
{
    if (used) *used = static_cast<int32_t>(end - text);
}

} // namespace

int32_t numberparse(const char *text, int32_t *used)
{
    const char *at = text;
    bool negative = *at == '-';
    if (negative) at++;
    bool hex = hexprefix(at);
    if (hex) at += 2;
    uint32_t value = digitsread(&at, hex ? 16 : 10);
    tellused(text, at, used);
    return static_cast<int32_t>(negative ? 0 - value : value);
}

uint32_t hexparse(const char *text, int32_t *used)
{
    const char *at = text;
    uint32_t value = digitsread(&at, 16);
    tellused(text, at, used);
    return value;
}

bool isnumber(const char *text)
{
    if (*text == '-') text++;
    int32_t most = 9;
    if (hexprefix(text)) {
        most = 15;
        text += 2;
    }
    if (!*text) return false;
    for (; *text; text++)
        if (digitof(*text) < 0 || digitof(*text) > most) return false;
    return true;
}

int numbertext(double value, int32_t places, char *out, int32_t size)
{
    // The runtime's printf would take its point from the locale.
    char text[512];
    auto made = std::to_chars(text, text + sizeof text - 1, value, std::chars_format::fixed,
                              std::clamp<int32_t>(places, 1, 100));
    *made.ptr = 0;
    char *end = made.ptr;
    if (const char *point = std::strchr(text, '.'))
        while (end[-1] == '0' && end - 2 > point)
            *--end = 0;
    strcopyn(out, text, size);
    return end - text >= size;
}

const char *sizetext(uint32_t bytes)
{
    static char text[16];
    uint32_t kib = bytes / 1024, mib = kib / 1024, hundredths = kib % 1024 * 100 / 1024;
    auto number = [](uint32_t n) { return static_cast<int>(n); };
    if (!kib)
        std::snprintf(text, sizeof text, "%d", number(bytes));
    else if (!mib)
        std::snprintf(text, sizeof text, "%dK", number(kib));
    else if (!hundredths)
        std::snprintf(text, sizeof text, "%dM", number(mib));
    else
        std::snprintf(text, sizeof text, "%d.%02dM", number(mib), number(hundredths));
    return text;
}

int32_t muldiv(int32_t a, int32_t b, int32_t c)
{
    if (!c) return -1;
    int64_t product = int64_t{a} * b, divisor = std::abs(int64_t{c});
    int64_t size = (std::abs(product) + divisor / 2) / divisor;
    int64_t result = (product < 0) != (c < 0) ? -size : size;
    return result < INT32_MIN || result > INT32_MAX ? -1 : static_cast<int32_t>(result);
}

int32_t distance(int32_t dx, int32_t dy)
{
    double x = dx, y = dy;
    double length = std::sqrt(x * x + y * y);
    return length < INT32_MAX ? static_cast<int32_t>(length) : INT32_MAX;
}

#include "base/escapes.h"

#include <cstring>

namespace
{

bool needsbackslash(char ch)
{
    return ch == '"' || ch == '\\';
}

// Letter i of one stands for character i of the other.
constexpr char sourceletters[] = "nrt", sourcecodes[] = "\n\r\t";
constexpr char controlletters[] = "fnrtv", controlcodes[] = "\f\n\r\t\v";

// One character of bar notation; in moves behind it, but never past the end,
// which is 0 even with 128 added.
uint8_t barread(const char **in)
{
    uint8_t high = 0;
    while ((*in)[0] == '|' && (*in)[1] == '!') {
        high ^= 128;
        *in += 2;
    }
    bool bar = **in == '|';
    if (bar) ++*in;
    uint8_t ch = static_cast<uint8_t>(**in);
    if (!ch) return 0;
    ++*in;
    if (bar && ch == '?')
        ch = 127;
    else if (bar && ch >= 64 && ch < 96)
        ch = static_cast<uint8_t>(ch - 64);
    return ch ^ high;
}

} // namespace

void strescape(const char *in, char *out)
{
    for (; *in; in++) {
        if (needsbackslash(*in)) *out++ = '\\';
        *out++ = *in;
    }
    *out = 0;
}

char *charescape(uint8_t ch, char *out, uint32_t flags)
{
    constexpr char hex[] = "0123456789abcdef";
    char plain = static_cast<char>(ch);
    const char *code = ch ? std::strchr(sourcecodes, plain) : nullptr;
    bool high = ch > 127 && (ch >= 160 || (flags & ESCAPEKEEPHIGH));
    if (code || needsbackslash(plain)) {
        *out++ = '\\';
        *out++ = code ? sourceletters[code - sourcecodes] : plain;
    } else if (high || (ch >= 32 && ch < 127)) {
        *out++ = plain;
    } else {
        *out++ = '\\';
        *out++ = 'x';
        *out++ = hex[ch >> 4];
        *out++ = hex[ch & 15];
    }
    return out;
}

void strescapen(const char *in, int32_t length, char *out)
{
    for (int32_t i = 0; i < length; i++)
        out = charescape(static_cast<uint8_t>(in[i]), out, ESCAPEKEEPHIGH);
    *out = 0;
}

void strunescape(const char *in, char *out)
{
    for (; *in; in++) {
        const char *letter = nullptr;
        if (*in == '\\') {
            if (!*++in) break;
            letter = std::strchr(controlletters, *in);
        }
        *out++ = letter ? controlcodes[letter - controlletters] : *in;
    }
    *out = 0;
}

void gstrans(char *out, int32_t size, const char *in, int32_t *length)
{
    *length = 0;
    while (*length < size) {
        uint8_t ch = barread(&in);
        out[*length] = static_cast<char>(ch);
        if (!ch) return;
        ++*length;
    }
}

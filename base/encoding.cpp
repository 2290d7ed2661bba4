#include "base/encoding.h"

#include "base/errors.h"

namespace
{

// Characters 128 to 159; the rest of the code page is Unicode's own first 256.
constexpr uint16_t middle[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// The bytes of a UTF-8 sequence by its first byte, 0 for none.
int32_t sequencelength(uint8_t first)
{
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    if (first >= 0xF0 && first < 0xF5) return 4;
    return 0;
}

} // namespace

// A form longer than it need be is no UTF-8.
uint32_t utf8byte(utf8decoder *decoder, uint8_t byte)
{
    constexpr uint32_t least[5] = {0, 0, 0x80, 0x800, 0x10000};
    if (!decoder->taken) {
        int32_t length = sequencelength(byte);
        if (!length) return UTF8BAD;
        *decoder = {length == 1 ? byte : byte & (0x7Fu >> length), 1, length};
    } else if ((byte & 0xC0) == 0x80) {
        decoder->unicode = decoder->unicode << 6 | (byte & 0x3Fu);
        decoder->taken++;
    } else {
        *decoder = {};
        return UTF8BAD;
    }
    if (decoder->taken < decoder->length) return UTF8MORE;
    uint32_t unicode = decoder->unicode < least[decoder->length] ? UTF8BAD : decoder->unicode;
    *decoder = {};
    return unicode;
}

bool utf8rest(const utf8decoder &decoder)
{
    return decoder.taken;
}

void textkindbyte(textkindfinder *finder, uint8_t byte)
{
    if (finder->broken) return;
    uint32_t unicode = utf8byte(&finder->decoder, byte);
    if (unicode == UTF8MORE) return;
    if (unicode == UTF8BAD)
        finder->broken = true;
    else if (!finder->characters++ && unicode == UTF8MARK)
        finder->marked = true;
    else if (unicode > 127)
        finder->above = true;
}

bool textkindutf8(const textkindfinder &finder)
{
    return finder.marked || (finder.above && !finder.broken && !utf8rest(finder.decoder));
}

uint32_t unicodefrom1252(uint8_t ch)
{
    return ch >= 128 && ch < 160 ? middle[ch - 128] : ch;
}

int32_t unicodeto1252(uint32_t unicode)
{
    if (unicode < 128 || (unicode >= 160 && unicode < 256)) return static_cast<int32_t>(unicode);
    for (int32_t i = 0; i < 32; i++)
        if (middle[i] == unicode) return 128 + i;
    return -1;
}

errorblock *encodingerror(uint32_t unicode)
{
    return makeerrortext(ERRORENCODING, "Character U+%04X is not in code page 1252.",
                         static_cast<unsigned>(unicode));
}

errorblock *utf8to1252(const char *in, int32_t inlength, char *out, int32_t size, int32_t *length)
{
    const uint8_t *bytes = reinterpret_cast<const uint8_t *>(in);
    errorblock *err = nullptr;
    utf8decoder decoder = {};
    int32_t start = 0; // of the character
    *length = 0;
    for (int32_t at = 0; at < inlength && !err; at++) {
        uint32_t unicode = utf8byte(&decoder, bytes[at]);
        if (unicode == UTF8MORE && at + 1 < inlength) continue;
        int32_t ch = unicode >= UTF8MORE ? -1 : unicodeto1252(unicode);
        if (unicode >= UTF8MORE)
            err = makeerrortext(ERRORENCODING, "Text is not UTF-8 at byte %d.",
                                static_cast<int>(start));
        else if (ch < 0)
            err = encodingerror(unicode);
        else if (*length + 1 >= size)
            err = makeerrorf(ERRORMAXSTRING, "utf8to1252");
        else
            out[(*length)++] = static_cast<char>(ch);
        start = at + 1;
    }
    if (size > 0) out[*length] = 0;
    return err;
}

errorblock *cp1252toutf8(const char *in, int32_t inlength, char *out, int32_t size, int32_t *length)
{
    *length = 0;
    for (int32_t at = 0; at < inlength; at++) {
        uint32_t unicode = unicodefrom1252(static_cast<uint8_t>(in[at]));
        int32_t need = unicode < 0x80 ? 1 : unicode < 0x800 ? 2 : 3;
        if (*length + need >= size) {
            if (size > 0) out[*length] = 0;
            return makeerrorf(ERRORMAXSTRING, "cp1252toutf8");
        }
        if (need == 1) {
            out[(*length)++] = static_cast<char>(unicode);
            continue;
        }
        constexpr uint32_t lead[4] = {0, 0, 0xC0, 0xE0};
        for (int32_t i = need - 1; i >= 0; i--) {
            uint32_t bits = unicode >> (6 * i);
            out[(*length)++] =
                static_cast<char>(i == need - 1 ? lead[need] | bits : 0x80 | (bits & 0x3F));
        }
    }
    if (size > 0) out[*length] = 0;
    return nullptr;
}

#include "base/bfile.h"

#include "base/errors.h"
#include "base/text.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>

namespace
{

constexpr int32_t TEXTSIZE = 1024; // of one formatted write

// One, two or four bytes, the lowest first.
errorblock *readnumber(bfile *file, uint32_t *word, int32_t length)
{
    uint8_t bytes[4] = {};
    errorblock *err = breadall(file, bytes, length);
    *word = 0;
    for (int32_t i = 3; i >= 0; i--)
        *word = *word << 8 | bytes[i];
    return err;
}

errorblock *writenumber(bfile *file, uint32_t word, int32_t length)
{
    uint8_t bytes[4];
    for (uint8_t &byte : bytes) {
        byte = static_cast<uint8_t>(word);
        word >>= 8;
    }
    return bwriteall(file, bytes, length);
}

bool islineend(int32_t byte)
{
    return byte == '\r' || byte == '\n';
}

// Takes the other half of a line end of two bytes.
errorblock *pairtake(bfile *file, int32_t first)
{
    int32_t second;
    errorblock *err = bpeek(file, &second);
    if (!err && islineend(second) && second != first) err = bgetc(file, &second);
    return err;
}

[[gnu::format(printf, 3, 0)]] errorblock *printlines(bfile *file, int32_t lines, const char *format,
                                                     va_list arguments)
{
    char text[TEXTSIZE];
    int32_t length = 0;
    errorblock *err = xzvsnprintf(TEXTSIZE, &length, text, format, arguments);
    if (!err) err = bwriteall(file, text, length);
    for (; lines > 0 && !err; lines--)
        err = bwriteall(file, "\r\n", 2);
    return err;
}

} // namespace

errorblock *bread32(bfile *file, uint32_t *word)
{
    return readnumber(file, word, 4);
}

errorblock *bwrite32(bfile *file, uint32_t word)
{
    return writenumber(file, word, 4);
}

errorblock *bread16(bfile *file, uint32_t *word)
{
    return readnumber(file, word, 2);
}

errorblock *bwrite16(bfile *file, uint32_t word)
{
    return writenumber(file, word, 2);
}

errorblock *bgetline(bfile *file, char *buffer, int32_t size, int32_t *end)
{
    int32_t length = 0, byte = -1;
    errorblock *err = nullptr;
    *end = 0;
    while (length < size) {
        err = bgetc(file, &byte);
        if (err || byte <= 0 || islineend(byte)) break;
        buffer[length++] = static_cast<char>(byte);
    }
    if (size > 0) buffer[std::min(length, size - 1)] = 0;
    if (!err && byte < 0 && size > 0) *end = 1;
    if (!err && length < size && islineend(byte)) err = pairtake(file, byte);
    return err;
}

errorblock *bprintf(bfile *file, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = printlines(file, 0, format, arguments);
    va_end(arguments);
    return err;
}

errorblock *bprintline(bfile *file, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = printlines(file, 1, format, arguments);
    va_end(arguments);
    return err;
}

errorblock *bprintlines(bfile *file, int32_t count, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = printlines(file, count, format, arguments);
    va_end(arguments);
    return err;
}

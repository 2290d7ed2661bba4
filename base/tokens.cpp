#include "base/errors.h"
#include "base/messages.h"
#include "base/text.h"

#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t KEYLENGTH = 31;
constexpr int32_t MOSTREPLACEMENTS = 4096;

// The key of the token that starts at token, into key; false for a brace that
// opens no token.
bool keyread(const char *token, char *key)
{
    int32_t length = 0;
    for (const char *at = token + 1; *at && *at != '}' && length < KEYLENGTH; at++)
        key[length++] = *at;
    key[length] = 0;
    return token[1 + length] == '}';
}

// Puts value in the place of the count bytes at token.
void splice(char *token, size_t count, const char *value, size_t length)
{
    const char *tail = token + count;
    std::memmove(token + length, tail, std::strlen(tail) + 1);
    std::memcpy(token, value, length);
}

// A format whose tokens were expanded is the catalogue's, which no compiler can
// check.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
void formatcut(int32_t size, char *buffer, const char *format, va_list arguments)
{
    buffer[0] = 0;
    std::vsnprintf(buffer, static_cast<size_t>(size), format, arguments);
    buffer[size - 1] = 0;
}
#pragma GCC diagnostic pop

} // namespace

errorblock *expandtokens(char *text, int32_t limit)
{
    char key[KEYLENGTH + 1];
    int32_t replaced = 0;
    size_t length = std::strlen(text);
    char *at = text;
    while ((at = std::strchr(at, '{')) && at[1]) {
        if (at[1] == '{') {
            splice(at, 1, "", 0);
            length--;
            at += at[1] ? 2 : 1; // the byte behind the escape is never looked at
            continue;
        }
        if (!keyread(at, key)) {
            at++;
            continue;
        }
        const char *value = lookuptoken(key);
        size_t tokenlength = std::strlen(key) + 2, valuelength = std::strlen(value);
        if (length - tokenlength + valuelength >= static_cast<size_t>(limit)) {
            at += tokenlength;
            continue;
        }
        if (replaced++ == MOSTREPLACEMENTS) break;
        splice(at, tokenlength, value, valuelength);
        length += valuelength - tokenlength;
    }
    return nullptr;
}

void messageformat(int32_t size, char *buffer, const char *format, va_list arguments)
{
    char expanded[256];
    strcopyn(expanded, format, sizeof expanded);
    expandtokens(expanded, sizeof expanded);
    formatcut(size, buffer, expanded, arguments);
}

errorblock *transprintf(int32_t size, char *buffer, const char *format, ...)
{
    char expanded[1024];
    errorblock *err = xzstrncpy(expanded, format, sizeof expanded);
    expandtokens(expanded, sizeof expanded);
    va_list arguments;
    va_start(arguments, format);
    formatcut(size, buffer, expanded, arguments);
    va_end(arguments);
    expandtokens(buffer, size);
    return err;
}

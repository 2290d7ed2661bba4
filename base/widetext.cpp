#include "base/widetext.h"

#include "base/encoding.h"
#include "base/errors.h"

#include <cassert>

namespace
{

bool surrogate(char16_t unit, uint32_t which)
{
    return (unit & 0xFC00u) == which;
}

// The character at *in, which moves behind it. Half of a pair stands alone.
uint32_t wideread(const char16_t **in)
{
    uint32_t first = *(*in)++;
    if (!surrogate(static_cast<char16_t>(first), 0xD800) || !surrogate(**in, 0xDC00)) return first;
    uint32_t second = *(*in)++;
    return 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF);
}

} // namespace

errorblock *widetomulti(const char16_t *in, char *out, int32_t size, widelack lack)
{
    assert(size > 0);
    errorblock *err = nullptr;
    int32_t length = 0;
    while (*in && !err) {
        uint32_t unicode = wideread(&in);
        int32_t ch = unicodeto1252(unicode);
        if (ch < 0 && lack == LACKQUESTION) ch = '?';
        if (ch < 0)
            err = encodingerror(unicode);
        else if (length == size - 1)
            err = makeerrorf(ERRORMAXSTRING, "widetomulti");
        else
            out[length++] = static_cast<char>(ch);
    }
    out[length] = 0;
    return err;
}

errorblock *multitowide(const char *in, char16_t *out, int32_t size)
{
    assert(size > 0);
    int32_t length = 0;
    for (; in[length] && length < size - 1; length++)
        out[length] = static_cast<char16_t>(unicodefrom1252(static_cast<uint8_t>(in[length])));
    out[length] = 0;
    return in[length] ? makeerrorf(ERRORMAXSTRING, "multitowide") : nullptr;
}

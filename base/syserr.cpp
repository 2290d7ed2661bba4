#include "base/syserr.h"

#include "base/platform.h"

#include <cstddef>
#include <cstdio>
#include <cstring>

namespace
{

constexpr int32_t MESSAGESIZE = sizeof errorblock::text;

// The block with the room behind it that the suffix may run into.
struct {
    errorblock block;
    char more[MESSAGESIZE];
} syserror;

static_assert(sizeof syserror == sizeof(errorblock) + MESSAGESIZE);

// Cut in silence: the error of a text cut short would be one too many.
[[gnu::format(printf, 2, 3)]] void suffix(char *end, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(end, MESSAGESIZE, format, arguments);
    va_end(arguments);
}

errorblock *fill(uint32_t code, bool message, const char *call, const char *details)
{
    // Reached from the start of the whole record, whose end is the limit.
    char *text = reinterpret_cast<char *>(&syserror) + offsetof(errorblock, text);
    text[0] = 0;
    if (message) platformerrortext(code, text, MESSAGESIZE);
    char *end = text + strlen(text);
    int shown = static_cast<int>(code);
    if (details)
        suffix(end, "(%s) (%d) (%s)", call, shown, details);
    else
        suffix(end, "(%s) (%d)", call, shown);
    syserror.block.code = code;
    return &syserror.block;
}

[[gnu::format(printf, 3, 0)]] errorblock *fillf(uint32_t code, const char *call, const char *format,
                                                va_list arguments)
{
    char details[512];
    std::vsnprintf(details, sizeof details, format, arguments);
    return fill(code, true, call, details);
}

} // namespace

errorblock *syserr(const char *call)
{
    return syserrcode(platformlasterror(), call);
}

errorblock *syserr(const char *call, const char *format, ...)
{
    uint32_t code = platformlasterror();
    if (!code) return nullptr;
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = fillf(code, call, format, arguments);
    va_end(arguments);
    return err;
}

errorblock *syserrcode(uint32_t code, const char *call)
{
    return code ? fill(code, true, call, nullptr) : nullptr;
}

errorblock *syserrcode(uint32_t code, const char *call, const char *format, ...)
{
    if (!code) return nullptr;
    va_list arguments;
    va_start(arguments, format);
    errorblock *err = fillf(code, call, format, arguments);
    va_end(arguments);
    return err;
}

errorblock *syserrname(const char *call, const char *name)
{
    if (reinterpret_cast<uintptr_t>(name) >= 65536) return syserr(call, "%s", name);
    return syserr(call, "%d", static_cast<int>(reinterpret_cast<intptr_t>(name)));
}

errorblock *syserrversioned(uint32_t, const char *call)
{
    return syserr(call);
}

errorblock *syserrnew(uint32_t code, const char *call)
{
    return code ? fill(code, false, call, nullptr) : nullptr;
}

kepterror keeperror(errorblock *error)
{
    kepterror kept = {error, {}};
    if (error) kept.copy = *error;
    return kept;
}

errorblock *firsterror(const kepterror &kept, errorblock *other)
{
    if (!kept.place) return other;
    *kept.place = kept.copy;
    return kept.place;
}

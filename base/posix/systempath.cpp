#include "base/posix/systempath.h"

#include "base/encoding.h"

#include <cerrno>
#include <cstring>

bool systempath(const char *path, char (&out)[SYSTEMPATHSIZE])
{
    int32_t length;
    size_t inlength = strlen(path);
    if (inlength >= PATHSIZE ||
        cp1252toutf8(path, static_cast<int32_t>(inlength), out, SYSTEMPATHSIZE, &length)) {
        errno = ENAMETOOLONG;
        return false;
    }
    for (char *at = out; *at; at++)
        if (*at == '\\') *at = '/';
    return true;
}

bool systempathback(const char *name, char *out, int32_t size)
{
    int32_t length;
    if (strchr(name, '\\')) return false;
    return !utf8to1252(name, static_cast<int32_t>(strlen(name)), out, size, &length);
}

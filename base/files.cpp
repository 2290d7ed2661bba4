#include "base/files.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/platformfault.h"
#include "base/syserr.h"

#include <algorithm>
#include <cstring>

platformfaultrecord platformfault;

namespace
{

constexpr uint32_t FAULTCODE = 31;   // "a device is not functioning"
constexpr uint32_t FAULTSPACE = 112; // "not enough space on the disc"

// Counts a fault down; its error when it is due.
errorblock *fault(int32_t *count, const char *call)
{
    if (*count < 0) return nullptr;
    return (*count)-- ? nullptr : syserrnew(FAULTCODE, call);
}

int32_t limited(int32_t length, int32_t limit)
{
    return limit < 0 ? length : std::min(length, limit);
}

} // namespace

errorblock *fileopen(const char *path, const char *mode, filehandle *handle)
{
    char expanded[PATHSIZE];
    *handle = 0;
    errorblock *err = pathwhole(path, expanded);
    platformopening how = PLATFORMREAD;
    if (mode[0] == 'u') how = PLATFORMUPDATE;
    if (mode[0] == 'w') how = platformobject(expanded) ? PLATFORMTRUNCATE : PLATFORMCREATE;
    if (!err) err = fault(&platformfault.opens, "CreateFile");
    if (!err) err = platformopen(expanded, how, handle);
    return err;
}

FILE *fileopenstd(const char *path, const char *mode)
{
    char expanded[PATHSIZE];
    return pathwhole(path, expanded) ? nullptr : platformstream(expanded, mode);
}

errorblock *fileclose(filehandle handle, errorblock *error)
{
    if (!handle) return error;
    kepterror kept = keeperror(error);
    errorblock *err = platformclose(handle);
    if (!err) err = fault(&platformfault.closes, "CloseHandle");
    return firsterror(kept, err);
}

errorblock *fileread(filehandle handle, void *data, int32_t length, int32_t *count)
{
    *count = 0;
    errorblock *err = fault(&platformfault.reads, "ReadFile");
    if (!err) err = platformread(handle, data, limited(length, platformfault.readlimit), count);
    return err;
}

errorblock *filereadall(filehandle handle, void *data, int32_t length)
{
    errorblock *err = nullptr;
    int32_t count = 0;
    char *at = static_cast<char *>(data);
    for (; length > 0 && !err; length -= count, at += count) {
        err = fileread(handle, at, length, &count);
        if (!err && !count) err = makeerror(ERRORREAD);
    }
    return err;
}

errorblock *filereadat(filehandle handle, int32_t position, void *data, int32_t length)
{
    errorblock *err = length ? fileseek(handle, position) : nullptr;
    return err ? err : filereadall(handle, data, length);
}

errorblock *filewrite(filehandle handle, const void *data, int32_t length, int32_t *count)
{
    *count = 0;
    errorblock *err = fault(&platformfault.writes, "WriteFile");
    int32_t wanted = limited(length, platformfault.writelimit);
    int32_t taken = limited(wanted, platformfault.space);
    if (!err && !taken && wanted) err = syserrnew(FAULTSPACE, "WriteFile");
    if (!err) err = platformwrite(handle, data, taken, count);
    if (platformfault.space > 0) platformfault.space -= *count;
    return err;
}

errorblock *filewriteall(filehandle handle, const void *data, int32_t length)
{
    errorblock *err = nullptr;
    int32_t count = 0;
    const char *at = static_cast<const char *>(data);
    for (; length > 0 && !err; length -= count, at += count) {
        err = filewrite(handle, at, length, &count);
        if (!err && !count) err = makeerror(ERRORWRITE);
    }
    return err;
}

errorblock *filewriteat(filehandle handle, int32_t position, const void *data, int32_t length)
{
    errorblock *err = length ? fileseek(handle, position) : nullptr;
    return err ? err : filewriteall(handle, data, length);
}

errorblock *filegetc(filehandle handle, int32_t *byte)
{
    uint8_t read = 0;
    int32_t count;
    errorblock *err = fileread(handle, &read, 1, &count);
    *byte = count ? read : -1;
    return err;
}

errorblock *fileseek(filehandle handle, int32_t position)
{
    return platformseek(handle, position);
}

errorblock *filetell(filehandle handle, int32_t *position)
{
    return platformtell(handle, position);
}

errorblock *filesize(filehandle handle, int32_t *size)
{
    return platformsize(handle, size);
}

errorblock *fileateof(filehandle handle, int32_t *end)
{
    int32_t position = 0, size = 0;
    errorblock *err = platformtell(handle, &position);
    if (!err) err = platformsize(handle, &size);
    *end = position >= size;
    return err;
}

errorblock *filetruncate(filehandle handle, int32_t length)
{
    errorblock *err = platformseek(handle, length);
    if (!err) err = platformtruncate(handle);
    return err;
}

errorblock *filesync(filehandle handle)
{
    errorblock *err = fault(&platformfault.syncs, "FlushFileBuffers");
    return err ? err : platformsync(handle);
}

errorblock *filereplace(const char *from, const char *to)
{
    char expandedfrom[PATHSIZE], expandedto[PATHSIZE];
    errorblock *err = pathwhole(from, expandedfrom);
    if (!err) err = pathwhole(to, expandedto);
    if (!err) err = fault(&platformfault.replaces, "MoveFileEx");
    if (!err) err = platformreplace(expandedfrom, expandedto);
    return err;
}

#include "base/platform.h"

#include "base/posix/systempath.h"
#include "base/syserr.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// A handle is the descriptor and one, since 0 is none and descriptor 0 is not.

namespace
{

int descriptor(filehandle handle)
{
    return static_cast<int>(handle) - 1;
}

// Opening a folder succeeds here and nowhere else; it is refused.
int openfile(const char *path, int flags)
{
    int file = open(path, flags | O_CLOEXEC, 0666);
    struct stat status;
    if (file < 0 || fstat(file, &status) || !S_ISDIR(status.st_mode)) return file;
    close(file);
    errno = EISDIR;
    return -1;
}

} // namespace

uint32_t platformlasterror()
{
    return static_cast<uint32_t>(errno);
}

void platformerrortext(uint32_t code, char *out, int32_t size)
{
    std::snprintf(out, static_cast<size_t>(size), "%s ", strerror(static_cast<int>(code)));
}

errorblock *platformopen(const char *path, platformopening how, filehandle *handle)
{
    constexpr int flags[] = {O_RDONLY, O_RDWR | O_CREAT, O_RDWR | O_TRUNC,
                             O_RDWR | O_CREAT | O_EXCL};
    char system[SYSTEMPATHSIZE];
    int file = systempath(path, system) ? openfile(system, flags[how]) : -1;
    *handle = file + 1;
    return file < 0 ? syserr("CreateFile", "%s", path) : nullptr;
}

errorblock *platformclose(filehandle handle)
{
    return close(descriptor(handle)) ? syserr("CloseHandle") : nullptr;
}

errorblock *platformread(filehandle handle, void *data, int32_t length, int32_t *count)
{
    ssize_t moved = read(descriptor(handle), data, static_cast<size_t>(length));
    *count = moved < 0 ? 0 : static_cast<int32_t>(moved);
    return moved < 0 ? syserr("ReadFile") : nullptr;
}

errorblock *platformwrite(filehandle handle, const void *data, int32_t length, int32_t *count)
{
    ssize_t moved = write(descriptor(handle), data, static_cast<size_t>(length));
    *count = moved < 0 ? 0 : static_cast<int32_t>(moved);
    return moved < 0 ? syserr("WriteFile") : nullptr;
}

errorblock *platformseek(filehandle handle, int32_t position)
{
    return lseek(descriptor(handle), position, SEEK_SET) < 0 ? syserr("SetFilePointer") : nullptr;
}

errorblock *platformtell(filehandle handle, int32_t *position)
{
    off_t at = lseek(descriptor(handle), 0, SEEK_CUR);
    *position = at < 0 ? 0 : static_cast<int32_t>(at);
    return at < 0 ? syserr("SetFilePointer") : nullptr;
}

errorblock *platformsize(filehandle handle, int32_t *size)
{
    struct stat status;
    *size = 0;
    if (fstat(descriptor(handle), &status)) return syserr("GetFileSize");
    if (status.st_size > INT32_MAX) return syserrcode(EFBIG, "GetFileSize");
    *size = static_cast<int32_t>(status.st_size);
    return nullptr;
}

errorblock *platformtruncate(filehandle handle)
{
    off_t at = lseek(descriptor(handle), 0, SEEK_CUR);
    bool done = at >= 0 && !ftruncate(descriptor(handle), at);
    return done ? nullptr : syserr("SetEndOfFile");
}

errorblock *platformsync(filehandle handle)
{
    return fsync(descriptor(handle)) ? syserr("FlushFileBuffers") : nullptr;
}

FILE *platformstream(const char *path, const char *mode)
{
    char system[SYSTEMPATHSIZE];
    return systempath(path, system) ? std::fopen(system, mode) : nullptr;
}

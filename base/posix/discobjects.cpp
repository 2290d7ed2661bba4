#include "base/posix/discobjects.h"

#include "base/posix/systempath.h"
#include "base/syserr.h"
#include "base/text.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr uint64_t EPOCH = 11644473600; // seconds from 1601 to 1970
constexpr uint32_t READONLY = 1, HIDDEN = 2, DIRECTORY = 16;

// The attributes as Windows has them: a name that begins with a dot is hidden.
uint32_t attributes(const char *system, mode_t mode)
{
    const char *slash = strrchr(system, '/');
    const char *leaf = slash ? slash + 1 : system;
    uint32_t bits = S_ISDIR(mode) ? DIRECTORY : 0;
    if (!(mode & (S_IWUSR | S_IWGRP | S_IWOTH))) bits |= READONLY;
    if (leaf[0] == '.' && leaf[1] && strcmp(leaf, "..") != 0) bits |= HIDDEN;
    return bits;
}

} // namespace

bool objectstatus(const char *system, platforminfo *info)
{
    struct stat status;
    *info = {};
    if (stat(system, &status)) return false;
    info->objecttype = S_ISDIR(status.st_mode) ? 2 : 1;
    info->length = static_cast<uint32_t>(status.st_size);
    info->attributes = attributes(system, status.st_mode);
    info->time = (static_cast<uint64_t>(status.st_mtim.tv_sec) + EPOCH) * 10000000 +
                 static_cast<uint64_t>(status.st_mtim.tv_nsec) / 100;
    return true;
}

errorblock *platforminfoget(const char *path, platforminfo *info)
{
    char system[SYSTEMPATHSIZE];
    *info = {};
    if (systempath(path, system) && objectstatus(system, info)) return nullptr;
    return errno == ENOENT || errno == ENOTDIR ? nullptr : syserr("FindFirstFile", "%s", path);
}

int32_t platformobject(const char *path)
{
    char system[SYSTEMPATHSIZE];
    platforminfo info;
    return systempath(path, system) && objectstatus(system, &info) ? info.objecttype : 0;
}

errorblock *platformsettime(const char *path, uint64_t time)
{
    char system[SYSTEMPATHSIZE];
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = static_cast<time_t>(time / 10000000 - EPOCH);
    times[1].tv_nsec = static_cast<long>(time % 10000000 * 100);
    bool done = systempath(path, system) && !utimensat(AT_FDCWD, system, times, 0);
    return done ? nullptr : syserr("SetFileTime", "%s", path);
}

errorblock *platformdelete(const char *path)
{
    char system[SYSTEMPATHSIZE];
    bool done = systempath(path, system) && !unlink(system);
    return done ? nullptr : syserr("DeleteFile", "%s", path);
}

errorblock *platformremovedir(const char *path)
{
    char system[SYSTEMPATHSIZE];
    bool done = systempath(path, system) && !rmdir(system);
    return done ? nullptr : syserr("Remove Directory", "%s", path);
}

errorblock *platformmakedir(const char *path)
{
    char system[SYSTEMPATHSIZE];
    bool done = systempath(path, system) && !mkdir(system, 0777);
    return done ? nullptr : syserr("Create Directory", "%s", path);
}

// Renaming over an object is refused, as it is on Windows.
errorblock *platformrename(const char *from, const char *to)
{
    char systemfrom[SYSTEMPATHSIZE], systemto[SYSTEMPATHSIZE];
    struct stat status;
    bool done = systempath(from, systemfrom) && systempath(to, systemto);
    if (done && !lstat(systemto, &status)) {
        errno = EEXIST;
        done = false;
    }
    done = done && !rename(systemfrom, systemto);
    return done ? nullptr : syserr("MoveFile", "%s %s", from, to);
}

bool platformtarget(const char *path, char *out)
{
    char system[SYSTEMPATHSIZE], linked[PATH_MAX];
    struct stat status;
    strcopyn(out, path, PATHSIZE);
    if (!systempath(path, system)) return false;
    if (lstat(system, &status)) return errno == ENOENT;
    if (S_ISREG(status.st_mode)) return true;
    return S_ISLNK(status.st_mode) && !stat(system, &status) && S_ISREG(status.st_mode) &&
           realpath(system, linked) && systempathback(linked, out, PATHSIZE);
}

// A file that can't be written is not replaced either. The new one has the
// permissions of the one it replaces.
errorblock *platformreplace(const char *from, const char *to)
{
    char systemfrom[SYSTEMPATHSIZE], systemto[SYSTEMPATHSIZE];
    struct stat status;
    bool done = systempath(from, systemfrom) && systempath(to, systemto);
    if (done && !stat(systemto, &status))
        done = !access(systemto, W_OK) && !chmod(systemfrom, status.st_mode & 07777);
    done = done && !rename(systemfrom, systemto);
    return done ? nullptr : syserr("MoveFileEx", "%s %s", from, to);
}

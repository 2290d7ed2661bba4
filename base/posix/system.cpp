#include "base/platform.h"

#include "base/posix/systempath.h"
#include "base/syserr.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <pwd.h>
#include <string>
#include <unistd.h>

namespace
{

constexpr uint64_t EPOCH = 11644473600; // seconds from 1601 to 1970

// A folder with a backslash behind it, as paths are joined inside; empty, and
// false, when it can't be held.
bool folderout(const std::string &folder, char *out, int32_t size)
{
    std::string path = folder;
    while (path.ends_with('/'))
        path.pop_back();
    bool held = systempathback(path.c_str(), out, size - 1);
    strcpy(held ? out + strlen(out) : out, held ? "\\" : "");
    return held;
}

} // namespace

void platformenvironment(const char *text, char *out, int32_t size)
{
    std::string result;
    out[0] = 0;
    while (*text) {
        const char *end = *text == '%' ? strchr(text + 1, '%') : nullptr;
        const char *value = end ? getenv(std::string(text + 1, end).c_str()) : nullptr;
        char inside[PATHSIZE];
        if (value && !systempathback(value, inside, sizeof inside)) return;
        result += value ? std::string(inside) : std::string(1, *text);
        text = value ? end + 1 : text + 1;
    }
    if (result.size() < static_cast<size_t>(size)) strcpy(out, result.c_str());
}

bool platformfullpath(const char *path, char *out, int32_t size)
{
    char folder[PATH_MAX];
    out[0] = 0;
    bool absolute = *path == '/' || *path == '\\';
    if (!absolute && (!getcwd(folder, sizeof folder) || !folderout(folder, out, size)))
        return false;
    size_t before = strlen(out);
    bool held = before + strlen(path) < static_cast<size_t>(size);
    strcpy(held ? out + before : out, held ? path : "");
    return held;
}

void platformshortcut(const char *, char *out, int32_t)
{
    out[0] = 0;
}

uint64_t platformclock()
{
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return (static_cast<uint64_t>(now.tv_sec) + EPOCH) * 10000000 +
           static_cast<uint64_t>(now.tv_nsec) / 100;
}

uint32_t platformticks()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint32_t>(static_cast<uint64_t>(now.tv_sec) * 1000 +
                                 static_cast<uint64_t>(now.tv_nsec) / 1000000);
}

errorblock *platformlocaltime(uint64_t time, platformdate *date)
{
    time_t seconds = static_cast<time_t>(time / 10000000) - static_cast<time_t>(EPOCH);
    tm local;
    if (!localtime_r(&seconds, &local)) return syserr("FileTimeToSystemTime");
    *date = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
             local.tm_min,         local.tm_sec,     local.tm_wday};
    return nullptr;
}

errorblock *platformloginname(char *out, int32_t size)
{
    const passwd *user = getpwuid(getuid());
    const char *name = user ? user->pw_name : getenv("LOGNAME");
    if (name && systempathback(name, out, size)) return nullptr;
    return syserrcode(ENOENT, "GetUserName");
}

errorblock *platformprogramdirectory(char *out, int32_t size)
{
    char path[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length < 0) return syserr("GetModuleFileName");
    std::string folder(path, static_cast<size_t>(length));
    if (folderout(folder.substr(0, folder.rfind('/') + 1), out, size)) return nullptr;
    return syserrcode(ENAMETOOLONG, "GetModuleFileName", "%s", folder.c_str());
}

void platformtempfolder(char *out, int32_t size)
{
    const char *folder = getenv("TMPDIR");
    folderout(folder && *folder ? folder : "/tmp", out, size);
}

// This runtime has nothing to ask: -2 is the other one's word for a good heap.
int32_t platformheapcheck()
{
    return -2;
}

bool platformheapvalid()
{
    return true;
}

errorblock *platformresource(const char *, const char *, const void **data, int32_t *size)
{
    *data = nullptr;
    *size = 0;
    return nullptr;
}

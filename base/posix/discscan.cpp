#include "base/platform.h"

#include "base/chars.h"
#include "base/encoding.h"
#include "base/posix/discobjects.h"
#include "base/posix/systempath.h"
#include "base/syserr.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <string>
#include <vector>

// The system gives names in any order: they are all read and sorted at the
// start, and looked at one by one when they are asked for.

namespace
{

struct scanrecord {
    std::string folder; // the system's, ends in "/" unless it is empty
    std::vector<std::string> names;
    size_t next;
};

uint32_t sortkey(char ch)
{
    return unicodefrom1252(charupper(static_cast<uint8_t>(ch)));
}

// The order of a Windows disc: by upper-cased Unicode; names that differ in
// case alone, which it can't hold, by their bytes.
bool namebefore(const std::string &a, const std::string &b)
{
    size_t shared = std::min(a.size(), b.size());
    for (size_t i = 0; i < shared; i++)
        if (sortkey(a[i]) != sortkey(b[i])) return sortkey(a[i]) < sortkey(b[i]);
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

// Whether name fits pattern, without case. On a mismatch the last "*" takes
// one character more.
bool fits(const char *name, const char *pattern)
{
    const char *star = nullptr, *resume = nullptr;
    while (*name) {
        if (*pattern == '*') {
            star = ++pattern;
            resume = name;
        } else if (*pattern && (*pattern == '?' || sortkey(*pattern) == sortkey(*name))) {
            pattern++;
            name++;
        } else if (star) {
            pattern = star;
            name = ++resume;
        } else {
            return false;
        }
    }
    while (*pattern == '*')
        pattern++;
    return !*pattern;
}

// Files without a dot are among "*.*", as old programs expect.
bool matches(const char *name, const char *pattern)
{
    return !strcmp(pattern, "*.*") || fits(name, pattern);
}

void namesread(DIR *directory, const char *pattern, scanrecord *scan)
{
    char name[PATHSIZE];
    while (const dirent *entry = readdir(directory)) {
        if (!strcmp(entry->d_name, ".") || !strcmp(entry->d_name, "..")) continue;
        if (systempathback(entry->d_name, name, sizeof name) && matches(name, pattern))
            scan->names.emplace_back(name);
    }
    std::sort(scan->names.begin(), scan->names.end(), namebefore);
}

scanrecord *record(filehandle handle)
{
    return reinterpret_cast<scanrecord *>(handle);
}

} // namespace

errorblock *platformscanstart(const char *path, platforminfo *info, char *name, int32_t size,
                              filehandle *handle, bool *done)
{
    char system[SYSTEMPATHSIZE], pattern[PATHSIZE];
    *handle = 0;
    *done = false;
    if (!systempath(path, system)) return syserr("FindFirstFile", "%s", path);
    char *slash = strrchr(system, '/');
    char *leaf = slash ? slash + 1 : system;
    if (!systempathback(leaf, pattern, sizeof pattern)) pattern[0] = 0;
    *leaf = 0;
    DIR *directory = opendir(*system ? system : ".");
    if (!directory) return syserr("FindFirstFile", "%s", path);
    auto *scan = new scanrecord{system, {}, 0};
    namesread(directory, pattern, scan);
    closedir(directory);
    errorblock *err = platformscannext(reinterpret_cast<filehandle>(scan), info, name, size, done);
    if (*done)
        delete scan;
    else
        *handle = reinterpret_cast<filehandle>(scan);
    return err;
}

// A name that has gone since is passed over.
errorblock *platformscannext(filehandle handle, platforminfo *info, char *name, int32_t size,
                             bool *done)
{
    scanrecord *scan = record(handle);
    *done = false;
    while (scan->next < scan->names.size()) {
        const std::string &leaf = scan->names[scan->next++];
        char system[SYSTEMPATHSIZE];
        if (!systempath(leaf.c_str(), system)) continue;
        if (!objectstatus((scan->folder + system).c_str(), info)) continue;
        std::snprintf(name, static_cast<size_t>(size), "%s", leaf.c_str());
        return nullptr;
    }
    *done = true;
    return nullptr;
}

errorblock *platformscanend(filehandle handle)
{
    delete record(handle);
    return nullptr;
}

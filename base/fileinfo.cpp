#include "base/fileinfo.h"

#include "base/dates.h"
#include "base/errors.h"
#include "base/files.h"

#include <initializer_list>

void infofill(const platforminfo &known, const char *name, fileinfo *info)
{
    *info = {};
    info->objecttype = known.objecttype;
    if (!known.objecttype) return;
    info->length = known.length;
    info->attributes = known.attributes;
    info->filetype = filetypeof(name);
    uint32_t type = static_cast<uint32_t>(info->filetype) & 0xFFF;
    info->loadaddress = 0xFFF00000 | type << 8;
    time5 time = timefromsystem(known.time);
    timetofileinfo(info, &time);
}

errorblock *fileinfoget(const char *path, fileinfo *info)
{
    char expanded[PATHSIZE];
    errorblock *err = pathwhole(path, expanded);
    return err ? err : fileinfoexpanded(expanded, info);
}

errorblock *fileinfoexpanded(const char *path, fileinfo *info)
{
    platforminfo known;
    errorblock *err = platforminfoget(path, &known);
    if (err) known = {};
    infofill(known, path, info);
    return err;
}

errorblock *fileobject(const char *path, int32_t *type)
{
    char expanded[PATHSIZE];
    *type = OBJECTNONE;
    if (!path) return nullptr;
    if (!pathwhole(path, expanded)) *type = platformobject(expanded);
    return nullptr;
}

bool fileexists(const char *directory, const char *leaf)
{
    char path[PATHSIZE];
    int32_t type = OBJECTNONE;
    if (!fs_strcpycat(path, sizeof path, directory, leaf)) fileobject(path, &type);
    return type != OBJECTNONE;
}

errorblock *filepick(const char *first, const char *second, int32_t wanted, const char **chosen,
                     fileinfo *info)
{
    *chosen = nullptr;
    for (const char *path : {second, first}) {
        if (!path) continue;
        errorblock *err = fileinfoget(path, info);
        if (err) return err;
        if (info->objecttype == wanted) {
            *chosen = path;
            return nullptr;
        }
    }
    return nullptr;
}

errorblock *filesettime(const char *path, const fileinfo *info)
{
    char expanded[PATHSIZE];
    time5 time;
    if (!timefromfileinfo(info, &time)) return nullptr;
    if (!pathwhole(path, expanded)) platformsettime(expanded, timetosystem(&time));
    return nullptr;
}

int filetimecompare(const fileinfo *a, const fileinfo *b, int32_t tolerance)
{
    time5 timea = {}, timeb = {};
    timefromfileinfo(a, &timea);
    timefromfileinfo(b, &timeb);
    int64_t difference = timecount(&timea) - timecount(&timeb);
    return difference < -static_cast<int64_t>(tolerance) ? -1 : difference > tolerance;
}

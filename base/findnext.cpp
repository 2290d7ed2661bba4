#include "base/files.h"

#include "base/errors.h"
#include "base/fileinfo.h"
#include "base/text.h"
#include "base/trace.h"

#include <cstring>

namespace
{

filehandle scan; // the one scan, 0 when none is open

errorblock *scanstart(const char *path, const char *pattern, platforminfo *known, char *name,
                      bool *done)
{
    char expanded[PATHSIZE];
    errorblock *err = pathwhole(path, expanded);
    if (!err && pattern) err = fs_strcat(expanded, sizeof expanded, pattern);
    if (!err) err = platformscanstart(expanded, known, name, PATHSIZE, &scan, done);
    return err;
}

bool isdots(const char *name)
{
    return !strcmp(name, ".") || !strcmp(name, "..");
}

} // namespace

errorblock *findnext(const char *path, fileinfo *info, const char *pattern, bool *done)
{
    platforminfo known;
    char name[PATHSIZE];
    errorblock *err;
    do {
        *done = false;
        err = scan ? platformscannext(scan, &known, name, sizeof name, done)
                   : scanstart(path, pattern, &known, name, done);
    } while (!err && !*done && isdots(name));
    if (err || *done) {
        findclose();
        return err;
    }
    infofill(known, name, info);
    strcopyn(info->name, name, sizeof info->name);
    return nullptr;
}

errorblock *findclose()
{
    errorblock *err = scan ? platformscanend(scan) : nullptr;
    scan = 0;
    return err;
}

void findreset()
{
    if (scan) trace("!!!!!! find handle overwrite !!!!!");
    scan = 0;
}

void findgethandle(filehandle *handle)
{
    *handle = scan;
}

void findsethandle(filehandle handle)
{
    if (scan) trace("!!!!!! find handle overwrite in loadscan !!!!!");
    scan = handle;
}

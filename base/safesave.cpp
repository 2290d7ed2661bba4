#include "base/safesave.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/syserr.h"
#include "base/text.h"

#include <cstring>

namespace
{

constexpr char BESIDE[] = ".~new";

// The file is on the disc before it takes the other's name: a crash after the
// renaming must not find it empty.
errorblock *besideclose(bfile *file, errorblock *error)
{
    errorblock *err = bflush(file);
    bool failed = file->flags & BFILEFAILED;
    if (!err && !error && !failed && file->handle) err = filesync(file->handle);
    err = bclose(file, err);
    return !err && failed ? makeerror(ERRORWRITE) : err;
}

errorblock *besideremove(const safesave *save, errorblock *error)
{
    kepterror kept = keeperror(error);
    filedelete(save->beside);
    return firsterror(kept, nullptr);
}

} // namespace

errorblock *safeopen(const char *path, int32_t size, safesave *save)
{
    *save = {};
    errorblock *err = pathwhole(path, save->path);
    if (!err) err = xzstrncpyu(save->beside, save->path, PATHSIZE - sizeof BESIDE + 1);
    if (!err) strcat(save->beside, BESIDE);
    if (!err) err = bopen(save->beside, "w", size, &save->file);
    if (err || !save->file.handle) save->beside[0] = 0;
    return err;
}

errorblock *safeclose(safesave *save, errorblock *error)
{
    kepterror kept = keeperror(error);
    errorblock *err = besideclose(&save->file, error);
    if (save->beside[0]) {
        if (!err && !error) err = filereplace(save->beside, save->path);
        if (err || error) err = besideremove(save, err);
        save->beside[0] = 0;
    }
    return firsterror(kept, err);
}

#include "base/safesave.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/syserr.h"
#include "base/text.h"

#include <cstring>

namespace
{

constexpr char BESIDE[] = ".~new";

// The name beside the file that is to be replaced; false where there is none.
bool besidename(safesave *save)
{
    if (!platformtarget(save->path, save->target)) return false;
    if (strlen(save->target) + sizeof BESIDE > PATHSIZE) return false;
    strcpy(save->beside, save->target);
    strcat(save->beside, BESIDE);
    return true;
}

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

// What is whole beside the file goes into its place, or is written there where the
// system doesn't let one file take the other's place.
errorblock *besideplace(const safesave *save)
{
    void *bytes = nullptr;
    int32_t size = 0;
    if (!filereplace(save->beside, save->target)) return nullptr;
    errorblock *err = fileloadnew(save->beside, &bytes, &size);
    if (!err) err = filesave(save->path, 0, bytes, size);
    heap_free(&bytes);
    return besideremove(save, err);
}

// Where no file can be made beside it, it is written when all of it is known.
errorblock *memoryclose(safesave *save, errorblock *error)
{
    bfile *file = &save->file;
    if (!error) error = filesave(save->path, 0, file->buffer, file->valid);
    return bclose(file, error);
}

} // namespace

errorblock *safeopen(const char *path, int32_t size, safesave *save)
{
    *save = {};
    errorblock *err = pathwhole(path, save->path);
    if (err) return err;
    if (!besidename(save) || bopen(save->beside, "w", size, &save->file)) {
        save->beside[0] = 0;
        err = bopen(nullptr, "w", size, &save->file);
    }
    if (!save->file.handle) save->beside[0] = 0;
    return err;
}

errorblock *safeclose(safesave *save, errorblock *error)
{
    if (save->file.flags & BFILEMEMORY) return memoryclose(save, error);
    kepterror kept = keeperror(error);
    errorblock *err = besideclose(&save->file, error);
    if (save->beside[0]) {
        err = err || error ? besideremove(save, err) : besideplace(save);
        save->beside[0] = 0;
    }
    return firsterror(kept, err);
}

#include "base/files.h"

#include "base/errors.h"
#include "base/flex.h"

namespace
{

// Opens the file at path; a handle of 0 when there is no file there.
errorblock *openifthere(const char *path, filehandle *handle, int32_t *size)
{
    char expanded[PATHSIZE];
    *handle = 0;
    *size = 0;
    errorblock *err = pathwhole(path, expanded);
    if (err || platformobject(expanded) != OBJECTFILE) return err;
    err = fileopen(path, "r", handle);
    if (!err) err = filesize(*handle, size);
    return err;
}

} // namespace

errorblock *filesave(const char *path, int32_t, const void *address, int32_t size)
{
    filehandle handle;
    errorblock *err = fileopen(path, "w", &handle);
    if (!err) err = filewriteall(handle, address, size);
    return fileclose(handle, err);
}

errorblock *fileload(const char *path, void *address)
{
    filehandle handle;
    int32_t size;
    errorblock *err = openifthere(path, &handle, &size);
    if (!err && handle) err = filereadall(handle, address, size);
    return fileclose(handle, err);
}

errorblock *fileloadnew(const char *path, void **address, int32_t *size)
{
    filehandle handle;
    *address = nullptr;
    errorblock *err = openifthere(path, &handle, size);
    if (!err && handle) err = heap_allocraw(address, *size);
    if (!err && handle) err = filereadall(handle, *address, *size);
    err = fileclose(handle, err);
    if (err) {
        heap_free(address);
        *size = 0;
    }
    return err;
}

errorblock *filedelete(const char *path)
{
    char expanded[PATHSIZE];
    errorblock *err = pathwhole(path, expanded);
    if (err) return err;
    return platformobject(expanded) == OBJECTDIRECTORY ? platformremovedir(expanded)
                                                       : platformdelete(expanded);
}

errorblock *filerename(const char *from, const char *to)
{
    char expandedfrom[PATHSIZE], expandedto[PATHSIZE];
    errorblock *err = pathwhole(from, expandedfrom);
    if (!err) err = pathwhole(to, expandedto);
    return err ? err : platformrename(expandedfrom, expandedto);
}

errorblock *mkdir(const char *path)
{
    char expanded[PATHSIZE];
    errorblock *err = pathwhole(path, expanded);
    if (err || platformobject(expanded)) return err;
    return platformmakedir(expanded);
}

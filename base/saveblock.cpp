#include "base/saveblock.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/trace.h"
#include "base/transfer.h"

namespace
{

constexpr int32_t SIZEGUESS = 4096;

struct {
    bool transferring; // the load under way comes from memory
    int32_t sizeguess;
} blocks = {false, SIZEGUESS};

} // namespace

errorblock *saveblock(const char *path, int32_t type, const void *address, int32_t size)
{
    if (!ramwriteactive()) {
        trace("file save block");
        return filesave(path, type, address, size);
    }
    int32_t count;
    trace("ram save block");
    ramwrite(address, size, &count);
    return ramwriteend(count < size ? makeerror(ERRORWRITE) : nullptr);
}

errorblock *loadblockopen(const char *path, int32_t *size)
{
    *size = 0;
    blocks.transferring = ramreadactive();
    if (blocks.transferring) {
        ramreadsize(size);
        return nullptr;
    }
    fileinfo info;
    errorblock *err = fileinfoget(path, &info);
    if (!err && info.objecttype != OBJECTFILE) err = makeerrorf(ERRORNOTFOUND, path);
    if (!err) *size = static_cast<int32_t>(info.length);
    return err;
}

errorblock *loadblockread(const char *path, void *address, int32_t size, int32_t *count, bool *done)
{
    *count = 0;
    *done = false;
    if (blocks.transferring) {
        ramread(address, size, count);
        *done = *count < size;
        return nullptr;
    }
    int32_t length;
    errorblock *err = loadblockopen(path, &length);
    if (!err && length > size) err = makeerror(ERRORMEMORY);
    if (!err) err = fileload(path, address);
    if (err) return err;
    *count = length;
    *done = true;
    return nullptr;
}

errorblock *loadblockclose(errorblock *error)
{
    if (blocks.transferring) ramreadrewind(nullptr);
    blocks.transferring = false;
    return error;
}

void saveblocksize(int32_t *old)
{
    *old = blocks.sizeguess;
    blocks.sizeguess = SIZEGUESS;
}

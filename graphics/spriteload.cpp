// Sprites into an area, from files and resources.

#include "graphics/sprites.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/files.h"
#include "graphics/modeinfo.h"
#include "graphics/spritelayout.h"

#include <cstring>

namespace
{

// The head of a file: an area's without its first word, which is what the
// offsets count from.
struct filehead {
    int32_t count, first, free;
};
constexpr int32_t LEFTOUT = 4;
constexpr int32_t GROWTH = 256;  // room to spare after an area has grown
constexpr int32_t FINESCALE = 3; // pixel sizes below this are those of a fine screen

spritearea *headof(const flexptr *area)
{
    return static_cast<spritearea *>(*area);
}

// A file of length bytes has all that its head speaks of, in words.
errorblock *headcheck(const filehead &head, int32_t length)
{
    if (head.count < 0 || head.first < static_cast<int32_t>(sizeof(spritearea)) ||
        head.first % 4 != 0 || head.first > head.free)
        return makeerror(ECR);
    return head.free - LEFTOUT > length ? makeerror(ERRORREAD) : nullptr;
}

// MOVES. Room for length bytes more.
errorblock *areagrow(flexptr *area, int32_t length)
{
    const spritearea *head = headof(area);
    if (length <= head->size - head->free) return nullptr;
    int64_t size = static_cast<int64_t>(head->free) + length + GROWTH;
    if (size > INT32_MAX) return makeerror(ERRORMEMORY);
    errorblock *err = flex_extend(area, static_cast<int32_t>(size));
    if (!err) headof(area)->size = static_cast<int32_t>(size);
    return err;
}

// Whether a whole sprite stands at the start of size bytes. One of an unknown
// mode does as far as anyone can tell; to plot it is another matter.
errorblock *wholesprite(const uint8_t *bytes, int32_t size)
{
    const sprite *s = reinterpret_cast<const sprite *>(bytes);
    spritelayout layout;
    if (size < static_cast<int32_t>(sizeof *s) || s->next > size) return makeerror(ECR);
    errorblock *err = spritelay(s, &layout);
    return err && err->code == EMODE ? nullptr : err;
}

// Looks over count sprites at the start of size bytes; used gets their bytes.
// What stands behind the last one belongs to nobody.
errorblock *chaincheck(const uint8_t *bytes, int32_t size, int32_t count, int32_t *used)
{
    errorblock *err = nullptr;
    *used = 0;
    for (int32_t n = 0; n < count && !err; n++) {
        err = wholesprite(bytes + *used, size - *used);
        if (!err) *used += reinterpret_cast<const sprite *>(bytes + *used)->next;
    }
    return err;
}

errorblock *headread(bfile *file, filehead *head)
{
    uint32_t words[3] = {};
    errorblock *err = nullptr;
    for (int32_t n = 0; n < 3 && !err; n++)
        err = bread32(file, &words[n]);
    *head = {static_cast<int32_t>(words[0]), static_cast<int32_t>(words[1]),
             static_cast<int32_t>(words[2])};
    return err;
}

// The bytes go straight to the end of what the area uses, and count as its own
// only once they have been looked over.
errorblock *fileadd(const char *path, int32_t length, flexptr *area)
{
    filehead head;
    bfile file;
    errorblock *err = bopen(path, "r", BFILEBUFFER, &file);
    if (!err) err = headread(&file, &head);
    if (!err) err = headcheck(head, length);
    if (!err) err = areagrow(area, length);
    if (!err) err = bseek(&file, head.first - LEFTOUT);
    if (!err) {
        spritearea *into = headof(area);
        uint8_t *bytes = static_cast<uint8_t *>(*area) + into->free;
        int32_t used = 0;
        err = breadall(&file, bytes, head.free - head.first);
        if (!err) err = chaincheck(bytes, head.free - head.first, head.count, &used);
        if (!err) into->count += head.count;
        if (!err) into->free += used;
    }
    return bclose(&file, err);
}

// MOVES.
errorblock *spriteadd(const sprite *s, flexptr *area)
{
    errorblock *err = areagrow(area, s->next);
    if (err) return err;
    spritearea *into = headof(area);
    memcpy(static_cast<uint8_t *>(*area) + into->free, s, static_cast<size_t>(s->next));
    into->count++;
    into->free += s->next;
    return nullptr;
}

errorblock *resourceadd(const uint8_t *data, int32_t size, flexptr *area)
{
    filehead head;
    if (size < static_cast<int32_t>(sizeof head)) return makeerror(ERRORREAD);
    memcpy(&head, data, sizeof head);
    errorblock *err = headcheck(head, size);
    if (err) return err;
    int32_t used;
    const uint8_t *bytes = data + head.first - LEFTOUT;
    err = chaincheck(bytes, head.free - head.first, head.count, &used);

    spritearea before = *headof(area);
    for (int32_t at = 0; at < used && !err;) {
        const sprite *s = reinterpret_cast<const sprite *>(bytes + at);
        err = spriteadd(s, area);
        at += s->next;
    }
    if (err) {
        headof(area)->count = before.count;
        headof(area)->free = before.free;
    }
    return err;
}

// The high-resolution form of a name comes first on a fine screen. info is of
// another type than a file's when there is neither.
errorblock *choose(const char *directory, const char *name, char path[PATHSIZE], fileinfo *info)
{
    *info = {};
    if (modeinfo.xscale < FINESCALE && modeinfo.yscale < FINESCALE) {
        errorblock *err = fs_strcpycat(path, PATHSIZE, directory, name);
        if (!err) err = pathinsert(path, "22");
        if (!err) err = fileinfoget(path, info);
        if (err || info->objecttype == OBJECTFILE) return err;
    }
    errorblock *err = fs_strcpycat(path, PATHSIZE, directory, name);
    return err ? err : fileinfoget(path, info);
}

} // namespace

errorblock *addsprites(const char *directory, const char *name, flexptr *area, intptr_t module)
{
    if (directory) {
        char path[PATHSIZE];
        fileinfo info;
        errorblock *err = choose(directory, name, path, &info);
        if (err || info.objecttype != OBJECTFILE) return err;
        return fileadd(path, static_cast<int32_t>(info.length), area);
    }
    const void *data;
    int32_t size;
    errorblock *err = spriteresource(module, name, &data, &size);
    if (err || !data) return err;
    return resourceadd(static_cast<const uint8_t *>(data), size, area);
}

#include "base/bfile.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/syserr.h"
#include "base/transfer.h"

#include <algorithm>
#include <climits>
#include <cstring>

// The window is [bufferstart, bufferstart + valid) of the file. position is
// inside it, at its end, or the stale bit is set; a byte is read only when
// position is inside, and written only when it is not stale. All file access
// passes through windowread, straightread, windowwrite and straightwrite.

namespace
{

constexpr int32_t LEASTBUFFER = 129;

char *bytes(bfile *file)
{
    return static_cast<char *>(file->buffer);
}

bool is(const bfile *file, uint32_t flag)
{
    return file->flags & flag;
}

// Bytes of the window from position on; 0 when position is elsewhere.
int32_t windowleft(const bfile *file)
{
    int64_t at = static_cast<int64_t>(file->position) - file->bufferstart;
    return at >= 0 && at < file->valid ? file->valid - static_cast<int32_t>(at) : 0;
}

// Moves on after a step in the window.
void advance(bfile *file, int32_t by)
{
    file->position += by;
    int32_t at = file->position - file->bufferstart;
    if (is(file, BFILEDIRTY)) file->valid = std::max(file->valid, at);
    if (at >= file->size || (at >= file->valid && !is(file, BFILEDIRTY))) file->flags |= BFILESTALE;
}

errorblock *windowread(bfile *file)
{
    errorblock *err = bflush(file);
    if (err) return err;
    file->valid = 0;
    file->bufferstart = file->position;
    file->flags &= ~BFILESTALE;
    if (is(file, BFILETRANSFER)) {
        ramreadseek(file->position);
        ramread(file->buffer, file->size, &file->valid);
        return nullptr;
    }
    err = fileseek(file->handle, file->position);
    if (!err) err = fileread(file->handle, file->buffer, file->size, &file->valid);
    return err;
}

// Whole buffers straight into the caller's memory.
errorblock *straightread(bfile *file, char *data, int32_t length, int32_t *count)
{
    errorblock *err = bflush(file);
    *count = 0;
    if (err) return err;
    if (is(file, BFILETRANSFER)) {
        ramreadseek(file->position);
        ramread(data, length, count);
    } else {
        err = fileseek(file->handle, file->position);
        if (!err) err = fileread(file->handle, data, length, count);
    }
    file->position += *count;
    file->flags |= BFILESTALE;
    return err;
}

errorblock *straightwrite(bfile *file, const char *data, int32_t length, int32_t *count)
{
    errorblock *err = bflush(file);
    *count = 0;
    if (err) return err;
    if (is(file, BFILETRANSFER)) {
        ramwrite(data, length, count);
    } else {
        err = fileseek(file->handle, file->position);
        if (!err) err = filewrite(file->handle, data, length, count);
    }
    if (err || *count < length) file->flags |= BFILEFAILED;
    file->position += *count;
    file->valid = 0; // the window may lie where this went
    file->flags |= BFILESTALE;
    return err;
}

// Room in the growing buffer for length bytes at position. What a seek passed
// over reads as zeros, as in a file.
errorblock *memorygrow(bfile *file, int32_t length)
{
    int64_t end = static_cast<int64_t>(file->position) + length;
    if (end > INT_MAX) return makeerror(ERRORMEMORY);
    if (end > file->size) {
        int64_t size = std::min<int64_t>(std::max<int64_t>(end, file->size * INT64_C(2)), INT_MAX);
        errorblock *err = flex_extend(&file->buffer, static_cast<int32_t>(size));
        if (err) return err;
        file->size = static_cast<int32_t>(size);
    }
    if (file->position > file->valid) {
        memset(bytes(file) + file->valid, 0, static_cast<size_t>(file->position - file->valid));
        file->valid = file->position;
    }
    file->flags &= ~BFILESTALE;
    return nullptr;
}

// Makes the window take at least one byte at position, or length of them in a
// buffer that grows.
errorblock *windowwrite(bfile *file, int32_t length)
{
    if (is(file, BFILEMEMORY)) return memorygrow(file, length);
    if (!is(file, BFILESTALE)) return nullptr;
    errorblock *err = bflush(file);
    if (err) return err;
    file->valid = 0;
    file->bufferstart = file->position;
    file->flags &= ~BFILESTALE;
    return nullptr;
}

int32_t windowtake(bfile *file, char *data, int32_t length)
{
    int32_t taken = std::min(length, windowleft(file));
    if (!taken) return 0;
    memcpy(data, bytes(file) + (file->position - file->bufferstart), static_cast<size_t>(taken));
    advance(file, taken);
    return taken;
}

int32_t windowput(bfile *file, const char *data, int32_t length)
{
    int32_t at = file->position - file->bufferstart;
    int32_t taken = std::min(length, file->size - at);
    if (taken <= 0) return 0;
    memcpy(bytes(file) + at, data, static_cast<size_t>(taken));
    file->flags |= BFILEDIRTY;
    advance(file, taken);
    return taken;
}

errorblock *bufferalloc(bfile *file, int32_t size)
{
    size = std::max(size, 1);
    errorblock *err = flex_alloc(&file->buffer, size);
    while (err && size / 2 >= LEASTBUFFER) {
        size /= 2;
        err = flex_alloc(&file->buffer, size);
    }
    file->size = size;
    return err;
}

errorblock *mediumopen(bfile *file, const char *path, const char *mode)
{
    if (ramreadactive() || ramwriteactive())
        file->flags |= BFILETRANSFER;
    else if (path)
        return fileopen(path, mode, &file->handle);
    else
        file->flags |= BFILEMEMORY;
    return nullptr;
}

} // namespace

errorblock *bopen(const char *path, const char *mode, int32_t size, bfile *file)
{
    *file = {};
    errorblock *err = bufferalloc(file, size);
    if (err) {
        *file = {};
        return err;
    }
    file->flags = BFILESTALE | static_cast<uint32_t>(static_cast<uint8_t>(mode[0])) << 8;
    err = mediumopen(file, path, mode);
    if (err) {
        flex_free(&file->buffer);
        *file = {};
    }
    return err;
}

errorblock *bclose(bfile *file, errorblock *error)
{
    kepterror kept = keeperror(error);
    errorblock *err = bflush(file);
    if (is(file, BFILETRANSFER))
        err = (file->flags >> 8 & 0xFF) == 'r' ? ramreadrewind(err) : ramwriteend(err);
    err = fileclose(file->handle, err);
    flex_free(&file->buffer);
    *file = {};
    return firsterror(kept, err);
}

errorblock *bflush(bfile *file)
{
    errorblock *err = nullptr;
    int32_t count = file->valid;
    bool dirty = is(file, BFILEDIRTY) && file->valid;
    file->flags &= ~BFILEDIRTY;
    if (!dirty || is(file, BFILEMEMORY)) return nullptr;
    if (is(file, BFILETRANSFER)) {
        ramwrite(file->buffer, file->valid, &count);
        if (count < file->valid) err = makeerror(ERRORWRITE);
    } else {
        err = fileseek(file->handle, file->bufferstart);
        if (!err) err = filewriteall(file->handle, file->buffer, file->valid);
    }
    if (err) file->flags |= BFILEFAILED;
    return err;
}

errorblock *bseek(bfile *file, int32_t position)
{
    if (position < 0) return makeerror(ERRORREAD);
    int64_t at = static_cast<int64_t>(position) - file->bufferstart;
    file->position = position;
    if (at >= 0 && at <= file->valid && at < file->size)
        file->flags &= ~BFILESTALE;
    else
        file->flags |= BFILESTALE;
    return nullptr;
}

errorblock *bskip(bfile *file, int32_t offset)
{
    int64_t position = static_cast<int64_t>(file->position) + offset;
    return bseek(file, position > INT_MAX ? -1 : static_cast<int32_t>(position));
}

errorblock *btell(bfile *file, int32_t *position)
{
    *position = file->position;
    return nullptr;
}

errorblock *bsize(bfile *file, int32_t *valid)
{
    *valid = file->valid;
    return nullptr;
}

errorblock *bpeek(bfile *file, int32_t *byte)
{
    *byte = -1;
    if (!windowleft(file) && !is(file, BFILEMEMORY)) {
        errorblock *err = windowread(file);
        if (err) return err;
    }
    if (windowleft(file))
        *byte = static_cast<uint8_t>(bytes(file)[file->position - file->bufferstart]);
    return nullptr;
}

errorblock *bgetc(bfile *file, int32_t *byte)
{
    errorblock *err = bpeek(file, byte);
    if (*byte >= 0) advance(file, 1);
    return err;
}

errorblock *bputc(bfile *file, int32_t byte)
{
    char ch = static_cast<char>(byte);
    return bwriteall(file, &ch, 1);
}

errorblock *bread(bfile *file, void *data, int32_t length, int32_t *count)
{
    char *out = static_cast<char *>(data);
    errorblock *err = nullptr;
    length = std::min(length, INT_MAX - file->position);
    int32_t done = windowtake(file, out, length), wanted = 0, taken = 0;
    bool more = !is(file, BFILEMEMORY);
    if (more && length - done > file->size) {
        wanted = (length - done) / file->size * file->size;
        err = straightread(file, out + done, wanted, &taken);
        done += taken;
    }
    if (!err && more && taken == wanted && done < length) {
        err = windowread(file);
        done += windowtake(file, out + done, length - done);
    }
    if (count) *count = done;
    return err;
}

errorblock *bwrite(bfile *file, const void *data, int32_t length, int32_t *count)
{
    const char *in = static_cast<const char *>(data);
    int32_t done = 0, wanted = 0, taken = 0;
    errorblock *err = nullptr;
    if (length > INT_MAX - file->position) err = makeerror(ERRORWRITE);
    if (!err && !is(file, BFILESTALE | BFILEMEMORY)) done = windowput(file, in, length);
    if (!err && !is(file, BFILEMEMORY) && length - done > file->size) {
        wanted = (length - done) / file->size * file->size;
        err = straightwrite(file, in + done, wanted, &taken);
        done += taken;
    }
    if (!err && taken == wanted && done < length) {
        err = windowwrite(file, length - done);
        if (!err) done += windowput(file, in + done, length - done);
    }
    if (count) *count = done;
    return err;
}

errorblock *breadall(bfile *file, void *data, int32_t length)
{
    errorblock *err = nullptr;
    char *out = static_cast<char *>(data);
    while (length > 0 && !err) {
        int32_t count;
        err = bread(file, out, length, &count);
        if (!err && !count) err = makeerror(ERRORREAD);
        out += count;
        length -= count;
    }
    return err;
}

errorblock *bwriteall(bfile *file, const void *data, int32_t length)
{
    errorblock *err = nullptr;
    const char *in = static_cast<const char *>(data);
    while (length > 0 && !err) {
        int32_t count;
        err = bwrite(file, in, length, &count);
        if (!err && !count) err = makeerror(ERRORWRITE);
        in += count;
        length -= count;
    }
    return err;
}

#include "base/messages.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "base/platform.h"
#include "base/text.h"
#include "base/trace.h"

#include <cstring>

namespace
{

// Bytes of used hold whole entries; the empty key that ends the store stands
// behind them.
struct {
    flexptr text;
    int32_t used;
} store;

// Ends of lines and of texts. A text may hold the byte 31, which otherwise
// counts as a line end.
constexpr uint8_t FIRSTCLEAN = 32, FIRSTTEXT = 31;

uint8_t *storeend()
{
    return static_cast<uint8_t *>(store.text) + store.used;
}

// Room for size more bytes of catalogue and the zeros behind them.
errorblock *storegrow(int64_t size)
{
    errorblock *err = store.text ? nullptr : inittrans();
    if (err) return err;
    int64_t whole = store.used + size + 2;
    return whole > INT32_MAX ? makeerror(ERRORMEMORY)
                             : flex_extend(&store.text, static_cast<int32_t>(whole));
}

// Drops comment lines, blank lines and the second byte of CR LF. in and out may
// be the same place. Returns the bytes kept.
int32_t clean(const uint8_t *in, int32_t size, uint8_t *out)
{
    int32_t kept = 0;
    uint8_t previous = '\n';
    for (int32_t at = 0; at < size; at++) {
        bool linestart = previous < FIRSTCLEAN;
        if (linestart && in[at] == '/' && at + 1 < size && in[at + 1] == '/') {
            while (at < size && in[at] >= FIRSTCLEAN)
                at++;
            continue; // the comment's own end is passed by the loop
        }
        if (linestart && in[at] < FIRSTCLEAN) continue;
        previous = out[kept++] = in[at];
    }
    return kept;
}

// Splits the kept bytes at text, which two zeros follow, into keys and texts.
// The last entry goes if either half is empty. Returns the bytes that remain.
int32_t split(uint8_t *text)
{
    uint8_t *at = text;
    for (;;) {
        uint8_t *key = at;
        while (*at && *at != ':')
            at++;
        *at++ = 0;
        uint8_t *value = at;
        if (*at) {
            while (*at >= FIRSTTEXT)
                at++;
            *at++ = 0;
            if (*at) continue;
        }
        if (*key && *value) return static_cast<int32_t>(at - text);
        *key = 0;
        return static_cast<int32_t>(key - text);
    }
}

// Takes in the size bytes of catalogue at in, for which there is room.
void storeadd(const uint8_t *in, int32_t size)
{
    uint8_t *text = storeend();
    int32_t kept = clean(in, size, text);
    text[kept] = text[kept + 1] = 0;
    store.used += split(text);
}

errorblock *fileadd(const char *path, uint32_t length)
{
    filehandle file;
    errorblock *err = storegrow(length);
    if (!err) err = fileopen(path, "r", &file);
    if (err) return err;
    int32_t size = static_cast<int32_t>(length);
    err = filereadall(file, storeend(), size);
    err = fileclose(file, err);
    if (!err) storeadd(storeend(), size);
    return err;
}

errorblock *addfile(const char *directory, const char *name)
{
    char path[PATHSIZE];
    fileinfo info;
    errorblock *err = xzsnprintf(PATHSIZE, nullptr, path, "%s\\%s", directory, name);
    if (err) return err;
    err = fileinfoget(path, &info);
    trace("addtrans file %s", path);
    if (err) return err;
    if (info.objecttype != OBJECTNONE) return fileadd(path, info.length);
    if (store.used) return makeerrorf(ERRORNOTFOUND, path);
    return makeerrortext(ERRORNOTFOUND, "Messages file not found.");
}

} // namespace

errorblock *inittrans()
{
    endtrans();
    return flex_alloc(&store.text, 0);
}

void endtrans()
{
    flex_free(&store.text);
    store.used = 0;
}

errorblock *addtrans(const char *directory, const char *name)
{
    if (directory) return addfile(directory, name);
    const void *data = nullptr;
    int32_t size = 0;
    errorblock *err = platformresource("MESSAGES", name, &data, &size);
    if (!err && data) err = addtranstext(static_cast<const char *>(data), size);
    return err;
}

errorblock *addtranstext(const char *text, int32_t size)
{
    errorblock *err = storegrow(size);
    if (!err) storeadd(reinterpret_cast<const uint8_t *>(text), size);
    return err;
}

const char *lookuptoken(const char *key)
{
    const char *at = static_cast<const char *>(store.text), *end = at + store.used;
    while (at < end) {
        const char *value = at + std::strlen(at) + 1;
        if (!std::strcmp(at, key)) return value;
        at = value + std::strlen(value) + 1;
    }
    return key;
}

#include "dict/dictfile.h"

#include "base/bfile.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/safesave.h"
#include "base/text.h"
#include "base/trace.h"
#include "dict/storecheck.h"

#include <algorithm>
#include <bit>
#include <cstring>

// The index block goes to disc as it stands.
static_assert(std::endian::native == std::endian::little);

namespace
{

constexpr char MAGIC[] = "Quillmere Dictionary"; // written, never looked at
constexpr char VERSION[] = "1.00";
constexpr char DATE[] = "(16-Mar-2002)";

struct dictheader {
    char magic[24];
    char version[8];
    char date[64];
    uint8_t features[4]; // a number; 0 is all that is known
    uint8_t reserved[156];
};
static_assert(sizeof(dictheader) == 256);

constexpr int32_t FRAMESIZE = 20;

errorblock *dictpath(const char *directory, const char *name, char *path)
{
    return xzsnprintf(PATHSIZE, nullptr, path, "%s\\%s.dic", directory, name);
}

errorblock *headerread(bfile *file)
{
    dictheader header;
    errorblock *err = breadall(file, &header, sizeof header);
    if (err) return err;
    if (strncmp(header.version, VERSION, sizeof header.version) < 0) err = makeerror(EDCOLD);
    constexpr uint8_t known[sizeof header.features] = {};
    if (memcmp(header.features, known, sizeof known) != 0) err = makeerror(EDCAPS);
    return err;
}

errorblock *headerwrite(bfile *file)
{
    dictheader header = {};
    memcpy(header.magic, MAGIC, sizeof MAGIC);
    memcpy(header.version, VERSION, sizeof VERSION);
    memcpy(header.date, DATE, sizeof DATE);
    return bwriteall(file, &header, sizeof header);
}

// A size that the file can't fill is found before memory is asked for. Only a
// stream on a file tells how much there is.
errorblock *fillcheck(bfile *file, int32_t size)
{
    int32_t end;
    if (!file->handle) return nullptr;
    errorblock *err = filesize(file->handle, &end);
    if (!err && (size < 0 || size > end - file->position)) err = makeerror(ERRORREAD);
    return err;
}

} // namespace

errorblock *dopen(const char *directory, const char *name, const char *mode, bfile *file)
{
    char path[PATHSIZE];
    errorblock *err = dictpath(directory, name, path);
    if (err) return err;
    trace("dopen %s", path);
    return bopen(path, mode, BFILEBUFFER, file);
}

// Only the second word of the frame has a meaning: the size, frame included.
errorblock *blockload(flexptr *anchor, bfile *file)
{
    uint32_t word, whole = 0;
    errorblock *err = nullptr;
    for (int32_t i = 0; i < FRAMESIZE / 4 && !err; i++) {
        err = bread32(file, &word);
        if (i == 1) whole = word;
    }
    auto size = static_cast<int32_t>(whole - FRAMESIZE);
    if (!err) err = fillcheck(file, size);
    if (!err) err = flex_alloc(anchor, size);
    if (!err) err = breadall(file, *anchor, size);
    return err;
}

errorblock *blocksave(const flexptr *anchor, bfile *file)
{
    int32_t size = 0;
    if (*anchor) flex_size(anchor, &size);
    auto whole = static_cast<uint32_t>(size + FRAMESIZE);
    errorblock *err = nullptr;
    const uint32_t frame[] = {0, whole, whole, 0, whole};
    for (uint32_t word : frame)
        if (!err) err = bwrite32(file, word);
    if (!err && size) err = bwriteall(file, *anchor, size);
    return err;
}

// The word block comes first in the file and the index second, the reverse of
// their order in the record.
errorblock *dictload(const char *directory, const char *name, Dictionary *dict)
{
    bfile file;
    errorblock *err = dopen(directory, name, "r", &file);
    if (err) return err; // the dictionary is as it was
    dictfree(dict);
    err = headerread(&file);
    if (!err) err = bread32(&file, &dict->nwords);
    if (!err) err = bread32(&file, &dict->noindex);
    if (!err) err = blockload(&dict->words, &file);
    if (!err) err = blockload(&dict->index, &file);
    if (!err) err = storetake(dict); // readers trust the blocks from here on
    err = bclose(&file, err);
    if (err) dict->nwords = dict->noindex = 0;
    return err;
}

// What a write met is the close's error too.
errorblock *dictsave(const char *directory, const char *name, const Dictionary *dict)
{
    char path[PATHSIZE];
    safesave save;
    errorblock *err = dictpath(directory, name, path);
    if (err) return err;
    trace("dopen %s", path);
    err = safeopen(path, BFILEBUFFER, &save);
    if (err) return err;
    err = headerwrite(&save.file);
    // After inserts that ran out of memory nwords counts words that aren't there.
    if (!err) err = bwrite32(&save.file, std::min(dict->nwords, storeroom(dict)));
    if (!err) err = bwrite32(&save.file, dict->noindex);
    if (!err) err = blocksave(&dict->words, &save.file);
    if (!err) err = blocksave(&dict->index, &save.file);
    return safeclose(&save, err);
}

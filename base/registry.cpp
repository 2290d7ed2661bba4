#include "base/registry.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/syserr.h"
#include "base/text.h"

#include <cstring>

namespace
{

struct rootname {
    const char *text;
    int32_t root;
};

constexpr rootname rootnames[] = {
    {"HKEY_CLASSES_ROOT", ROOTCLASSES},  {"HKCR", ROOTCLASSES},
    {"HKEY_CURRENT_USER", ROOTUSER},     {"HKCU", ROOTUSER},
    {"HKEY_USERS", ROOTUSERS},           {"HKU", ROOTUSERS},
    {"HKEY_LOCAL_MACHINE", ROOTMACHINE}, {"HKLM", ROOTMACHINE},
    {"HKEY_CURRENT_CONFIG", ROOTCONFIG}, {"HKCC", ROOTCONFIG},
};

// The root of a text and the path behind its first backslash. Without a
// backslash there is neither: the path is 0.
int32_t rootof(const char *key, const char **path)
{
    const char *backslash = strchr(key, '\\');
    *path = backslash ? backslash + 1 : nullptr;
    if (!backslash) return 0;
    size_t length = static_cast<size_t>(backslash - key);
    for (const rootname &row : rootnames)
        if (strlen(row.text) == length && !memcmp(row.text, key, length)) return row.root;
    return 0;
}

// The two halves of a value's text, parted at its last backslash.
struct valueplace {
    char key[PATHSIZE];
    const char *name;
};

errorblock *placesplit(const char *text, valueplace *place)
{
    const char *last = strrchr(text, '\\');
    errorblock *err = xzstrncpyu(place->key, text, PATHSIZE);
    place->name = "";
    if (err || !last) return err;
    char *cut = place->key + (last - text);
    place->name = last + 1;
    // A root alone keeps its backslash, which makes it a key.
    if (strchr(place->key, '\\') == cut) cut++;
    *cut = 0;
    return nullptr;
}

errorblock *placeopen(const char *text, valueplace *place, keyhandle *handle, const char *mode)
{
    *handle = 0;
    errorblock *err = placesplit(text, place);
    if (!err) err = regopen(place->key, handle, mode);
    return err;
}

// Ends the bytes with a zero. A value without its own that fills the room has
// no place for one and counts as too long.
errorblock *terminate(char *out, int32_t room, int32_t size)
{
    if (size < room)
        out[size] = 0;
    else if (!room || out[room - 1])
        return makeerrorf(ERRORMAXSTRING, "regread");
    return nullptr;
}

errorblock *valuenew(keyhandle handle, const char *name, void **address, int32_t *size)
{
    int32_t room = 0;
    errorblock *err = platformvalueread(handle, name, nullptr, &room);
    if (!err) err = heap_alloc(address, room + 1);
    *size = room;
    if (!err) err = platformvalueread(handle, name, *address, size);
    if (err) heap_free(address);
    return err;
}

} // namespace

errorblock *regopen(const char *key, keyhandle *handle, const char *mode)
{
    const char *path;
    int32_t root = rootof(key, &path);
    *handle = 0;
    if (!path) return nullptr;
    platformkeyaccess access = mode[0] == 'r'   ? KEYFORREAD
                               : mode[0] == 'w' ? KEYFORWRITE
                                                : KEYFORALL;
    return platformkeyopen(root, path, access, handle);
}

errorblock *regcreate(const char *key, keyhandle *handle)
{
    const char *path;
    int32_t root = rootof(key, &path);
    *handle = 0;
    return platformkeycreate(root, path ? path : "", handle);
}

errorblock *regclose(keyhandle *handle, errorblock *error)
{
    errorblock *err = *handle ? platformkeyclose(*handle) : nullptr;
    *handle = 0;
    return error ? error : err;
}

errorblock *regread(const char *key, char *out, int32_t *size)
{
    valueplace place;
    keyhandle handle;
    int32_t room = *size;
    *size = 0;
    errorblock *err = placeopen(key, &place, &handle, "r");
    if (!err && handle) {
        *size = room;
        err = platformvalueread(handle, place.name, out, size);
        if (!err) err = terminate(out, room, *size);
    }
    if (err) *size = 0;
    if (!*size && room > 0) out[0] = 0;
    return regclose(&handle, err);
}

errorblock *regreadnew(const char *key, void **address, int32_t *size)
{
    valueplace place;
    keyhandle handle;
    *address = nullptr;
    *size = 0;
    errorblock *err = placeopen(key, &place, &handle, "r");
    if (!err && handle) err = valuenew(handle, place.name, address, size);
    if (err) *size = 0;
    return regclose(&handle, err);
}

errorblock *regwrite(const char *key, const char *text)
{
    valueplace place;
    keyhandle handle = 0;
    errorblock *err = placesplit(key, &place);
    if (!err) err = regcreate(place.key, &handle);
    if (!err) err = platformvaluewrite(handle, place.name, text);
    return regclose(&handle, err);
}

errorblock *regdelete(const char *key)
{
    valueplace place;
    keyhandle handle = 0;
    errorblock *err = placesplit(key, &place);
    const char *path;
    int32_t root = err ? 0 : rootof(place.key, &path);
    if (!err && !place.name[0]) return platformkeydelete(root, path ? path : "");
    if (!err) err = regopen(place.key, &handle, "w");
    if (!err && handle) err = platformvaluedelete(handle, place.name);
    return regclose(&handle, err);
}

errorblock *regenumkey(keyhandle handle, char *name, int32_t size, int32_t *index)
{
    errorblock *err = platformkeyenum(handle, *index, name, size);
    if (!err) (*index)++;
    return err;
}

errorblock *regenumvalue(keyhandle handle, char *name, int32_t size, uint32_t *type, void *data,
                         int32_t *datasize, int32_t *index)
{
    errorblock *err = platformvalueenum(handle, *index, name, size, type, data, datasize);
    if (!err) (*index)++;
    return err;
}

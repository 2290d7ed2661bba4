#include "graphics/fontsubstitutes.h"

#include "base/errors.h"
#include "base/flex.h"
#include "base/registry.h"
#include "base/text.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr const char *SUBSTITUTESKEY =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes";

constexpr int32_t NAMEMOST = 128;
constexpr int32_t VALUENAMESIZE = 16384; // the registry's own limit
constexpr int32_t TEXTSCHUNK = 4096;

// Both texts of every pair, one behind the other, each with its zero.
struct pairtexts {
    flexptr texts; // movable
    int32_t used, npairs;
};

errorblock *textadd(pairtexts *pairs, const char *text)
{
    int32_t length = static_cast<int32_t>(strcspn(text, ","));
    errorblock *err = flex_chunk(&pairs->texts, pairs->used + length + 1, TEXTSCHUNK);
    if (err) return err;
    char *out = static_cast<char *>(pairs->texts) + pairs->used;
    memcpy(out, text, static_cast<size_t>(length));
    out[length] = 0;
    pairs->used += length + 1;
    return nullptr;
}

// Adds the value if it is a pair: a text, and neither name too long.
errorblock *valueadd(keyhandle handle, const char *name, uint32_t type, pairtexts *pairs)
{
    char substitute[NAMEMOST + 1];
    int32_t size = NAMEMOST + 1;
    if (type != VALUETEXT || strlen(name) > NAMEMOST) return nullptr;
    if (platformvalueread(handle, name, substitute, &size)) return nullptr;
    // A text of the registry may lack its zero.
    substitute[std::min(size, NAMEMOST)] = 0;
    errorblock *err = textadd(pairs, name);
    if (!err) err = textadd(pairs, substitute);
    if (!err) pairs->npairs++;
    return err;
}

errorblock *valuesread(keyhandle handle, pairtexts *pairs)
{
    void *name = nullptr;
    uint32_t type;
    int32_t index = 0;
    errorblock *err = heap_alloc(&name, VALUENAMESIZE);
    // With room for every name the error that ends the loop is the end.
    while (!err && !regenumvalue(handle, static_cast<char *>(name), VALUENAMESIZE, &type, nullptr,
                                 nullptr, &index))
        err = valueadd(handle, static_cast<char *>(name), type, pairs);
    heap_free(&name);
    return err;
}

bool pairbefore(const fontsubstitute &a, const fontsubstitute &b)
{
    int order = cstricmp(a.name, b.name);
    if (!order) order = strcmp(a.substitute, b.substitute); // one order on every run
    return order < 0;
}

errorblock *tablemake(const pairtexts &pairs, fontsubstitute **table)
{
    void *memory;
    int32_t rows = pairs.npairs * static_cast<int32_t>(sizeof(fontsubstitute));
    errorblock *err = heap_allocraw(&memory, rows + pairs.used);
    if (err) return err;
    *table = static_cast<fontsubstitute *>(memory);
    char *text = static_cast<char *>(memory) + rows;
    memcpy(text, pairs.texts, static_cast<size_t>(pairs.used));
    for (int32_t i = 0; i < pairs.npairs; i++) {
        (*table)[i].name = text;
        (*table)[i].substitute = text + strlen(text) + 1;
        text += strlen(text) + 1;
        text += strlen(text) + 1;
    }
    std::sort(*table, *table + pairs.npairs, pairbefore);
    return nullptr;
}

} // namespace

errorblock *fontsubstitutes(fontsubstitute **table, int32_t *count)
{
    pairtexts pairs = {};
    keyhandle handle;
    *table = nullptr;
    *count = 0;
    if (regopen(SUBSTITUTESKEY, &handle, "r")) return nullptr; // there is none
    errorblock *err = valuesread(handle, &pairs);
    if (!err && pairs.npairs) err = tablemake(pairs, table);
    if (*table) *count = pairs.npairs;
    flex_free(&pairs.texts);
    return regclose(&handle, err);
}

#include "dict/storecheck.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "dict/dictindex.h"

namespace
{

constexpr uint32_t ENDSIZE = 2; // bytes of the end mark

uint32_t blocksize(const flexptr *anchor)
{
    int32_t size;
    flex_size(anchor, &size);
    return static_cast<uint32_t>(size);
}

bool indexsound(const Dictionary *dict, uint32_t recordsend)
{
    const dictindex *entry = dictentries(dict);
    if (entry->woff || entry->wordn) return false;
    for (uint32_t i = 0; i < dict->noindex; i++, entry++) {
        if (entry->woff >= recordsend || entry->wordn >= dict->nwords) return false;
        if (i && (entry->woff <= entry[-1].woff || entry->wordn <= entry[-1].wordn)) return false;
        if (*dictrecord(dict, entry->woff) >= INDEXLETTERS) return false;
    }
    return true;
}

bool storesound(const Dictionary *dict)
{
    if (!dict->noindex) return true;
    uint32_t size = blocksize(&dict->words);
    if (size <= ENDSIZE || blocksize(&dict->index) / sizeof(dictindex) < dict->noindex)
        return false;
    const uint8_t *end = dictrecord(dict, size - ENDSIZE);
    return !end[0] && !end[1] && indexsound(dict, size - ENDSIZE);
}

} // namespace

errorblock *storecheck(const Dictionary *dict)
{
    return storesound(dict) ? nullptr : makeerror(ECR);
}

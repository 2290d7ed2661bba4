#include "dict/storecheck.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "dict/dictbuild.h"
#include "dict/dictindex.h"

#include <cstring>

namespace
{

constexpr uint32_t ENDSIZE = 2;     // bytes of the end mark
constexpr uint32_t RECORDLEAST = 2; // bytes of the shortest record

uint32_t blocksize(const flexptr *anchor)
{
    int32_t size;
    flex_size(anchor, &size);
    return static_cast<uint32_t>(size);
}

// Where the end mark stands; 0 when there are no records, or no mark.
uint32_t recordsend(const Dictionary *dict)
{
    uint32_t size = blocksize(&dict->words);
    if (size <= ENDSIZE) return 0;
    const uint8_t *end = dictrecord(dict, size - ENDSIZE);
    return end[0] || end[1] ? 0 : size - ENDSIZE;
}

bool indexsound(const Dictionary *dict, uint32_t behind)
{
    const dictindex *entry = dictentries(dict);
    if (entry->woff || entry->wordn) return false;
    for (uint32_t i = 0; i < dict->noindex; i++, entry++) {
        if (entry->woff >= behind || entry->wordn >= dict->nwords) return false;
        if (i && (entry->woff <= entry[-1].woff || entry->wordn <= entry[-1].wordn)) return false;
        if (*dictrecord(dict, entry->woff) >= INDEXLETTERS) return false;
    }
    return true;
}

// Whether the word block can be read as words in order, up to its end.
bool recordssound(const Dictionary *dict, uint32_t behind)
{
    char before[WORDSIZE] = "";
    dictcursor at = {};
    for (; at.woff < behind; at.woff += at.len) {
        if (*dictrecord(dict, at.woff) > strlen(before)) return false;
        dictdecode(dict, &at);
        if (!at.word[0] || (at.woff && wordorder(before, at.word) >= 0)) return false;
        memcpy(before, at.word, WORDSIZE);
    }
    return at.woff == behind;
}

bool storesound(const Dictionary *dict)
{
    if (!dict->noindex) return true;
    uint32_t end = recordsend(dict);
    if (!end || blocksize(&dict->index) / sizeof(dictindex) < dict->noindex) return false;
    return indexsound(dict, end);
}

} // namespace

errorblock *storecheck(const Dictionary *dict)
{
    return storesound(dict) ? nullptr : makeerror(ECR);
}

errorblock *storetake(Dictionary *dict)
{
    uint32_t room = storeroom(dict), end = recordsend(dict);
    if (dict->nwords > room) return makeerror(ECR);
    if (storesound(dict) && (dict->noindex || !room)) return nullptr;
    return end && recordssound(dict, end) ? dictindexmake(dict) : makeerror(ECR);
}

uint32_t storeroom(const Dictionary *dict)
{
    int32_t size = 0;
    if (dict->words) flex_size(&dict->words, &size);
    return size > static_cast<int32_t>(ENDSIZE)
               ? (static_cast<uint32_t>(size) - ENDSIZE) / RECORDLEAST
               : 0;
}

#include "dict/dictindex.h"

#include <cstring>

uint32_t dictspanend(const Dictionary *dict, uint32_t entryn)
{
    return entryn + 1 < dict->noindex ? dictentries(dict)[entryn + 1].wordn : dict->nwords;
}

errorblock *dictsplice(Dictionary *dict, uint32_t position, const uint8_t *bytes, int32_t newlength,
                       int32_t oldlength)
{
    // A gap is closed in front of the offset, so that of a removal stands behind
    // what goes.
    int32_t by = newlength - oldlength;
    int32_t at = static_cast<int32_t>(position) + (by < 0 ? -by : 0);
    errorblock *err = flex_midextend(&dict->words, at, by);
    if (!err && newlength)
        memcpy(dictrecord(dict, position), bytes, static_cast<size_t>(newlength));
    return err;
}

errorblock *dictaddindex(Dictionary *dict, uint32_t entryn, const dictcursor *cursor)
{
    constexpr int32_t size = sizeof(dictindex);
    errorblock *err = flex_midextend(&dict->index, static_cast<int32_t>(entryn) * size, size);
    if (err) return err;
    dict->noindex++;
    dictsetindex(dict, entryn, cursor);
    return nullptr;
}

void dictremindex(Dictionary *dict, uint32_t entryn)
{
    constexpr int32_t size = sizeof(dictindex);
    flex_midextend(&dict->index, static_cast<int32_t>(entryn + 1) * size, -size);
    dict->noindex--;
}

void dictsetindex(Dictionary *dict, uint32_t entryn, const dictcursor *cursor)
{
    dictindex *entry = &dictentries(dict)[entryn];
    entry->woff = cursor->woff;
    entry->wordn = cursor->wordn;
    memset(entry->word, 0, INDEXLETTERS);
    memcpy(entry->word, cursor->word, strnlen(cursor->word, INDEXLETTERS));
}

void dictshiftindex(Dictionary *dict, uint32_t first, int32_t bytes, int32_t words)
{
    dictindex *entries = dictentries(dict);
    for (uint32_t i = first; i < dict->noindex; i++) {
        entries[i].woff += static_cast<uint32_t>(bytes);
        entries[i].wordn += static_cast<uint32_t>(words);
    }
}

uint32_t dictforward(Dictionary *dict, uint32_t entryn, const dictcursor *cursor)
{
    while (entryn + 1 < dict->noindex) {
        const dictindex *next = &dictentries(dict)[entryn + 1];
        if (next->wordn > cursor->wordn && next->woff >= cursor->woff + cursor->len) break;
        if ((next->wordn < cursor->wordn && next->woff < cursor->woff) ||
            (next->wordn == cursor->wordn && next->woff == cursor->woff))
            entryn++;
        else
            dictremindex(dict, entryn + 1); // out of step
    }
    return entryn;
}

// Whether the cursor, which walked on from an entry, is still in its span.
static bool inspan(const Dictionary *dict, uint32_t entryn, const dictcursor *cursor)
{
    if (cursor->wordn >= dictspanend(dict, entryn)) return false;
    return entryn + 1 == dict->noindex || cursor->woff < dictentries(dict)[entryn + 1].woff;
}

static bool carriesentry(const Dictionary *dict, const dictcursor *cursor)
{
    return *dictrecord(dict, cursor->woff) < INDEXLETTERS;
}

// Without memory for the entry the span stays as it is; the next insert in it
// tries again.
void dictsplit(Dictionary *dict, uint32_t entryn, uint32_t span)
{
    dictcursor cursor;
    dictfromentry(entryn, dict, &cursor);
    uint32_t middle = cursor.wordn + span / 2;
    while (cursor.wordn < middle || !carriesentry(dict, &cursor))
        if (!dictnext(dict, &cursor) || !inspan(dict, entryn, &cursor)) return;
    dictaddindex(dict, entryn + 1, &cursor);
}

bool dictreindex(Dictionary *dict, uint32_t entryn, dictcursor *cursor)
{
    uint32_t was = cursor->wordn;
    while (!carriesentry(dict, cursor)) {
        if (dictnext(dict, cursor) && inspan(dict, entryn, cursor)) continue;
        dictremindex(dict, entryn);
        return false;
    }
    if (cursor->wordn != was) dictsetindex(dict, entryn, cursor);
    return true;
}

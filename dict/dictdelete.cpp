#include "dict/dictdelete.h"

#include "base/trace.h"
#include "dict/dictindex.h"
#include "dict/wordtables.h"

namespace
{

constexpr uint32_t MERGESPAN = 64;

bool standsat(const Dictionary *dict, uint32_t entryn, const dictcursor *cursor)
{
    return dictentries(dict)[entryn].woff == cursor->woff;
}

// Removes an entry whose span, or the one before it, has become small.
void mergeindex(Dictionary *dict, uint32_t entryn)
{
    if (entryn < 1) return;
    const dictindex *entry = &dictentries(dict)[entryn];
    if (entry->wordn - entry[-1].wordn < MERGESPAN ||
        dictspanend(dict, entryn) - entry->wordn < MERGESPAN)
        dictremindex(dict, entryn);
}

void deleteonly(Dictionary *dict)
{
    flex_extend(&dict->words, 0);
    flex_extend(&dict->index, 0);
    dict->nwords = dict->noindex = 0;
}

// Nothing is coded against the last word. Only in a damaged store, where
// something is taken for the end, can there be entries behind it.
errorblock *deletelast(Dictionary *dict, const dictcursor *cursor)
{
    uint32_t entryn = cursor->indexn;
    auto length = static_cast<int32_t>(cursor->len);
    errorblock *err = dictsplice(dict, cursor->woff, nullptr, 0, length);
    if (err) return err;
    dict->nwords--;
    dictshiftindex(dict, entryn + 1, -length, -1);
    if (standsat(dict, entryn, cursor))
        dictremindex(dict, entryn);
    else
        mergeindex(dict, entryn);
    return nullptr;
}

// The text of the word before one that stands behind entry entryn.
void wordbefore(const Dictionary *dict, uint32_t entryn, const dictcursor *cursor,
                dictcursor *before)
{
    dictfromentry(entryn, dict, before);
    while (before->wordn + 1 < cursor->wordn)
        if (!dictnext(dict, before)) break;
}

// The index, after a word has gone and its follower stands in its place, coded
// anew. carried: the word had an entry; next: the last entry at or before the
// follower, its own if that had one.
void deleteindex(Dictionary *dict, dictcursor *follower, bool carried, uint32_t next,
                 int32_t change)
{
    uint32_t entryn = follower->indexn;
    bool nextcarried = next > entryn;
    if (carried || nextcarried) dictsetindex(dict, next, follower);
    dictshiftindex(dict, next + 1, change, -1);
    if (carried && nextcarried) { // two entries for one word: one is left
        dictremindex(dict, entryn);
        dictreindex(dict, entryn, follower);
        return;
    }
    if (nextcarried) dictreindex(dict, next, follower);
    if (!carried || dictreindex(dict, entryn, follower)) mergeindex(dict, entryn);
}

// The follower is coded against the word before, over both old records.
errorblock *deletebefore(Dictionary *dict, const dictcursor *cursor, dictcursor *follower,
                         bool *gone)
{
    uint32_t entryn = follower->indexn = cursor->indexn;
    bool carried = standsat(dict, entryn, cursor);
    uint32_t next = dictforward(dict, entryn, follower);
    dictcursor before = {};
    if (cursor->woff) {
        wordbefore(dict, carried ? entryn - 1 : entryn, cursor, &before);
        trace("delcurindex=%d nextindex=%d", carried, next > entryn);
        trace("wordn=%d WORDN=%d string=%s", static_cast<int>(cursor->wordn),
              static_cast<int>(dictentries(dict)[entryn].wordn), cursor->word);
        trace("prev=%s next=%s", before.word, follower->word);
    }
    uint8_t record[RECORDSIZE];
    int32_t length = wordcode(before.word, follower->word, record);
    if (!length) return nullptr;
    auto old = static_cast<int32_t>(cursor->len + follower->len);
    errorblock *err = dictsplice(dict, cursor->woff, record, length, old);
    if (err) return err;
    dict->nwords--;
    *gone = true;
    follower->woff = cursor->woff;
    follower->wordn = cursor->wordn;
    follower->len = static_cast<uint32_t>(length);
    deleteindex(dict, follower, carried, next, length - old);
    return nullptr;
}

} // namespace

errorblock *dictdeleteword(Dictionary *dict, dictcursor *cursor, bool *gone)
{
    *gone = false;
    if (!cursor->len) return nullptr;
    dictchanged(dict);
    cursor->indexn = dictforward(dict, cursor->indexn, cursor);
    dictcursor follower = *cursor;
    if (dictnext(dict, &follower)) return deletebefore(dict, cursor, &follower, gone);
    errorblock *err = nullptr;
    if (cursor->woff == 0)
        deleteonly(dict);
    else
        err = deletelast(dict, cursor);
    *gone = !err;
    return err;
}

bool dictdelete(Dictionary *dict, dictcursor *cursor)
{
    bool gone;
    dictdeleteword(dict, cursor, &gone);
    return gone;
}

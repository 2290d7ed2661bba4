#include "base/text.h"
#include "dict/dictindex.h"
#include "dict/wordtables.h"

#include <cstring>

namespace
{

constexpr uint32_t SPLITSPAN = 128;
constexpr int32_t ENDSIZE = 2; // bytes of the end mark

errorblock *blockfor(flexptr *anchor, int32_t size)
{
    return *anchor ? flex_extend(anchor, size) : flex_alloc(anchor, size);
}

// Whatever the blocks held goes: a load or an insert that failed may have left
// something there.
errorblock *insertfirst(const char *word, Dictionary *dict)
{
    uint8_t record[RECORDSIZE + ENDSIZE];
    int32_t length = wordcode("", word, record);
    if (!length) return nullptr;
    memset(record + length, 0, ENDSIZE);
    dictcursor first = {};
    strcopyn(first.word, word, WORDSIZE);
    int32_t whole = length + ENDSIZE;
    errorblock *err = blockfor(&dict->words, whole);
    if (!err) memcpy(dict->words, record, static_cast<size_t>(whole));
    if (!err) err = blockfor(&dict->index, 0);
    dict->noindex = 0;
    if (!err) err = dictaddindex(dict, 0, &first);
    dict->nwords++;
    return err;
}

// What an insert writes in one piece: the new record, and that of the word
// behind it, which from now on is coded against the new word.
struct insertion {
    const char *word;
    bool lowest;         // below all others
    dictcursor follower; // where the word goes, and what stands there
    uint8_t records[2 * RECORDSIZE];
    int32_t added;   // bytes of the new record
    int32_t recoded; // bytes of the follower's, new and old; 0 without one
    int32_t old;
    uint32_t entryn;  // the entry whose span takes the word
    uint32_t shifted; // the last entry at or before the follower
};

// false when a record doesn't fit.
bool insertcode(insertion *insert, const char *before)
{
    insert->added = wordcode(before, insert->word, insert->records);
    insert->old = static_cast<int32_t>(insert->follower.len);
    if (!insert->added || !insert->old) return insert->added;
    insert->recoded =
        wordcode(insert->word, insert->follower.word, insert->records + insert->added);
    return insert->recoded;
}

// An entry of the follower's own goes with it, if it still may stand there. The
// lowest word of all takes over the one that stood at its follower.
void insertindex(Dictionary *dict, insertion *insert)
{
    dictcursor *follower = &insert->follower;
    dictshiftindex(dict, insert->shifted + 1, insert->added + insert->recoded - insert->old, 1);
    if (insert->lowest) {
        dictcursor first = *follower;
        strcopyn(first.word, insert->word, WORDSIZE);
        dictsetindex(dict, insert->entryn, &first);
    }
    follower->woff += static_cast<uint32_t>(insert->added);
    follower->wordn++;
    follower->len = static_cast<uint32_t>(insert->recoded);
    if (insert->shifted > insert->entryn) {
        dictsetindex(dict, insert->shifted, follower);
        dictreindex(dict, insert->shifted, follower);
    }
    uint32_t span = dictspanend(dict, insert->entryn) - dictentries(dict)[insert->entryn].wordn;
    if (span >= SPLITSPAN) dictsplit(dict, insert->entryn, span);
}

} // namespace

// nwords is raised last, and the span that ends the store is judged without the
// new word; it is raised even if memory ran out.
errorblock *dictinsert(const char *word, Dictionary *dict, dictcursor *cursor)
{
    dictchanged(dict);
    if (dictisempty(dict)) return insertfirst(word, dict);
    insertion insert = {};
    insert.word = word;
    insert.lowest = wordorder(word, cursor->word) <= 0;
    insert.follower = *cursor;
    if (!insert.lowest) dictnext(dict, &insert.follower);
    if (!insertcode(&insert, insert.lowest ? "" : cursor->word)) return nullptr;

    insert.entryn = insert.shifted = cursor->indexn = dictforward(dict, cursor->indexn, cursor);
    if (!insert.lowest && insert.old)
        insert.shifted = dictforward(dict, insert.entryn, &insert.follower);
    errorblock *err = dictsplice(dict, insert.follower.woff, insert.records,
                                 insert.added + insert.recoded, insert.old);
    if (!err) insertindex(dict, &insert);
    dict->nwords++;
    return err;
}

#include "base/text.h"
#include "dict/dictindex.h"

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
    errorblock *err = blockfor(&dict->words, length + ENDSIZE);
    if (!err) memcpy(dict->words, record, static_cast<size_t>(length + ENDSIZE));
    if (!err) err = blockfor(&dict->index, 0);
    dict->noindex = 0;
    if (!err) err = dictaddindex(dict, 0, &first);
    dict->nwords++;
    return err;
}

// What an insert writes in one piece: the new record, and that of the word
// behind it, which from now on is coded against the new word.
struct insertion {
    uint8_t records[2 * RECORDSIZE];
    int32_t added;   // bytes of the new record
    int32_t recoded; // bytes of the follower's, new and old; 0 without one
    int32_t old;
};

// false when a word doesn't fit.
bool insertcode(insertion *insert, const char *before, const char *word, const dictcursor *follower)
{
    insert->added = wordcode(before, word, insert->records);
    if (!insert->added || !follower) return insert->added;
    insert->old = static_cast<int32_t>(follower->len);
    insert->recoded = wordcode(word, follower->word, insert->records + insert->added);
    return insert->recoded;
}

} // namespace

errorblock *dictinsert(const char *word, Dictionary *dict, dictcursor *cursor)
{
    if (dictisempty(dict)) return insertfirst(word, dict);
    uint32_t flags = 0;
    bool lowest = wordcompare(word, cursor->word, WORDLENGTH, &flags) <= 0;
    dictcursor follower = *cursor;
    bool followed = lowest || dictnext(dict, &follower);
    insertion insert = {};
    if (!insertcode(&insert, lowest ? "" : cursor->word, word, followed ? &follower : nullptr))
        return nullptr;

    uint32_t entryn = cursor->indexn = dictforward(dict, cursor->indexn, cursor);
    // The follower may carry an entry of its own. The lowest word of all takes
    // over the one that stood at its follower.
    uint32_t shifted = followed && !lowest ? dictforward(dict, entryn, &follower) : entryn;
    errorblock *err =
        dictsplice(dict, follower.woff, insert.records, insert.added + insert.recoded, insert.old);
    if (!err) {
        if (lowest) {
            dictcursor first = follower;
            strcopyn(first.word, word, WORDSIZE);
            dictsetindex(dict, entryn, &first);
        }
        dictshiftindex(dict, shifted + 1, insert.added + insert.recoded - insert.old, 1);
        follower.woff += static_cast<uint32_t>(insert.added);
        follower.wordn++;
        follower.len = static_cast<uint32_t>(insert.recoded);
        if (shifted > entryn) {
            dictsetindex(dict, shifted, &follower);
            dictreindex(dict, shifted, &follower);
        }
        uint32_t span = dictspanend(dict, entryn) - dictentries(dict)[entryn].wordn;
        if (span >= SPLITSPAN) dictsplit(dict, entryn, span);
    }
    dict->nwords++;
    return err;
}

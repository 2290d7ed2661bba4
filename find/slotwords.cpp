#include "find/slotwords.h"

#include "base/flex.h"
#include "dict/dictset.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int32_t LISTCHUNK = 65536;

struct keptlist {
    flexptr block; // 0 while it is not made
    int32_t count;
    bool asked; // for these words, in this search
};

keptlist lists[MAXDICTS][WORDSIZE];

// The cursor's word as a row; false when it has another length.
bool rowmake(const dictcursor &cursor, int32_t length, slotword *row)
{
    auto letters = static_cast<int32_t>(strlen(cursor.word));
    if (letters < length) return false;
    auto spaces = static_cast<int32_t>(std::count(cursor.word, cursor.word + letters, ' '));
    if (letters != length && letters - spaces != length) return false;
    row->wordn = cursor.wordn;
    row->length = static_cast<uint8_t>(letters);
    row->closed = static_cast<uint8_t>(letters - spaces);
    memcpy(row->word, cursor.word, WORDSIZE);
    return true;
}

errorblock *listadd(keptlist *list, const slotword &row)
{
    int32_t size = (list->count + 1) * static_cast<int32_t>(sizeof row);
    errorblock *err = flex_chunk(&list->block, size, LISTCHUNK);
    if (!err) static_cast<slotword *>(list->block)[list->count++] = row;
    return err;
}

errorblock *listmake(keptlist *list, const Dictionary *dict, int32_t length)
{
    dictcursor cursor;
    slotword row;
    errorblock *err = flex_chunk(&list->block, 0, LISTCHUNK);
    for (bool more = dictseek(0, dict, &cursor); more && !err; more = dictnext(dict, &cursor))
        if (rowmake(cursor, length, &row)) err = listadd(list, row);
    return err;
}

void listfree(keptlist *list)
{
    flex_free(&list->block);
    list->count = 0;
}

} // namespace

void slotwalkstart(uint32_t dictn, int32_t length, const dictcursor &from, slotwalk *walk)
{
    keptlist *list = &lists[dictn][length];
    *walk = {};
    walk->dict = &dicts[dictn].dict;
    walk->cursor = from;
    walk->length = length;
    if (list->asked && !list->block && listmake(list, walk->dict, length)) listfree(list);
    list->asked = true;
    if (!list->block) return;
    const slotword *words = static_cast<const slotword *>(list->block);
    walk->end = words + list->count;
    walk->at = std::lower_bound(words, walk->end, from.wordn,
                                [](const slotword &row, uint32_t n) { return row.wordn < n; });
}

const slotword *slotwalknext(slotwalk *walk)
{
    if (walk->end) return walk->at < walk->end ? walk->at++ : nullptr;
    bool found = false;
    while (walk->cursor.len && !found) {
        found = rowmake(walk->cursor, walk->length, &walk->row);
        dictnext(walk->dict, &walk->cursor);
    }
    return found ? &walk->row : nullptr;
}

void slotwordsfree()
{
    for (auto &row : lists)
        for (keptlist &list : row) {
            listfree(&list);
            list.asked = false;
        }
}

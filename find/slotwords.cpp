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
};

keptlist lists[MAXDICTS][WORDSIZE];

errorblock *listadd(keptlist *list, const dictcursor &cursor, size_t length, size_t closed)
{
    int32_t size = (list->count + 1) * static_cast<int32_t>(sizeof(slotword));
    errorblock *err = flex_chunk(&list->block, size, LISTCHUNK);
    if (err) return err;
    slotword *row = static_cast<slotword *>(list->block) + list->count++;
    row->wordn = cursor.wordn;
    row->length = static_cast<uint8_t>(length);
    row->closed = static_cast<uint8_t>(closed);
    memcpy(row->word, cursor.word, WORDSIZE);
    return nullptr;
}

errorblock *listmake(keptlist *list, const Dictionary *dict, size_t length)
{
    dictcursor cursor;
    errorblock *err = flex_chunk(&list->block, 0, LISTCHUNK);
    for (int more = dictseek(0, dict, &cursor); more && !err; more = dictnext(dict, &cursor)) {
        size_t letters = strlen(cursor.word);
        if (letters < length) continue;
        auto spaces = static_cast<size_t>(std::count(cursor.word, cursor.word + letters, ' '));
        if (letters == length || letters - spaces == length)
            err = listadd(list, cursor, letters, letters - spaces);
    }
    return err;
}

void listfree(keptlist *list)
{
    flex_free(&list->block);
    list->count = 0;
}

} // namespace

slotwordlist slotwords(uint32_t dictn, int32_t length)
{
    keptlist *list = &lists[dictn][length];
    if (!list->block && listmake(list, &dicts[dictn].dict, static_cast<size_t>(length)))
        listfree(list);
    return {.words = static_cast<const slotword *>(list->block), .count = list->count};
}

void slotwordsfree()
{
    for (auto &row : lists)
        for (keptlist &list : row)
            listfree(&list);
}

int32_t slotwordfrom(const slotwordlist &list, uint32_t wordn)
{
    const slotword *end = list.words + list.count;
    const slotword *at = std::lower_bound(
        list.words, end, wordn, [](const slotword &row, uint32_t n) { return row.wordn < n; });
    return static_cast<int32_t>(at - list.words);
}

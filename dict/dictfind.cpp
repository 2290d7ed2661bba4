#include "dict/dictfast.h"
#include "dict/dictindex.h"

#include <algorithm>

namespace
{

// A key has no terminator when it is full: the compare must end with the last
// letter in it that counts.
int keycompare(const char *word, const dictindex *entry, int32_t letters, uint32_t *flags)
{
    if (*flags & (FINDHYPHENS | fastfind))
        letters -= static_cast<int32_t>(
            std::count(entry->word, entry->word + letters, *flags & FINDHYPHENS ? '-' : ' '));
    return wordcompare(word, entry->word, letters, flags);
}

} // namespace

// A run of long words may share its first letters over more than one entry:
// hence the steps back from an equal one.
uint32_t dictentrybelow(const char *word, int32_t letters, const Dictionary *dict, uint32_t *flags)
{
    const dictindex *entries = dictentries(dict);
    int32_t low = 0, high = static_cast<int32_t>(dict->noindex) - 1, middle = 0;
    int order = 0;
    while (low <= high) {
        middle = (low + high) / 2;
        order = keycompare(word, entries + middle, letters, flags);
        if (order == 0) break;
        if (order < 0)
            high = middle - 1;
        else
            low = middle + 1;
    }
    while (order <= 0 && middle > 0)
        order = keycompare(word, entries + --middle, letters, flags);
    return static_cast<uint32_t>(middle);
}

int dictfind(const char *word, const Dictionary *dict, dictcursor *cursor, uint32_t *flags)
{
    *flags &= FINDOPTIONS;
    if (dictisempty(dict)) {
        *cursor = {};
        return 0;
    }
    uint32_t entryn = dictentrybelow(word, INDEXLETTERS, dict, flags);
    if (*flags & fastfind) return dictfastscan(word, dict, entryn, flags);
    dictcursor at, below;
    dictfromentry(entryn, dict, &at);
    below = at;
    do {
        int order = wordcompare(word, at.word, WORDLENGTH, flags);
        if (order == 0) {
            *cursor = at;
            return 1;
        }
        if (order < 0) break;
        below = at;
    } while (dictnext(dict, &at));
    *cursor = below;
    return 0;
}

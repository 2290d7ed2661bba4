#include "find/wordindicts.h"

#include "dict/dictset.h"

bool wordindicts(const char *word)
{
    dictcursor cursor;
    for (uint32_t i = 0; i < dictset.count; i++) {
        uint32_t flags = fastfind;
        if (dictfind(word, &dicts[dictset.numbers[i]].dict, &cursor, &flags)) return true;
    }
    return false;
}

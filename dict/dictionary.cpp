#include "dict/dictionary.h"

#include "dict/dictdelete.h"
#include "dict/wordtables.h"

#include <cstring>

errorblock *dictempty(Dictionary *dict)
{
    *dict = {};
    errorblock *err = flex_alloc(&dict->words, 0);
    if (!err) err = flex_alloc(&dict->index, 0);
    if (err) dictfree(dict);
    return err;
}

void dictfree(Dictionary *dict)
{
    flex_free(&dict->words);
    flex_free(&dict->index);
    dict->nwords = dict->noindex = 0;
    tablesfree(dict);
    dictchanged(dict);
}

uint32_t dictcount(const Dictionary *dict)
{
    return dict->nwords;
}

errorblock *dictadd(const char *word, Dictionary *dict)
{
    dictcursor cursor;
    uint32_t flags = 0;
    if (!*word || strlen(word) > WORDLENGTH) return nullptr;
    while (dictfind(word, dict, &cursor, &flags)) {
        bool gone;
        if (!strncmp(word, cursor.word, WORDLENGTH)) return nullptr;
        errorblock *err = dictdeleteword(dict, &cursor, &gone);
        if (err || !gone) return err;
    }
    return dictinsert(word, dict, &cursor);
}

bool dictremove(const char *word, Dictionary *dict)
{
    dictcursor cursor;
    uint32_t flags = 0;
    return dictfind(word, dict, &cursor, &flags) && dictdelete(dict, &cursor);
}

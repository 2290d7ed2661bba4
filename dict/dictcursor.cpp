#include "dict/dictindex.h"
#include "dict/wordcodes.h"

#include <cstring>

void dictfromentry(uint32_t entryn, const Dictionary *dict, dictcursor *cursor)
{
    const dictindex *entry = &dictentries(dict)[entryn];
    *cursor = {};
    memcpy(cursor->word, entry->word, INDEXLETTERS);
    cursor->woff = entry->woff;
    cursor->indexn = entryn;
    cursor->wordn = entry->wordn;
    dictdecode(dict, cursor);
}

void dictdecode(const Dictionary *dict, dictcursor *cursor)
{
    const uint8_t *record = dictrecord(dict, cursor->woff);
    uint32_t length = *record & 31u;
    const uint8_t *codes = record + 1;
    while (*codes >= ESCAPECODE)
        codes = codeexpand(codes, cursor->word, &length);
    cursor->word[length] = 0;
    cursor->len = static_cast<uint32_t>(codes - record);
}

// The count alone doesn't end a walk: it is one too high after an insert that
// ran out of memory, and anything in a damaged file. A code of 0 in the place
// of a record's first is met only in the end mark.
bool dictnext(const Dictionary *dict, dictcursor *cursor)
{
    bool there = cursor->len != 0;
    cursor->woff += cursor->len;
    cursor->wordn++;
    if (there && cursor->wordn < dict->nwords && dictrecord(dict, cursor->woff)[1]) {
        dictdecode(dict, cursor);
        return true;
    }
    cursor->len = 0;
    cursor->word[0] = 0;
    return false;
}

// The last entry at or before a word.
static uint32_t entryofword(uint32_t wordn, const Dictionary *dict)
{
    const dictindex *entries = dictentries(dict);
    auto low = 0, high = static_cast<int32_t>(dict->noindex) - 1, middle = 0;
    while (low <= high) {
        middle = (low + high) / 2;
        if (entries[middle].wordn == wordn) break;
        if (entries[middle].wordn > wordn)
            high = middle - 1;
        else
            low = middle + 1;
    }
    if (middle && entries[middle].wordn > wordn) middle--;
    return static_cast<uint32_t>(middle);
}

bool dictseek(uint32_t wordn, const Dictionary *dict, dictcursor *cursor)
{
    if (wordn >= dict->nwords || dictisempty(dict)) return false;
    dictcursor at;
    dictfromentry(entryofword(wordn, dict), dict, &at);
    while (at.wordn < wordn)
        if (!dictnext(dict, &at)) return false;
    *cursor = at;
    return true;
}

const char *dictword(uint32_t wordn, const Dictionary *dict)
{
    static char text[WORDSIZE];
    dictcursor cursor;
    text[0] = 0;
    if (dictseek(wordn, dict, &cursor)) memcpy(text, cursor.word, WORDSIZE);
    return text;
}

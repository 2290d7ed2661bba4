#include "dict/wordtables.h"

#include "base/chars.h"
#include "dict/collation.h"
#include "dict/tablewalk.h"
#include "dict/wordhash.h"

#include <algorithm>
#include <cstring>

bool tablesoff;

// Of the store's own record only the anchor is known to others.
struct wordtables {
    uint32_t version;         // of the store that they were made from
    bool sound;               // a walk finds all words, in order, and the index in step
    uint32_t asked[WORDSIZE]; // words that searches went through for want of a list
    lengthlist lists[WORDSIZE];
    wordhash hash;
};

namespace
{

constexpr int32_t GROWTH = 65536;
constexpr uint32_t LOOKWORDS = 64; // that are read to look a word up without a hash
constexpr uint32_t LOOKSLEAST = 256;

wordtables *tablesof(const Dictionary *dict)
{
    return static_cast<wordtables *>(dict->tables);
}

void listfree(lengthlist *list)
{
    flex_free(&list->pages);
    *list = {};
}

// A page at a time; the block is cut to size behind the last.
errorblock *pageadd(lengthlist *list)
{
    uint32_t page = list->count / PAGEWORDS;
    auto size = static_cast<int32_t>((page + 1) * pagebytes(list));
    errorblock *err = flex_chunk(&list->pages, size, std::max(GROWTH, size / 4));
    if (!err) memset(pagenumbers(list, page), 0, pagebytes(list));
    return err;
}

errorblock *rowadd(lengthlist *list, uint32_t number, const char *text)
{
    uint32_t page = list->count / PAGEWORDS, row = list->count % PAGEWORDS;
    errorblock *err = row ? nullptr : pageadd(list);
    if (err) return err;
    auto length = static_cast<size_t>(list->length);
    pagenumbers(list, page)[row] = number;
    pagesets(list, page)[row] = letterset(text, length);
    uint8_t *letters = pageletters(list, page, 0) + row;
    for (size_t i = 0; i < length; i++)
        letters[i * PAGEWORDS] = static_cast<uint8_t>(text[i]);
    list->count++;
    return nullptr;
}

// A word goes into the list as stored, without its spaces, or both.
errorblock *wordtake(lengthlist *list, const tablewalk &walk)
{
    const char *word = walk.at.word;
    bool space = walk.spaces && strchr(word, ' ');
    if (walk.letters == static_cast<uint32_t>(list->length)) {
        list->mixed += space;
        return rowadd(list, walk.at.wordn | ROWSTORED | (space ? 0 : ROWCLOSED), word);
    }
    if (!space) return nullptr;
    char closed[WORDSIZE];
    if (std::remove_copy(word, word + walk.letters, closed, ' ') - closed != list->length)
        return nullptr;
    list->mixed++;
    return rowadd(list, walk.at.wordn | ROWCLOSED, closed);
}

// All words of the list's length, in one walk.
errorblock *listmake(const Dictionary *dict, lengthlist *list, bool *sound)
{
    tablewalk walk = walkstart(dict);
    errorblock *err = flex_alloc(&list->pages, 0);
    while (!err && walknext(&walk))
        if (walk.letters >= static_cast<uint32_t>(list->length)) err = wordtake(list, walk);
    *sound = walk.sound;
    if (!err)
        err = flex_extend(&list->pages, static_cast<int32_t>(pagecount(list) * pagebytes(list)));
    return err;
}

// The tables of the store as it is; 0 when there is no memory for them.
wordtables *tablesnow(const Dictionary *dict)
{
    wordtables *tables = tablesof(dict);
    if (tables && tables->version == dict->version) return tables;
    if (!tables) {
        if (heap_alloc(&dict->tables, sizeof *tables)) return nullptr;
        tables = tablesof(dict);
    }
    for (lengthlist &list : tables->lists)
        listfree(&list);
    hashfree(&tables->hash);
    tables->version = dict->version;
    tables->sound = true; // as far as is known
    memset(tables->asked, 0, sizeof tables->asked);
    return tables;
}

} // namespace

uint32_t letterset(const char *text, size_t length)
{
    uint32_t bits = 0, sum = 0;
    for (size_t i = 0; i < length; i++) {
        uint32_t ch = charupper(static_cast<uint8_t>(text[i]));
        bits |= 1u << (ch + 13) % 26; // A is 65
        sum += ch * 0x9E3779B1u;
    }
    return bits | (sum & ~LETTERBITS);
}

const lengthlist *lengthwords(const Dictionary *dict, int32_t length, uint32_t words)
{
    if (tablesoff || dictisempty(dict)) return nullptr;
    wordtables *tables = tablesnow(dict);
    if (!tables || !tables->sound) return nullptr;
    lengthlist *list = &tables->lists[length];
    if (list->pages) return list;
    tables->asked[length] += words;
    if (tables->asked[length] < dict->nwords) return nullptr;
    list->length = length;
    errorblock *err = listmake(dict, list, &tables->sound);
    if (!err && tables->sound) return list;
    listfree(list);
    return nullptr;
}

const lengthlist *lengthmade(const Dictionary *dict, int32_t length)
{
    const wordtables *tables = tablesof(dict);
    if (tablesoff || !tables || tables->version != dict->version || !tables->sound) return nullptr;
    return tables->lists[length].pages ? &tables->lists[length] : nullptr;
}

const wordhash *hashwords(const Dictionary *dict, uint32_t lookups)
{
    wordtables *tables = tablesof(dict);
    if (tablesoff) return nullptr;
    if (tables && tables->version == dict->version && tables->hash.rows) return &tables->hash;
    dict->looked += lookups;
    if (dict->looked < LOOKSLEAST + dict->nwords / LOOKWORDS || dictisempty(dict)) return nullptr;
    dict->looked = 0;
    tables = tablesnow(dict);
    if (!tables || !tables->sound || hashmake(dict, &tables->hash, &tables->sound)) return nullptr;
    return tables->sound ? &tables->hash : nullptr;
}

void rowtext(const lengthlist *list, uint32_t row, char *text)
{
    const uint8_t *letters = pageletters(list, row / PAGEWORDS, 0) + row % PAGEWORDS;
    for (int32_t i = 0; i < list->length; i++)
        text[i] = static_cast<char>(letters[i * static_cast<int32_t>(PAGEWORDS)]);
    text[list->length] = 0;
}

uint32_t rowbound(const lengthlist *list, const char *text, int32_t letters, bool behind)
{
    uint32_t low = 0, high = list->count;
    while (low < high) {
        uint32_t middle = (low + high) / 2;
        const uint8_t *row = pageletters(list, middle / PAGEWORDS, 0) + middle % PAGEWORDS;
        int order = 0;
        for (int32_t i = 0; i < letters && !order; i++)
            order = collation.fold[row[i * static_cast<int32_t>(PAGEWORDS)]] -
                    collation.fold[static_cast<uint8_t>(text[i])];
        if (order < 0 || (behind && order == 0))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

void dictchanged(Dictionary *dict)
{
    dict->version++;
    dict->looked = 0;
}

void tablesfree(Dictionary *dict)
{
    wordtables *tables = tablesof(dict);
    if (!tables) return;
    for (lengthlist &list : tables->lists)
        listfree(&list);
    hashfree(&tables->hash);
    heap_free(&dict->tables);
}

int64_t tablesbytes(const Dictionary *dict)
{
    const wordtables *tables = tablesof(dict);
    if (!tables) return 0;
    int64_t bytes = int64_t{sizeof *tables} + hashbytes(&tables->hash);
    for (const lengthlist &list : tables->lists)
        if (list.pages) bytes += int64_t{pagecount(&list)} * pagebytes(&list);
    return bytes;
}

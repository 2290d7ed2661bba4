#include "dict/tablewalk.h"

#include "dict/collation.h"
#include "dict/dictindex.h"
#include "dict/wordcodes.h"

#include <cstring>

namespace
{

// Words in order differ first where the later one's prefix count says; to compare
// there is nearly always enough.
bool inorder(const tablewalk &walk)
{
    auto a = static_cast<uint8_t>(walk.before[walk.shared]);
    auto b = static_cast<uint8_t>(walk.at.word[walk.shared]);
    if (collation.fold[a] != collation.fold[b]) return collation.fold[a] < collation.fold[b];
    return !walk.at.wordn || wordorder(walk.before, walk.at.word) < 0;
}

// Asks the entry that stands at this word, if one does.
bool entryinstep(tablewalk *walk)
{
    const Dictionary *dict = walk->dict;
    if (walk->entry == dict->noindex || dictentries(dict)[walk->entry].woff != walk->at.woff)
        return true;
    const dictindex &entry = dictentries(dict)[walk->entry++];
    return entry.wordn == walk->at.wordn && !strncmp(entry.word, walk->at.word, INDEXLETTERS);
}

} // namespace

tablewalk walkstart(const Dictionary *dict)
{
    tablewalk walk = {};
    walk.dict = dict;
    walk.at.wordn = UINT32_MAX; // the first is next
    walk.sound = true;
    return walk;
}

bool walknext(tablewalk *walk)
{
    dictcursor *at = &walk->at;
    const uint8_t *record = dictrecord(walk->dict, at->woff + at->len), *codes = record + 1;
    if (at->wordn + 1 == walk->dict->nwords || !*codes) {
        walk->sound = at->wordn + 1 == walk->dict->nwords && walk->entry == walk->dict->noindex;
        return false;
    }
    memcpy(walk->before, at->word, WORDSIZE);
    walk->shared = walk->letters = *record & 31u;
    while (*codes >= ESCAPECODE) {
        walk->spaces |= codes[0] == ESCAPECODE && codes[1] == ' ';
        codes = codeexpand(codes, at->word, &walk->letters);
    }
    at->word[walk->letters] = 0;
    at->woff += at->len;
    at->len = static_cast<uint32_t>(codes - record);
    at->wordn++;
    walk->sound = inorder(*walk) && entryinstep(walk);
    return walk->sound;
}

#include "dict/dictbuild.h"

#include "base/text.h"
#include "dict/dictindex.h"
#include "dict/wordtables.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr uint32_t SPAN = 64;      // words, at least, from an entry to the next
constexpr uint32_t LONGSPAN = 128; // a span this long would be split
constexpr int32_t ENDSIZE = 2;     // bytes of the end mark
constexpr int32_t GROWTH = 65536;

// Room for size bytes, in steps that grow with the block.
errorblock *room(flexptr *anchor, int32_t size)
{
    return flex_chunk(anchor, size, std::max(GROWTH, size / 4));
}

// An entry for the word at the cursor, where the last span is long enough and
// the record can carry one.
errorblock *entryplace(dictbuilder *build, const dictcursor &at)
{
    Dictionary *dict = &build->store;
    bool due = !dict->noindex || at.wordn - build->entrywordn >= SPAN;
    if (!due || *dictrecord(dict, at.woff) >= INDEXLETTERS) return nullptr;
    auto size = static_cast<int32_t>((dict->noindex + 1) * sizeof(dictindex));
    errorblock *err = room(&dict->index, size);
    if (err) return err;
    dictsetindex(dict, dict->noindex++, &at);
    build->entrywordn = at.wordn;
    return nullptr;
}

// A last span that is short joins the one before it, unless that would be split.
void lastspanjoin(dictbuilder *build)
{
    Dictionary *dict = &build->store;
    if (dict->noindex < 2 || dict->nwords - build->entrywordn >= SPAN) return;
    const dictindex *entries = dictentries(dict);
    if (dict->nwords - entries[dict->noindex - 2].wordn < LONGSPAN) dict->noindex--;
}

} // namespace

errorblock *buildstart(dictbuilder *build)
{
    *build = {};
    return dictempty(&build->store);
}

errorblock *buildword(dictbuilder *build, const char *word, bool *fits)
{
    Dictionary *dict = &build->store;
    errorblock *err = room(&dict->words, build->bytes + RECORDSIZE + ENDSIZE);
    if (err) return err;
    int32_t length =
        wordcode(build->last.word, word, dictrecord(dict, build->last.woff + build->last.len));
    *fits = length;
    if (!length) return nullptr;
    build->last.woff += build->last.len;
    build->last.wordn = dict->nwords++;
    build->last.len = static_cast<uint32_t>(length);
    build->bytes += length;
    strcopyn(build->last.word, word, WORDSIZE);
    return entryplace(build, build->last);
}

errorblock *buildend(dictbuilder *build, Dictionary *dict)
{
    Dictionary *built = &build->store;
    lastspanjoin(build);
    if (built->nwords) {
        memset(dictrecord(built, static_cast<uint32_t>(build->bytes)), 0, ENDSIZE);
        build->bytes += ENDSIZE;
    }
    errorblock *err = flex_extend(&built->words, build->bytes);
    if (!err)
        err = flex_extend(&built->index, static_cast<int32_t>(built->noindex * sizeof(dictindex)));
    if (!err) {
        flex_swap(&dict->words, &built->words);
        flex_swap(&dict->index, &built->index);
        dict->nwords = built->nwords;
        dict->noindex = built->noindex;
        dictchanged(dict);
    }
    buildfree(build);
    return err;
}

void buildfree(dictbuilder *build)
{
    dictfree(&build->store);
}

// The records stay where they are: the builder borrows them for the walk.
errorblock *dictindexmake(Dictionary *dict)
{
    dictbuilder build;
    errorblock *err = buildstart(&build);
    if (err) return err;
    flex_swap(&build.store.words, &dict->words);
    int32_t size = 0;
    if (build.store.words) flex_size(&build.store.words, &size);
    dictcursor at = {};
    while (!err && static_cast<int32_t>(at.woff) < size - ENDSIZE) {
        dictdecode(&build.store, &at);
        err = entryplace(&build, at);
        at.woff += at.len;
        build.store.nwords = ++at.wordn;
    }
    lastspanjoin(&build);
    if (!err)
        err = flex_extend(&build.store.index,
                          static_cast<int32_t>(build.store.noindex * sizeof(dictindex)));
    flex_swap(&build.store.words, &dict->words);
    if (!err) {
        flex_swap(&build.store.index, &dict->index);
        dict->nwords = build.store.nwords;
        dict->noindex = build.store.noindex;
        dictchanged(dict);
    }
    buildfree(&build);
    return err;
}

#include "dict/wordpile.h"

#include "dict/collation.h"
#include "dict/dictbuild.h"
#include "dict/dictwindow.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int32_t GROWTH = 65536;
constexpr uint32_t FEWWORDS = 256; // words there for each that comes: a merge costs more
constexpr size_t ORDERSHOWS = 30;  // letters

// A word of the pile. The key is the fold keys of its first eight letters, the
// first in the highest byte: it decides most comparisons.
struct pilerow {
    uint64_t key;
    uint32_t at; // of the text
};
static_assert(sizeof(pilerow) == 16);

uint64_t wordkey(const char *word)
{
    uint64_t key = 0;
    for (int i = 0; i < 8; i++) {
        auto ch = static_cast<uint8_t>(*word);
        key = key << 8 | collation.fold[ch];
        if (ch) word++;
    }
    return key;
}

const char *rowword(const wordpile &pile, const pilerow &row)
{
    return static_cast<const char *>(pile.text) + row.at;
}

// By words; those that differ only in case stand in the order in which they came.
void pilesort(const wordpile &pile)
{
    auto *rows = static_cast<pilerow *>(pile.rows);
    std::sort(rows, rows + pile.count, [&pile](const pilerow &a, const pilerow &b) {
        if (a.key != b.key) return a.key < b.key;
        int order = wordorder(rowword(pile, a), rowword(pile, b));
        return order ? order < 0 : a.at < b.at;
    });
}

bool ordershows(const char *word)
{
    return strchr(word, ' ') || strlen(word) >= ORDERSHOWS;
}

// What a merge walks over: the dictionary's words, and the pile's in order.
struct merging {
    const wordpile *pile;
    const Dictionary *dict;
    dictcursor old;
    bool oldthere;
    int32_t next; // row of the pile
};

// The newest of the words that are the same as the next row's, and past them.
const char *rowtake(merging *merge)
{
    const auto *rows = static_cast<const pilerow *>(merge->pile->rows);
    const char *word;
    do
        word = rowword(*merge->pile, rows[merge->next++]);
    while (merge->next < merge->pile->count &&
           !wordorder(word, rowword(*merge->pile, rows[merge->next])));
    return word;
}

// The next word of the result, in a buffer of WORDSIZE bytes; false at the end.
bool mergenext(merging *merge, char *word)
{
    bool newthere = merge->next < merge->pile->count;
    if (!newthere && !merge->oldthere) return false;
    const auto *rows = static_cast<const pilerow *>(merge->pile->rows);
    int order = !newthere ? 1
                : !merge->oldthere
                    ? -1
                    : wordorder(rowword(*merge->pile, rows[merge->next]), merge->old.word);
    strcpy(word, order > 0 ? merge->old.word : rowtake(merge));
    if (order >= 0) merge->oldthere = dictnext(merge->dict, &merge->old);
    return true;
}

// *merged is false where the plain road is to be taken; dict is as it was then,
// and after an error.
errorblock *mergewords(const wordpile &pile, Dictionary *dict, bool *merged)
{
    dictbuilder build;
    char word[WORDSIZE];
    merging merge = {.pile = &pile, .dict = dict, .old = {}, .oldthere = false, .next = 0};
    merge.oldthere = dictseek(0, dict, &merge.old);
    *merged = true;
    errorblock *err = buildstart(&build);
    while (!err && *merged && mergenext(&merge, word)) {
        *merged = !ordershows(word);
        if (*merged) err = buildword(&build, word, merged);
    }
    if (!err && *merged) return buildend(&build, dict);
    buildfree(&build);
    return err;
}

// This can take long, and what is in stays when the user ends it.
errorblock *wordsadd(const wordpile &pile, Dictionary *dict)
{
    errorblock *err = nullptr;
    int32_t words = 0;
    for (int32_t at = 0; at < pile.bytes && !err;) {
        const char *word = static_cast<const char *>(pile.text) + at;
        err = dictadd(word, dict);
        at += static_cast<int32_t>(strlen(word)) + 1;
        if (++words % IMPORTPOLL == 0 && importpoll(words)) break;
    }
    return err;
}

} // namespace

errorblock *pilestart(wordpile *pile)
{
    *pile = {};
    pile->orderly = true;
    errorblock *err = flex_alloc(&pile->text, 0);
    if (!err) err = flex_alloc(&pile->rows, 0);
    if (err) pilefree(pile);
    return err;
}

errorblock *pileadd(wordpile *pile, const char *word)
{
    auto size = static_cast<int32_t>(strlen(word)) + 1;
    int32_t text = pile->bytes + size;
    auto rows = static_cast<int64_t>(pile->count + 1) * static_cast<int64_t>(sizeof(pilerow));
    errorblock *err = flex_chunk(&pile->text, text, std::max(GROWTH, text / 2));
    if (!err)
        err = flex_chunk(&pile->rows, static_cast<int32_t>(std::min<int64_t>(rows, INT32_MAX)),
                         static_cast<int32_t>(std::max<int64_t>(GROWTH, rows / 2)));
    if (err) return err;
    memcpy(static_cast<char *>(pile->text) + pile->bytes, word, static_cast<size_t>(size));
    static_cast<pilerow *>(pile->rows)[pile->count++] = {wordkey(word),
                                                         static_cast<uint32_t>(pile->bytes)};
    pile->bytes = text;
    if (ordershows(word)) pile->orderly = false;
    return nullptr;
}

// Where memory is too short for the merge, it may still be enough for each word.
errorblock *pilemerge(wordpile *pile, Dictionary *dict)
{
    bool merged = false;
    uint64_t asked = static_cast<uint64_t>(pile->count) * FEWWORDS;
    if (pile->orderly && asked >= dictcount(dict)) {
        pilesort(*pile);
        if (mergewords(*pile, dict, &merged)) merged = false;
    }
    errorblock *err = merged ? nullptr : wordsadd(*pile, dict);
    pile->bytes = pile->count = 0;
    pile->orderly = true;
    return err;
}

void pilefree(wordpile *pile)
{
    flex_free(&pile->text);
    flex_free(&pile->rows);
}

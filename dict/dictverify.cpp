#include "dict/dictverify.h"

#include "dict/dictindex.h"
#include "dict/wordcodes.h"

#include <cstdarg>
#include <cstdio>

namespace
{

constexpr uint32_t ENDSIZE = 2; // bytes of the end mark

struct verification {
    const Dictionary *dict;
    uint32_t recordsend; // bytes before the end mark
    dictcursor word;     // the last one read
    uint32_t entryn;     // the entry to be met next
    char *text;          // the fault
    int32_t size;
};

[[gnu::format(printf, 2, 3)]] bool fault(verification *check, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(check->text, static_cast<size_t>(check->size), format, arguments);
    va_end(arguments);
    return false;
}

uint32_t blocksize(const flexptr *anchor)
{
    int32_t size = 0;
    if (*anchor) flex_size(anchor, &size);
    return static_cast<uint32_t>(size);
}

// Letters of the record, prefix included, without the limit of a word buffer.
uint32_t recordletters(const uint8_t *record)
{
    uint32_t letters = *record++;
    while (*record >= ESCAPECODE) {
        letters += *record == ESCAPECODE ? 1 : wordcodes.texts[*record].length;
        if (*record++ == ESCAPECODE && *record) record++;
    }
    return letters;
}

uint32_t sharedletters(const char *a, const char *b)
{
    uint32_t shared = 0;
    while (a[shared] && a[shared] == b[shared])
        shared++;
    return shared;
}

bool verifyblocks(verification *check)
{
    const Dictionary *dict = check->dict;
    uint32_t words = blocksize(&dict->words), index = blocksize(&dict->index);
    if (index != dict->noindex * uint64_t{sizeof(dictindex)})
        return fault(check, "%u index entries in %u bytes", dict->noindex, index);
    if (!words && !dict->nwords && !index) return true;
    if (!index) return fault(check, "%u words without an index", dict->nwords);
    if (words <= ENDSIZE) return fault(check, "no records");
    check->recordsend = words - ENDSIZE;
    const uint8_t *end = dictrecord(dict, check->recordsend);
    return (!end[0] && !end[1]) || fault(check, "no end mark");
}

// The record at the cursor, whose text is still the word before.
bool verifyword(verification *check)
{
    dictcursor *word = &check->word;
    const uint8_t *record = dictrecord(check->dict, word->woff);
    char before[WORDSIZE];
    memcpy(before, word->word, WORDSIZE);
    if (*record >= ESCAPECODE || record[1] < ESCAPECODE)
        return fault(check, "word %u: no record at %u", word->wordn, word->woff);
    if (recordletters(record) > WORDLENGTH)
        return fault(check, "word %u at %u: too long", word->wordn, word->woff);
    dictdecode(check->dict, word);
    if (*record != sharedletters(before, word->word))
        return fault(check, "word %u (%s) at %u: prefix count %u, shares %u", word->wordn,
                     word->word, word->woff, *record, sharedletters(before, word->word));
    if (word->wordn && wordorder(before, word->word) >= 0)
        return fault(check, "word %u (%s) at %u: not above the one before (%s)", word->wordn,
                     word->word, word->woff, before);
    return true;
}

// The next entry, if it is this word's.
bool verifyentry(verification *check)
{
    uint32_t n = check->entryn;
    const dictcursor *word = &check->word;
    if (n == check->dict->noindex) return true;
    const dictindex *entry = &dictentries(check->dict)[n];
    if (n && entry->wordn > word->wordn && entry->woff > word->woff) return true;
    if (entry->wordn != word->wordn || entry->woff != word->woff)
        return fault(check, "entry %u: word %u at %u, met word %u at %u", n, entry->wordn,
                     entry->woff, word->wordn, word->woff);
    uint32_t head = *dictrecord(check->dict, word->woff);
    if (head >= INDEXLETTERS) return fault(check, "entry %u: prefix count %u", n, head);
    char letters[INDEXLETTERS] = {};
    memcpy(letters, word->word, strnlen(word->word, INDEXLETTERS));
    if (memcmp(entry->word, letters, INDEXLETTERS) != 0)
        return fault(check, "entry %u: letters %.8s, word %s", n, entry->word, word->word);
    check->entryn++;
    return true;
}

bool verifywords(verification *check)
{
    dictcursor *word = &check->word;
    for (; word->woff < check->recordsend; word->woff += word->len, word->wordn++)
        if (!verifyword(check) || !verifyentry(check)) return false;
    if (word->wordn != check->dict->nwords)
        return fault(check, "%u words, the count says %u", word->wordn, check->dict->nwords);
    if (check->entryn != check->dict->noindex)
        return fault(check, "entry %u: behind the last word", check->entryn);
    return true;
}

} // namespace

const char *dictverify(const Dictionary *dict, char *text, int32_t size)
{
    verification check = {};
    check.dict = dict;
    check.text = text;
    check.size = size;
    return verifyblocks(&check) && verifywords(&check) ? nullptr : text;
}

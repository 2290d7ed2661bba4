#include "find/openings.h"

#include "base/chars.h"
#include "base/flex.h"
#include "dict/dictset.h"

namespace
{

constexpr int32_t COMBINATIONS = 26 * 26 * 26 * 26;

flexptr openings; // a byte for each, 0 while there is no table

// The place of a beginning, from letters that are all of a to z; -1 for others.
int32_t openingplace(const char *letters)
{
    int32_t place = 0;
    for (int32_t i = 0; i < OPENINGLETTERS; i++) {
        if (letters[i] < 'a' || letters[i] > 'z') return -1;
        place = place * 26 + (letters[i] - 'a');
    }
    return place;
}

// Words are compared without spaces; one with a letter outside a to z among the
// first four can't lie in a square.
void openingadd(uint8_t *table, const char *word)
{
    char letters[WORDSIZE] = {};
    uint8_t length = 0;
    for (; *word; word++)
        if (*word != ' ')
            letters[length++] = static_cast<char>(charlower(static_cast<uint8_t>(*word)));
    int32_t place = openingplace(letters);
    if (place >= 0 && table[place] < length) table[place] = length;
}

} // namespace

errorblock *openingsmake()
{
    openingsfree();
    errorblock *err = flex_alloc(&openings, COMBINATIONS);
    if (err) return err;
    uint8_t *table = static_cast<uint8_t *>(openings);
    for (uint32_t i = 0; i < dictset.count; i++) {
        const Dictionary *dict = &dicts[dictset.numbers[i]].dict;
        dictcursor cursor;
        if (!dictseek(0, dict, &cursor)) continue;
        do
            openingadd(table, cursor.word);
        while (dictnext(dict, &cursor));
    }
    return nullptr;
}

void openingsfree()
{
    flex_free(&openings);
}

int32_t openinglongest(const char *letters)
{
    if (!openings) return WORDLENGTH;
    int32_t place = openingplace(letters);
    return place < 0 ? 0 : static_cast<const uint8_t *>(openings)[place];
}

// The words that a fill chooses from.

#include "base/chars.h"
#include "find/fillparts.h"
#include "find/slotmatch.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_set>

namespace
{

// The letter's number, given on first sight; FILLLETTERS for what is no letter or
// one too many.
uint8_t numberof(char ch)
{
    uint8_t letter = charupper(static_cast<uint8_t>(ch)), *number = &fill.number[letter];
    if (*number == FILLLETTERS && fill.letters < FILLLETTERS && charisletter(letter)) {
        *number = static_cast<uint8_t>(fill.letters++);
        fill.letter[*number] = letter;
    }
    return *number;
}

void wordsadd(filllist *list, uint32_t dictn, std::unordered_set<std::string> *seen)
{
    const Dictionary *dict = &dicts[dictn].dict;
    if (dictisempty(dict)) return;
    const std::string blanks(static_cast<size_t>(list->length), ' ');
    slotmatch match;
    for (matchprefix(dict, blanks.c_str(), 0, &match); matchnext(&match);) {
        std::string word = matchtext(&match);
        for (char &ch : word)
            ch = static_cast<char>(numberof(ch));
        if (word.find(static_cast<char>(FILLLETTERS)) != word.npos || !seen->insert(word).second)
            continue;
        list->words.push_back(makewordref(dictn, match.wordn));
        list->letters.insert(list->letters.end(), word.begin(), word.end());
    }
}

void setsmake(filllist *list)
{
    list->count = static_cast<uint32_t>(list->words.size());
    list->spans = (list->count + SPANBITS - 1) / SPANBITS;
    list->sets.assign(size_t{list->spans} * static_cast<size_t>(list->length * fill.letters), 0);
    const uint8_t *letters = list->letters.data();
    for (uint32_t word = 0; word < list->count; word++)
        for (int32_t place = 0; place < list->length; place++) {
            auto *set = const_cast<uint64_t *>(fillset(*list, place, *letters++));
            set[word / SPANBITS] |= uint64_t{1} << word % SPANBITS;
        }
}

} // namespace

const uint64_t *fillset(const filllist &list, int32_t place, int32_t letter)
{
    return list.sets.data() + static_cast<size_t>(place * fill.letters + letter) * list.spans;
}

void filllistsmake()
{
    std::fill(std::begin(fill.number), std::end(fill.number), static_cast<uint8_t>(FILLLETTERS));
    fill.lists.assign(WORDSIZE, {});
    for (const fillslot &slot : fill.slots)
        fill.lists[static_cast<size_t>(slot.length)].length = slot.length;
    for (filllist &list : fill.lists) {
        std::unordered_set<std::string> seen;
        for (uint32_t i = 0; i < dictset.count && list.length; i++)
            wordsadd(&list, dictset.numbers[i], &seen);
    }
    for (filllist &list : fill.lists) // when all letters have their numbers
        if (list.length) setsmake(&list);
}

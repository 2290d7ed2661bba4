#include "find/anagram.h"

#include "base/chars.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/text.h"
#include "dict/dictset.h"
#include "dict/wordtables.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"

#include <algorithm>
#include <bit>
#include <cstring>

char anagramtext[WORDSIZE];

namespace
{

// Uses up one place of rest that ch can stand for: the first that holds it in
// either case, or a wildcard, whichever comes first.
bool letteruse(char *rest, size_t length, uint8_t ch)
{
    for (size_t i = 0; i < length; i++) {
        if (rest[i] != '*' && charupper(static_cast<uint8_t>(rest[i])) != charupper(ch)) continue;
        rest[i] = 0; // no letter of a word is 0
        return true;
    }
    return false;
}

bool isanagram(const char *word, const char *text, size_t length)
{
    char rest[WORDSIZE];
    memcpy(rest, text, length);
    for (size_t i = 0; i < length; i++)
        if (!letteruse(rest, length, static_cast<uint8_t>(word[i]))) return false;
    return true;
}

// The text of an anagram: its letters, wildcards behind them where all are above
// "*", and what a word's set of letters must be.
struct anagram {
    const char *text;
    size_t length;
    int32_t stars;
    uint32_t set; // of its letters without the wildcards
};

// Every letter of an anagram is one of the text, or takes a wildcard. What passes is
// looked at letter by letter.
bool setallows(const anagram &sought, uint32_t set)
{
    if (!sought.stars) return set == sought.set;
    return std::popcount(set & ~sought.set & LETTERBITS) <= sought.stars;
}

// A word that is an anagram; false when the whole search is to end. A result that
// memory is too short for is passed over.
bool anagramadd(uint32_t dictn, uint32_t wordn)
{
    soladdref(makewordref(dictn, wordn), 0);
    return solutions.count <= solutions.maxsolutions;
}

bool pagescan(uint32_t dictn, const lengthlist *list, uint32_t page, const anagram &sought)
{
    const uint32_t *numbers = pagenumbers(list, page), *sets = pagesets(list, page);
    bool any = false;
    for (uint32_t i = 0; i < PAGEWORDS; i++)
        any |= setallows(sought, sets[i]);
    for (uint32_t i = 0; any && i < PAGEWORDS; i++) {
        char word[WORDSIZE];
        if (!setallows(sought, sets[i]) || !(numbers[i] & ROWSTORED)) continue;
        rowtext(list, page * PAGEWORDS + i, word);
        if (isanagram(word, sought.text, sought.length) &&
            !anagramadd(dictn, numbers[i] & ROWNUMBER))
            return false;
    }
    return true;
}

// One dictionary; false when the whole search is to end.
bool dictscananagrams(uint32_t dictn, const anagram &sought)
{
    const Dictionary *dict = &dicts[dictn].dict;
    dictcursor cursor;
    auto length = static_cast<int32_t>(sought.length);
    const lengthlist *list = length ? lengthwords(dict, length, dictcount(dict)) : nullptr;
    for (uint32_t page = 0; list && page < pagecount(list); page++)
        if (!pagescan(dictn, list, page, sought)) return false;
    if (list) return true;
    for (bool more = dictseek(0, dict, &cursor); more; more = dictnext(dict, &cursor))
        if (strlen(cursor.word) == sought.length &&
            isanagram(cursor.word, sought.text, sought.length) && !anagramadd(dictn, cursor.wordn))
            return false;
    return true;
}

// The text that the typed field and the slot's letters make, and its error. A
// cell in which a search left nothing is a blank, and counts as a cell.
errorblock *textchoose(const char *typed)
{
    size_t cells = search.slots[0].length;
    if (typed[0]) {
        strcopyn(anagramtext, typed, WORDSIZE);
        return strlen(typed) == cells ? nullptr : makeerror(EAMAT);
    }
    slotread(0, anagramtext);
    bool blank = strlen(anagramtext) < cells || strchr(anagramtext, ' ');
    return blank ? makeerror(EASP) : nullptr;
}

} // namespace

errorblock *anagramstart(const char *typed)
{
    if (search.running) return nullptr; // its slots would be lost
    errorblock *err = slotsbegin();
    if (err) return err;
    if (solutions.slotcount != 1) err = makeerror(EASW);
    if (!err) err = textchoose(typed);
    if (!err) err = searchlater(anagramrun);
    solutionsrefresh();
    return err;
}

errorblock *anagramrun(intptr_t)
{
    searchbegin();
    errorblock *err = anagramscan(anagramtext);
    searchend();
    solutionsrefresh();
    return err;
}

// The descending order puts "*" behind all letters, so that letters are used up
// first and wildcards only when they are needed.
errorblock *anagramscan(char *text)
{
    size_t length = strlen(text);
    std::sort(text, text + length,
              [](char a, char b) { return static_cast<uint8_t>(a) > static_cast<uint8_t>(b); });
    char letters[WORDSIZE];
    char *end = std::remove_copy(text, text + length, letters, '*');
    const anagram sought = {.text = text,
                            .length = length,
                            .stars = static_cast<int32_t>(std::count(text, text + length, '*')),
                            .set = letterset(letters, static_cast<size_t>(end - letters))};
    searchbusy(true);
    for (uint32_t i = 0; i < dictset.count; i++)
        if (!dictscananagrams(dictset.numbers[i], sought)) break;
    searchbusy(false);
    return nullptr;
}

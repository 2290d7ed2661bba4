#include "find/anagram.h"

#include "base/chars.h"
#include "base/errorcodes.h"
#include "base/errors.h"
#include "base/text.h"
#include "dict/dictset.h"
#include "find/findwindow.h"
#include "find/solutions.h"
#include "find/solve.h"
#include "grid/grid.h"

#include <algorithm>
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

// One dictionary; false when the whole search is to end.
bool dictscananagrams(uint32_t dictn, const char *text, size_t length, int32_t *counter)
{
    const Dictionary *dict = &dicts[dictn].dict;
    dictcursor cursor;
    if (!dictseek(0, dict, &cursor)) return true;
    do {
        if (strlen(cursor.word) == length && isanagram(cursor.word, text, length)) {
            // A result that memory is too short for is passed over.
            soladdref(makewordref(dictn, cursor.wordn), 0);
            if (solutions.count > solutions.maxsolutions) return false;
        }
        if ((*counter)++ == 2048) {
            *counter = 0;
            if (search.stopflag) return false;
        }
    } while (dictnext(dict, &cursor));
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
    searchbusy(true);
    int32_t counter = 0;
    for (uint32_t i = 0; i < dictset.count; i++)
        if (!dictscananagrams(dictset.numbers[i], text, length, &counter)) break;
    searchbusy(false);
    return nullptr;
}

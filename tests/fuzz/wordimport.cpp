// Texts of words: any bytes as a file. Each word that comes in is one that a
// store holds, in the order of the text it is the list of the Wordsquare, and
// what goes out again comes in as the same number of words at the most. Texts
// with words of 31 letters need only do no harm: the store misreads neighbours
// that share 30.

#include "dict/wordimport.h"

#include "base/chars.h"
#include "dict/dictset.h"
#include "dict/dictverify.h"
#include "dict/wordfeed.h"
#include "dict/wordscores.h"
#include "find/solutions.h"
#include "find/wordload.h"
#include "grid/grid.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>

namespace
{

bool tame(fuzzfeed bytes)
{
    wordfeed feed = {};
    bool longest = false;
    for (size_t at = 0; at <= bytes.size; at++)
        if (wordfeedbyte(&feed, at < bytes.size ? bytes.data[at] : FEEDEND))
            longest = longest || std::strlen(feed.word) == WORDLENGTH;
    return !longest;
}

void checkwords(const Dictionary *dict)
{
    char fault[128];
    FUZZCHECK(!dictverify(dict, fault, sizeof fault));
    dictcursor cursor;
    for (bool more = dictseek(0, dict, &cursor); more; more = dictnext(dict, &cursor)) {
        size_t length = std::strlen(cursor.word);
        FUZZCHECK(length >= 1 && length <= static_cast<size_t>(WORDLENGTH));
        FUZZCHECK(static_cast<uint8_t>(cursor.word[0]) > 32);
        for (size_t i = 1; i < length; i++)
            FUZZCHECK(cursor.word[i] >= 'a' && cursor.word[i] <= 'z');
    }
}

uint32_t import(const std::string &path, bool check)
{
    ndicts = 1;
    dicts[0] = {};
    FUZZCHECK(!dictempty(&dicts[0].dict));
    FUZZCHECK(!wordimport(path.c_str(), 0));
    uint32_t words = dictcount(&dicts[0].dict);
    FUZZCHECK(!words || dicts[0].changed);
    if (check) checkwords(&dicts[0].dict);
    return words;
}

// The store drops a long word whose first character has no code.
void checklist(const std::string &path, bool check)
{
    FUZZCHECK(wordload(path.c_str()) == 1);
    FUZZCHECK(!check || solutions.count >= static_cast<int32_t>(dictcount(&dicts[0].dict)));
    for (int32_t i = 0; check && i < solutions.count; i++) {
        const char *word = solword(i)->text;
        dictcursor cursor;
        uint32_t flags = 0;
        FUZZCHECK(solword(i)->x == -1);
        if (asciiletter(static_cast<uint8_t>(word[0])))
            FUZZCHECK(dictfind(word, &dicts[0].dict, &cursor, &flags));
    }
    solreset();
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    grid.kind = GRIDWORDSQUARE;
    std::string in = fuzzpath("in.txt"), out = fuzzpath("out.txt");
    fuzzwrite(in, feed);
    std::string list(reinterpret_cast<const char *>(feed.data), feed.size);
    scoredwords(&list, 1); // no word without its ";" and a digit
    FUZZCHECK(list.size() <= feed.size);
    bool check = tame(feed);
    uint32_t words = import(in, check);
    checklist(in, check);
    if (words) {
        FUZZCHECK(!wordexport(out.c_str(), &dicts[0].dict));
        dictfree(&dicts[0].dict);
        uint32_t again = import(out, check);
        FUZZCHECK(!check || again <= words);
    }
    dictfree(&dicts[0].dict);
    ndicts = 0;
}

// Words found, added and removed by the calls of a store; dictwalk_test.cpp has
// its bytes.

#include "dict/dictionary.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "dict/storecheck.h"
#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

namespace
{

constexpr uint32_t FASTHYPHENS = fastfind | FINDHYPHENS;

// What a search finds: "-" for nothing, or behind "+" the stored word; a search
// that isn't fast tells its number, and the word before where one would stand.
// "<" or ">" behind it: the first letter in another case is below or above.
std::string found(const Dictionary &dict, const char *word, uint32_t options)
{
    dictcursor cursor;
    uint32_t flags = options | 0xFFFF;
    int there = dictfind(word, &dict, &cursor, &flags);
    CHECK((flags & ~CASEABOVE) == options);
    std::string text = there ? "+" : "-";
    if (options & fastfind) {
        char stored[WORDSIZE] = "";
        if (there) dictfound(stored);
        text += stored;
    } else {
        text += std::to_string(cursor.wordn) + cursor.word;
    }
    uint32_t cased = flags & CASEABOVE;
    return text + (cased == CASEBELOW ? "<" : cased == CASEABOVE ? ">" : "");
}

struct findrow {
    const char *word;
    uint32_t options;
    const char *found;
};

void finds(const wordlist &words, const std::vector<findrow> &rows)
{
    teststore s(words);
    for (auto [word, options, expected] : rows)
        CHECK(found(s.dict, word, options) == expected);
}

errorblock *addwithout(const char *word, Dictionary *dict, int32_t allocations)
{
    flexfailafter(allocations);
    errorblock *err = dictadd(word, dict);
    flexfailafter(-1);
    return err;
}

} // namespace

TEST_CASE("spaces are passed over in a fast search, and hyphens where that is asked for")
{
    finds({"new", "new age", "new year", "newt", "a la carte", "as if", "asa", "asp", "Nationalist",
           "nationally", "ford", "Ford Prefect", "forded", "fords"},
          {{"newyear", fastfind, "+new year"},
           {"NEWAGE", fastfind, "+new age<"},
           {"alacarte", fastfind, "+a la carte"},
           {"new year", fastfind, "+new year"},
           {"newyea", fastfind, "-"},
           {"asa", fastfind, "+asa"}, // behind a phrase that stands elsewhere by its letters
           {"nationally", fastfind, "+nationally"}, // the case of an entry's letters is nobody's
           {"nationalist", fastfind, "+Nationalist<"},
           {"fordes", fastfind, "-"}, // no half of another is left
           {"fords", fastfind, "+fords"}});
    finds({"co-op", "co-opt", "cod"}, {{"coop", FINDHYPHENS, "+0co-op"},
                                       {"coopt", FINDHYPHENS, "+1co-opt"},
                                       {"coop", 0, "-2cod"},
                                       {"Coop", FASTHYPHENS, "+co-op<"},
                                       {"coop", fastfind, "-"}});
    finds({}, {{"word", 0, "-0"}, {"word", FINDHYPHENS, "-0"}, {"word", fastfind, "-"}});
    const std::string longest(31, 'n'), longer = longest + "more";
    finds({"a", longest, "z"}, {{longer.c_str(), 0, ("+1" + longest).c_str()}, // 31 letters count
                                {longer.c_str(), fastfind, "-"},
                                {longest.c_str(), fastfind, ("+" + longest).c_str()}});
}

TEST_CASE("words that don't fit are dropped in silence")
{
    teststore s({"middle"});
    const std::string longest(31, 'q'), shorter(16, '!'), leaning(17, '!');
    addwords(&s.dict, {"", longest + "q", std::string(100, 'q'), leaning});
    CHECK(storewords(s.dict) == wordlist{"middle"});
    addwords(&s.dict, {longest, shorter, leaning}); // shared letters make room
    CHECK(storewords(s.dict) == wordlist{shorter, leaning, "middle", longest});
    CHECK(dictremove(shorter.c_str(), &s.dict) == 0); // the next leans on it
}

TEST_CASE("seeks and walks end where the words do")
{
    teststore s(somewords(300, 6)), nothing;
    uint32_t count = dictcount(&s.dict);
    dictcursor cursor;
    CHECK((dictseek(count - 1, &s.dict, &cursor) == 1 && cursor.wordn == count - 1));
    for (uint32_t n : {count, count + 1, 0xFFFFFFFFu}) {
        CHECK((dictseek(n, &s.dict, &cursor) == 0 && cursor.wordn == count - 1));
        CHECK(dictword(n, &s.dict) == std::string());
    }
    for (int n = 0; n < 3; n++) // it stays ended
        CHECK((dictnext(&s.dict, &cursor) == 0 && !cursor.word[0] && !cursor.len));
    CHECK(dictseek(0, &nothing.dict, &cursor) == 0);
}

TEST_CASE("an insert without memory leaves the words as they were, and one too many counted")
{
    teststore s(somewords(120, 5));
    uint32_t count = dictcount(&s.dict);
    wordlist words = storewords(s.dict);
    for (uint32_t n = 1; n <= 3; n++) {
        CHECK(addwithout("si'on", &s.dict, 0)->code == ERRORMEMORY);
        CHECK((dictcount(&s.dict) == count + n && storewords(s.dict) == words));
        CHECK((dictword(count, &s.dict) == std::string() && !storecheck(&s.dict)));
    }
    addwords(&s.dict, {"si'on"}); // with memory the store goes on
    CHECK((dictcount(&s.dict) == count + 4 && storewords(s.dict).size() == words.size() + 1));
    teststore split(somewords(140, 7)); // or a span stays whole until a later insert
    for (char ch = 'a'; split.dict.noindex == 1; ch++)
        CHECK_FALSE(addwithout(std::string(2, ch).c_str(), &split.dict, ch == 'f' ? -1 : 1));
    CHECK(storefault(split.dict) == "");

    bool failed = true; // the first word of all, at every allocation
    for (int32_t n = 0; failed; n++) {
        teststore first;
        failed = addwithout("first", &first.dict, n) != nullptr;
        CHECK((dictcount(&first.dict) == 1 && !storecheck(&first.dict)));
        CHECK(found(first.dict, "first", 0) == (failed ? "-0" : "+0first"));
        CHECK(dictremove("first", &first.dict) == !failed);
        addwords(&first.dict, {"second"});
        CHECK(storewords(first.dict) == wordlist{"second"});
        CHECK((dictremove("second", &first.dict) == 1 && dictcount(&first.dict) == 0));
    }
    for (int32_t n = 0; n < 2; n++) {
        Dictionary dict;
        flexfailafter(n);
        CHECK((dictempty(&dict) && !dict.words && !dict.index && dictcount(&dict) == 0));
        addwords(&dict, {"word"}); // it takes words all the same
        CHECK(storewords(dict) == wordlist{"word"});
        dictfree(&dict);
    }
}

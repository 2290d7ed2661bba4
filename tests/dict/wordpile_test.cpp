// Words gathered and merged, beside the same words added one by one.
#include "dict/wordpile.h"

#include "dict/storecheck.h"
#include "dict/wordscores.h"
#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

#include <cstring>
#include <random>

namespace
{

// Words of few letters, so that many are the same, or but for case.
wordlist randomwords(std::mt19937 &random, size_t count, const char *letters, size_t longest)
{
    wordlist made;
    while (made.size() < count) {
        std::string word;
        for (size_t n = 1 + random() % longest; n; n--)
            word += letters[random() % strlen(letters)];
        made.push_back(word);
    }
    return made;
}

errorblock *together(const wordlist &words, Dictionary *dict)
{
    wordpile pile;
    errorblock *err = pilestart(&pile);
    if (err) return err;
    for (const std::string &word : words)
        if (!err) err = pileadd(&pile, word.c_str());
    if (!err) err = pilemerge(&pile, dict);
    pilefree(&pile);
    return err;
}

} // namespace

TEST_CASE("words merged make the store that they make one by one")
{
    struct row {
        const char *letters;
        size_t longest, before, then;
    };
    // The last but one hold spaces and records that don't fit; a few words go into
    // many in the last.
    static const row rows[] = {
        {"a", 1, 0, 1},      {"abcdefgh", 12, 3000, 3000}, {"aB-'\xE9\xC9z", 9, 500, 900},
        {"ab ", 6, 50, 400}, {"!\x80\x81", 25, 60, 100},   {"abcdef", 8, 2000, 3},
    };
    std::mt19937 random(7);
    for (const row &r : rows) {
        CAPTURE(r.letters);
        wordlist before = randomwords(random, r.before, r.letters, r.longest);
        wordlist then = randomwords(random, r.then, r.letters, r.longest);
        teststore plain(before), merged(before);
        addwords(&plain.dict, then);
        CHECK(together(then, &merged.dict) == nullptr);
        CHECK(merged.dict.nwords == plain.dict.nwords);
        CHECK((blockbytes(merged.dict.words) == blockbytes(plain.dict.words)));
        CHECK(storefault(merged.dict) == storefault(plain.dict));
    }
}

TEST_CASE("a merge that memory is short for leaves a sound store")
{
    std::mt19937 random(1);
    wordlist before = randomwords(random, 300, "abcdefgh", 9);
    wordlist then = randomwords(random, 300, "abcdefgh", 9);
    for (int32_t n = 0; n < 16; n++) {
        teststore store(before);
        uint32_t count = store.dict.nwords;
        flexfailafter(n);
        errorblock *err = together(then, &store.dict);
        flexfailafter(-1);
        CHECK(storefault(store.dict) == "");
        CHECK((err || store.dict.nwords > count));
    }
}

TEST_CASE("an index that is broken or gone is made anew from the words")
{
    std::mt19937 random(3);
    teststore store(randomwords(random, 2000, "abcdefgh", 9));
    Dictionary *dict = &store.dict;
    std::string records = blockbytes(dict->words);
    auto *entries = static_cast<dictindex *>(dict->index);
    entries[1].wordn = entries[0].wordn;
    CHECK(storecheck(dict));
    for (int i = 0; i < 2; i++) {
        CHECK_FALSE(storetake(dict));
        CHECK((storefault(*dict) == "" && blockbytes(dict->words) == records));
        CHECK((dict->nwords / dict->noindex >= 64 && dict->nwords / dict->noindex < 80));
        dict->noindex = 0;
    }
    static_cast<char *>(dict->words)[0] = 3; // a first word with letters of one before it
    CHECK(storetake(dict));
}

TEST_CASE("of a list with scores stay the words that score enough")
{
    std::string list = "low;3\n a;b ;5\r\n\n none\n9;\nodd;5x\nhigh; 50\t\nlast;6";
    CHECK((scoredwords(&list, 5) == 3 && list == "a;b \nhigh\nlast\n"));
}

#include "tests/dict/teststore.h"

#include "dict/dictverify.h"

#include <iterator>

void addwords(Dictionary *dict, const wordlist &words)
{
    for (const std::string &word : words)
        REQUIRE_FALSE(dictadd(word.c_str(), dict));
}

teststore::teststore(const wordlist &words)
{
    REQUIRE_FALSE(dictempty(&dict));
    addwords(&dict, words);
}

teststore::~teststore()
{
    dictfree(&dict);
}

wordlist storewords(const Dictionary &dict)
{
    wordlist words;
    dictcursor cursor;
    for (bool more = dictseek(0, &dict, &cursor); more; more = dictnext(&dict, &cursor))
        words.push_back(cursor.word);
    return words;
}

std::string storefault(const Dictionary &dict)
{
    char text[200];
    return dictverify(&dict, text, sizeof text) ? text : "";
}

std::string blockbytes(const flexptr &anchor)
{
    int32_t size = 0;
    if (anchor) flex_size(&anchor, &size);
    return std::string(static_cast<const char *>(anchor), static_cast<size_t>(size));
}

wordlist somewords(size_t count, uint32_t seed)
{
    static const char *const pieces[] = {"ba", "ter", "ing", "co",  "re", "sta", "le",  "nt", "o",
                                         "si", "Mac", "e",   "ous", "th", "ati", "'on", "-",  "s"};
    std::mt19937 random(seed);
    wordlist words(count);
    for (std::string &word : words)
        for (uint32_t more = 2 + random() % 4; more; more--)
            word += pieces[random() % std::size(pieces)];
    return words;
}

// Dictionary files: any bytes as one. A file that loads is walked, searched,
// edited and saved; what is saved must load again.

#include "dict/dictfile.h"
#include "base/errors.h"
#include "tests/fuzz/fuzz.h"

#include <cstring>

namespace
{

// By steps, and by number. A store that was made up, or edited out of memory, may
// hold fewer words than it says.
void walkall(const Dictionary *dict)
{
    dictcursor cursor;
    uint32_t walked = 0;
    if (dictseek(0, dict, &cursor)) {
        do {
            FUZZCHECK(std::memchr(cursor.word, 0, sizeof cursor.word));
            walked++;
        } while (dictnext(dict, &cursor));
    }
    FUZZCHECK(walked <= dictcount(dict));
    FUZZCHECK(!dictseek(dictcount(dict), dict, &cursor));
    for (uint64_t n = 0; n < dictcount(dict); n += 1 + dictcount(dict) / 50)
        FUZZCHECK(std::strlen(dictword(static_cast<uint32_t>(n), dict)) < WORDSIZE);
    dictcheck(dict);
}

void searchfor(const char *word, const Dictionary *dict)
{
    for (uint32_t option : {0u, FINDHYPHENS, fastfind, fastfind | FINDHYPHENS}) {
        dictcursor cursor;
        uint32_t flags = option;
        char found[WORDSIZE];
        if (dictfind(word, dict, &cursor, &flags) && (option & fastfind)) dictfound(found);
    }
}

// Words from the store and about its ends; they go in and come out again.
void editsome(Dictionary *dict)
{
    const std::string first = dictword(0, dict), middle = dictword(dictcount(dict) / 2, dict);
    const std::string last = dictword(dictcount(dict) - 1, dict);
    const std::string words[] = {"!",
                                 "nation",
                                 "NATIONAL",
                                 "\xE9t\xE9",
                                 "\xFFz-z z'z",
                                 "abcdefghijklmnopqrstuvwxyzabcde",
                                 "abcdefghijklmnopqrstuvwxyzabcdeZ",
                                 first,
                                 middle,
                                 last};
    for (const std::string &word : words) {
        dictadd(word.c_str(), dict);
        searchfor(word.c_str(), dict);
    }
    for (const std::string &word : words) {
        dictremove(word.c_str(), dict);
        searchfor(word.c_str(), dict);
    }
    for (int n = 0; n < 10 && dictcount(dict); n++)
        dictremove(std::string(dictword(0, dict)).c_str(), dict);
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    Dictionary dict = {};
    fuzzwrite(fuzzpath("any.dic"), feed);
    if (dictload(fuzzfolder().c_str(), "any", &dict)) {
        FUZZCHECK(dictcount(&dict) == 0 && dict.noindex == 0);
        dictfree(&dict);
    } else {
        FUZZCHECK(!dictsave(fuzzfolder().c_str(), "saved", &dict));
        FUZZCHECK(!dictload(fuzzfolder().c_str(), "saved", &dict));
        walkall(&dict);
        editsome(&dict);
        walkall(&dict);
        dictfree(&dict);
    }
}

#include "dict/wordimport.h"

#include "base/errors.h"
#include "base/platformfault.h"
#include "dict/dictset.h"
#include "tests/dict/teststore.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace
{

std::string filewith(const std::string &text)
{
    fileput(scratch("words.txt"), text);
    return scratch("words.txt");
}

void freshdict()
{
    ndicts = 1;
    dictfree(&dicts[0].dict);
    dicts[0] = {};
    REQUIRE(dictempty(&dicts[0].dict) == nullptr);
}

// What an import of a text leaves in an empty dictionary.
wordlist imported(const std::string &text)
{
    freshdict();
    CHECK(wordimport(filewith(text).c_str(), 0) == nullptr);
    return storewords(dicts[0].dict);
}

} // namespace

// How a text is cut into words is wordfeed_test.cpp's.
TEST_CASE("words come in from a text, in the order of the store")
{
    CHECK(imported("") == wordlist{});
    CHECK(imported("zebra\r\nant\r\n\r\nbee") == wordlist{"ant", "bee", "zebra"});
    CHECK(imported("caf\xE9\n\xE9tude\n") == wordlist{"caf", "\xE9tude"});
    CHECK(imported("word\nWORD\nWord\n") == wordlist{"Word"});
    // UTF-8, said by a mark or told by what it is; a letter of the code page, others
    // passed over.
    CHECK(imported("\xEF\xBB\xBF"
                   "ant\nbee") == wordlist{"ant", "bee"});
    CHECK(imported("\xC3\xA9tude\ncaf\xC3\xA9\n\xD0\x96xy") == wordlist{"caf", "\xE9tude", "xy"});
    CHECK(imported("\xC3\xA9tude\n\xE9t\xE9\n").size() == 2); // no UTF-8: \xC3 begins a word
}

TEST_CASE("the changed mark tells whether words came in")
{
    freshdict();
    for (const std::string &text :
         {std::string("\n\n"), std::string(32, 'x'), std::string("a\n")}) {
        CHECK(wordimport(filewith(text).c_str(), 0) == nullptr);
        CHECK((dicts[0].changed != 0) == (text == "a\n"));
    }
}

TEST_CASE("a failing import keeps the words before the failure")
{
    freshdict();
    CHECK(wordimport(scratch("none.txt").c_str(), 0) != nullptr);
    CHECK(dicts[0].changed == 0);

    // A file of four buffers, which is read to see what it is and then fails.
    std::string text;
    for (int i = 0; text.size() < 100000; i++)
        text += {'w', static_cast<char>('a' + i / 26 % 26), static_cast<char>('a' + i % 26), '\n'};
    platformfault.reads = 6;
    errorblock *err = wordimport(filewith(text).c_str(), 0);
    platformfault = {};
    REQUIRE(err);
    CHECK(dictcount(&dicts[0].dict) == 26 * 26);
    CHECK(dicts[0].changed != 0);
}

TEST_CASE("words go out as they are stored")
{
    teststore s;
    std::string path = scratch("out.txt");
    CHECK(wordexport(path.c_str(), &s.dict) == nullptr);
    CHECK_FALSE(std::filesystem::exists(path)); // no words, no file
    addwords(&s.dict, {"nation", "Zo\xEB", "co-op", "ice cream", "can't"});
    CHECK(wordexport(path.c_str(), &s.dict) == nullptr);
    CHECK(fileget(path) == "can't\r\nco-op\r\nice cream\r\nnation\r\nZo\xEB\r\n");
    CHECK(wordexport(scratch("no/out.txt").c_str(), &s.dict) != nullptr);
}
